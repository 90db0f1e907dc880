// The hotkeys of a Wayland desktop, against a portal on a bus of the test's own.
#include "desktop/hotkeys/PortalHotKeys.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <map>
#include <memory>
#include <string>

#include "base/Failure.h"
#include "support/PrivateBus.h"
#include "support/TestApplication.h"
#include "unit/desktop/hotkeys/MockPortal.h"
#include "unit/desktop/hotkeys/RecordedKeys.h"

namespace brenwick {
namespace {

class PortalHotKeysTest : public testing::Test {
 protected:
  ~PortalHotKeysTest() override {
    hot_keys.reset();
    QDBusConnection::disconnectFromBus("program");
    QDBusConnection::disconnectFromBus("portal");
  }

  void Arm() { hot_keys->Arm(); }
  // The portal has come and was asked; all is settled.
  void ComeAndArm() {
    ASSERT_TRUE(portal.Come());
    Arm();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.asked.isEmpty(); }));
    ASSERT_NO_FATAL_FAILURE(Settle());
  }
  // What the portal has sent before is handled when this has been, for a bus keeps the order.
  void Settle() {
    const bool enabled = form.ocxHotKeyActivateBW.Enabled();
    form.ocxHotKeyActivateBW.SetEnabled(true);
    const std::string before = pressed;
    portal.Activate("show");
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed == before + "T"; })) << pressed;
    pressed = before;
    form.ocxHotKeyActivateBW.SetEnabled(enabled);
  }
  bool WaitForCommand(const HotKeyControl& key, const std::string& command) {
    return QTest::qWaitFor([&] {
      return key.Obstacle() == KeyObstacle{KeyObstacle::Kind::NotGiven, command};
    });
  }
  bool WaitForKey(const HotKeyControl& key) {
    return QTest::qWaitFor([&] { return key.Obstacle() == KeyObstacle{}; });
  }

  TestApplication<QCoreApplication> application;

  PrivateBus bus;
  MockPortal portal{bus.Connect("portal")};
  frmMain form;
  RecordedKeys keys{form};
  std::string& pressed = keys.pressed;
  EndOfProgram end;
  Views views{end};
  std::unique_ptr<PortalHotKeys> hot_keys =
      std::make_unique<PortalHotKeys>(bus.Connect("program"), form, views);
};

TEST_F(PortalHotKeysTest, ProposeTheKeysThatAreWrittenOnThePages) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  std::map<QString, QString> triggers;
  for (const PortalShortcut& shortcut : portal.asked) {
    triggers[shortcut.id] = shortcut.properties["preferred_trigger"].toString();
    EXPECT_FALSE(shortcut.properties["description"].toString().isEmpty());
  }
  EXPECT_EQ(triggers, (std::map<QString, QString>{{"show", "CTRL+SHIFT+t"},
                                                  {"stop", "Scroll_Lock"},
                                                  {"repeat1", "CTRL+SHIFT+1"},
                                                  {"repeat2", "CTRL+SHIFT+2"},
                                                  {"repeat3", "CTRL+SHIFT+3"},
                                                  {"repeat4", "CTRL+SHIFT+4"}}));
  EXPECT_EQ(portal.calls, QStringList({"CreateSession", "BindShortcuts"}));
}

TEST_F(PortalHotKeysTest, PressTheirControls) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  for (const char* id : {"stop", "repeat1", "repeat2", "repeat3", "repeat4"}) portal.Activate(id);
  EXPECT_TRUE(QTest::qWaitFor([&] { return pressed == "S1234"; })) << pressed;
}

TEST_F(PortalHotKeysTest, HandOnWhatLetsTheWindowComeToTheFront) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  QString token;
  form.ocxHotKeySilent.HotkeyPressed = [&] {
    token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
  };
  portal.Activate("stop");
  EXPECT_TRUE(QTest::qWaitFor([&] { return token == "token for stop"; }));
}

TEST_F(PortalHotKeysTest, DoNothingWhileTheirControlIsDisabled) {
  form.ocxSpeakMsg1[0].SetEnabled(false);
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  portal.Activate("repeat1");
  ASSERT_NO_FATAL_FAILURE(Settle());
  EXPECT_EQ(pressed, "");
  form.ocxSpeakMsg1[0].SetEnabled(true);
  portal.Activate("repeat1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return pressed == "1"; }));
}

TEST_F(PortalHotKeysTest, HearTheirOwnSessionAlone) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  portal.Activate("stop", "/org/freedesktop/portal/desktop/session/1_1/another");
  portal.Activate("unknown");
  ASSERT_NO_FATAL_FAILURE(Settle());
  EXPECT_EQ(pressed, "");
}

