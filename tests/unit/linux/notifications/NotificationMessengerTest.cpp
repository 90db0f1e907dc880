// Notifications read aloud, on a bus of the test's own.
#include "linux/notifications/NotificationMessenger.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Failure.h"
#include "desktop/SocketWatch.h"
#include "files/IniStore.h"
#include "support/MockNotifications.h"
#include "support/PrivateBus.h"
#include "support/RecordingListener.h"
#include "support/TemporaryFolder.h"
#include "support/TestApplication.h"
#include "support/TestClock.h"

namespace brenwick {
namespace {

using Events = std::vector<std::string>;

// Cuts the watched connection as a bus does, and lets no time pass.
class ImpatientWatch : public SocketWatch {
 public:
  using SocketWatch::SocketWatch;

  void Start(int descriptor, std::function<void()> readable) override {
    descriptor_ = descriptor;
    SocketWatch::Start(descriptor, std::move(readable));
  }
  void Later(std::chrono::milliseconds time, std::function<void()> over) override {
    pauses.push_back(time);
    SocketWatch::Later({}, [this, over] {
      if (WhenOver) WhenOver();
      over();
    });
  }
  void Cut() const { EXPECT_EQ(shutdown(descriptor_, SHUT_RDWR), 0); }

  std::vector<std::chrono::milliseconds> pauses;
  std::function<void()> WhenOver;

 private:
  int descriptor_ = -1;
};

class NotificationsTest : public testing::Test {
 protected:
  explicit NotificationsTest(bool monitored = true) : bus(monitored) { EXPECT_TRUE(desk.Come()); }
  ~NotificationsTest() override {
    messenger.reset();
    QDBusConnection::disconnectFromBus("desk");
    QDBusConnection::disconnectFromBus("applications");
  }

  std::unique_ptr<NotificationMessenger> Make() {
    auto made = std::make_unique<NotificationMessenger>(bus.Address(), store, watch);
    made->Changed = [this] { ++changes; };
    return made;
  }
  NotifyingApplication Application(const QString& name) {
    return {bus.Connect("applications"), name};
  }
  void AttachWith(const std::string& name) {
    messenger->SwitchApplication(name, true);
    messenger->Attach(listener);
  }
  // What was shown before is raised when this has been, for a bus keeps the order.
  Events Settled() {
    messenger->SwitchApplication("the last", true);
    Application("the last").Show("the last", "word");
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return !listener.events.empty() &&
             listener.events.back() == "the last:the last,the last,,word";
    }));
    if (!listener.events.empty()) listener.events.pop_back();
    return listener.events;
  }

  TestApplication<QCoreApplication> application;

  PrivateBus bus;
  MockNotifications desk{bus.Connect("desk")};
  TemporaryFolder folder;
  TestClock clock;
  IniStore store{folder.Inside("store.ini"), clock, [](const std::string&) {}};
  EndOfProgram end;
  ImpatientWatch watch{end};
  RecordingListener listener;
  int changes = 0;
  std::unique_ptr<NotificationMessenger> messenger = Make();
};

TEST_F(NotificationsTest, AreReadAloudForTheApplicationsThatAreOn) {
  AttachWith("Chat");
  Application("Other").Show("Bob", "not this");
  Application("Chat").Show("Anna Baker", "<b>hello</b> &amp; welcome");
  EXPECT_EQ(Settled(), Events{"Chat:Anna Baker,Anna Baker,,hello & welcome"});
}

TEST_F(NotificationsTest, ListTheApplicationsOnceTheyHaveShownOne) {
  messenger->Attach(listener);
  EXPECT_TRUE(messenger->Applications().empty());
  const int before = changes;
  Application("Chat").Show("Anna", "hello");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !messenger->Applications().empty(); }));
  EXPECT_EQ(messenger->Applications().front().Name, "Chat");
  EXPECT_FALSE(messenger->Applications().front().On);
  EXPECT_GT(changes, before);
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(NotificationsTest, RememberWhatIsOn) {
  AttachWith("Chat");
  messenger = Make();
  messenger->Attach(listener);
  EXPECT_EQ(messenger->MyStatus(), MSTATE_ONLINE);
  Application("Chat").Show("Anna", "hello");
  EXPECT_EQ(Settled(), Events{"Chat:Anna,Anna,,hello"});
}

TEST_F(NotificationsTest, MakeTheUserSignedInWhileOneIsOn) {
  messenger->Attach(listener);
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  messenger->SwitchApplication("Chat", true);
  EXPECT_EQ(messenger->MyStatus(), MSTATE_ONLINE);
  messenger->SwitchApplication("Mail", true);
  messenger->SwitchApplication("Chat", false);
  messenger->SwitchApplication("Mail", false);
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_EQ(listener.events, (Events{"own 2", "own 1"}));
}

