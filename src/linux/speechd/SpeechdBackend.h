// Says sentences through speech-dispatcher, where the user's desktop has it.
//
// The server plays the sound itself; a sentence is over when it says so. Where the connection
// breaks or its engine dies, the sentence is said once more over a new connection; where that fails
// too or the server hangs, somebody else has to say it, and for a while the server is not asked.
// The server is started only for a sentence: the user has chosen one of its voices or tests it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "linux/speechd/SpeechdAddress.h"
#include "linux/speechd/SpeechdVoiceCache.h"
#include "linux/speechd/SpeechdVoices.h"
#include "linux/speechd/SsipConnection.h"
#include "voice/SpeechBackend.h"

namespace brenwick {

struct SpeechdPatience {
  // How long the server may take to answer, or to begin.
  std::chrono::milliseconds answer = SsipConnection::kPatience;
  // So long others may be talking before it begins.
  std::chrono::milliseconds turn = std::chrono::seconds(10);
  // So long a server that has failed is left alone: the next time for twice as long, up to
  // kLongestRetry, until it has said something.
  std::chrono::milliseconds retry = std::chrono::seconds(30);
  static constexpr std::chrono::minutes kLongestRetry{5};
  // What others cut off later than this has been heard.
  std::chrono::milliseconds heard = std::chrono::milliseconds(300);
};

struct SpeechdOptions {
  SpeechdAddress address;
  // Its voices come first in the list.
  std::string locale;
  // The file in which the voices are remembered.
  std::string memory;
  SpeechdPatience patience = {};
  // Called, on the thread that speaks, once when it stops working.
  std::function<void(const std::string& message)> tell = {};
  // Called, on any thread, when State() may be another.
  std::function<void()> changed = {};
};

class SpeechdBackend final : public SpeechBackend {
 public:
  explicit SpeechdBackend(SpeechdOptions options);

  const std::vector<std::string>& Voices() const override { return descriptions_; }
  std::string Language(std::size_t voice) const override { return voices_.at(voice).language; }
  std::size_t VoiceFor(const std::string& language) const override;
  Connection State() const override;

  // Returns when the server has said the text.
  bool Say(std::u32string_view& text, const Prosody& prosody, const StopToken& stop) override;
  // The stop that was requested has already silenced the server.
  void Cut() override {}
  std::chrono::milliseconds Finish() override { return {}; }

 private:
  // Silenced: by the stop. The last two: by another program.
  enum class Outcome { Said, Silenced, PushedAside, HardlyHeard };

  void SayAll(std::u32string_view& text, const Prosody& prosody, const StopToken& stop);
  void Connect(const StopToken& stop);
  void Use(const Prosody& prosody, const StopToken& stop);
  void CheckEngine(const Prosody& prosody, const StopToken& stop);
  bool HasEngine(const Prosody& prosody, const StopToken& stop);
  Outcome SayPiece(const std::string& piece, const Prosody& prosody, const StopToken& stop);
  void Silence(const std::string& message);
  void Lose(const SsipTrouble& trouble);
  void LeaveAlone();
  void SetState(ConnectionState state, const std::string& detail);
  void VoicesAsked(bool reached, bool news);

  const SpeechdOptions options_;
  std::vector<SpeechdVoiceEntry> voices_;
  std::vector<std::string> descriptions_;

  // Of the thread that speaks.
  std::unique_ptr<SsipConnection> connection_;
  std::vector<std::string> in_use_;  // the commands that the connection was prepared with
  bool doubtful_ = false;            // whether the engine is there has to be asked first
  std::chrono::steady_clock::time_point check_again_at_;
  std::string trouble_;
  std::chrono::milliseconds retry_after_;
  std::chrono::steady_clock::time_point retry_at_;

  mutable std::mutex mutex_;
  ConnectionState state_ = ConnectionState::Waiting;
  std::string detail_;
  bool news_ = false;  // the server has other voices than the list

  SpeechdVoiceCache memory_;
};

// How long a text usually sounds at most.
std::chrono::milliseconds UsualTime(std::string_view text, int rate);

}  // namespace brenwick
