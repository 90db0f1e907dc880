// Clients that hang or say too much, and a bus that goes.
#include <QTimer>
#include <thread>
#include <vector>

#include "base/Failure.h"
#include "unit/desktop/purple/PurpleFixture.h"

namespace brenwick {
namespace {

const Connection kHangs{"Pidgin", ConnectionState::Failed, "It does not answer"};

class PurpleTroubleTest : public PurpleFixture {
 protected:
  void BeImpatient() {
    Restart({.burst = {kNone, kNone},
             .patience = std::chrono::seconds(1),
             .before_retry = std::chrono::milliseconds(20)});
  }
  // From now on, at the first message.
  void Hang() {
    purple.Do([this] { purple.silent_from = "PurpleFindBuddy"; });
    purple.Say("anna@home/pc", "are you there?");
    ASSERT_TRUE(AwaitConnection(kHangs));
  }
  void AwaitRetries() {
    constexpr int kRetries = 3;
    const int before = purple.CallsOf("PurpleCoreGetUi");
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return purple.CallsOf("PurpleCoreGetUi") > before + kRetries; }));
  }
};

TEST_F(PurpleTroubleTest, ABusThatHangsKeepsNobodyFromLeaving) {
  bus.Hang();
  Attach();
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  messenger->Detach();
  bus.GoOn();
  EXPECT_EQ(events.Take(), "");
}

TEST_F(PurpleTroubleTest, AClientThatHangsWorksAgainOnlyWhenItAnswers) {
  BeImpatient();
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  ASSERT_NO_FATAL_FAILURE(Hang());
  std::vector<Connection> told;
  messenger->Changed = [&] { told.push_back(messenger->Describe()); };
  ASSERT_NO_FATAL_FAILURE(AwaitRetries());
  EXPECT_TRUE(told.empty());
  purple.Do([this] { purple.silent_from.clear(); });
  EXPECT_TRUE(AwaitConnection({"Pidgin", ConnectionState::Attached, "me@home"}));
  EXPECT_EQ(told.size(), 1U);
}

TEST_F(PurpleTroubleTest, WhoseClientIsThereIsHeardEvenIfItHangs) {
  BeImpatient();
  Attach();
  EXPECT_FALSE(messenger->IsHeard("pidgin"));
  purple.Come();
  ASSERT_TRUE(AwaitConnection({"Pidgin", ConnectionState::Attached, "me@home"}));
  for (const bool hangs : {false, true}) {
    if (hangs) {
      ASSERT_NO_FATAL_FAILURE(Hang());
      ASSERT_NO_FATAL_FAILURE(AwaitRetries());
    }
    EXPECT_TRUE(messenger->IsHeard("pidgin")) << hangs;
    EXPECT_TRUE(messenger->IsHeard("finch")) << hangs;
    EXPECT_FALSE(messenger->IsHeard("other")) << hangs;
  }
  purple.Go();
  ASSERT_TRUE(AwaitConnection({"Pidgin or Finch", ConnectionState::Waiting, ""}));
  EXPECT_FALSE(messenger->IsHeard("pidgin"));
}

TEST_F(PurpleTroubleTest, ABusThatGoesTakesAllAlong) {
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  bus.Go();
  EXPECT_TRUE(Awaited("found Anna Baker (anna@home): 1\nown 1\n"));
  EXPECT_TRUE(
      AwaitConnection({"Pidgin or Finch", ConnectionState::Failed, "The session bus has gone"}));
  EXPECT_EQ(messenger->MyStatus(), MSTATE_OFFLINE);
  EXPECT_FALSE(messenger->IsHeard("pidgin"));
  EXPECT_THROW(messenger->InstantMessage("anna@home"), Failure);
}

// The program is busy with the first message until the client has told nearly all.
TEST_F(PurpleTroubleTest, AFloodLeavesOthersTheirTurn) {
  constexpr int kMany = 2000;
  ASSERT_NO_FATAL_FAILURE(ComeAndAttach());
  int heard = 0;
  int turns = 0;
  QTimer other;
  QObject::connect(&other, &QTimer::timeout, &other, [&] { turns += heard < kMany ? 1 : 0; });
  events.Heard = [&] {
    if (heard++ > 0) return;
    while (purple.CallsOf("PurpleFindBuddy") < kMany) std::this_thread::yield();
    other.start(0);
  };
  std::string all;
  for (int i = 0; i < kMany; ++i) {
    const std::string message = std::to_string(i);
    purple.Say("eve@elsewhere", QString::fromStdString(message));
    all += "text eve@elsewhere (eve@elsewhere): " + message + "\n";
  }
  constexpr int kPatience = 60000;
  ASSERT_TRUE(QTest::qWaitFor([&] { return heard >= kMany; }, kPatience));
  EXPECT_TRUE(AwaitedUntilNow(all));
  EXPECT_GT(turns, kMany / 100);
}

}  // namespace
}  // namespace brenwick