TEST_F(NotificationsTest, DescribeWhatTheyAreConnectedTo) {
  EXPECT_EQ(messenger->Describe().Name, "Notifications");
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Off);
  messenger->SwitchApplication("Chat", true);
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Waiting);
  messenger->SwitchApplication("a mail program", true);
  messenger->Attach(listener);
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Attached);
  EXPECT_EQ(messenger->Describe().Detail, "");
}

TEST_F(NotificationsTest, GoByTheDesktopEntryWhereTheApplicationHasNoName) {
  AttachWith("org.example.Chat");
  Application("").Show("Anna", "hello", {{"desktop-entry", "org.example.Chat"}});
  Application("").Show("Anna", "from nowhere");
  EXPECT_EQ(Settled(), Events{"org.example.Chat:Anna,Anna,,hello"});
  EXPECT_EQ(messenger->Applications().size(), 2U);
}

TEST_F(NotificationsTest, FitOnOneLineOfAList) {
  AttachWith("Chat room");
  Application("Chat\nroom").Show("Anna\r\nBaker", "one\r\ntwo");
  EXPECT_EQ(Settled(), Events{"Chat room:Anna  Baker,Anna  Baker,,one\ntwo"});
}

TEST_F(NotificationsTest, SayTheHeadingWhereThereIsNothingElse) {
  AttachWith("builder");
  Application("builder").Show("The build is done", "");
  Application("builder").Show("", "It failed");
  Application("builder").Show("", "");
  EXPECT_EQ(Settled(), (Events{"builder:builder,builder,,The build is done",
                               "builder:builder,builder,,It failed"}));
}

TEST_F(NotificationsTest, AreNotSaidAgainWhenTheyAreShownAgain) {
  AttachWith("Chat");
  NotifyingApplication chat = Application("Chat");
  chat.Show("Anna", "hello");
  chat.Show("Anna", "hello", {}, 7);
  chat.Show("Anna", "hello\nare you there?", {}, 7);
  chat.Show("Anna", "hello");
  EXPECT_EQ(Settled(), (Events{"Chat:Anna,Anna,,hello", "Chat:Anna,Anna,,are you there?",
                               "Chat:Anna,Anna,,hello"}));
}

TEST_F(NotificationsTest, SayNoGauges) {
  AttachWith("Chat");
  NotifyingApplication chat = Application("Chat");
  chat.Show("Volume", "50 %", {{"value", 50}});
  chat.Show("Brightness", "50 %", {{"x-canonical-private-synchronous", "brightness"}});
  chat.Show("Anna", "hello", {{"transient", true}});
  Application("volume keys").Show("Volume", "50 %", {{"value", 50}});
  EXPECT_EQ(Settled(), Events{"Chat:Anna,Anna,,hello"});
  EXPECT_EQ(messenger->Applications().size(), 2U);
}

TEST_F(NotificationsTest, TellOfMailAsTheMailServiceDoes) {
  AttachWith("Geary");
  messenger->SwitchApplication("Chat", true);
  listener.events.clear();
  Application("Geary").Show("Anna\nBaker", "Lunch?", {{"desktop-entry", "org.gnome.Geary"}});
  Application("Chat").Show("Mail has come", "You have one\nFrom: Bob <bob@x.example>\nSubject: a",
                           {{"category", "email.arrived"}});
  EXPECT_EQ(Settled(), (Events{"Geary:Anna Baker,Hotmail,,FROM:Anna Baker\r",
                               "Chat:Bob <bob@x.example>,Hotmail,,FROM:Bob <bob@x.example>\r"}));
}

TEST_F(NotificationsTest, TellOfTheSameMailOnce) {
  AttachWith("Geary");
  NotifyingApplication geary = Application("Geary");
  geary.Show("Anna", "");
  geary.Show("Anna", "", {}, 7);
  geary.Show("Anna", "", {});
  EXPECT_EQ(Settled(),
            (Events{"Geary:Anna,Hotmail,,FROM:Anna\r", "Geary:Anna,Hotmail,,FROM:Anna\r"}));
}

TEST_F(NotificationsTest, LetNobodyPoseAsTheMailService) {
  AttachWith("Chat");
  messenger->SwitchApplication("hotmail", true);
  listener.events.clear();
  Application("Chat").Show("HotMail", "INBOX-UNREAD: none");
  Application("hotmail").Show("", "INBOX-UNREAD: none");
  EXPECT_EQ(Settled(), (Events{"Chat:HotMail,Chat:HotMail,,INBOX-UNREAD: none",
                               "hotmail:hotmail,hotmail:hotmail,,INBOX-UNREAD: none"}));
}

