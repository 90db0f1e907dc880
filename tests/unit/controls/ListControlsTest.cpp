// Lists and drop-down lists by both their doors.
#include <algorithm>
#include <string>
#include <vector>

#include "controls/ComboBox.h"
#include "controls/ListBox.h"
#include "unit/controls/ControlsTest.h"

namespace brenwick {
namespace {

class ListControlsTest : public ControlsTest {};

TEST_F(ListControlsTest, ListKeepsLinesAsTheyAreAdded) {
  ListBox list{place, "lst"};
  for (const char* line : {"b", "a", "c"}) list.AddItem(line);
  EXPECT_EQ(list.Items(), (Texts{"b", "a", "c"}));
  EXPECT_EQ(list.NewIndex(), 2);
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_EQ(list.List(1), "a");
  EXPECT_EQ(list.List(-1), "");
  EXPECT_EQ(list.List(3), "");
}

TEST_F(ListControlsTest, SortedListPutsEachLineInItsPlace) {
  ListBox list{place, "lst", ListBox::Order::Sorted};
  std::vector<int> places;
  for (const char* line : {"dora", "Anna", "éva", "Bert", "anna", "ÉVA"}) {
    list.AddItem(line);
    places.push_back(list.NewIndex());
  }
  EXPECT_EQ(list.Items(), (Texts{"Anna", "anna", "Bert", "dora", "éva", "ÉVA"}));
  EXPECT_EQ(places, (std::vector<int>{0, 0, 2, 1, 1, 5}));
}

TEST_F(ListControlsTest, ListClicksWhenAnotherLineIsSelectedFromCode) {
  ListBox list{place, "lst"};
  list.AddItem("a");
  list.AddItem("b");
  list.Click = Count();
  list.SetListIndex(1);
  EXPECT_EQ(count, 1);
  list.SetListIndex(1);
  EXPECT_EQ(count, 1);
  list.SetListIndex(-1);
  EXPECT_EQ(count, 2);
  ExpectInvalidCall([&] { list.SetListIndex(2); });
  ExpectInvalidCall([&] { list.SetListIndex(-2); });
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(ListControlsTest, SelectedLineStaysSelectedWhenLinesCome) {
  ListBox list{place, "lst", ListBox::Order::Sorted};
  list.AddItem("m");
  list.SetListIndex(0);
  list.Click = Count();
  list.AddItem("z");
  EXPECT_EQ(list.ListIndex(), 0);
  list.AddItem("a");
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.List(list.ListIndex()), "m");
  EXPECT_EQ(count, 0);
}

TEST_F(ListControlsTest, SelectedLineStaysSelectedWhenOthersGo) {
  ListBox list{place, "lst"};
  for (const char* line : {"a", "b", "c", "d"}) list.AddItem(line);
  list.SetListIndex(2);
  list.Click = Count();
  list.RemoveItem(3);
  EXPECT_EQ(list.ListIndex(), 2);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Items(), (Texts{"b"}));
  EXPECT_EQ(count, 0);
  ExpectInvalidCall([&] { list.RemoveItem(1); });
  ExpectInvalidCall([&] { list.RemoveItem(-1); });
}

TEST_F(ListControlsTest, ClearedListIsEmpty) {
  ListBox list{place, "lst"};
  list.AddItem("a");
  list.SetListIndex(0);
  list.Click = Count();
  list.Clear();
  EXPECT_EQ(list.Items(), Texts{});
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.NewIndex(), -1);
  EXPECT_EQ(count, 0);
}

TEST_F(ListControlsTest, ListTellsItsViewsWhatHappenedToWhichLine) {
  ListBox list{place, "lst", ListBox::Order::Sorted};
  Texts told;
  const Subscription added =
      list.LineAdded.Observe([&](int at) { told.push_back("+" + std::to_string(at)); });
  const Subscription removed =
      list.LineRemoved.Observe([&](int at) { told.push_back("-" + std::to_string(at)); });
  const Subscription cleared = list.LinesCleared.Observe([&] { told.emplace_back("0"); });
  const Subscription changed = list.Changed.Observe([&] { told.emplace_back("changed"); });
  list.AddItem("b");
  list.AddItem("a");
  list.RemoveItem(1);
  list.Clear();
  EXPECT_EQ(told, (Texts{"+0", "changed", "+0", "changed", "-1", "changed", "0", "changed"}));
}

