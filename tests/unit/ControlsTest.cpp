// Each kind of control by both its doors: the program's properties and the user's actions.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "base/Failure.h"
#include "controls/Buttons.h"
#include "controls/ComboBox.h"
#include "controls/HotKeyControl.h"
#include "controls/Labels.h"
#include "controls/ListBox.h"
#include "controls/MenuItem.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/Winsock.h"
#include "forms/Window.h"

namespace brenwick {
namespace {

using Lines = std::vector<std::string>;

class ControlsTest : public testing::Test {
 protected:
  std::function<void()> Count() {
    return [this] { ++count; };
  }
  // How often the views are told during the call.
  template <typename Call>
  int Changes(const Control& control, const Call& call) {
    int changes = 0;
    const Subscription subscription = control.Changed.Observe([&] { ++changes; });
    call();
    return changes;
  }
  template <typename Call>
  void ExpectUserShutOut(Control& control, const Call& user) {
    control.SetEnabled(false);
    user();
    control.SetEnabled(true);
    control.SetVisible(false);
    user();
    control.SetVisible(true);
    EXPECT_EQ(count, 0);
    user();
    EXPECT_GT(count, 0);
  }

  Window window;
  Place place{window, 3};
  int count = 0;
};

template <typename Call>
void ExpectInvalidCall(const Call& call) {
  try {
    call();
    ADD_FAILURE() << "no failure";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kInvalidCall);
  }
}

TEST_F(ControlsTest, AreListedInTheirWindowWhileTheyLive) {
  Label first{place, "lblFirst", ""};
  {
    Label second{place, "lblSecond", "", 7};
    EXPECT_EQ(window.Controls(), (std::vector<Control*>{&first, &second}));
    EXPECT_EQ(window.Find("lblSecond", 7), &second);
    EXPECT_EQ(window.Find("lblSecond"), nullptr);
    EXPECT_EQ(second.Index(), 7);
  }
  EXPECT_EQ(window.Controls(), (std::vector<Control*>{&first}));
  EXPECT_EQ(window.Find("lblFirst"), &first);
  EXPECT_EQ(first.Index(), -1);
  EXPECT_EQ(first.Page(), 3);
}

TEST_F(ControlsTest, TellTheirViewsOnlyOfWhatDiffers) {
  Label label{place, "lbl", "a"};
  EXPECT_EQ(Changes(label, [&] { label.SetCaption("a"); }), 0);
  EXPECT_EQ(Changes(label, [&] { label.SetCaption("b"); }), 1);
  EXPECT_EQ(Changes(label, [&] { label.SetEnabled(true); }), 0);
  EXPECT_EQ(Changes(label, [&] { label.SetEnabled(false); }), 1);
  EXPECT_EQ(Changes(label, [&] { label.SetVisible(false); }), 1);
  EXPECT_EQ(Changes(label, [&] { label.SetToolTip("tip"); }), 1);
  EXPECT_EQ(label.Caption(), "b");
  EXPECT_EQ(label.ToolTip(), "tip");
}

TEST_F(ControlsTest, AskForTheFocus) {
  const TextBox box{place, "txt"};
  const Subscription subscription = box.FocusWanted.Observe(Count());
  box.SetFocus();
  EXPECT_EQ(count, 1);
}

TEST_F(ControlsTest, FrameMoves) {
  Frame frame{place, "fra", ""};
  EXPECT_EQ(Changes(frame, [&] { frame.Move(1800, 120); }), 1);
  EXPECT_EQ(frame.Left(), 1800);
  EXPECT_EQ(frame.Top(), 120);
}

TEST_F(ControlsTest, CheckBoxClicksFromCodeOnlyWhenTheValueChanges) {
  CheckBox box{place, "chk", "", true};
  box.Click = Count();
  box.SetTicked(true);
  EXPECT_EQ(count, 0);
  box.SetTicked(false);
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(box.Ticked());
  box.SetTicked(false);
  EXPECT_EQ(count, 1);
}

TEST_F(ControlsTest, CheckBoxShowsTheNewValueToItsClickAndViews) {
  CheckBox box{place, "chk", ""};
  Lines seen;
  box.Click = [&] { seen.emplace_back(box.Ticked() ? "click ticked" : "click"); };
  const Subscription subscription =
      box.Changed.Observe([&] { seen.emplace_back(box.Ticked() ? "view ticked" : "view"); });
  box.SetTicked(true);
  EXPECT_EQ(seen, (Lines{"view ticked", "click ticked"}));
}

TEST_F(ControlsTest, CheckBoxTurnsWithEachClickOfTheUser) {
  CheckBox box{place, "chk", ""};
  box.UserClick();
  EXPECT_TRUE(box.Ticked());
  box.UserClick();
  EXPECT_FALSE(box.Ticked());
  box.Click = Count();
  ExpectUserShutOut(box, [&] { box.UserClick(); });
}

TEST_F(ControlsTest, DisabledCheckBoxClicksFromCode) {
  CheckBox box{place, "chk", ""};
  box.SetEnabled(false);
  box.Click = Count();
  box.SetTicked(true);
  EXPECT_EQ(count, 1);
}

class OptionsTest : public ControlsTest {
 protected:
  OptionsTest() {
    first.Click = Count();
    second.Click = Count();
  }