TEST_F(NotificationsTest, OfWhatIsHeardElsewhereAreListedAndNotSaid) {
  messenger->HeardElsewhere = [](const std::string& name) { return name == "pidgin"; };
  AttachWith("Pidgin");
  Application("Pidgin").Show("Anna", "hello");
  EXPECT_EQ(Settled(), Events{});
  EXPECT_EQ(messenger->Applications().size(), 2U);
}

TEST_F(NotificationsTest, OfAnotherShapeAreIgnored) {
  AttachWith("Chat");
  NotifyingApplication chat = Application("Chat");
  chat.Send({QString("Chat")});
  chat.Send({QString("Chat"), QString("0"), QString("icon"), QString("Anna"), QString("hello"),
             QStringList{}, QVariantMap{}, int{-1}});
  chat.Show("Anna", "hello", {{"category", 5}, {"desktop-entry", QStringList{"x"}}});
  EXPECT_EQ(Settled(), Events{"Chat:Anna,Anna,,hello"});
}

TEST_F(NotificationsTest, AreCutWhereTheyAreTooLong) {
  AttachWith("Chat");
  Application("Chat").Show("Anna", QString(100'000, 'x'));
  Application("Chat").Show(QString(5'000, 'y'), "hello");
  const Events events = Settled();
  ASSERT_EQ(events.size(), 2U);
  EXPECT_EQ(events[0], "Chat:Anna,Anna,," + std::string(kMostOfNotification, 'x'));
  EXPECT_EQ(events[1], "Chat:" + std::string(1024, 'y') + ',' + std::string(1024, 'y') + ",,hello");
}

TEST_F(NotificationsTest, ComeInTheirOrderHoweverManyThereAre) {
  AttachWith("Chat");
  Events expected;
  NotifyingApplication chat = Application("Chat");
  for (int i = 0; i < 500; ++i) {
    chat.Show("Anna", QString::number(i));
    expected.push_back("Chat:Anna,Anna,," + std::to_string(i));
  }
  EXPECT_EQ(Settled(), expected);
}

TEST_F(NotificationsTest, AreTriedByOneThatIsReal) {
  messenger->Attach(listener);
  messenger->Test("Can you <hear> me & you?");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  EXPECT_EQ(listener.events, Events{",Notifications,,Can you <hear> me & you?"});
  ASSERT_TRUE(QTest::qWaitFor([&] { return !desk.shown.empty(); }));
  EXPECT_EQ(desk.shown, QStringList{"Brenwick|Can you &lt;hear&gt; me &amp; you?"});
  EXPECT_TRUE(messenger->Applications().empty());
}

TEST_F(NotificationsTest, AreTriedAgain) {
  messenger->Attach(listener);
  messenger->Test("one");
  messenger->Test("two");
  ASSERT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 2; }));
  EXPECT_EQ(listener.events, (Events{",Notifications,,one", ",Notifications,,two"}));
}

TEST_F(NotificationsTest, AreLeftToTheDesktop) {
  AttachWith("Chat");
  Application("Chat").Show("Anna", "hello");
  Settled();
  ASSERT_TRUE(QTest::qWaitFor([&] { return desk.shown.size() == 2; }));
  EXPECT_EQ(desk.others, 0);
  EXPECT_THROW(messenger->InstantMessage("Chat:Anna"), Failure);
  EXPECT_FALSE(messenger->Knows("Chat:Anna"));
}

TEST_F(NotificationsTest, ReachNobodyAfterDetach) {
  AttachWith("Chat");
  messenger->Detach();
  Application("Chat").Show("Anna", "hello");
  ASSERT_TRUE(QTest::qWaitFor([&] { return desk.shown.size() == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(NotificationsTest, MayBeDetachedByAHandler) {
  AttachWith("Chat");
  listener.Meanwhile = [&] { messenger->Detach(); };
  Application("Chat").Show("Anna", "one");
  Application("Chat").Show("Anna", "two");
  ASSERT_TRUE(QTest::qWaitFor([&] { return desk.shown.size() == 2; }));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  QCoreApplication::processEvents();
  EXPECT_EQ(listener.events, Events{"Chat:Anna,Anna,,one"});
}

TEST_F(NotificationsTest, MayComeWhileAHandlerLetsEventsRun) {
  AttachWith("Chat");
  listener.Meanwhile = [&] {
    Application("Chat").Show("Anna", "two");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  };
  Application("Chat").Show("Anna", "one");
  ASSERT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 2; }));
  EXPECT_EQ(listener.events, (Events{"Chat:Anna,Anna,,two", "Chat:Anna,Anna,,one"}));
}

TEST_F(NotificationsTest, ReachNoProgramThatHasEnded) {
  AttachWith("Chat");
  listener.Meanwhile = [] { throw ProgramEnd{}; };
  Application("Chat").Show("Anna", "one");
  Application("Chat").Show("Anna", "two");
  ASSERT_TRUE(QTest::qWaitFor([&] { return desk.shown.size() == 2 && end.Ended(); }));
  QCoreApplication::processEvents();
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(NotificationsTest, TellThatTheBusHasGone) {
  AttachWith("Chat");
  bus.Go();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  EXPECT_EQ(listener.events, Events{"own 1"});
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Failed);
  EXPECT_EQ(messenger->Describe().Detail, "the session bus has gone");
  messenger->Test("Can you hear me?");
}

TEST_F(NotificationsTest, AreHeardAgainAfterTheBusHasCutTheConnection) {
  AttachWith("Chat");
  watch.Cut();
  ASSERT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 2; }));
  EXPECT_EQ(listener.events, (Events{"own 1", "own 2"}));
  EXPECT_EQ(watch.pauses.size(), 1U);
  EXPECT_EQ(watch.pauses.front(), std::chrono::minutes(1));
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Attached);
  listener.events.clear();
  Application("Chat").Show("Anna", "hello");
  EXPECT_EQ(Settled(), Events{"Chat:Anna,Anna,,hello"});
}

