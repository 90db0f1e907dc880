// The hotkeys of an X11 desktop, on a display of the test's own.
#include "desktop/hotkeys/X11HotKeys.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTest>
#include <memory>
#include <string>

#include "base/Failure.h"
#include "qt/EndOfProgram.h"
#include "support/TestApplication.h"
#include "unit/desktop/hotkeys/RecordedKeys.h"
#include "unit/desktop/hotkeys/X11Display.h"

namespace brenwick {
namespace {

constexpr int kControlShift = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_SHIFT;
constexpr int kNumLockOn = XCB_MOD_MASK_2;
const KeyObstacle kTaken{KeyObstacle::Kind::Taken};

// Counts the presses that the display sends to the program.
class PressCounter : public QAbstractNativeEventFilter {
 public:
  PressCounter() { QCoreApplication::instance()->installNativeEventFilter(this); }
  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & 0x7f) == XCB_KEY_PRESS) ++presses;
    return false;
  }
  int presses = 0;
};

class X11HotKeysTest : public testing::Test {
 protected:
  void Arm() { hot_keys->Arm(); }
  bool WaitForPressed(const std::string& wanted) {
    return QTest::qWaitFor([&] { return pressed == wanted; });
  }
  bool WaitForKey(HotKeyControl& key) {
    return QTest::qWaitFor([&] { return key.Obstacle() == KeyObstacle{}; });
  }
  bool ProgramHas(xcb_keycode_t code, int modifiers) {
    return !other.Grab(code, modifiers) || !other.Ungrab(code, modifiers);
  }
  // The program's own connection may be served after the other's.
  bool OtherGets(xcb_keycode_t code, int modifiers) {
    return QTest::qWaitFor([&] { return other.Grab(code, modifiers); });
  }
  // Presses a key that does something and expects that nothing was done before it.
  void ExpectNothingPressed() {
    pressed.clear();
    hand.Press(key::kScrollLock);
    EXPECT_TRUE(WaitForPressed("S")) << pressed;
    pressed.clear();
  }
  void SetLayout(const char* layout, const char* variant = "") {
    ASSERT_EQ(QProcess::execute("setxkbmap", {"-display", QString::fromStdString(display.Name()),
                                              "-layout", layout, "-variant", variant}),
              0);
  }

  X11Display display;
  X11Client hand{display};
  X11Client other{display};

  bool on_display = qputenv("DISPLAY", display.Name().c_str());
  TestApplication<QApplication> application{"xcb"};

  frmMain form;
  RecordedKeys keys{form};
  std::string& pressed = keys.pressed;
  EndOfProgram end;
  Views views{end};
  std::unique_ptr<X11HotKeys> hot_keys = std::make_unique<X11HotKeys>(form, views);
};

TEST_F(X11HotKeysTest, PressTheirControls) {
  Arm();
  hand.Press(key::kScrollLock);
  hand.PressWithControlAndShift(key::kT);
  for (int i = 0; i < 4; ++i)
    hand.PressWithControlAndShift(static_cast<xcb_keycode_t>(key::k1 + i));
  EXPECT_TRUE(WaitForPressed("ST1234")) << pressed;
}

TEST_F(X11HotKeysTest, AreNotThoseWithOtherModifiers) {
  Arm();
  hand.Press(key::k1);
  hand.Down(key::kControl);
  hand.Press(key::k1);
  hand.Press(key::kScrollLock);
  hand.Up(key::kControl);
  ExpectNothingPressed();
}

TEST_F(X11HotKeysTest, WorkWhicheverLocksAreOn) {
  Arm();
  std::string expected;
  const auto press = [&](int locks) {
    ASSERT_EQ(hand.Modifiers(), locks);
    hand.Press(key::kScrollLock);
    hand.PressWithControlAndShift(key::k1);
    expected += "S1";
    ASSERT_TRUE(WaitForPressed(expected)) << pressed << " with " << locks;
  };
  ASSERT_NO_FATAL_FAILURE(press(0));
  hand.Press(key::kNumLock);
  ASSERT_NO_FATAL_FAILURE(press(kNumLockOn));
  hand.Press(key::kCapsLock);
  ASSERT_NO_FATAL_FAILURE(press(kNumLockOn | XCB_MOD_MASK_LOCK));
  hand.Press(key::kNumLock);
  ASSERT_NO_FATAL_FAILURE(press(XCB_MOD_MASK_LOCK));
}

