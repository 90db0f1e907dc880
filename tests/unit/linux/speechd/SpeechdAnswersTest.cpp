// What a server may answer, and what is made of it.
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

#include "linux/speechd/SpeechdBackend.h"
#include "support/PrivateSpeechd.h"
#include "unit/linux/speechd/ScriptedSpeechd.h"

namespace brenwick {
namespace {

// A server with one voice that says whatever it is given, at once.
std::optional<std::string> Usual(const std::string& line) {
  if (line == "SPEAK") return "230 OK\r\n";
  if (line == ".") {
    return "225-1\r\n225 OK\r\n701-1\r\n701-1\r\n701 BEGIN\r\n702-1\r\n702-1\r\n702 END\r\n";
  }
  if (line == "LIST OUTPUT_MODULES") return "250-test\r\n250 OK\r\n";
  if (line == "LIST SYNTHESIS_VOICES") return "249-Anna\tde\tnone\r\n249 OK\r\n";
  if (line.starts_with("SET ") || line.starts_with("CANCEL ")) return "200 OK\r\n";
  return "";
}

class SpeechdAnswers : public testing::Test {
 protected:
  SpeechdOptions Options(const ScriptedSpeechd& server) const {
    return {.address = server.Address(),
            .locale = "en_US.UTF-8",
            .memory = folder_.Inside("voices"),
            .patience = {.answer = std::chrono::minutes(1), .retry = {}}};
  }

  // Whether nothing of the text is left to somebody else.
  bool Says(SpeechdBackend& speaker, std::u32string_view text) const {
    return speaker.Say(text, {}, stop_) && text.empty();
  }

 private:
  const TemporaryFolder folder_;
  const StopToken stop_;
};

TEST_F(SpeechdAnswers, AreNotAwaitedForWhatHasBeenSaid) {
  std::atomic<int> said = 0, lists = 0;
  const ScriptedSpeechd server([&](const std::string& line) -> std::optional<std::string> {
    if (line == ".") ++said;
    // The voices are asked for once at the start, on a connection of their own.
    if (line == "LIST OUTPUT_MODULES") return "250 OK\r\n";
    if (line == "LIST SYNTHESIS_VOICES" && ++lists == 1) return std::nullopt;
    return Usual(line);
  });
  SpeechdBackend speaker(Options(server));
  EXPECT_TRUE(Says(speaker, U"One"));
  EXPECT_EQ(said, 1);
  EXPECT_TRUE(Says(speaker, U"Two"));
  EXPECT_EQ(said, 2);
  EXPECT_EQ(speaker.State().State, ConnectionState::Attached);
}

TEST_F(SpeechdAnswers, OfVoicesMakeNoSpeakerWorkThatFailed) {
  std::atomic<bool> failed = false;
  const ScriptedSpeechd server([&](const std::string& line) -> std::optional<std::string> {
    if (line == "SPEAK") return "300 ERR NO\r\n";
    // Who asks for the voices at the start has to ask again.
    if (line == "SET SELF CLIENT_NAME user:brenwick:voices" && !failed) return std::nullopt;
    return Usual(line);
  });
  std::mutex mutex;
  std::vector<ConnectionState> states;
  const auto seen = [&] {
    const std::lock_guard lock(mutex);
    return states;
  };
  SpeechdOptions options = Options(server);
  SpeechdBackend* watched = nullptr;
  options.changed = [&] {
    const std::lock_guard lock(mutex);
    states.push_back(watched->State().State);
  };
  SpeechdBackend speaker(std::move(options));
  watched = &speaker;
  EXPECT_FALSE(Says(speaker, U"One"));
  EXPECT_EQ(seen(), std::vector{ConnectionState::Failed});
  failed = true;
  EXPECT_TRUE(Await([&] { return !Says(speaker, U"Two") && seen().size() > 1; }));
  EXPECT_EQ(seen(), std::vector(2, ConnectionState::Failed));
}

}  // namespace
}  // namespace brenwick