TEST_F(NotificationsTest, AreLookedForAsLongAsTheBusIsGone) {
  AttachWith("Chat");
  bus.Go();
  ASSERT_TRUE(QTest::qWaitFor([&] { return watch.pauses.size() == 4; }));
  EXPECT_EQ(watch.pauses.back(), std::chrono::minutes(1));
  EXPECT_EQ(listener.events, Events{"own 1"});
  EXPECT_EQ(messenger->Describe().Detail, "the session bus has gone");
}

TEST_F(NotificationsTest, AreNotLookedForAfterDetach) {
  AttachWith("Chat");
  listener.Meanwhile = [&] { messenger->Detach(); };
  bool over = false;
  watch.WhenOver = [&] { over = true; };
  watch.Cut();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  bool behind = false;
  QTimer::singleShot(0, [&] { behind = true; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return behind; }));
  EXPECT_FALSE(over);
  EXPECT_EQ(listener.events, Events{"own 1"});
}

TEST_F(NotificationsTest, AreHeardFromABusThatAnswersOnlyAfterTheStart) {
  bus.Hang();
  AttachWith("Chat");
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  bus.GoOn();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  EXPECT_EQ(listener.events, Events{"own 2"});
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Attached);
  Application("Chat").Show("Anna", "hello");
  EXPECT_EQ(Settled(), (Events{"own 2", "Chat:Anna,Anna,,hello"}));
}

TEST_F(NotificationsTest, KeepNobodyWaitingWhileTheBusHangs) {
  AttachWith("Chat");
  // What is looked at as soon as the messenger has begun to try again.
  std::size_t tried = 0;
  ConnectionState state = ConnectionState::Off;
  bool again = false;
  watch.WhenOver = [&] {
    if (std::exchange(again, true)) return;
    QTimer::singleShot(0, [&] {
      tried = watch.pauses.size();
      state = messenger->Describe().State;
      bus.GoOn();
    });
  };
  bus.Hang();
  watch.Cut();
  ASSERT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 2; }));
  EXPECT_EQ(tried, 1U);
  EXPECT_EQ(state, ConnectionState::Failed);
  EXPECT_EQ(listener.events, (Events{"own 1", "own 2"}));
}

TEST_F(NotificationsTest, MayBeDetachedWhileTheBusHangs) {
  bus.Hang();
  AttachWith("Chat");
  messenger.reset();
  bus.GoOn();
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(NotificationsTest, TellThatThereIsNoBus) {
  for (const char* address : {"", "unix:path=/nowhere", "wat"}) {
    messenger = std::make_unique<NotificationMessenger>(address, store, watch);
    AttachWith("Chat");
    EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
    EXPECT_EQ(messenger->Describe().State, ConnectionState::Failed);
    EXPECT_NE(messenger->Describe().Detail, "");
  }
  EXPECT_EQ(listener.events, Events{});
}

class RefusedNotificationsTest : public NotificationsTest {
 protected:
  RefusedNotificationsTest() : NotificationsTest(false) {}
};

TEST_F(RefusedNotificationsTest, TellWhyTheBusLetsNobodySeeThem) {
  AttachWith("Chat");
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_EQ(messenger->Describe().State, ConnectionState::Failed);
  const std::string why = messenger->Describe().Detail;
  EXPECT_TRUE(why.starts_with("the bus lets nobody see them: Rejected send message")) << why;
  messenger->SwitchApplication("Mail", true);
  EXPECT_EQ(listener.events, Events{});
}

}  // namespace
}  // namespace brenwick
