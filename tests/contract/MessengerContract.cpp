// What every messenger client does, whatever messenger stands behind it: the script's, each of the
// desktop's over a bus of the test's own, and all of those taken for one.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "base/Failure.h"
#include "desktop/SocketWatch.h"
#include "desktop/feed/FeedMessenger.h"
#include "desktop/purple/PurpleMessenger.h"
#include "files/IniStore.h"
#include "linux/notifications/NotificationMessenger.h"
#include "rehearsal/ScriptedWorld.h"
#include "sources/SourceHub.h"
#include "support/MockNotifications.h"
#include "support/MockPurple.h"
#include "support/PrivateBus.h"
#include "support/RecordingListener.h"
#include "support/TemporaryFolder.h"
#include "support/TestApplication.h"
#include "support/TestClock.h"

namespace brenwick {
namespace {

// A messenger, and somebody at its other end.
class Stage {
 public:
  virtual ~Stage() = default;
  virtual MessengerClient& Client() = 0;
  // Anna writes. The program hears of it while events run.
  virtual void Write(const std::string& text) = 0;
};

class ScriptStage : public Stage {
 public:
  MessengerClient& Client() override { return messenger_; }
  void Write(const std::string& text) override {
    if (messenger_.Listener() == nullptr) return;
    messenger_.Listener()->OnTextReceived({"anna", "Anna"}, "", text);
  }

 private:
  std::ostringstream out_;
  JsonTranscript transcript_{out_, false};
  ScriptedMessenger messenger_{transcript_};
};

class PurpleStage : public Stage {
 public:
  PurpleStage() {
    purple_.accounts[1] = {"me@home/here", "Me"};
    purple_.buddies[11] = {1, "anna", "Anna", kAvailable};
    purple_.Come();
  }
  ~PurpleStage() override {
    QDBusConnection::disconnectFromBus("program");
    QDBusConnection::disconnectFromBus("purple");
  }
  MessengerClient& Client() override { return messenger_; }
  void Write(const std::string& text) override {
    purple_.Say("anna", QString::fromStdString(text));
  }

 private:
  PrivateBus bus_;
  MockPurple purple_{bus_.Connect("purple")};
  EndOfProgram end_;
  PurpleMessenger messenger_{end_, bus_.Connect("program")};
};

class NotificationStage : public Stage {
 public:
  NotificationStage() {
    desk_.Come();
    messenger_.SwitchApplication("Chat", true);
  }
  ~NotificationStage() override {
    QDBusConnection::disconnectFromBus("desk");
    QDBusConnection::disconnectFromBus("applications");
  }
  MessengerClient& Client() override { return messenger_; }
  void Write(const std::string& text) override {
    NotifyingApplication(bus_.Connect("applications"), "Chat")
        .Show("Anna", QString::fromStdString(text));
  }

 private:
  PrivateBus bus_;
  MockNotifications desk_{bus_.Connect("desk")};
  TemporaryFolder folder_;
  TestClock clock_;
  IniStore store_{folder_.Inside("store.ini"), clock_, [](const std::string&) {}};
  EndOfProgram end_;
  SocketWatch watch_{end_};
  NotificationMessenger messenger_{bus_.Address(), store_, watch_};
};

class FeedStage : public Stage {
 public:
  ~FeedStage() override {
    QDBusConnection::disconnectFromBus("feed");
    QDBusConnection::disconnectFromBus("script");
  }
  MessengerClient& Client() override { return messenger_; }
  void Write(const std::string& text) override {
    QDBusMessage call = QDBusMessage::createMethodCall(
        "org.brenwick.Brenwick1", "/org/brenwick/Brenwick1", "org.brenwick.Brenwick1", "Message");
    bus_.Connect("script").send(call << "anna"
                                     << "Anna" << QString::fromStdString(text));
  }

 private:
  PrivateBus bus_;
  EndOfProgram end_;
  FeedMessenger messenger_{end_, bus_.Connect("feed"), bus_.Address()};
};

// The feed and the notifications behind one client; it is the feed that Anna writes to.
class SeveralStage : public Stage {
 public:
  MessengerClient& Client() override { return messenger_; }
  void Write(const std::string& text) override { feed_.Write(text); }

 private:
  static MessengerSource& SourceOf(Stage& stage) {
    return dynamic_cast<MessengerSource&>(stage.Client());
  }

  NotificationStage notifications_;
  FeedStage feed_;
  SourceHub messenger_{{&SourceOf(notifications_), &SourceOf(feed_)}};
};

struct Implementation {
  std::string name;
  std::function<std::unique_ptr<Stage>()> make;
};

template <typename T>
Implementation Of(const char* name) {
  return {name, [] { return std::make_unique<T>(); }};
}

class MessengerContract : public testing::TestWithParam<Implementation> {
 protected:
  // What Anna wrote and the program heard of.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const std::string& event : listener.events) {
      if (const auto at = event.find(",Anna,,"); at != std::string::npos) {
        texts.push_back(event.substr(at + 7));
      }
    }
    return texts;
  }
  bool Heard(const std::vector<std::string>& texts) {
    const bool heard = QTest::qWaitFor([&] { return Texts() == texts; });
    EXPECT_EQ(Texts(), texts);
    return heard;
  }

  TestApplication<QGuiApplication> application;
  RecordingListener listener;
  std::unique_ptr<Stage> stage = GetParam().make();
};

TEST_P(MessengerContract, HandsOnEachTextOnceAndInOrder) {
  stage->Client().Attach(listener);
  for (const char* text : {"one", "two", "three", "two"}) stage->Write(text);
  EXPECT_TRUE(Heard({"one", "two", "three", "two"}));
}

TEST_P(MessengerContract, HandsOnTheSignsOfEveryScript) {
  stage->Client().Attach(listener);
  const std::string text = "Grüße, привет, 你好 \U0001F600";
  stage->Write(text);
  EXPECT_TRUE(Heard({text}));
}

TEST_P(MessengerContract, HandsOnNothingOnceDetached) {
  stage->Client().Attach(listener);
  stage->Write("before");
  ASSERT_TRUE(Heard({"before"}));
  stage->Client().Detach();
  stage->Write("after");
  RecordingListener another;
  stage->Client().Attach(another);
  stage->Write("for the other");
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return !another.events.empty() && another.events.back().ends_with("for the other"); }));
  EXPECT_EQ(Texts(), std::vector<std::string>{"before"});
}

TEST_P(MessengerContract, IsDetachedAsOftenAsOneLikes) {
  stage->Client().Detach();
  stage->Client().Attach(listener);
  stage->Client().Detach();
  stage->Client().Detach();
  EXPECT_EQ(Texts(), std::vector<std::string>{});
}

TEST_P(MessengerContract, LetsAHandlerDetachIt) {
  stage->Client().Attach(listener);
  stage->Write("one");
  ASSERT_TRUE(Heard({"one"}));
  listener.Meanwhile = [this] { stage->Client().Detach(); };
  stage->Write("two");
  EXPECT_TRUE(Heard({"one", "two"}));
}

TEST_P(MessengerContract, GoesWhileItIsAttached) {
  stage->Client().Attach(listener);
  stage->Write("never heard");
  stage.reset();
  QCoreApplication::processEvents();
  EXPECT_LE(Texts().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Each, MessengerContract,
                         testing::Values(Of<ScriptStage>("Script"), Of<PurpleStage>("Purple"),
                                         Of<NotificationStage>("Notifications"),
                                         Of<FeedStage>("Feed"), Of<SeveralStage>("Several")),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brenwick
