// A messenger that follows a mock of Pidgin on a private bus.
#pragma once

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>
#include <chrono>
#include <memory>
#include <string>

#include "desktop/purple/PurpleMessenger.h"
#include "support/MockPurple.h"
#include "support/PrivateBus.h"
#include "support/TestApplication.h"
#include "unit/desktop/purple/RecordedEvents.h"

namespace brenwick {

class PurpleFixture : public testing::Test {
 protected:
  PurpleFixture() {
    purple.accounts[1] = {"me@home/here", "Me Myself"};
    purple.buddies[11] = {1, "anna@home", "Anna Baker", kAvailable};
    purple.buddies[12] = {1, "ben@home", "", kOffline};
  }
  ~PurpleFixture() override {
    messenger.reset();
    QDBusConnection::disconnectFromBus("program");
    QDBusConnection::disconnectFromBus("purple");
  }

  void Attach() { messenger->Attach(events); }
  // The client is there, the program is attached, and what there was is found and forgotten.
  void ComeAndAttach() {
    purple.Come();
    Attach();
    ASSERT_TRUE(Awaited("found Anna Baker (anna@home): 2\nfound ben@home (ben@home): 1\n"));
  }
  bool Awaited(const std::string& lines) {
    const bool came = QTest::qWaitFor([&] { return events.lines == lines; });
    EXPECT_EQ(events.Take(), lines);
    return came;
  }
  // All that was said before has been handled, and nothing came of it but these events.
  bool AwaitedUntilNow(const std::string& lines) {
    purple.Say("stranger@elsewhere/pc", "that is all");
    return Awaited(lines + "text stranger@elsewhere (stranger@elsewhere): that is all\n");
  }
  bool AwaitConnection(const Connection& connection) {
    return QTest::qWaitFor([&] { return messenger->Describe() == connection; });
  }
  void Restart(const PurpleOptions& changed) {
    messenger = std::make_unique<PurpleMessenger>(end, bus.Connect("program"), changed);
  }

  static constexpr std::chrono::hours kLong{1};
  static constexpr std::chrono::milliseconds kNone{0};

  TestApplication<QGuiApplication> application;

  PrivateBus bus;
  MockPurple purple{bus.Connect("purple")};
  RecordedEvents events;
  EndOfProgram end;
  // Nothing is taken for a part of a burst unless a test says so.
  PurpleOptions options{.burst = {kNone, kNone}, .patience = std::chrono::seconds(30)};
  std::unique_ptr<PurpleMessenger> messenger =
      std::make_unique<PurpleMessenger>(end, bus.Connect("program"), options);
};

}  // namespace brenwick
