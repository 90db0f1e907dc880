#include "pages/Settings.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "pages/SettingsBinding.h"
#include "settings/SettingsKeys.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

// Values by key and name. What is held is lost when a flush fails.
class HoldingStore : public RegistryStore {
 public:
  using Name = std::pair<std::string, std::string>;

  bool KeyExists(const std::string& key) override { return !key.empty(); }
  bool CreateKey(const std::string& /*key*/) override { return true; }
  bool DeleteKey(const std::string& /*key*/) override { return true; }
  std::optional<RegistryValue> ReadValue(const std::string& key, const std::string& name) override {
    const auto found = values.find({key, name});
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override {
    written.push_back(name);
    if (!held) held = values;
    values[{key, name}] = value;
    return true;
  }
  bool DeleteValue(const std::string& key, const std::string& name) override {
    return values.erase({key, name}) > 0;
  }
  std::vector<std::string> ValueNames(const std::string& /*key*/) override { return {}; }
  std::vector<std::string> SubKeys(const std::string& /*key*/) override { return {}; }
  std::string ExpandEnvironment(const std::string& text) override { return text; }
  void Hold() override { held = values; }
  bool Flush() override {
    if (broken && held) values = *held;
    held.reset();
    return !broken;
  }

  std::map<Name, RegistryValue> values;
  std::optional<std::map<Name, RegistryValue>> held;
  std::vector<std::string> written;
  bool broken = false;
};

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() { texts.Replace(NumberedTexts()); }

  std::string Stored(const char* key, const char* name) { return store.values[{key, name}].text; }
  void Store(const char* key, const char* name, const std::string& text) {
    store.values[{key, name}] = {ValueKind::Text, text, 0};
  }

  FakeWorld world;
  frmMain form;
  SettingsValues values;
  SettingsBinding binding{form, values};
  TextTable texts{world.log};
  HoldingStore store;
  Registry registry{store, world.folders};
  std::string steps;
  Settings settings{world.log,
                    world.state,
                    form,
                    values,
                    texts,
                    world.status,
                    registry,
                    {.SetLogCleanTimer = [this] { steps += "timer "; },
                     .LoadContacts = [this] { steps += "load "; },
                     .SaveContacts = [this] { steps += "save "; },
                     .UseRepeatHotKeys = [this] { steps += "hotkeys "; }}};
};

TEST_F(SettingsTest, FillsAnEmptyStoreBeforeItReads) {
  settings.GetAllSettings();
  EXPECT_EQ(steps, "save timer load hotkeys ");
  EXPECT_EQ(Stored(kTextKey, "Says"), "text 29");
  EXPECT_EQ(Stored(kTextKey, "Busy"), "text 33");
  EXPECT_EQ(Stored(kGeneralKey, "IntroductionText"), "text 11");
  EXPECT_EQ(form.txtSays.Text(), "text 29");
}

TEST_F(SettingsTest, ReadsAFilledStoreWithoutWriting) {
  Store(kTextKey, "Online", "here");
  settings.GetAllSettings();
  EXPECT_EQ(steps, "timer load hotkeys ");
  EXPECT_TRUE(store.written.empty());
}

TEST_F(SettingsTest, EmptyTextsFallBack) {
  Store(kTextKey, "Online", " ");
  settings.GetAllSettings();
  EXPECT_EQ(form.txtOnline.Text(), " ");
  EXPECT_EQ(form.txtOffline.Text(), "text 31");
  EXPECT_EQ(form.txtAway.Text(), "text 32");
  EXPECT_EQ(form.txtBusy.Text(), "text 33");
  EXPECT_EQ(form.txtSays.Text(), "text 19");
  EXPECT_EQ(form.txtIntroductionText.Text(), "text 11");
}

TEST_F(SettingsTest, WritesInItsOrder) {
  form.cmbLanguage.AddItem("English");
  form.cmbLanguage.SetListIndex(0);
  form.cmbVoiceMale.SetText("Mike");
  settings.SaveAllSettings(0);
  EXPECT_EQ(store.written, (std::vector<std::string>{
                               "Introduce",
                               "ShowStartupScreen",
                               "Debug",
                               "IntroductionText",
                               "CheckNewVersionsMessenger",
                               "CheckNewVersionsBrenwick",
                               "Language",
                               "IntroduceUser",
                               "NoMessageOnlyUserState",
                               "NotifyUserState",
                               "FirstName",
                               "NotifyNewEmail",
                               "Mute",
                               "SaveConversations",
                               "ScrollLock",
                               "ConversationCleanUp",
                               "DebugCleanUp",
                               "FinishSentence",
                               "UseRepeatHotkeys",
                               "UseMyNames",
                               "ConversationsDaysToKeep",
                               "DebugDaysToKeep",
                               "GenderSort",
                               "IgnoreSort",
                               "BuddyNamesSort",
                               "Male Voice",
                               "Default Voice",
                               "Female Speed",
                               "Male Speed",
                               "Female Volume",
                               "Male Volume",
                               "Online",
                               "Offline",
                               "Away",
                               "Busy",
                               "Says",
                           }));
  EXPECT_EQ(steps, "save ");
}

