// The lists of contacts, brought up to date line by line, beside lists that are always filled from
// the beginning.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "pages/ContactPages.h"
#include "pages/SettingsBinding.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

constexpr int kPixels = 6;  // of each character on the screen of the tests

// What a list of contacts must hold: at each fill it is cleared and gets one line after the other.
class PlainPage {
 public:
  PlainPage(std::string which, int page, frmMain& form, ListBox& list, const OptionButton& byEmail,
            const OptionButton& byName, const ContactList& contacts, const TextTable& texts)
      : which_(std::move(which)),
        frame_(form.fraPage.at(static_cast<std::size_t>(page))),
        form_(form),
        shown_(list),
        by_email_(byEmail),
        by_name_(byName),
        contacts_(contacts),
        texts_(texts) {}

  const std::string& Which() const { return which_; }
  Frame& Page() { return frame_; }
  ListBox& Shown() { return shown_; }
  ListBox& Plain() { return plain_; }

  void Fill() {
    plain_.Clear();
    std::array<std::size_t, 4> widths{};
    for (const ContactRecord& record : contacts_.Records()) {
      if (record.Email.empty()) continue;
      const std::array<std::string, 4> cells = Cells(record);
      for (std::size_t i = 0; i < cells.size(); ++i) {
        widths[i] = std::max(widths[i], (cells[i].size() + 2) * 4);
      }
      plain_.AddItem(Line(cells));
    }
    std::vector<int> stops;
    for (const std::size_t width : widths) {
      stops.push_back((stops.empty() ? 0 : stops.back()) + static_cast<int>(width));
    }
    plain_.SetHorizontalExtent(stops.back() / 4 * kPixels);
    plain_.SetTabStops(stops);
  }

  // Returns where the line was put; nothing for a free slot.
  std::optional<int> Add(std::size_t record) {
    const ContactRecord& added = contacts_.Records().at(record);
    if (added.Email.empty()) return std::nullopt;
    plain_.AddItem(Line(Cells(added)));
    return plain_.NewIndex();
  }

 private:
  static std::string Line(const std::array<std::string, 4>& cells) {
    return cells[0] + "\t" + cells[1] + "\t" + cells[2] + "\t" + cells[3] + "\t";
  }

  std::string Word(const ContactRecord& record) const {
    if (which_ == "I") return texts_.LoadText(record.Ignore == "True" ? 167 : 168);
    const bool female = record.Gender == "F" || (record.Gender == "?" && form_.optFemale.Chosen());
    return texts_.LoadText(female ? 117 : 116);
  }

  std::array<std::string, 4> Cells(const ContactRecord& record) const {
    const std::string email = "(" + record.Email + ")";
    const std::string& own = record.FriendlyName;
    if (which_ == "A") {
      if (by_email_.Chosen()) return {record.Email, record.Name, own, email};
      if (by_name_.Chosen()) return {own, record.Name, "", email};
      return {record.Name, own, "", email};
    }
    const bool own_names = form_.chkUseMyNamesInsteadOfBuddyNames.Ticked();
    if (by_email_.Chosen()) {
      return {record.Email, Word(record), own_names ? own : record.Name, email};
    }
    if (by_name_.Chosen()) return {own, Word(record), "", email};
    return {record.Name, Word(record), own_names ? own : "", email};
  }

  std::string which_;
  Frame& frame_;
  frmMain& form_;
  ListBox& shown_;
  const OptionButton& by_email_;
  const OptionButton& by_name_;
  const ContactList& contacts_;
  const TextTable& texts_;
  frmMain plain_form_;
  ListBox& plain_ = plain_form_.lstGender;
};

// Follows a list line by line, as a view does.
class Follower {
 public:
  explicit Follower(ListBox& list) : list_(list) {
    subscriptions_.push_back(list.LineAdded.Observe(
        [this](int at) { lines.insert(lines.begin() + at, list_.List(at)); }));
    subscriptions_.push_back(list.LineChanged.Observe(
        [this](int at) { lines.at(static_cast<std::size_t>(at)) = list_.List(at); }));
    subscriptions_.push_back(
        list.LineRemoved.Observe([this](int at) { lines.erase(lines.begin() + at); }));
    subscriptions_.push_back(list.LinesCleared.Observe([this] { lines = list_.Items(); }));
  }

  std::vector<std::string> lines;

 private:
  ListBox& list_;
  std::vector<Subscription> subscriptions_;
};

class ContactLinesTest : public testing::Test {
 protected:
  ContactLinesTest() {
    texts.Replace(NumberedTexts());
    ShowPage(-1);
  }

