// The voice of a program that is not going to speak: it has no voices and takes every sentence.
#pragma once

#include <string>
#include <vector>

#include "base/Failure.h"
#include "platform/SpVoice.h"

namespace brenwick {

class AbsentVoice : public SpVoice {
 public:
  const std::vector<std::string>& GetVoices() override { return voices_; }
  void SetVoice(std::size_t /*index*/) override { throw Failure(kInvalidCall); }
  void SetRate(int rate) override { Take(rate_, rate, -10, 10); }
  void SetVolume(int volume) override { Take(volume_, volume, 0, 100); }
  std::size_t Voice() const override { return 0; }
  int Rate() const override { return rate_; }
  int Volume() const override { return volume_; }
  void Speak(const std::string& /*text*/, int /*flags*/) override {}

 private:
  static void Take(int& property, int value, int least, int most) {
    if (value < least || value > most) throw Failure(kInvalidCall);
    property = value;
  }

  std::vector<std::string> voices_;
  int rate_ = 0;
  int volume_ = 100;
};

}  // namespace brenwick
