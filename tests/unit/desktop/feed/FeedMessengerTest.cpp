// The feed for scripts, on a bus of the test's own.
#include "desktop/feed/FeedMessenger.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QTest>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Failure.h"
#include "support/BusQueue.h"
#include "support/PrivateBus.h"
#include "support/RecordingListener.h"
#include "support/TestApplication.h"

namespace brenwick {
namespace {

using Events = std::vector<std::string>;

constexpr const char* kFeed = "org.brenwick.Brenwick1";
constexpr const char* kFeedPath = "/org/brenwick/Brenwick1";

class FeedTest : public testing::Test {
 protected:
  ~FeedTest() override {
    feed.reset();
    for (const QString& name : connections) QDBusConnection::disconnectFromBus(name);
  }

  QDBusConnection Connect(const QString& name) {
    if (!connections.contains(name)) connections.push_back(name);
    return bus.Connect(name);
  }
  std::unique_ptr<FeedMessenger> Make(std::function<FeedRules::Time()> clock) {
    auto made =
        std::make_unique<FeedMessenger>(end, Connect("feed"), bus.Address(), std::move(clock));
    made->Changed = [this] { ++changes; };
    return made;
  }
  static QDBusMessage Call(const char* member, const QVariantList& values,
                           const char* interface = kFeed) {
    QDBusMessage call = QDBusMessage::createMethodCall(kFeed, kFeedPath, interface, member);
    call.setArguments(values);
    return call;
  }
  // What comes back: nothing, or the error's name and what it says.
  QString Answer(const QDBusMessage& call, const QString& from = "script") {
    const QDBusPendingCall pending = Connect(from).asyncCall(call);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }));
    said = pending.error().message();
    return pending.isError() ? pending.reply().errorName() : QString();
  }
  QString Message(const QString& contact, const QString& name, const QString& text,
                  const QString& from = "script") {
    return Answer(Call("Message", {contact, name, text}), from);
  }
  QString State(const QString& contact, const QString& name, const QString& state) {
    return Answer(Call("State", {contact, name, state}));
  }

  TestApplication<QCoreApplication> application;

  PrivateBus bus;
  QStringList connections;
  EndOfProgram end;
  FeedRules::Time now{};
  RecordingListener listener;
  int changes = 0;
  QString said;
  std::unique_ptr<FeedMessenger> feed = Make([this] { return now; });
};

TEST_F(FeedTest, RaisesMessagesAndStates) {
  feed->Attach(listener);
  EXPECT_EQ(Message("anna@x.example", "Anna Baker", "hello\nthere"), "");
  EXPECT_EQ(State("anna@x.example", "Anna Baker", "away"), "");
  EXPECT_EQ(State("bob", "", "offline"), "");
  EXPECT_EQ(listener.events, (Events{"own 2", "anna@x.example,Anna Baker,,hello\nthere",
                                     "anna@x.example changed 34", "bob changed 1"}));
}

TEST_F(FeedTest, MakesTheUserSignedInFromTheFirstEventOn) {
  feed->Attach(listener);
  EXPECT_EQ(feed->MyStatus(), MSTATE_OFFLINE);
  EXPECT_NE(Message("", "Anna", "hello"), "");
  EXPECT_EQ(feed->MyStatus(), MSTATE_OFFLINE);
  EXPECT_EQ(Message("anna", "Anna", "hello"), "");
  EXPECT_EQ(feed->MyStatus(), MSTATE_ONLINE);
}

TEST_F(FeedTest, DescribesWhatItIsConnectedTo) {
  feed->Attach(listener);
  EXPECT_EQ(feed->Describe().Name, "D-Bus");
  EXPECT_EQ(feed->Describe().State, ConnectionState::Waiting);
  EXPECT_EQ(feed->Describe().Detail, kFeed);
  const int before = changes;
  Message("anna", "Anna", "hello");
  EXPECT_EQ(feed->Describe().State, ConnectionState::Attached);
  EXPECT_EQ(changes, before + 1);
}

