// The server is started for a sentence, and for nothing else.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <future>

#include "linux/speechd/SpeechdStart.h"
#include "support/Environment.h"
#include "support/PrivateSpeechd.h"
#include "support/SpeechdVoice.h"

namespace brenwick {
namespace {

using Said = std::vector<std::string>;

// A session in which no server runs, whose voices are remembered.
class SpeechdStartTest : public testing::Test {
 protected:
  SpeechdStartTest() {
    server_.AskForVoices();
    server_.Kill();
  }
  ~SpeechdStartTest() override {
    if (Runs()) ::kill(std::stoi(BytesOf(pid_file_)), SIGKILL);
  }

  bool Runs() const { return std::filesystem::exists(server_.Socket()); }

  // A folder whose "speech-dispatcher" ignores every plea, notes its process and does that.
  std::string FolderOfServer(const std::string& commands) const {
    const std::string folder = server_.Inside("bin"), program = folder + "/speech-dispatcher";
    std::filesystem::create_directory(folder);
    SetBytes(program, "#!/bin/sh\ntrap '' TERM\necho $$ > " + started_ + "\n" + commands + "\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return folder;
  }

  pid_t AwaitStarted() const {
    EXPECT_TRUE(Await([&] {
      std::error_code none;
      return std::filesystem::file_size(started_, none) < 100 && BytesOf(started_).ends_with('\n');
    }));
    return std::stoi(BytesOf(started_));
  }

  PrivateSpeechd server_;
  const std::string started_ = server_.Inside("started");
  const Environment home_{"HOME", server_.Folder()};
  const Environment runtime_{"XDG_RUNTIME_DIR", server_.Folder()};
  const Environment config_{"XDG_CONFIG_HOME", server_.Inside("config")};
  const Environment address_{"SPEECHD_ADDRESS", ""};
  const std::string pid_file_ = server_.Inside("speech-dispatcher/pid/speech-dispatcher.pid");
};

TEST_F(SpeechdStartTest, IsStartedForASentenceOfItsVoices) {
  SpeechdVoice voice(server_, SpeechdAddressOfSession());
  voice.SayToTheEnd("Hello");
  EXPECT_FALSE(Runs());
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Waiting);
  voice.SetVoice(voice.GetVoices().size() - 1);
  voice.SayToTheEnd("Hallo");
  EXPECT_TRUE(Runs());
  EXPECT_EQ(server_.Said(), Said({"gmw/en: Hello", "Anna|0|100|Hallo"}));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Attached);
}

TEST_F(SpeechdStartTest, IsStartedForATest) {
  SpeechdVoice voice(server_, SpeechdAddressOfSession());
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_TRUE(Runs());
  EXPECT_EQ(server_.Said(), Said{"Kal One|0|100|Hello"});
}

TEST_F(SpeechdStartTest, IsNotStartedWhereTheUserSaysWhereItIs) {
  SpeechdVoice voice(server_);
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_FALSE(Runs());
  EXPECT_EQ(server_.Said(), Said{});
}

TEST_F(SpeechdStartTest, IsNotStartedWhereItsSettingsForbidIt) {
  const std::string settings = server_.Inside("config/speech-dispatcher/speechd.conf");
  SetBytes(settings, BytesOf(settings) + "DisableAutoSpawn\n");
  SpeechdVoice voice(server_, SpeechdAddressOfSession());
  voice.SetVoice(voice.GetVoices().size() - 1);
  voice.SayToTheEnd("Hallo");
  EXPECT_FALSE(Runs());
  EXPECT_EQ(server_.Said(), Said{"gmw/de: Hallo"});
}

TEST_F(SpeechdStartTest, IsGivenUpAtOnceWhereItIsToBeSilent) {
  const Environment path("PATH", FolderOfServer("exec sleep 1000") + ":/usr/bin:/bin");
  SpeechdVoice voice(server_, SpeechdAddressOfSession());
  voice.SetVoice(voice.GetVoices().size() - 1);
  voice.Speak("Never said", SVSFlagsAsync);
  const pid_t process = AwaitStarted();
  voice.SetVoice(0);
  voice.Speak("Two", SVSFlagsAsync + SVSFPurgeBeforeSpeak);
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Said{"gmw/en: Two"});
  EXPECT_TRUE(voice.Told().empty());
  EXPECT_NE(::kill(process, 0), 0);
}

TEST_F(SpeechdStartTest, IsGivenUpWhereItIgnoresAPlea) {
  const Environment path("PATH", FolderOfServer("while :; do sleep 1; done") + ":/usr/bin:/bin");
  StopToken stop;
  auto started =
      std::async(std::launch::async, [&] { return StartDispatcher(server_.Socket(), stop); });
  const pid_t process = AwaitStarted();
  stop.RequestStop();
  EXPECT_EQ(started.wait_for(std::chrono::minutes(1)), std::future_status::ready);
  EXPECT_NE(::kill(process, SIGKILL), 0);
  EXPECT_FALSE(started.get());
}

TEST_F(SpeechdStartTest, IsOutOfTheListWhereItIsNotInstalled) {
  const Environment path("PATH", "/nowhere");
  SpeechdVoice voice(server_, SpeechdAddressOfSession());
  EXPECT_EQ(voice.GetVoices(), Said({"English", "German"}));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Waiting);
  EXPECT_EQ(voice.Speechd().Detail, "It is not installed");
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(voice.Speechd().Detail, "Speech Dispatcher is not running");
  EXPECT_EQ(server_.Said(), Said{});
}

}  // namespace
}  // namespace brenwick