TEST_F(X11HotKeysTest, AreNotAskedForBeforeTheyAreArmed) {
  EXPECT_TRUE(other.Grab(key::kScrollLock, 0));
  EXPECT_EQ(form.ocxHotKeySilent.Obstacle(), KeyObstacle{});
}

TEST_F(X11HotKeysTest, TellOfAKeyThatAnotherProgramHas) {
  ASSERT_TRUE(other.Grab(key::k2, kControlShift));
  Arm();
  EXPECT_EQ(form.ocxSpeakMsg1[1].Obstacle(), kTaken);
  EXPECT_EQ(form.ocxSpeakMsg1[0].Obstacle(), KeyObstacle{});
  hand.PressWithControlAndShift(key::k2);
  hand.PressWithControlAndShift(key::k1);
  EXPECT_TRUE(WaitForPressed("1")) << pressed;
  // Nor is a part of it kept, which would work with Num Lock alone.
  EXPECT_TRUE(OtherGets(key::k2, kControlShift | kNumLockOn));
}

TEST_F(X11HotKeysTest, AreTriedAgainWhenTheirControlIsEnabledAnew) {
  ASSERT_TRUE(other.Grab(key::k1, kControlShift));
  Arm();
  ASSERT_TRUE(other.Ungrab(key::k1, kControlShift));
  form.ocxSpeakMsg1[0].SetToolTip("a change that is none of the key's");
  EXPECT_EQ(form.ocxSpeakMsg1[0].Obstacle(), kTaken);
  form.ocxSpeakMsg1[0].SetEnabled(false);
  form.ocxSpeakMsg1[0].SetEnabled(true);
  EXPECT_EQ(form.ocxSpeakMsg1[0].Obstacle(), KeyObstacle{});
  hand.PressWithControlAndShift(key::k1);
  EXPECT_TRUE(WaitForPressed("1")) << pressed;
}

TEST_F(X11HotKeysTest, AreTriedAgainWhenTheLayoutChanges) {
  ASSERT_TRUE(other.Grab(key::k1, kControlShift));
  Arm();
  ASSERT_TRUE(other.Ungrab(key::k1, kControlShift));
  ASSERT_TRUE(other.PutOnKey(key::kK, {'x', 'X'}));
  EXPECT_TRUE(WaitForKey(form.ocxSpeakMsg1[0]));
}

TEST_F(X11HotKeysTest, FollowTheSymbolToAnotherKey) {
  ASSERT_TRUE(other.Grab(key::kK, kControlShift));
  Arm();
  ASSERT_TRUE(other.PutOnKey(key::kT, {'k', 'K'}));
  ASSERT_TRUE(other.PutOnKey(key::kK, {'t', 'T'}));
  ASSERT_TRUE(QTest::qWaitFor([&] { return form.ocxHotKeyActivateBW.Obstacle() == kTaken; }));
  ASSERT_TRUE(other.Ungrab(key::kK, kControlShift));
  EXPECT_TRUE(OtherGets(key::kT, kControlShift));
  ASSERT_TRUE(other.PutOnKey(key::k5, {'x', 'X'}));
  ASSERT_TRUE(WaitForKey(form.ocxHotKeyActivateBW));
  hand.PressWithControlAndShift(key::kK);
  EXPECT_TRUE(WaitForPressed("T")) << pressed;
}

TEST_F(X11HotKeysTest, ArePressedOnceWhenTheyAreHeld) {
  Arm();
  hand.Down(key::kControl);
  hand.Down(key::kShift);
  PressCounter counter;
  hand.Down(key::k1);
  ASSERT_TRUE(QTest::qWaitFor([&] { return counter.presses >= 4; })) << "no key repeats";
  hand.Up(key::k1);
  hand.Press(key::k2);
  ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.ends_with("2"); })) << pressed;
  EXPECT_EQ(pressed, "12");
  hand.Press(key::k1);
  EXPECT_TRUE(WaitForPressed("121")) << pressed;
}

