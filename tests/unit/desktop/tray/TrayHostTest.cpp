// A notification area that is registered on the session bus.
#include "desktop/tray/TrayHost.h"

#include <gtest/gtest.h>

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QTest>

#include "support/PrivateBus.h"
#include "support/TestApplication.h"

namespace brenwick {
namespace {

const QString kWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kWatcherPath = QStringLiteral("/StatusNotifierWatcher");

// Keeps the list of the icons, and answers when it is told to.
class Watcher : public QDBusVirtualObject {
 public:
  explicit Watcher(const QDBusConnection& bus) : bus_(bus) {}

  bool Come() {
    return bus_.registerVirtualObject(kWatcherPath, this) && bus_.registerService(kWatcher);
  }
  bool Go() { return bus_.unregisterService(kWatcher); }
  void SaySomethingChanged() {
    bus_.send(QDBusMessage::createSignal(kWatcherPath, kWatcher, "StatusNotifierHostRegistered"));
  }
  void Answer(std::size_t question, bool registered) {
    bus_.send(asked.at(question).createReply(QVariant::fromValue(QDBusVariant(registered))));
  }

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) override {
    asked.push_back(call);
    return true;
  }

  std::vector<QDBusMessage> asked;

 private:
  QDBusConnection bus_;
};

class TrayHostTest : public testing::Test {
 protected:
  ~TrayHostTest() override {
    QDBusConnection::disconnectFromBus("watcher");
    QDBusConnection::disconnectFromBus("program");
  }
  bool AwaitQuestions(std::size_t count) {
    return QTest::qWaitFor([&] { return watcher.asked.size() == count; });
  }

  TestApplication<QGuiApplication> application;
  PrivateBus bus;
  Watcher watcher{bus.Connect("watcher")};
  TrayHost host{bus.Connect("program")};
};

TEST_F(TrayHostTest, IsFoundWhenItComesAndMissedWhenItGoes) {
  EXPECT_FALSE(host.Present());
  ASSERT_TRUE(watcher.Come());
  ASSERT_TRUE(AwaitQuestions(1));
  watcher.Answer(0, true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return host.Present(); }));
  ASSERT_TRUE(watcher.Go());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !host.Present(); }));
}

TEST_F(TrayHostTest, KeepsNobodyWaitingForItsAnswer) {
  int changes = 0;
  host.Changed = [&] { ++changes; };
  ASSERT_TRUE(watcher.Come());
  ASSERT_TRUE(AwaitQuestions(1));
  // Were the first question waited for, this signal would be heard only after its failure.
  watcher.SaySomethingChanged();
  ASSERT_TRUE(AwaitQuestions(2));
  EXPECT_EQ(changes, 0);
  watcher.Answer(1, true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return host.Present(); }));
  EXPECT_EQ(changes, 1);
}

TEST_F(TrayHostTest, TakesTheAnswerToTheLastQuestion) {
  ASSERT_TRUE(watcher.Come());
  ASSERT_TRUE(AwaitQuestions(1));
  watcher.SaySomethingChanged();
  ASSERT_TRUE(AwaitQuestions(2));
  watcher.Answer(1, true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return host.Present(); }));
  watcher.Answer(0, false);
  watcher.SaySomethingChanged();
  ASSERT_TRUE(AwaitQuestions(3));
  EXPECT_TRUE(host.Present());
}

}  // namespace
}  // namespace brenwick
