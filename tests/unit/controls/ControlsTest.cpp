// Each kind of control by both its doors: the program's properties and the user's actions.
#include "unit/controls/ControlsTest.h"

#include <exception>
#include <string>
#include <vector>

#include "controls/Buttons.h"
#include "controls/HotKeyControl.h"
#include "controls/Labels.h"
#include "controls/MenuItem.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/Winsock.h"

namespace brenwick {
namespace {

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
  TextBox box{place, "txt"};
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
  Texts seen;
  box.Click = [&] { seen.emplace_back(box.Ticked() ? "click ticked" : "click"); };
  const Subscription subscription =
      box.Changed.Observe([&] { seen.emplace_back(box.Ticked() ? "view ticked" : "view"); });
  box.SetTicked(true);
  EXPECT_EQ(seen, (Texts{"view ticked", "click ticked"}));
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
  Texts clicks;
  first.Click = [&] { clicks.emplace_back("first"); };
  second.Click = [&] { clicks.emplace_back(first.Chosen() ? "too early" : "second"); };
  second.Choose();
  second.Choose();
  EXPECT_EQ(clicks, (Texts{"second"}));
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

TEST_F(ControlsTest, MenuItemClicks) {
  MenuItem item{window, "mnu", "&Mute"};
  EXPECT_EQ(Changes(item, [&] { item.SetChecked(true); }), 1);
  EXPECT_EQ(Changes(item, [&] { item.SetChecked(true); }), 0);
  EXPECT_TRUE(item.Checked());
  item.UserClick();  // nobody is told
  item.Click = Count();
  ExpectUserShutOut(item, [&] { item.UserClick(); });
  EXPECT_TRUE(item.Checked());
}

TEST_F(ControlsTest, MenuItemArrayGrowsByOne) {
  MenuItemArray items{window, "mnu", "first"};
  EXPECT_EQ(items.Count(), 1);
  EXPECT_EQ(items[0].Caption(), "first");
  items.Load(1).SetCaption("second");
  EXPECT_EQ(items.Count(), 2);
  items.Load(0);
  items.Load(1);
  EXPECT_EQ(items.Count(), 2);
  EXPECT_EQ(items[1].Caption(), "second");
  EXPECT_EQ(window.Find("mnu", 1), &items[1]);
  EXPECT_THROW(items.Load(3), std::exception);
  EXPECT_THROW(items[-1], std::exception);
  EXPECT_EQ(items.Count(), 2);
}

TEST_F(ControlsTest, MenuItemArrayTellsWhichItemWasClicked) {
  MenuItemArray items{window, "mnu", ""};
  items.Load(1);
  items[1].UserClick();  // nobody is told
  items.Click = [&](int index) { count = 10 + index; };
  ExpectUserShutOut(items[1], [&] { items[1].UserClick(); });
  EXPECT_EQ(count, 11);
  items[0].UserClick();
  EXPECT_EQ(count, 10);
}

class NotingDriver : public SocketDriver {
 public:
  void Connect(const std::string& host, int port) override {
    calls.push_back("connect " + host + " " + std::to_string(port));
  }
  void SendData(const std::string& data) override { calls.push_back("send " + data); }
  std::string GetData() override { return "data"; }
  void Close() override { calls.emplace_back("close"); }

  Texts calls;
};

TEST_F(ControlsTest, SocketHandsItsCallsToTheDriver) {
  Winsock socket{window, "wsc"};
  NotingDriver driver;
  socket.SetDriver(&driver);
  socket.Connect("example.org", 80);
  socket.SendData("GET");
  EXPECT_EQ(socket.GetData(), "data");
  socket.SetState(SocketState::Connected);
  EXPECT_EQ(socket.State(), SocketState::Connected);
  socket.Close();
  EXPECT_EQ(socket.State(), SocketState::Closed);
  EXPECT_EQ(driver.calls, (Texts{"connect example.org 80", "send GET", "close"}));
  socket.SetLocalPort(7);
  EXPECT_EQ(socket.LocalPort(), 7);
}

TEST_F(ControlsTest, SocketWithoutADriverDoesNothing) {
  Winsock socket{window, "wsc"};
  EXPECT_EQ(Changes(socket,
                    [&] {
                      socket.Connect("example.org", 80);
                      socket.SendData("GET");
                      socket.Close();
                    }),
            0);
  EXPECT_EQ(socket.GetData(), "");
  EXPECT_EQ(socket.State(), SocketState::Closed);
  EXPECT_EQ(static_cast<int>(SocketState::Error), 9);
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
