// The speech engine in a process of its own, brenwick-voice.
//
// The process is started again when it dies, or when it is silent for too long while it should
// start, speak or come to an end. What it was saying goes on at the sample that was missing. A text
// at which it fails twice without getting any further is left out and told of.
//
// The voices are remembered in a file, so that the program does not wait for the process. It waits
// for the first start of all, and for the list in the order of another locale: at most the
// first_start of the options, which covers the start and the list together.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "linux/ChildProcess.h"
#include "linux/engine/EngineMessages.h"
#include "linux/engine/EngineVoiceCache.h"
#include "voice/SpeechEngine.h"

namespace brenwick {

struct EngineProcessOptions {
  // So long an engine that is at work may be silent.
  static constexpr std::chrono::milliseconds kPatience{2000};
  // The longest wait of the program for the start and the voices of an engine of which nothing is
  // remembered, or only the list for another locale.
  static constexpr std::chrono::milliseconds kFirstStart{5000};
  // The longest wait of the thread that speaks for a new process: a machine that has just started
  // is slow.
  static constexpr std::chrono::milliseconds kTimeToStart{20'000};

  // The path of brenwick-voice.
  std::string program;
  // Called, on the thread that speaks, with what the user may want to know, in English. It never
  // holds what should have been said: that is nobody else's business, and this may end up in the
  // system's log.
  std::function<void(const std::string& message)> tell = {};
  // The file in which the voices are remembered; empty: in none.
  std::string memory = {};
  std::chrono::milliseconds patience = kPatience;
  std::chrono::milliseconds first_start = kFirstStart;
  std::chrono::milliseconds time_to_start = kTimeToStart;
};

class EngineProcess : public SpeechEngine {
 public:
  // Raises kFileNotFound where the program cannot be started. Where nothing is remembered of the
  // engine, it waits for its start, and raises the same where the engine's data are not installed.
  explicit EngineProcess(EngineProcessOptions options);
  ~EngineProcess() override;

  int SampleRate() const override { return sample_rate_; }
  // The voices remembered for the locale; else what the process answers. Where no answer comes in
  // time, the voices remembered for another locale, or none: the process speaks with its usual
  // voice then.
  std::vector<EngineVoice> Voices(const std::string& locale) override;
  void Use(const std::string& voice, int rate, int volume) override;
  // Returns as soon as the listener wants no more, however busy the process is.
  void Say(const std::string& piece, const Listener& listener) override;
  // That no process starts, and why.
  std::string Trouble() const override { return failure_; }
  // Takes what the process has said meanwhile, and ends one that has died or should have come to
  // the end of its text by now.
  void Rest() override;

  // The process that speaks; 0 while there is none.
  pid_t ProcessId() const { return process_ ? process_->Id() : 0; }

 private:
  enum class Outcome { Done, Stopped, Failed };
  using Moment = std::chrono::steady_clock::time_point;

  void Start();
  void Stop();
  std::string DoesNotStart() const;
  bool IsSlow();
  Outcome StartAgain(const Listener& listener);
  Outcome TakeFirstStart();
  Outcome TakeStart(Moment end, const Listener& listener);
  Outcome TakeGreeting(Moment end, const Listener& listener);
  Outcome TakeVoices(Moment end, const Listener& listener);
  Outcome Settle(const Listener& listener);
  Outcome SayOnce(const std::string& piece, std::size_t& delivered, const Listener& listener);
  Outcome Hear(std::size_t& delivered, const Listener& listener);
  Outcome Await(Moment end, const Listener& listener);
  std::string Wanted() const;
  void TellOfFailure(const std::string& piece);

  const EngineProcessOptions options_;
  EngineVoiceCache cache_;
  std::chrono::milliseconds first_start_left_;
  int sample_rate_ = 0;
  std::string locale_;
  std::vector<EngineVoice> voices_;  // what the process has answered
  std::string usual_voice_;          // its identifier; empty while it is not known
  std::string voice_;
  int rate_ = 0;
  int volume_ = 100;
  std::string trouble_;  // why the process does not start
  std::string told_trouble_;
  std::string failure_;  // the trouble that kept the last text from being said

  std::unique_ptr<EngineSocket> socket_;
  std::unique_ptr<ChildProcess> process_;
  Moment started_at_;
  // What the present process has been told and has said.
  bool greeted_ = false;
  bool asked_ = false;   // for its voices, which have not come yet
  bool in_use_ = false;  // it knows what to speak with
  bool ending_ = false;  // a text was cut short whose end has not come
  Moment cut_at_;
};

}  // namespace brenwick