  OptionGroup group;
  OptionGroup other_group;
  OptionButton first{place, group, "optFirst", "", true};
  OptionButton second{place, group, "optSecond", ""};
  OptionButton stranger{place, other_group, "optStranger", "", true};
};

TEST_F(OptionsTest, ChoosingOneClearsTheOthersOfItsGroup) {
  second.Choose();
  EXPECT_TRUE(second.Chosen());
  EXPECT_FALSE(first.Chosen());
  EXPECT_TRUE(stranger.Chosen());
}

TEST_F(OptionsTest, OnlyTheNewlyChosenOneClicks) {
  Lines clicks;
  first.Click = [&] { clicks.emplace_back("first"); };
  second.Click = [&] { clicks.emplace_back(first.Chosen() ? "too early" : "second"); };
  second.Choose();
  second.Choose();
  EXPECT_EQ(clicks, (Lines{"second"}));
}

TEST_F(OptionsTest, MouseGivesMouseUpAndTheKeyboardDoesNot) {
  int mouse = 0;
  second.MouseUp = [&] { ++mouse; };
  second.UserArrow();
  EXPECT_TRUE(second.Chosen());
  EXPECT_EQ(mouse, 0);
  second.UserClick();
  EXPECT_EQ(mouse, 1);
  EXPECT_EQ(count, 1);  // it was chosen already
}

TEST_F(OptionsTest, AreShutForTheUserWhileDisabledOrHidden) {
  second.MouseUp = Count();
  ExpectUserShutOut(second, [&] {
    second.UserClick();
    second.UserArrow();
  });
}

TEST_F(ControlsTest, ButtonClicks) {
  Button button{place, "cmd", ""};
  button.UserClick();  // nobody is told
  button.Click = Count();
  ExpectUserShutOut(button, [&] { button.UserClick(); });
}

TEST_F(ControlsTest, TextBoxTellsOfAChangeOnce) {
  TextBox box{place, "txt", "a"};
  box.Change = Count();
  box.SetText("a");
  EXPECT_EQ(count, 0);
  box.SetText("b");
  EXPECT_EQ(count, 1);
  EXPECT_EQ(box.Text(), "b");
}

TEST_F(ControlsTest, TextBoxSelectsInCharacters) {
  TextBox box{place, "txt", "señor"};
  EXPECT_EQ(Changes(box, [&] { box.SelectAll(); }), 1);
  EXPECT_EQ(box.SelStart(), 0U);
  EXPECT_EQ(box.SelLength(), 5U);
  box.Select(2, 1);
  EXPECT_EQ(box.SelStart(), 2U);
  EXPECT_EQ(box.SelLength(), 1U);
  box.SetText("new");
  EXPECT_EQ(box.SelStart(), 0U);
  EXPECT_EQ(box.SelLength(), 0U);
}

TEST_F(ControlsTest, TextBoxTakesTypingUnlessItIsLocked) {
  TextBox box{place, "txt"};
  box.UserTypes("typed");
  EXPECT_EQ(box.Text(), "typed");
  box.SetLocked(true);
  box.UserTypes("more");
  EXPECT_EQ(box.Text(), "typed");
  box.SetText("from code");
  EXPECT_EQ(box.Text(), "from code");
}

TEST_F(ControlsTest, TextBoxIsShutForTheUserWhileDisabledOrHidden) {
  TextBox box{place, "txt"};
  box.Change = Count();
  ExpectUserShutOut(box, [&] { box.UserTypes("typed"); });
  count = 0;
  box.LostFocus = Count();
  ExpectUserShutOut(box, [&] { box.UserLeaves(); });
}

TEST_F(ControlsTest, ListKeepsLinesAsTheyAreAdded) {
  ListBox list{place, "lst"};
  for (const char* line : {"b", "a", "c"}) list.AddItem(line);
  EXPECT_EQ(list.Items(), (Lines{"b", "a", "c"}));
  EXPECT_EQ(list.NewIndex(), 2);
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_EQ(list.List(1), "a");
  EXPECT_EQ(list.List(-1), "");
  EXPECT_EQ(list.List(3), "");
}

TEST_F(ControlsTest, SortedListPutsEachLineInItsPlace) {
  ListBox list{place, "lst", ListBox::Order::Sorted};
  std::vector<int> places;
  for (const char* line : {"dora", "Anna", "éva", "Bert", "anna", "ÉVA"}) {
    list.AddItem(line);
    places.push_back(list.NewIndex());
  }
  EXPECT_EQ(list.Items(), (Lines{"Anna", "anna", "Bert", "dora", "éva", "ÉVA"}));
  EXPECT_EQ(places, (std::vector<int>{0, 0, 2, 1, 1, 5}));
}

TEST_F(ControlsTest, ListClicksWhenAnotherLineIsSelectedFromCode) {
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

TEST_F(ControlsTest, SelectedLineStaysSelectedWhenLinesCome) {
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

TEST_F(ControlsTest, SelectedLineStaysSelectedWhenOthersGo) {
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
  EXPECT_EQ(list.Items(), (Lines{"b"}));
  EXPECT_EQ(count, 0);
  ExpectInvalidCall([&] { list.RemoveItem(1); });
  ExpectInvalidCall([&] { list.RemoveItem(-1); });
}

TEST_F(ControlsTest, ClearedListIsEmpty) {
  ListBox list{place, "lst"};
  list.AddItem("a");
  list.SetListIndex(0);
  list.Click = Count();
  list.Clear();
  EXPECT_EQ(list.Items(), Lines{});
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.NewIndex(), -1);
  EXPECT_EQ(count, 0);
}

TEST_F(ControlsTest, ListTellsItsViewsWhatHappenedToWhichLine) {
  ListBox list{place, "lst", ListBox::Order::Sorted};
  Lines told;
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
  EXPECT_EQ(told, (Lines{"+0", "changed", "+0", "changed", "-1", "changed", "0", "changed"}));
}

TEST_F(ControlsTest, ListClicksAtEachClickOfTheUser) {
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

TEST_F(ControlsTest, ListPassesDoubleClicksAndKeysOn) {
  ListBox list{place, "lst"};
  list.DblClick = Count();
  ExpectUserShutOut(list, [&] { list.UserDoubleClick(); });
  count = 0;
  list.KeyPress = [&](int character) { count += character; };
  ExpectUserShutOut(list, [&] { list.UserKey(13); });
  EXPECT_EQ(count, 13);
}

TEST_F(ControlsTest, ListKeepsWhereItsColumnsBegin) {
  ListBox list{place, "lst"};
  EXPECT_EQ(Changes(list, [&] { list.SetTabStops({40, 80}); }), 1);
  EXPECT_EQ(Changes(list, [&] { list.SetHorizontalExtent(300); }), 1);
  EXPECT_EQ(list.TabStops(), (std::vector<int>{40, 80}));
  EXPECT_EQ(list.HorizontalExtent(), 300);
}

TEST_F(ControlsTest, TimerBelongsToTheWorld) {
  Timer timer{window, "tmr", 1000, false};
  EXPECT_EQ(timer.Interval(), 1000);
  EXPECT_FALSE(timer.Enabled());
  EXPECT_EQ(timer.Page(), kNoPage);
  EXPECT_EQ(Changes(timer, [&] { timer.SetEnabled(true); }), 1);
  EXPECT_TRUE(timer.Enabled());
}

TEST_F(ControlsTest, HotKeyWorksWhileItIsEnabled) {
  HotKeyControl key{window, "ocx", {.vkey = 0x31, .ctrlkey = true}, true, 2};
  EXPECT_EQ(key.Key().vkey, 0x31);
  EXPECT_TRUE(key.Key().ctrlkey);
  EXPECT_FALSE(key.Key().shiftkey);
  EXPECT_FALSE(key.Key().winkey);
  EXPECT_EQ(key.Index(), 2);
  key.UserPress();  // nobody is told
  key.HotkeyPressed = Count();
  ExpectUserShutOut(key, [&] { key.UserPress(); });
  EXPECT_FALSE((HotKeyControl{window, "off", {.vkey = 0x91}, false}.Enabled()));
}

}  // namespace
}  // namespace brenwick
