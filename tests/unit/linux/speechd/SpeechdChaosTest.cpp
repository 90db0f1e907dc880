// Sentences are spoken through speech-dispatcher while the server and its engine are killed,
// stopped and replaced at random.
#include <gtest/gtest.h>

#include <csignal>
#include <numeric>
#include <random>
#include <set>

#include "support/PrivateSpeechd.h"
#include "support/SpeechdVoice.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience{300};

std::string Sentence(int number) { return "Message " + std::to_string(number); }

// The number of a line that the engine or eSpeak NG has noted.
int NumberIn(const std::string& line) { return std::stoi(line.substr(line.rfind(' ') + 1)); }

class Harm {
 public:
  explicit Harm(PrivateSpeechd& server) : server_(server) {}

  // Whatever it does, the server works when it returns.
  void DoOne(SpeechdVoice& voice) {
    switch (random_() % 5) {
      case 0:
        server_.Kill();
        Pass(voice);
        server_.Start();
        break;
      case 1:
        server_.SignalEngine(SIGKILL);
        Pass(voice);
        server_.Replace();
        break;
      case 2:
        server_.Stop();
        Pass(voice);
        server_.Continue();
        break;
      case 3:
        server_.SignalEngine(SIGSTOP);
        Pass(voice);
        server_.SignalEngine(SIGCONT);
        break;
      default:
        server_.Replace();
    }
  }

  // A while in which the voice meets what has been done, shorter or longer than its patience.
  void Pass(SpeechdVoice& voice) {
    const std::size_t said = server_.Said().size();
    const auto until = std::chrono::steady_clock::now() + milliseconds(random_() % 500);
    while (std::chrono::steady_clock::now() < until && server_.Said().size() < said + 20) {
      if (voice.WaitUntilSilent(milliseconds(5))) return;
    }
  }

 private:
  PrivateSpeechd& server_;
  std::minstd_rand random_{20261122};
};

TEST(SpeechdChaos, LosesNoSentenceAndKeepsTheirOrder) {
  constexpr int kHarms = 40, kBetweenHarms = 25, kSentences = kHarms * kBetweenHarms;
  PrivateSpeechd server;
  server.AskForVoices();
  Harm harm(server);
  SpeechdVoice voice(server, kPatience);
  voice.SetVoice(voice.GetVoices().size() - 1);
  for (int i = 0; i < kSentences; ++i) {
    voice.Speak(Sentence(i), SVSFlagsAsync);
    if (i % kBetweenHarms == 0) harm.DoOne(voice);
  }
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  std::vector<int> first;
  std::set<int> known;
  int again = 0, elsewhere = 0;
  for (const std::string& line : server.Said()) {
    if (line == "stopped") continue;
    const int number = NumberIn(line);
    if (known.insert(number).second) {
      first.push_back(number);
    } else {
      ++again;
    }
    elsewhere += line.starts_with("gmw/de") ? 1 : 0;
  }
  std::vector<int> expected(kSentences);
  std::iota(expected.begin(), expected.end(), 0);
  EXPECT_EQ(first, expected);
  // Only what was being said when it happened is said again.
  EXPECT_LE(again, kHarms);
  EXPECT_GT(elsewhere, 0);
  EXPECT_LT(elsewhere, kSentences);
  voice.SayToTheEnd("The end");
  EXPECT_EQ(server.Said().back(), "Anna|0|100|The end");
}

}  // namespace
}  // namespace brenwick
