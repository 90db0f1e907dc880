// The server is started for a sentence, and for nothing else.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "contract/DispatchedVoice.h"
#include "contract/Environment.h"
#include "contract/PrivateDispatcher.h"

namespace brenwick {
namespace {

using Said = std::vector<std::string>;

// A session in which no server runs, whose voices are remembered.
class DispatcherStartTest : public testing::Test {
 protected:
  DispatcherStartTest() {
    server_.AskForVoices();
    server_.Kill();
  }
  ~DispatcherStartTest() override {
    if (Runs()) ::kill(std::stoi(BytesOf(pid_file_)), SIGKILL);
  }

  bool Runs() const { return std::filesystem::exists(server_.Socket()); }

  PrivateDispatcher server_;
  const Environment home_{"HOME", server_.Folder()};
  const Environment runtime_{"XDG_RUNTIME_DIR", server_.Folder()};
  const Environment config_{"XDG_CONFIG_HOME", server_.Inside("config")};
  const Environment address_{"SPEECHD_ADDRESS", ""};
  const std::string pid_file_ = server_.Inside("speech-dispatcher/pid/speech-dispatcher.pid");
};

TEST_F(DispatcherStartTest, IsStartedForASentenceOfItsVoices) {
  DispatchedVoice voice(server_, DispatcherAddressOfSession());
  voice.SayToTheEnd("Hello");
  EXPECT_FALSE(Runs());
  EXPECT_EQ(voice.Dispatcher().State, ConnectionState::Waiting);
  voice.SetVoice(voice.GetVoices().size() - 1);
  voice.SayToTheEnd("Hallo");
  EXPECT_TRUE(Runs());
  EXPECT_EQ(server_.Said(), Said({"gmw/en: Hello", "Anna|0|100|Hallo"}));
  EXPECT_EQ(voice.Dispatcher().State, ConnectionState::Attached);
}

TEST_F(DispatcherStartTest, IsStartedForATest) {
  DispatchedVoice voice(server_, DispatcherAddressOfSession());
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_TRUE(Runs());
  EXPECT_EQ(server_.Said(), Said{"Kal One|0|100|Hello"});
}

TEST_F(DispatcherStartTest, IsNotStartedWhereTheUserSaysWhereItIs) {
  DispatchedVoice voice(server_);
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_FALSE(Runs());
  EXPECT_EQ(server_.Said(), Said{});
}

TEST_F(DispatcherStartTest, IsNotStartedWhereItsSettingsForbidIt) {
  const std::string settings = server_.Inside("config/speech-dispatcher/speechd.conf");
  SetBytes(settings, BytesOf(settings) + "DisableAutoSpawn\n");
  DispatchedVoice voice(server_, DispatcherAddressOfSession());
  voice.SetVoice(voice.GetVoices().size() - 1);
  voice.SayToTheEnd("Hallo");
  EXPECT_FALSE(Runs());
  EXPECT_EQ(server_.Said(), Said{"gmw/de: Hallo"});
}

TEST_F(DispatcherStartTest, IsGivenUpAtOnceWhereItIsToBeSilent) {
  const std::string folder = server_.Inside("bin"), program = folder + "/speech-dispatcher";
  const std::string started = server_.Inside("started");
  std::filesystem::create_directory(folder);
  SetBytes(program, "#!/bin/sh\necho $$ > " + started + "\nexec sleep 1000\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  const Environment path("PATH", folder + ":/usr/bin:/bin");
  DispatchedVoice voice(server_, DispatcherAddressOfSession());
  voice.SetVoice(voice.GetVoices().size() - 1);
  voice.Speak("Never said", SVSFlagsAsync);
  ASSERT_TRUE(Await([&] {
    std::error_code none;
    return std::filesystem::file_size(started, none) < 100 && BytesOf(started).ends_with('\n');
  }));
  voice.SetVoice(0);
  voice.Speak("Two", SVSFlagsAsync + SVSFPurgeBeforeSpeak);
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Said{"gmw/en: Two"});
  EXPECT_TRUE(voice.Told().empty());
  EXPECT_NE(::kill(std::stoi(BytesOf(started)), 0), 0);
}

TEST_F(DispatcherStartTest, IsOutOfTheListWhereItIsNotInstalled) {
  const Environment path("PATH", "/nowhere");
  DispatchedVoice voice(server_, DispatcherAddressOfSession());
  EXPECT_EQ(voice.GetVoices(), Said({"English", "German"}));
  EXPECT_EQ(voice.Dispatcher().State, ConnectionState::Waiting);
  EXPECT_EQ(voice.Dispatcher().Detail, "It is not installed");
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(voice.Dispatcher().Detail, "Speech Dispatcher is not running");
  EXPECT_EQ(server_.Said(), Said{});
}

}  // namespace
}  // namespace brenwick