TEST_F(ListControlsTest, RefilledListIsAsIfClearedAndFilledLineByLine) {
  const Texts lines = {"b", "C", "a", "B", "c", "", "é", "É", "b"};
  for (const ListBox::Order order : {ListBox::Order::AsAdded, ListBox::Order::Sorted}) {
    ListBox expected{place, "lst", order};
    ListBox list{place, "lst", order};
    list.AddItem("before");
    list.SetListIndex(0);
    list.Click = Count();
    std::vector<int> places = list.Refill(lines);
    for (const std::string& line : lines) expected.AddItem(line);
    EXPECT_EQ(list.Items(), expected.Items());
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.NewIndex(), expected.NewIndex());
    for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(list.List(places[i]), lines[i]) << i;
    std::sort(places.begin(), places.end());
    EXPECT_EQ(places, (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
  }
  EXPECT_EQ(count, 0);
}

TEST_F(ListControlsTest, ListRefilledWithNothingIsEmpty) {
  ListBox list{place, "lst"};
  list.AddItem("a");
  EXPECT_EQ(list.Refill({}), std::vector<int>{});
  EXPECT_EQ(list.Items(), Texts{});
  EXPECT_EQ(list.NewIndex(), -1);
}

TEST_F(ListControlsTest, LineIsInsertedWhateverTheOrder) {
  ListBox list{place, "lst", ListBox::Order::Sorted};
  for (const char* line : {"a", "b"}) list.AddItem(line);
  list.SetListIndex(1);
  list.InsertItem(1, "z");
  EXPECT_EQ(list.Items(), (Texts{"a", "z", "b"}));
  EXPECT_EQ(list.NewIndex(), 1);
  EXPECT_EQ(list.ListIndex(), 2);
  list.InsertItem(3, "0");
  EXPECT_EQ(list.NewIndex(), 3);
  ExpectInvalidCall([&] { list.InsertItem(5, "5"); });
  ExpectInvalidCall([&] { list.InsertItem(-1, "5"); });
}

TEST_F(ListControlsTest, ListThatCountsAsRefilledKeepsItsLines) {
  ListBox list{place, "lst"};
  for (const char* line : {"a", "b"}) list.AddItem(line);
  list.SetListIndex(1);
  list.Click = Count();
  list.SetRefilled(0);
  EXPECT_EQ(list.Items(), (Texts{"a", "b"}));
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.NewIndex(), 0);
  EXPECT_EQ(count, 0);
}

TEST_F(ListControlsTest, ListClicksAtEachClickOfTheUser) {
  ListBox list{place, "lst"};
  list.AddItem("a");
  list.SetListIndex(0);
  list.Click = Count();
  ExpectUserShutOut(list, [&] { list.UserSelect(0); });
  EXPECT_EQ(count, 1);
  list.UserSelect(1);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(ListControlsTest, ListPassesDoubleClicksAndKeysOn) {
  ListBox list{place, "lst"};
  list.DblClick = Count();
  ExpectUserShutOut(list, [&] { list.UserDoubleClick(); });
  count = 0;
  list.KeyPress = [&](int character) { count += character; };
  ExpectUserShutOut(list, [&] { list.UserKey(13); });
  EXPECT_EQ(count, 13);
}

TEST_F(ListControlsTest, ListKeepsWhereItsColumnsBegin) {
  ListBox list{place, "lst"};
  EXPECT_EQ(Changes(list, [&] { list.SetTabStops({40, 80}); }), 1);
  EXPECT_EQ(Changes(list, [&] { list.SetHorizontalExtent(300); }), 1);
  EXPECT_EQ(list.TabStops(), (std::vector<int>{40, 80}));
  EXPECT_EQ(list.HorizontalExtent(), 300);
}

class ComboTest : public ListControlsTest {
 protected:
  ComboTest() {
    for (const char* entry : {"Anna", "Bert", "señor"}) combo.AddItem(entry);
    combo.Click = [this] { events.push_back("click " + combo.Text()); };
    combo.Change = [this] { events.push_back("change " + combo.Text()); };
    combo.KeyDown = [this](int code) { events.push_back("down " + std::to_string(code)); };
    combo.KeyPress = [this](int code) { events.push_back("press " + std::to_string(code)); };
  }

  ComboBox combo{place, "cmb"};
  Texts events;
};

TEST_F(ComboTest, StartsWithNothingSelected) {
  EXPECT_EQ(combo.Items(), (Texts{"Anna", "Bert", "señor"}));
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(Changes(combo, [&] { combo.AddItem("Zoë"); }), 1);
  EXPECT_EQ(combo.ListCount(), 4);
}

TEST_F(ComboTest, SelectingShowsTheEntryAndClicksWithoutAChange) {
  EXPECT_EQ(Changes(combo, [&] { combo.SetListIndex(1); }), 1);
  EXPECT_EQ(combo.Text(), "Bert");
  combo.SetListIndex(1);
  EXPECT_EQ(events, (Texts{"click Bert"}));
  combo.SetListIndex(-1);
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(events, (Texts{"click Bert", "click "}));
}

TEST_F(ComboTest, SelectsOnlyWhatItHas) {
  combo.SetListIndex(0);
  ExpectInvalidCall([&] { combo.SetListIndex(3); });
  ExpectInvalidCall([&] { combo.SetListIndex(-2); });
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_EQ(combo.Text(), "Anna");
}

TEST_F(ComboTest, OtherTextChangesAndDeselects) {
  combo.SetListIndex(0);
  events.clear();
  combo.SetText("Anna");
  EXPECT_EQ(events, Texts{});
  EXPECT_EQ(combo.ListIndex(), 0);
  combo.SetText("Bert");
  EXPECT_EQ(events, (Texts{"change Bert"}));
  EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ComboTest, SelectsTextInCharacters) {
  combo.SetListIndex(2);
  EXPECT_EQ(Changes(combo, [&] { combo.Select(3, 2); }), 1);
  EXPECT_EQ(combo.SelStart(), 3U);
  EXPECT_EQ(combo.SelLength(), 2U);
  combo.UserTypesCharacter(U'á');
  EXPECT_EQ(combo.Text(), "señá");
  EXPECT_EQ(combo.SelStart(), 4U);
  EXPECT_EQ(combo.SelLength(), 0U);
  combo.SetListIndex(0);
  EXPECT_EQ(combo.SelStart(), 0U);
}

TEST_F(ComboTest, NewTextHasNoSelectedPart) {
  combo.SetListIndex(2);
  combo.Select(3, 2);
  combo.SetText("ñu");
  EXPECT_EQ(combo.SelStart(), 2U);
  EXPECT_EQ(combo.SelLength(), 0U);
}

TEST_F(ComboTest, ClearingTakesTextAndSelectionAway) {
  combo.SetListIndex(0);
  combo.Select(1, 2);
  events.clear();
  EXPECT_EQ(Changes(combo, [&] { combo.Clear(); }), 1);
  EXPECT_EQ(combo.ListCount(), 0);
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.Text(), "");
  EXPECT_EQ(combo.SelStart(), 0U);
  EXPECT_EQ(combo.SelLength(), 0U);
  EXPECT_EQ(events, Texts{});
}

