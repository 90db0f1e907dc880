// A voice that speaks through a speech-dispatcher of the test's own, behind an eSpeak NG that only
// writes down what it should say, into the same file.
#pragma once

#include <algorithm>
#include <fstream>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "linux/speechd/SpeechdBackend.h"
#include "support/EngineVoiceParts.h"
#include "support/PrivateSpeechd.h"

namespace brenwick {

// Its voices are called English and German; it notes "voice: text".
class NotingEngine : public SpeechEngine {
 public:
  explicit NotingEngine(std::string file) : file_(std::move(file)) {}

  int SampleRate() const override { return 22'050; }
  std::vector<EngineVoice> Voices(const std::string&) override {
    return {{"English", "gmw/en", "en"}, {"German", "gmw/de", "de"}};
  }
  void Use(const std::string& voice, int, int) override { voice_ = voice; }
  void Say(const std::string& piece, const Listener& listener) override {
    if (listener({})) std::ofstream(file_, std::ios::app) << voice_ + ": " + piece + "\n";
  }

 private:
  std::string file_;
  std::string voice_;
};

class SilentOutput : public SoundOutput {
 public:
  bool Ready() override { return true; }
  std::size_t Write(std::span<const std::int16_t> samples) override { return samples.size(); }
  void Cut() override {}
  std::chrono::milliseconds Finish() override { return {}; }
};

class SpeechdVoice : public QueuedVoice {
 public:
  // It asks a server that has failed again at once.
  explicit SpeechdVoice(const PrivateSpeechd& server,
                        std::chrono::milliseconds answer = SsipConnection::kPatience)
      : SpeechdVoice(server, SpeechdPatience{.answer = answer, .retry = {}}) {}
  SpeechdVoice(const PrivateSpeechd& server, const SpeechdPatience& patience)
      : SpeechdVoice(server, server.Address(), patience, std::make_shared<Notes>()) {}
  SpeechdVoice(const PrivateSpeechd& server, const SpeechdAddress& address)
      : SpeechdVoice(server, address, {}, std::make_shared<Notes>()) {}

  std::vector<std::string> Told() const {
    const std::lock_guard lock(notes_->mutex);
    return notes_->told;
  }

  Connection Speechd() const { return Engines().at(1); }

  // The voice with that description.
  void Choose(const std::string& description) {
    const std::vector<std::string>& voices = GetVoices();
    const auto found = std::find(voices.begin(), voices.end(), description);
    ASSERT_NE(found, voices.end()) << description;
    SetVoice(static_cast<std::size_t>(found - voices.begin()));
  }

  void SayToTheEnd(const std::string& text) {
    Speak(text, SVSFlagsAsync);
    EXPECT_TRUE(WaitUntilSilent(std::chrono::minutes(1))) << text;
  }

 private:
  struct Notes {
    mutable std::mutex mutex;
    std::vector<std::string> told;
  };

  SpeechdVoice(const PrivateSpeechd& server, const SpeechdAddress& address,
               const SpeechdPatience& patience, const std::shared_ptr<Notes>& notes)
      : QueuedVoice(WithEngine(std::make_unique<NotingEngine>(server.Inside("said")),
                               std::make_unique<SilentOutput>(), "en_US.UTF-8",
                               Others(server, address, patience, notes))),
        notes_(notes) {}

  static Backends Others(const PrivateSpeechd& server, const SpeechdAddress& address,
                         const SpeechdPatience& patience, const std::shared_ptr<Notes>& notes) {
    Backends others;
    others.push_back(std::make_unique<SpeechdBackend>(
        SpeechdOptions{.address = address,
                       .locale = "en_US.UTF-8",
                       .memory = server.Inside("state/voices"),
                       .patience = patience,
                       .tell = [notes](const std::string& message) {
                         const std::lock_guard lock(notes->mutex);
                         notes->told.push_back(message);
                       }}));
    return others;
  }

  std::shared_ptr<Notes> notes_;
};

}  // namespace brenwick
