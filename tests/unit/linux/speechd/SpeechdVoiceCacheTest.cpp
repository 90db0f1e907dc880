// Which voices of speech-dispatcher are remembered, and when it is asked for them.
#include "linux/speechd/SpeechdVoiceCache.h"

#include <gtest/gtest.h>

#include <csignal>
#include <future>

#include "support/PrivateSpeechd.h"

namespace brenwick {
namespace {

using Names = std::vector<std::string>;

class SpeechdVoiceCacheTest : public testing::Test {
 protected:
  struct Answer {
    bool reached;
    bool news;
    bool operator==(const Answer&) const = default;
  };

  // What a new program is told once it has asked.
  Answer Ask() {
    std::promise<Answer> answer;
    SpeechdVoiceCache memory(server_.Address(), kFile, [&](bool reached, bool news) {
      answer.set_value({reached, news});
    });
    memory.Refresh();
    return answer.get_future().get();
  }

  Names Remembered() const {
    Names names;
    for (const SpeechdListing& voice : SpeechdVoiceCache({}, kFile, {}).Voices()) {
      names.push_back(voice.module + "/" + voice.name + "/" + voice.language);
    }
    return names;
  }

  PrivateSpeechd server_;
  const std::string kFile = server_.Inside("state/brenwick/voices");
  const Names kBoth = {"test/Anna/de", "test/Kal One/en-US"};
};

TEST_F(SpeechdVoiceCacheTest, RemembersWhatTheServerHas) {
  EXPECT_EQ(Remembered(), Names{});
  EXPECT_EQ(Ask(), (Answer{true, true}));
  EXPECT_EQ(Remembered(), kBoth);
  EXPECT_EQ(Ask(), (Answer{true, false}));
  EXPECT_EQ(Remembered(), kBoth);
}

TEST_F(SpeechdVoiceCacheTest, LearnsOfOtherVoices) {
  Ask();
  server_.SetVoices({"Zoe\tfr\tnone", "Anna\tde\tnone"});
  EXPECT_EQ(Ask(), (Answer{true, true}));
  EXPECT_EQ(Remembered(), Names({"test/Anna/de", "test/Zoe/fr"}));
}

TEST_F(SpeechdVoiceCacheTest, KeepsWhatItKnowsWhileThereIsNoServer) {
  Ask();
  server_.Kill();
  EXPECT_EQ(Ask(), (Answer{false, false}));
  EXPECT_EQ(Remembered(), kBoth);
}

TEST_F(SpeechdVoiceCacheTest, TakesAServerWithoutAnEngineForNone) {
  Ask();
  server_.SetVoices({"dummy\ten\tnone"});
  EXPECT_EQ(Ask(), (Answer{false, false}));
  EXPECT_EQ(Remembered(), kBoth);
}

TEST_F(SpeechdVoiceCacheTest, KeepsTheVoicesOfAnEngineThatIsOutOfOrder) {
  Ask();
  server_.SignalEngine(SIGKILL);
  EXPECT_EQ(Ask(), (Answer{false, false}));
  EXPECT_EQ(Remembered(), kBoth);
}

TEST(SpeechdVoiceCache, TakesNoVoicesOfAnotherEngineForThoseOfOneThatIsOutOfOrder) {
  PrivateSpeechd server(PrivateSpeechd::Engines::kNotingAndReal);
  const auto remembered = [&] {
    server.AskForVoices();
    return SpeechdVoiceCache({}, server.Inside("state/voices"), {}).Voices();
  };
  const std::vector<SpeechdListing> before = remembered();
  EXPECT_GT(before.size(), 400U);
  server.SetVoices({"Zoe\tfr\tnone"});
  EXPECT_NE(remembered(), before);
  server.SetVoices({"Anna\tde\tnone", "Kal One\ten-US\tnone"});
  EXPECT_EQ(remembered(), before);
  server.SignalEngine(SIGKILL);
  // The server takes another one only when it has met the dead one once.
  EXPECT_EQ(remembered(), before);
  EXPECT_EQ(remembered(), before);
}

TEST_F(SpeechdVoiceCacheTest, AsksUntilItHasBeenAnsweredAndThenNoMore) {
  server_.Kill();
  std::vector<std::promise<bool>> answers(3);
  std::size_t next = 0;
  SpeechdVoiceCache memory(server_.Address(), kFile,
                           [&](bool reached, bool) { answers.at(next++).set_value(reached); });
  memory.Refresh();
  EXPECT_FALSE(answers[0].get_future().get());
  server_.Start();
  // The first answer may still be on its way into the memory.
  auto second = answers[1].get_future();
  do {
    memory.Refresh();
  } while (second.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready);
  EXPECT_TRUE(second.get());
  memory.Refresh();
  server_.SetVoices({"Zoe\tfr\tnone"});
  memory.Refresh();
  EXPECT_EQ(Remembered(), kBoth);
}

TEST_F(SpeechdVoiceCacheTest, EndsWhileTheServerHangs) {
  server_.Stop();
  {
    SpeechdVoiceCache memory(server_.Address(), kFile, [](bool, bool) { ADD_FAILURE(); });
    memory.Refresh();
  }
  EXPECT_EQ(Remembered(), Names{});
}

TEST_F(SpeechdVoiceCacheTest, TakesAnyFile) {
  std::filesystem::create_directories(server_.Inside("state/brenwick"));
  std::string content;
  for (int byte = 0; byte < 256; ++byte) content += static_cast<char>(byte);
  SetBytes(kFile, content + "\n\t\t\t\t\t\nlone\n\nm\tAnna");
  EXPECT_EQ(Remembered().back(), "m/Anna/");
  EXPECT_EQ(Ask(), (Answer{true, true}));
  EXPECT_EQ(Remembered(), kBoth);
}

}  // namespace
}  // namespace brenwick