  std::size_t Any(std::size_t count) { return random() % count; }
  template <typename Choices>
  auto OneOf(const Choices& choices) {
    return choices[Any(std::size(choices))];
  }
  std::string AnyEmail() { return "mail" + std::to_string(Any(contact_count)) + "@x"; }
  // Several are the same but for the case of their letters.
  std::string AnyName() {
    static const std::vector<std::string> kNames = {
        "Ann", "ann", "ANN", "Bob", "bOB", "Élan", "élan", "", "Zoe", "A very long name"};
    return OneOf(kNames);
  }
  std::string AnyFlag() { return OneOf(std::vector<std::string>{"True", "False", ""}); }
  std::string AnyGender() { return OneOf(std::vector<std::string>{"F", "M", "?", ""}); }

  std::vector<ContactRecord> AnyRecords() {
    std::vector<ContactRecord> records(Any(2 * contact_count));
    for (ContactRecord& record : records) {
      if (Any(8) == 0) continue;
      record = {AnyEmail(), AnyName(), AnyName(), AnyGender(), AnyFlag(), "10", AnyFlag()};
    }
    return records;
  }

  void ShowPage(int shown) {
    for (Frame& page : form.fraPage) page.SetVisible(page.Index() == shown);
  }

  void Refill(const std::string& which) {
    pages.FillContactList(which, 0);
    for (PlainPage& plain : plains) {
      if (which == plain.Which() || which == "X") plain.Fill();
    }
  }

  void Add() {
    list.ListAdd(AnyEmail(), AnyName(), 10);
    for (PlainPage& plain : plains) {
      if (plain.Which() != "A" && plain.Page().Visible()) plain.Fill();
    }
  }

  void Mod() {
    const std::string code = OneOf(std::vector<std::string>{"N", "A", "G", "I", "I", "S", "X"});
    const std::string email = Any(10) == 0 ? "" : AnyEmail();
    const std::string value = code == "G" ? AnyGender() : code == "I" ? AnyFlag() : AnyName();
    const ContactRecord* found = list.FindRecord(email);
    const auto record = static_cast<std::size_t>(found - list.Records().data());
    const int opened = pages.SelectedListLine = static_cast<std::int16_t>(Any(6)) - 1;
    list.ListMod(code, email, value);
    for (PlainPage& plain : plains) {
      if (!plain.Page().Visible()) continue;
      ListBox& lines = plain.Plain();
      if (opened >= 0 && opened < lines.ListCount()) lines.RemoveItem(opened);
      if (found == nullptr) {
        plain.Fill();
      } else if (const std::optional<int> place = plain.Add(record)) {
        new_line = *place;
      }
    }
  }

  // Somebody else's change of a list.
  void Meddle(PlainPage& plain) {
    const int count = plain.Plain().ListCount();
    for (ListBox* lines : {&plain.Shown(), &plain.Plain()}) {
      if (count == 0) {
        lines->AddItem("meddled");
      } else {
        lines->SetList(count / 2, "meddled");
      }
    }
  }

  void Select(PlainPage& plain) {
    const int line = static_cast<int>(Any(static_cast<std::size_t>(plain.Plain().ListCount()) + 1));
    plain.Shown().SetListIndex(line - 1);
    plain.Plain().SetListIndex(line - 1);
  }

  void DoSomething() {
    PlainPage& plain = plains.at(Any(plains.size()));
    switch (Any(40)) {
      case 0:
        return list.Replace(AnyRecords());
      case 1:
        return list.SetAllIgnored(AnyFlag());
      case 2:
        return ShowPage(OneOf(std::array{kGenderPage, kIgnorePage, kBuddyNamesPage, kTextPage}));
      case 3:
        return OneOf(sort_options)->Choose();
      case 4:
        return form.chkUseMyNamesInsteadOfBuddyNames.SetTicked(Any(2) == 0);
      case 5:
        return OneOf(std::array{&form.optMale, &form.optFemale})->Choose();
      case 6:
        return texts.Replace(Any(2) == 0 ? NumberedTexts() : std::vector<std::string>(175, "word"));
      case 7:
        return Meddle(plain);
      case 8:
      case 9:
      case 10:
        return Select(plain);
      case 11:
      case 12:
        return Refill(Any(4) == 0 ? "X" : plain.Which());
    }
    return Any(2) == 0 ? Add() : Mod();
  }

  void ExpectTheSame(int round) {
    for (std::size_t i = 0; i < plains.size(); ++i) {
      const ListBox& shown = plains[i].Shown();
      const ListBox& plain = plains[i].Plain();
      ASSERT_EQ(shown.Items(), plain.Items()) << round << " " << plains[i].Which();
      ASSERT_EQ(followers[i].lines, plain.Items()) << round;
      ASSERT_EQ(shown.ListIndex(), plain.ListIndex()) << round;
      ASSERT_EQ(shown.NewIndex(), plain.NewIndex()) << round;
      ASSERT_EQ(shown.TabStops(), plain.TabStops()) << round;
      ASSERT_EQ(shown.HorizontalExtent(), plain.HorizontalExtent()) << round;
    }
    ASSERT_EQ(pages.NewListLine, new_line) << round;
  }

