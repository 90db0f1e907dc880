// Messages that come while a version check waits for a server that says nothing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/Program.h"
#include "language/Coding.h"
#include "sources/SourceHub.h"
#include "support/FakeSource.h"
#include "support/Fakes.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

class NoTray : public TrayIcon {
 public:
  void Add(const std::string& /*tip*/) override {}
  void Modify(const std::string& /*tip*/) override {}
  void Delete() override {}
};

class NoConnections : public Connections {
 public:
  std::vector<Connection> Sources() override { return {}; }
  std::vector<Connection> Engines() override { return {}; }
  void TestSource(std::size_t /*index*/, const std::string& /*sentence*/) override {}
  void TestEngine(std::size_t /*index*/, const std::string& /*sentence*/) override {}
  std::vector<SeenApplication> Applications() override { return {}; }
  void SwitchApplication(const std::string& /*name*/, bool /*on*/) override {}
  bool GroupChats() override { return false; }
  void SetGroupChats(bool /*on*/) override {}
};

// The whole program, with the box for version checks ticked, and a server that drops packets.
class MessageWhileCheckingTest : public testing::Test {
 protected:
  MessageWhileCheckingTest() {
    std::string lines;
    for (int id = 1; id <= 174; ++id) lines += "text " + std::to_string(id) + "\n";
    world.folders.files["/program/Languages/English.TML"] = CodeLanguage(lines);
    program.Start();
    program.Form().chkNewVersionBrenwick.SetTicked(true);
    program.Form().chkIntroduceUser.SetTicked(false);
    voice.spoken.clear();
    world.loop.Pending = [this] { HandleEvents(); };
    begun = world.loop.rounds;
  }

  void HandleEvents() {
    const int step = world.loop.rounds - begun;
    if (const auto event = at.find(step); event != at.end()) event->second();
    heard_after[step] = voice.spoken;
  }

  FakeWorld world;
  FakeVoice voice;
  NoTray tray;
  NoConnections connections;
  MapStore store;
  FakeSource source;
  SourceHub sources{{&source}};
  Program program{sources, voice,      connections, store,         world.screen,
                  tray,    world.loop, world.clock, world.folders, world.system};
  FakeSocket socket{program.Form().wscHttp};
  int begun = 0;
  std::map<int, std::function<void()>> at;  // what happens at which step of the wait
  std::map<int, std::vector<std::string>> heard_after;
};

TEST_F(MessageWhileCheckingTest, AMessageIsSpokenInTheStepInWhichItComes) {
  at[3] = [&] { source.Send("ann", "hello"); };
  source.ChangeStatus(MSTATE_ONLINE);
  EXPECT_THAT(socket.calls, Contains(StartsWith("connect")));
  EXPECT_THAT(heard_after[3], ElementsAre("text 56"));
  EXPECT_THAT(heard_after[4], ElementsAre("text 56", "hello"));
  EXPECT_GT(heard_after.rbegin()->first, 900);
}

TEST_F(MessageWhileCheckingTest, MessagesKeepTheirOrder) {
  at[3] = [&] {
    source.Send("ann", "one");
    source.Send("ann", "two");
  };
  at[5] = [&] { source.Send("ann", "three"); };
  source.ChangeStatus(MSTATE_ONLINE);
  source.Send("ann", "four");
  EXPECT_THAT(voice.spoken, ElementsAre("text 56", "one", "two", "three", "four"));
}

TEST_F(MessageWhileCheckingTest, AnotherStateOfTheUsersJoinsTheCheck) {
  at[3] = [&] { source.ChangeStatus(MSTATE_AWAY); };
  at[5] = [&] { source.ChangeStatus(MSTATE_OFFLINE); };
  source.ChangeStatus(MSTATE_ONLINE);
  EXPECT_THAT(heard_after[6], ElementsAre("text 56", "text 57"));
  EXPECT_EQ(std::count_if(socket.calls.begin(), socket.calls.end(),
                          [](const std::string& call) { return call.starts_with("connect"); }),
            1);
}

}  // namespace
}  // namespace brenwick