TEST_F(FeedTest, RefusesWhatCannotBeRight) {
  feed->Attach(listener);
  const QString error = QString(kFeed) + ".Error.";
  EXPECT_EQ(Message("", "Anna", "hello"), error + "InvalidContact");
  EXPECT_EQ(Message("an\nna", "Anna", "hello"), error + "InvalidContact");
  EXPECT_EQ(Message(QString(1025, 'x'), "Anna", "hello"), error + "InvalidContact");
  EXPECT_EQ(said, "the contact is longer than 1024 bytes");
  EXPECT_EQ(Message("anna", "Anna\r", "hello"), error + "InvalidName");
  EXPECT_EQ(Message("anna", "Anna", ""), error + "InvalidText");
  EXPECT_EQ(Message("anna", "Anna", QString(65'537, 'x')), error + "InvalidText");
  EXPECT_EQ(State("", "Anna", "away"), error + "InvalidContact");
  EXPECT_EQ(State("anna", "Anna", "asleep"), error + "UnknownState");
  EXPECT_TRUE(said.startsWith("the state is none of these: online, offline, "))
      << said.toStdString();
  EXPECT_EQ(listener.events, Events{});
  EXPECT_EQ(Message("anna", "Anna", QString(65'536, 'x')), "");
}

TEST_F(FeedTest, LetsNobodyPoseAsTheMailService) {
  feed->Attach(listener);
  EXPECT_EQ(Message("anna", "hotMAIL", "INBOX-UNREAD: none"), "");
  EXPECT_EQ(listener.events.back(), "anna,anna,,INBOX-UNREAD: none");
  EXPECT_EQ(Message("Hotmail", "", "INBOX-UNREAD: none"), QString(kFeed) + ".Error.InvalidContact");
}

TEST_F(FeedTest, HasNoOtherDoor) {
  feed->Attach(listener);
  const QString unknown = "org.freedesktop.DBus.Error.UnknownMethod";
  for (const QDBusMessage& call : {Call("Say", {"a", "b", "c"}), Call("message", {"a", "b", "c"}),
                                   Call("Message", {"a", "b", "c"}, "org.example.Other")}) {
    const QString answer = Answer(call);
    EXPECT_TRUE(answer == unknown || answer == "org.freedesktop.DBus.Error.UnknownInterface" ||
                answer == "org.freedesktop.DBus.Error.UnknownObject")
        << answer.toStdString();
  }
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(FeedTest, TellsWhatItTakesWhereTheArgumentsAreWrong) {
  feed->Attach(listener);
  for (const QVariantList& values : {QVariantList{"anna", "Anna"}, QVariantList{"anna", "Anna", 5},
                                     QVariantList{"anna", "Anna", "a", "b"}, QVariantList{}}) {
    EXPECT_EQ(Answer(Call("Message", values)), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(said, "Message takes three texts: contact, name, text");
    EXPECT_EQ(Answer(Call("State", values)), "org.freedesktop.DBus.Error.InvalidArgs");
    EXPECT_EQ(said, "State takes three texts: contact, name, state");
  }
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(FeedTest, TellsWhatItsArgumentsAre) {
  feed->Attach(listener);
  const QDBusPendingCall pending =
      Connect("script").asyncCall(Call("Introspect", {}, "org.freedesktop.DBus.Introspectable"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }));
  const QString told = pending.reply().arguments().value(0).toString();
  for (const char* part :
       {"<interface name=\"org.brenwick.Brenwick1\">", "<method name=\"Message\">",
        "<method name=\"State\">", "name=\"contact\"", "name=\"name\"", "name=\"text\"",
        "name=\"state\""}) {
    EXPECT_TRUE(told.contains(part)) << part;
  }
}

TEST_F(FeedTest, TakesFiftyASecondFromOneSenderAndAsManyFromAnother) {
  feed->Attach(listener);
  int refused = 0;
  for (int i = 0; i < 80; ++i) {
    if (const QString error = Message("anna", "Anna", "hello"); !error.isEmpty()) {
      EXPECT_EQ(error, QString(kFeed) + ".Error.TooManyEvents");
      EXPECT_EQ(said, "only 50 events a second are taken from one sender");
      ++refused;
    }
  }
  EXPECT_EQ(refused, 30);
  EXPECT_EQ(listener.events.size(), 51U);
  EXPECT_EQ(Message("anna", "Anna", "hello", "another"), "");
  now += std::chrono::seconds(1);
  EXPECT_EQ(Message("anna", "Anna", "hello"), "");
}

TEST_F(FeedTest, TakesAThousandContactsInOneRun) {
  feed = Make([this] { return now += std::chrono::seconds(1); });
  feed->Attach(listener);
  for (std::size_t i = 1; i < FeedRules::kMostContacts; ++i) {
    Connect("script").send(Call("State", {QString::number(i), "", "away"}));
  }
  EXPECT_EQ(State("the last", "", "away"), "");
  EXPECT_EQ(listener.events.size(), 1 + FeedRules::kMostContacts);
  listener.events.clear();
  const QString refused = QString(kFeed) + ".Error.TooManyContacts";
  EXPECT_EQ(State("one more", "", "away"), refused);
  EXPECT_EQ(said, "only 1000 contacts are taken until the program starts again");
  EXPECT_EQ(Message("another", "", "hello"), refused);
  EXPECT_EQ(listener.events, Events{});
  EXPECT_FALSE(feed->Knows("another"));
  EXPECT_EQ(State("the last", "", "busy"), "");
  feed->Test("Can you hear me?");
  ASSERT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 2; }));
  EXPECT_EQ(listener.events, (Events{"the last changed 10", ",D-Bus,,Can you hear me?"}));
}

TEST_F(FeedTest, AnswersBeforeTheEventIsHandled) {
  feed->Attach(listener);
  Message("anna", "Anna", "the first, which makes the user signed in");
  std::unique_ptr<QDBusPendingCall> call;
  bool answered = false;
  listener.Meanwhile = [&] { answered = QTest::qWaitFor([&] { return call->isFinished(); }); };
  call = std::make_unique<QDBusPendingCall>(
      Connect("script").asyncCall(Call("Message", {"anna", "Anna", "hello"})));
  EXPECT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 3; }));
  EXPECT_TRUE(answered);
}

TEST_F(FeedTest, IsTriedOverTheBus) {
  feed->Attach(listener);
  feed->Test("Can you hear me?");
  feed->Test("And now?");
  ASSERT_TRUE(QTest::qWaitFor([&] { return listener.events.size() == 2; }));
  EXPECT_EQ(listener.events, (Events{",D-Bus,,Can you hear me?", ",D-Bus,,And now?"}));
}

TEST_F(FeedTest, TellsThatAnotherHasItsName) {
  ASSERT_TRUE(Connect("another").registerService(kFeed));
  feed->Attach(listener);
  EXPECT_EQ(feed->Describe().State, ConnectionState::Failed);
  EXPECT_EQ(feed->Describe().Detail, "another program has the name org.brenwick.Brenwick1");
  feed->Test("Can you hear me?");
  QCoreApplication::processEvents();
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(FeedTest, HasNoNameFromABusThatHangs) {
  QDBusConnection another = Connect("another");
  bus.Hang();
  feed->Attach(listener);
  bus.GoOn();
  EXPECT_EQ(feed->Describe().State, ConnectionState::Failed);
  // Nor does it get the name when the bus goes on.
  EXPECT_TRUE(QTest::qWaitFor([&] { return another.registerService(kFeed); }));
}

TEST_F(FeedTest, KeepsNobodyWaitingForItsTestWhileTheBusHangs) {
  feed->Attach(listener);
  bus.Hang();
  {
    const BusQueue full(bus.Address());
    feed->Test("Can you hear me?");
    bus.GoOn();
  }
  feed->Test("And now?");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  EXPECT_EQ(listener.events, Events{",D-Bus,,And now?"});
}

TEST_F(FeedTest, TellsThatThereIsNoBus) {
  connections.push_back("nowhere");
  feed = std::make_unique<FeedMessenger>(
      end, QDBusConnection::connectToBus(QString("unix:path=/nowhere"), "nowhere"),
      "unix:path=/nowhere");
  feed->Attach(listener);
  EXPECT_EQ(feed->Describe().State, ConnectionState::Failed);
  EXPECT_EQ(feed->Describe().Detail, "there is no session bus");
  EXPECT_EQ(feed->MyStatus(), MSTATE_OFFLINE);
}

TEST_F(FeedTest, TellsThatTheBusHasGone) {
  feed->Attach(listener);
  Message("anna", "Anna", "hello");
  listener.events.clear();
  bus.Go();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  EXPECT_EQ(listener.events, Events{"own 1"});
  EXPECT_EQ(feed->Describe().State, ConnectionState::Failed);
  EXPECT_EQ(feed->MyStatus(), MSTATE_OFFLINE);
}

TEST_F(FeedTest, ReachesNobodyAfterDetach) {
  feed->Attach(listener);
  feed->Detach();
  EXPECT_EQ(Message("anna", "Anna", "hello"), "org.freedesktop.DBus.Error.ServiceUnknown");
  EXPECT_EQ(listener.events, Events{});
}

TEST_F(FeedTest, MayBeDetachedByTheHandlerThatHearsOfTheFirstEvent) {
  feed->Attach(listener);
  listener.Meanwhile = [&] { feed->Detach(); };
  EXPECT_EQ(Message("anna", "Anna", "hello"), "");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !listener.events.empty(); }));
  EXPECT_EQ(listener.events, Events{"own 2"});
}