TEST_F(X11HotKeysTest, OfDisabledControlsAreLeftToOthers) {
  form.ocxSpeakMsg1[0].SetEnabled(false);
  Arm();
  form.ocxHotKeyActivateBW.SetEnabled(false);
  EXPECT_TRUE(OtherGets(key::k1, kControlShift));
  EXPECT_TRUE(OtherGets(key::kT, kControlShift));
  hand.PressWithControlAndShift(key::k1);
  hand.PressWithControlAndShift(key::kT);
  ExpectNothingPressed();
}

TEST_F(X11HotKeysTest, OfDisabledControlsAreLeftToOthersWhenTheLayoutChanges) {
  form.ocxSpeakMsg1[0].SetEnabled(false);
  Arm();
  ASSERT_TRUE(other.PutOnKey(key::kT, {'k', 'K'}));
  ASSERT_TRUE(other.PutOnKey(key::kK, {'t', 'T'}));
  ASSERT_TRUE(QTest::qWaitFor([&] { return ProgramHas(key::kK, kControlShift); }));
  EXPECT_TRUE(other.Grab(key::k1, kControlShift));
}

TEST_F(X11HotKeysTest, AreLetGoAtTheEnd) {
  Arm();
  EXPECT_FALSE(other.Grab(key::kScrollLock, 0));
  hot_keys.reset();
  for (const int locks : {0, kNumLockOn, int{XCB_MOD_MASK_LOCK}}) {
    EXPECT_TRUE(OtherGets(key::kScrollLock, locks));
    EXPECT_TRUE(OtherGets(key::k1, kControlShift | locks));
  }
}

TEST_F(X11HotKeysTest, ReachNoProgramThatHasEnded) {
  Arm();
  form.ocxSpeakMsg1[0].HotkeyPressed = [&] {
    pressed += "end";
    throw ProgramEnd{};
  };
  PressCounter counter;
  hand.PressWithControlAndShift(key::k1);
  hand.PressWithControlAndShift(key::k2);
  ASSERT_TRUE(QTest::qWaitFor([&] { return counter.presses == 2 && end.Ended(); }));
  QCoreApplication::processEvents();
  EXPECT_EQ(pressed, "end");
}

TEST_F(X11HotKeysTest, AreFoundOnWhicheverLayout) {
  Arm();
  // Each moves the T, so that it shows when the program has heard of the layout.
  const struct {
    const char* layout;
    const char* variant;
    xcb_keycode_t one;
    xcb_keycode_t t;
  } kLayouts[] = {{"us", "dvp", key::k5, key::kK},  // digits with the shift key
                  {"fr", "", key::k1, key::kT},     // so too, in their usual order
                  {"us", "dvorak", key::k1, key::kK},
                  {"ru", "", key::k1, key::kT},             // without Latin letters
                  {"ru,us", ",dvorak", key::k1, key::kK}};  // with them in the second layout
  for (const auto& each : kLayouts) {
    SCOPED_TRACE(std::string(each.layout) + each.variant);
    SetLayout(each.layout, each.variant);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ProgramHas(each.t, kControlShift); }));
    pressed.clear();
    hand.PressWithControlAndShift(each.one);
    hand.PressWithControlAndShift(each.t);
    EXPECT_TRUE(WaitForPressed("1T")) << pressed;
  }
}

TEST_F(X11HotKeysTest, KnowEveryModifierThatIsALock) {
  EXPECT_EQ(X11Keyboard(other.Connection()).Locks(), XCB_MOD_MASK_LOCK | kNumLockOn);
  EXPECT_EQ(X11Keyboard(other.Connection()).ChoicesOfLocks(),
            (std::vector<std::uint16_t>{0, XCB_MOD_MASK_LOCK, kNumLockOn,
                                        XCB_MOD_MASK_LOCK | kNumLockOn}));
  ASSERT_TRUE(other.MakeModifier(key::kScrollLock, XCB_MOD_MASK_3));
  EXPECT_EQ(X11Keyboard(other.Connection()).Locks(),
            XCB_MOD_MASK_LOCK | kNumLockOn | XCB_MOD_MASK_3);
  EXPECT_EQ(X11Keyboard(other.Connection()).ChoicesOfLocks().size(), 8U);
}

}  // namespace
}  // namespace brenwick
