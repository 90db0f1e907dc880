// The speech engine in a process of its own, brenwick-voice.
//
// The process is started again when it dies, or when it is silent for too long while it should
// speak or come to an end. What it was saying goes on at the sample that was missing. A text at
// which it fails twice without getting any further is left out and told of.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <memory>
#include <string>

#include "linux/ChildProcess.h"
#include "linux/engine/EngineMessages.h"
#include "voice/SpeechEngine.h"

namespace brenwick {

class EngineProcess : public SpeechEngine {
 public:
  // Called, on the thread that speaks, with what the user may want to know, in English. It never
  // holds what should have been said: that is nobody else's business, and this may end up in the
  // system's log.
  using Tell = std::function<void(const std::string& message)>;

  // So long an engine that is at work may be silent.
  static constexpr std::chrono::milliseconds kPatience{2000};

  // program: the path of brenwick-voice. Raises kFileNotFound where it cannot be started or the
  // engine's data are not installed.
  EngineProcess(std::string program, Tell tell, std::chrono::milliseconds patience = kPatience);
  ~EngineProcess() override;

  int SampleRate() const override { return sample_rate_; }
  std::vector<EngineVoice> Voices(const std::string& locale) override;
  void Use(const std::string& voice, int rate, int volume) override;
  // Returns as soon as the listener wants no more, however busy the process is.
  void Say(const std::string& piece, const Listener& listener) override;
  // Ends a process that should have come to an end of its text by now.
  void Rest() override;

  // The process that speaks; 0 while there is none.
  pid_t ProcessId() const { return process_ ? process_->Id() : 0; }

 private:
  enum class Outcome { Done, Stopped, Failed };

  void Start();
  void Stop();
  Outcome StartAgain(const Listener& listener);
  Outcome Settle(const Listener& listener);
  Outcome SayOnce(const std::string& piece, std::size_t& delivered, const Listener& listener);
  Outcome Hear(std::size_t& delivered, const Listener& listener);
  Outcome Await(std::chrono::steady_clock::time_point end, const Listener& listener);

  std::string program_;
  Tell tell_;
  std::chrono::milliseconds patience_;
  int sample_rate_ = 0;
  std::string use_;
  bool in_use_ = false;  // the process has been told of it
  std::unique_ptr<EngineSocket> socket_;
  std::unique_ptr<ChildProcess> process_;
  bool ending_ = false;  // a text was cut short whose end has not come
  std::chrono::steady_clock::time_point cut_at_;
};

}  // namespace brenwick