  std::mt19937 random{5};
  std::size_t contact_count = 6;
  int new_line = 0;
  FakeWorld world;
  frmMain form;
  SettingsValues settings;
  SettingsBinding binding{form, settings};
  TextTable texts{world.log};
  ContactList list{world.log, settings, texts};
  ContactPages pages{world.log, form, world.screen, list};
  std::array<PlainPage, 3> plains{{
      {"G", kGenderPage, form, form.lstGender, form.optGenderSortEmail, form.optGenderSortName,
       list, texts},
      {"I", kIgnorePage, form, form.lstIgnore, form.optIgnoreSortEmail, form.optIgnoreSortName,
       list, texts},
      {"A", kBuddyNamesPage, form, form.lstBuddyNames, form.optBuddyNamesSortEmail,
       form.optBuddyNamesSortName, list, texts},
  }};
  std::array<Follower, 3> followers{
      {Follower(form.lstGender), Follower(form.lstIgnore), Follower(form.lstBuddyNames)}};
  std::vector<OptionButton*> sort_options = {
      &form.optGenderSortContact,     &form.optGenderSortEmail,     &form.optGenderSortName,
      &form.optIgnoreSortContact,     &form.optIgnoreSortEmail,     &form.optIgnoreSortName,
      &form.optBuddyNamesSortContact, &form.optBuddyNamesSortEmail, &form.optBuddyNamesSortName};
};

TEST_F(ContactLinesTest, FewContactsAreShownAsIfFilledFromTheBeginning) {
  for (int round = 0; round < 6'000; ++round) {
    DoSomething();
    ASSERT_NO_FATAL_FAILURE(ExpectTheSame(round));
  }
}

TEST_F(ContactLinesTest, ManyContactsAreShownAsIfFilledFromTheBeginning) {
  contact_count = 60;
  for (int round = 0; round < 3'000; ++round) {
    DoSomething();
    ASSERT_NO_FATAL_FAILURE(ExpectTheSame(round));
  }
}

class TouchedLinesTest : public ContactLinesTest {
 protected:
  TouchedLinesTest() {
    list.Replace({{"ann@x", "Ann", "", "F", "", "10", ""},
                  {"bob@x", "Bob", "", "M", "", "10", ""},
                  {"cy@x", "Cy", "", "M", "", "10", ""}});
    ShowPage(kGenderPage);
    pages.FillContactList("G", 0);
    const auto note = [this](const char* what) {
      return [this, what](int at) { touched.push_back(what + std::to_string(at)); };
    };
    subscriptions.push_back(form.lstGender.LineAdded.Observe(note("+")));
    subscriptions.push_back(form.lstGender.LineChanged.Observe(note("!")));
    subscriptions.push_back(form.lstGender.LineRemoved.Observe(note("-")));
    subscriptions.push_back(
        form.lstGender.LinesCleared.Observe([this] { touched.emplace_back("cleared"); }));
  }

  std::vector<std::string> touched;
  std::vector<Subscription> subscriptions;
};

using Touched = std::vector<std::string>;

TEST_F(TouchedLinesTest, ChangeOfTheStateAloneTouchesNoLine) {
  list.ListAdd("bob@x", "Bob", 12);
  EXPECT_EQ(touched, Touched{});
}

TEST_F(TouchedLinesTest, ChangeOfTheNameReplacesALineWhereItStays) {
  list.ListAdd("bob@x", "Bobby", 10);
  EXPECT_EQ(touched, Touched{"!1"});
}

TEST_F(TouchedLinesTest, ChangeOfTheNameMovesTheOneLine) {
  list.ListAdd("ann@x", "Zoe", 10);
  EXPECT_EQ(touched, (Touched{"-0", "+2"}));
}

TEST_F(TouchedLinesTest, NewContactGetsALine) {
  list.ListAdd("bea@x", "Bea", 10);
  EXPECT_EQ(touched, Touched{"+1"});
}

TEST_F(TouchedLinesTest, SelectionGoesWithoutAClick) {
  form.lstGender.SetListIndex(1);
  int clicks = 0;
  form.lstGender.Click = [&] { ++clicks; };
  list.ListAdd("bob@x", "Bob", 12);
  EXPECT_EQ(form.lstGender.ListIndex(), -1);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(touched, Touched{});
}

}  // namespace
}  // namespace brenwick
