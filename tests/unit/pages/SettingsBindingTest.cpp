#include "pages/SettingsBinding.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace brenwick {
namespace {

class SettingsBindingTest : public testing::Test {
 protected:
  // What the controls show, read without the binding that is tested.
  SettingsValues Shown() const {
    SettingsValues shown;
    for (const SettingRow& row : SettingsTable())
      std::visit([&](auto of) { Take(of, shown); }, row.binding);
    return shown;
  }

  void Take(FlagBox flag, SettingsValues& shown) const {
    shown.*flag.value = (form.*flag.box).Ticked();
  }
  void Take(StartEntry start, SettingsValues& shown) const {
    shown.*start.value = (form.*start.box).Ticked();
  }
  void Take(TypedText typed, SettingsValues& shown) const {
    shown.*typed.value = (form.*typed.box).Text();
  }
  void Take(SortOptions sort, SettingsValues& shown) const {
    if ((form.*sort.email).Chosen()) shown.*sort.value = SortOrder::Email;
    if ((form.*sort.name).Chosen()) shown.*sort.value = SortOrder::Name;
  }
  void Take(VoiceOptions voice, SettingsValues& shown) const {
    shown.*voice.value = (form.*voice.male).Chosen() ? "M" : "F";
  }
  void Take(ChosenText chosen, SettingsValues& shown) const {
    shown.*chosen.value = {(form.*chosen.combo).ListIndex(), (form.*chosen.combo).Text()};
  }

  void Compare() {
    ++compared;
    EXPECT_EQ(values, Shown());
  }

  // Compares inside every handler of every control that a setting has.
  void CompareInHandlers() {
    for (const SettingRow& row : SettingsTable())
      std::visit([&](auto of) { Watch(of); }, row.binding);
  }
  void Watch(FlagBox flag) {
    (form.*flag.box).Click = [this] { Compare(); };
    changes.emplace_back([this, &box = form.*flag.box](int n) { box.SetTicked(n % 2 == 0); });
    changes.emplace_back([&box = form.*flag.box](int) { box.UserClick(); });
  }
  void Watch(StartEntry start) { Watch(FlagBox{start.box, start.value}); }
  void Watch(TypedText typed) {
    (form.*typed.box).Change = [this] { Compare(); };
    changes.emplace_back([&box = form.*typed.box](int n) { box.SetText(std::to_string(n)); });
    changes.emplace_back(
        [&box = form.*typed.box](int n) { box.UserTypes(std::string(1, char('a' + n))); });
  }
  void Watch(SortOptions sort) { Watch({sort.email, sort.name, sort.contact}); }
  void Watch(VoiceOptions voice) { Watch({voice.female, voice.male}); }
  void Watch(std::initializer_list<OptionButton frmMain::*> options) {
    for (OptionButton frmMain::*option : options) {
      (form.*option).Click = [this] { Compare(); };
      changes.emplace_back([&button = form.*option](int) { button.Choose(); });
      changes.emplace_back([&button = form.*option](int) { button.UserClick(); });
    }
  }
  void Watch(ChosenText chosen) {
    ComboBox& combo = form.*chosen.combo;
    for (const char* entry : {"zero", "one", "two"}) combo.AddItem(entry);
    combo.Click = [this] { Compare(); };
    combo.Change = [this] { Compare(); };
    changes.emplace_back([&combo](int n) { combo.SetListIndex(n % 4 - 1); });
    changes.emplace_back([&combo](int n) { combo.UserSelect(n % 4 - 1); });
    changes.emplace_back([&combo](int n) { combo.UserTypesCharacter(U'a' + char32_t(n)); });
    changes.emplace_back([&combo](int) { combo.UserTypesCharacter(kKeyBackspace); });
    changes.emplace_back([&combo](int) { combo.UserEmpties(); });
  }

  frmMain form;
  SettingsValues values;
  std::vector<std::function<void(int)>> changes;
  int compared = 0;
};

TEST_F(SettingsBindingTest, BeginsWithWhatTheControlsShow) {
  form.txtBusy.SetText("is hard at work");
  const SettingsBinding binding(form, values);
  EXPECT_EQ(values, Shown());
  EXPECT_TRUE(values.Introduce);
  EXPECT_EQ(values.Busy, "is hard at work");
  EXPECT_EQ(values.DefaultVoice, "F");
  EXPECT_EQ(values.MaleVoice, ChosenEntry{});
}

TEST_F(SettingsBindingTest, FollowsTheOptions) {
  const SettingsBinding binding(form, values);
  CompareInHandlers();
  form.optMale.Choose();
  form.optGenderSortEmail.Choose();
  form.optIgnoreSortName.Choose();
  EXPECT_EQ(values.DefaultVoice, "M");
  EXPECT_EQ(values.GenderSort, SortOrder::Email);
  EXPECT_EQ(values.IgnoreSort, SortOrder::Name);
  EXPECT_EQ(values.BuddyNamesSort, SortOrder::Contact);
  EXPECT_EQ(compared, 3);
}

TEST_F(SettingsBindingTest, IsUpToDateInEveryHandler) {
  const SettingsBinding binding(form, values);
  CompareInHandlers();
  std::mt19937 random(1);
  for (int step = 0; step < 5000; ++step) {
    changes[random() % changes.size()](static_cast<int>(random() % 10));
    ASSERT_EQ(values, Shown()) << "step " << step;
  }
  EXPECT_GT(compared, 1000);
}

TEST_F(SettingsBindingTest, IsUpToDateForLaterObservers) {
  const SettingsBinding binding(form, values);
  std::string seen;
  const Subscription later = form.txtSays.Changed.Observe([&] { seen = values.Says; });
  form.txtSays.UserTypes("shouts");
  EXPECT_EQ(seen, "shouts");
}

}  // namespace
}  // namespace brenwick
