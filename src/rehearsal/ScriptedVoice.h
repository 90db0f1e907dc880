// A speech engine without sound, and the recorder that stands before every engine.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/SpVoice.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class ScriptedVoice : public SpVoice {
 public:
  const std::vector<std::string>& GetVoices() override { return voices_; }
  void SetVoice(std::size_t index) override;
  void SetRate(int rate) override;
  void SetVolume(int volume) override;
  std::size_t Voice() const override { return voice_; }
  int Rate() const override { return rate_; }
  int Volume() const override { return volume_; }
  void Speak(const std::string& text, int flags) override;

  void SetVoices(std::vector<std::string> voices) { voices_ = std::move(voices); }
  // What a fresh engine has.
  void Reset();
  // The calls that fail from now on: "rate", "volume", "voice", "speak".
  void Refuse(std::set<std::string> calls) { refused_ = std::move(calls); }

 private:
  void FailWhenRefused(const char* call, bool badArgument) const;

  std::vector<std::string> voices_ = {"Mary", "Mike"};
  std::set<std::string> refused_;
  std::size_t voice_ = 0;
  int rate_ = 0;
  int volume_ = 100;
};

// Passes every call on to an engine and writes down what that was told to speak.
class VoiceRecorder : public SpVoice {
 public:
  VoiceRecorder(SpVoice& engine, Transcript& transcript)
      : engine_(engine), transcript_(transcript) {}

  const std::vector<std::string>& GetVoices() override { return engine_.GetVoices(); }
  void SetVoice(std::size_t index) override { engine_.SetVoice(index); }
  void SetRate(int rate) override { engine_.SetRate(rate); }
  void SetVolume(int volume) override { engine_.SetVolume(volume); }
  std::size_t Voice() const override { return engine_.Voice(); }
  int Rate() const override { return engine_.Rate(); }
  int Volume() const override { return engine_.Volume(); }
  void Speak(const std::string& text, int flags) override;

 private:
  SpVoice& engine_;
  Transcript& transcript_;
};

}  // namespace brenwick