TEST_F(ComboTest, KeyStrokeGivesTheKeysAndThenTheChange) {
  combo.UserTypesCharacter(U'a');
  combo.UserTypesCharacter(U'b');
  EXPECT_EQ(events, (Texts{"down 65", "press 97", "change a", "down 66", "press 98", "change ab"}));
  EXPECT_EQ(combo.SelStart(), 2U);
}

TEST_F(ComboTest, TypingReplacesTheSelectedPart) {
  combo.SetListIndex(0);
  combo.Select(1, 2);
  combo.UserTypesCharacter(U'x');
  EXPECT_EQ(combo.Text(), "Axa");
  EXPECT_EQ(combo.SelStart(), 2U);
}

TEST_F(ComboTest, TypingTheSelectedPartItselfDeselectsIt) {
  combo.SetListIndex(0);
  combo.Select(3, 1);
  EXPECT_GE(Changes(combo, [&] { combo.UserTypesCharacter(U'a'); }), 1);
  EXPECT_EQ(combo.Text(), "Anna");
  EXPECT_EQ(combo.SelStart(), 4U);
  EXPECT_EQ(combo.SelLength(), 0U);
}

TEST_F(ComboTest, BackspaceTakesTheSelectedPartOrOneCharacter) {
  combo.SetListIndex(2);
  combo.Select(3, 2);
  combo.UserTypesCharacter(kKeyBackspace);
  EXPECT_EQ(combo.Text(), "señ");
  combo.UserTypesCharacter(kKeyBackspace);
  EXPECT_EQ(combo.Text(), "se");
  EXPECT_EQ(combo.SelStart(), 2U);
  combo.Select(0, 0);
  events.clear();
  combo.UserTypesCharacter(kKeyBackspace);
  EXPECT_EQ(combo.Text(), "se");
  EXPECT_EQ(events, (Texts{"down 8", "press 8"}));
}

TEST_F(ComboTest, OtherControlCharactersLeaveTheText) {
  combo.SetText("se");
  events.clear();
  combo.UserTypesCharacter(13);
  EXPECT_EQ(combo.Text(), "se");
  EXPECT_EQ(events, (Texts{"down 13", "press 13"}));
}

TEST_F(ComboTest, IsShutForTheUserWhileDisabledOrHidden) {
  combo.Click = Count();
  ExpectUserShutOut(combo, [&] { combo.UserSelect(0); });
  combo.UserSelect(3);
  EXPECT_EQ(combo.ListIndex(), 0);
  count = 0;
  combo.Change = Count();
  ExpectUserShutOut(combo, [&] { combo.UserTypesCharacter(U'a'); });
  count = 0;
  ExpectUserShutOut(combo, [&] { combo.UserEmpties(); });
  EXPECT_EQ(combo.Text(), "");
  count = 0;
  combo.KeyDown = combo.KeyPress = [&](int) { ++count; };
  ExpectUserShutOut(combo, [&] { combo.UserKeyDown(46); });
  count = 0;
  ExpectUserShutOut(combo, [&] { combo.UserKeyPress(65); });
  count = 0;
  combo.LostFocus = Count();
  ExpectUserShutOut(combo, [&] { combo.UserLeaves(); });
}

}  // namespace
}  // namespace brenwick