TEST_F(FeedTest, ReachesNoProgramThatHasEnded) {
  feed->Attach(listener);
  Message("anna", "Anna", "hello");
  listener.events.clear();
  listener.Meanwhile = [] { throw ProgramEnd{}; };
  Message("anna", "Anna", "one");
  Message("anna", "Anna", "two");
  EXPECT_TRUE(end.Ended());
  EXPECT_EQ(listener.events, Events{});
}

// Keeps what a signal brought.
class Scripts : public QObject {
  Q_OBJECT
 public:
  explicit Scripts(QDBusConnection bus) {
    bus.connect(kFeed, kFeedPath, kFeed, "ConversationWanted", this, SLOT(Wanted(QString)));
  }
  QStringList wanted;

 private:
  Q_SLOT void Wanted(const QString& contact) { wanted.push_back(contact); }
};

TEST_F(FeedTest, AsksTheScriptsForAConversation) {
  Scripts scripts(Connect("script"));
  feed->Attach(listener);
  EXPECT_FALSE(feed->Knows("anna"));
  Message("anna", "Anna", "hello");
  EXPECT_TRUE(feed->Knows("anna"));
  feed->InstantMessage("anna");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !scripts.wanted.isEmpty(); }));
  EXPECT_EQ(scripts.wanted, QStringList{"anna"});
}

TEST_F(FeedTest, OpensNoConversationWithoutItsName) {
  EXPECT_THROW(feed->InstantMessage("anna"), Failure);
}

}  // namespace
}  // namespace brenwick

#include "FeedMessengerTest.moc"