TEST_F(PortalHotKeysTest, NameTheCommandsWhereThereIsNoPortal) {
  Arm();
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeyActivateBW, "brenwick --show"));
  EXPECT_TRUE(WaitForCommand(form.ocxSpeakMsg1[3], "brenwick --repeat 4"));
}

TEST_F(PortalHotKeysTest, NameTheCommandsWhereThereIsNoBus) {
  hot_keys = std::make_unique<PortalHotKeys>(
      QDBusConnection::connectToBus(QString("unix:path=/nowhere"), "nowhere"), form, views);
  Arm();
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
  QDBusConnection::disconnectFromBus("nowhere");
}

TEST_F(PortalHotKeysTest, NameTheCommandsWhenThePortalRefusesASession) {
  portal.create_code = 2;
  ASSERT_TRUE(portal.Come());
  Arm();
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
  EXPECT_EQ(portal.calls, QStringList{"CreateSession"});
}

TEST_F(PortalHotKeysTest, NameTheCommandsWhenTheUserSaysNo) {
  portal.bind_code = 1;
  ASSERT_TRUE(portal.Come());
  Arm();
  EXPECT_TRUE(WaitForCommand(form.ocxSpeakMsg1[0], "brenwick --repeat 1"));
}

TEST_F(PortalHotKeysTest, NameTheCommandOfTheKeyThatIsWithheld) {
  portal.withheld = QStringList{"stop"};
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
  EXPECT_EQ(form.ocxSpeakMsg1[0].Obstacle(), KeyObstacle{});
  portal.ChangeShortcuts({"stop", "show"});
  EXPECT_TRUE(WaitForKey(form.ocxHotKeySilent));
  EXPECT_TRUE(WaitForCommand(form.ocxSpeakMsg1[0], "brenwick --repeat 1"));
}

TEST_F(PortalHotKeysTest, AreGoneWhenThePortalClosesTheSession) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  portal.CloseSession();
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
}

TEST_F(PortalHotKeysTest, AreAskedForAgainWhenThePortalComesBack) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  portal.Go();
  EXPECT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
  ASSERT_TRUE(portal.Come());
  EXPECT_TRUE(WaitForKey(form.ocxHotKeySilent));
  portal.Activate("stop");
  EXPECT_TRUE(QTest::qWaitFor([&] { return pressed == "S"; })) << pressed;
}

TEST_F(PortalHotKeysTest, AreAskedForOnceWhenThePortalComesLater) {
  Arm();
  ASSERT_TRUE(WaitForCommand(form.ocxHotKeySilent, "brenwick --stop"));
  ASSERT_TRUE(portal.Come());
  EXPECT_TRUE(WaitForKey(form.ocxHotKeySilent));
  EXPECT_EQ(portal.calls, QStringList({"CreateSession", "BindShortcuts"}));
}

TEST_F(PortalHotKeysTest, CloseTheirSessionAtTheEnd) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  EXPECT_EQ(portal.closed, 0);
  hot_keys.reset();
  EXPECT_TRUE(QTest::qWaitFor([&] { return portal.closed == 1; }));
}

TEST_F(PortalHotKeysTest, ReachNoProgramThatHasEnded) {
  ASSERT_NO_FATAL_FAILURE(ComeAndArm());
  form.ocxHotKeySilent.HotkeyPressed = [&] {
    pressed += "end";
    throw ProgramEnd{};
  };
  portal.Activate("stop");
  portal.Activate("stop");
  portal.CloseSession();
  ASSERT_TRUE(QTest::qWaitFor([&] { return end.Ended(); }));
  hot_keys.reset();
  ASSERT_TRUE(QTest::qWaitFor([&] { return portal.closed == 1; }));
  EXPECT_EQ(pressed, "end");
}

TEST(HotKeySource, FitsTheDesktop) {
  using Kind = HotKeySource::Kind;
  EXPECT_EQ(HotKeySource::Fitting("xcb", ""), Kind::X11);
  EXPECT_EQ(HotKeySource::Fitting("wayland", "wayland-0"), Kind::Portal);
  EXPECT_EQ(HotKeySource::Fitting("wayland-egl", ""), Kind::Portal);
  EXPECT_EQ(HotKeySource::Fitting("xcb", "wayland-0"), Kind::Portal);
  EXPECT_EQ(HotKeySource::Fitting("offscreen", "wayland-0"), Kind::None);
}

}  // namespace
}  // namespace brenwick