TEST_F(SettingsTest, SavesTheSortOrdersAlone) {
  world.state.Debug = true;
  form.optIgnoreSortName.Choose();
  settings.SaveAllSettings(-1);
  EXPECT_EQ(store.written,
            (std::vector<std::string>{"GenderSort", "IgnoreSort", "BuddyNamesSort"}));
  EXPECT_EQ(Stored(kGridsKey, "IgnoreSort"), "M");
  EXPECT_EQ(steps, "");
  EXPECT_TRUE(world.DebugLines().empty());
}

TEST_F(SettingsTest, OtherPagesHaveNoDefaults) {
  form.chkMute.SetTicked(true);
  form.txtBusy.SetText("mine");
  form.txtIntroductionText.SetText("mine");
  for (const int page : {-1, 3, 4, 32767}) {
    settings.Application_Defaults(static_cast<std::int16_t>(page));
  }
  EXPECT_TRUE(form.chkMute.Ticked());
  EXPECT_EQ(form.txtBusy.Text() + form.txtIntroductionText.Text(), "minemine");
}

TEST_F(SettingsTest, DefaultsDoNotTouchTheStore) {
  for (std::int16_t page = 0; page <= 2; ++page) settings.Application_Defaults(page);
  EXPECT_TRUE(store.written.empty());
  EXPECT_TRUE(form.chkStartWithWindows.Ticked());
}

// The click handlers do what the boxes say, so their order is what the user sees.
TEST_F(SettingsTest, DefaultsOfTheUsersPageComeInTheirOrder) {
  std::string order;
  for (CheckBox* box :
       {&form.chkNotifyUserState, &form.chkDoNotSpeakMessage, &form.chkNotifyNewEmail,
        &form.chkIntroduceUser, &form.chkUseMyNamesInsteadOfBuddyNames, &form.chkFirstName,
        &form.chkScrollLock, &form.chkFinishSentence, &form.chkMute}) {
    box->SetTicked(!box->Ticked());
    box->Click = [&order, box] { order += box->Name() + " "; };
  }
  settings.Application_Defaults(2);
  EXPECT_EQ(order,
            "chkNotifyUserState chkDoNotSpeakMessage chkNotifyNewEmail chkIntroduceUser "
            "chkUseMyNamesInsteadOfBuddyNames chkFirstName chkScrollLock chkFinishSentence "
            "chkMute ");
}

TEST_F(SettingsTest, StoreThatCannotBeWrittenIsReported) {
  Store(kTextKey, "Online", "here");
  settings.GetAllSettings();
  store.broken = true;
  form.txtBusy.SetText("at work");
  EXPECT_THROW(settings.SaveAllSettings(0), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  const std::string& text = world.screen.boxes[0].text;
  EXPECT_TRUE(
      text.starts_with("Error (26001) : Failed to set registry value Key: "
                       "'-2147483647',Section: 'Software\\Brenwick\\"))
      << text;
  EXPECT_NE(text.find("',Key: '"), std::string::npos) << text;
  EXPECT_NE(text.find("' to value: '"), std::string::npos) << text;
  EXPECT_NE(text.find("Module: modFunctions\r\nProcedure: SaveAllSettings"), std::string::npos);
  EXPECT_EQ(Stored(kTextKey, "Busy"), "");
}

TEST_F(SettingsTest, NamesTheStoreAsTheSourceOfItsFailure) {
  Store(kTextKey, "Online", "here");
  settings.GetAllSettings();
  world.state.Debug = true;
  store.broken = true;
  EXPECT_THROW(settings.SaveAllSettings(0), ProgramEnd);
  EXPECT_TRUE(world.DebugLines().back().ends_with(", Source: brenwick.cRegistry"))
      << world.DebugLines().back();
}

TEST_F(SettingsTest, WhatWasReadStaysWhenTheContactsFail) {
  Store(kTextKey, "Online", "here");
  Store(kUserKey, "Mute", "1");
  Settings failing{world.log,
                   world.state,
                   form,
                   values,
                   texts,
                   world.status,
                   registry,
                   {.SetLogCleanTimer = [] {},
                    .LoadContacts = [] { throw Failure(kPastEnd); },
                    .SaveContacts = [] {},
                    .UseRepeatHotKeys = [this] { steps += "hotkeys "; }}};
  EXPECT_THROW(failing.GetAllSettings(), ProgramEnd);
  EXPECT_TRUE(form.chkMute.Ticked());
  EXPECT_EQ(form.txtOnline.Text(), "here");
  EXPECT_TRUE(failing.Loaded());
  EXPECT_EQ(steps, "");
}

}  // namespace
}  // namespace brenwick
