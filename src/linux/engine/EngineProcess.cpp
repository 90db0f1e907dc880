#include "linux/engine/EngineProcess.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "linux/engine/EngineContents.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds, std::chrono::steady_clock;

// How often the listener is asked whether it still wants to hear more.
constexpr milliseconds kAskAgain{20};

// What the engine has always had.
constexpr int kUsualSampleRate = 22'050;

[[noreturn]] void CannotSpeak(const std::string& reason) {
  throw Failure(kFileNotFound, reason, kTitle);
}

bool AlwaysListening(std::span<const std::int16_t> /*samples*/) { return true; }
bool NeverListening(std::span<const std::int16_t> /*samples*/) { return false; }

}  // namespace

EngineProcess::EngineProcess(EngineProcessOptions options)
    : options_(std::move(options)),
      cache_(options_.memory),
      first_start_left_(options_.first_start) {
  Start();
  if (cache_.Recall()) {
    sample_rate_ = cache_.Recall()->sample_rate;
    return;
  }
  if (TakeFirstStart() == Outcome::Done) return;
  if (!IsSlow()) CannotSpeak(trouble_.empty() ? DoesNotStart() : trouble_);
  sample_rate_ = kUsualSampleRate;
}

EngineProcess::~EngineProcess() = default;

void EngineProcess::Start() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    CannotSpeak("The speech engine cannot be started: there are no more sockets");
  }
  socket_ = std::make_unique<EngineSocket>(ends[0]);
  // Only the process is to hold this end: that it is closed is how its death shows.
  const EngineSocket other_end(ends[1]);
  process_ = std::make_unique<ChildProcess>(options_.program, ends[1]);
  started_at_ = steady_clock::now();
}

void EngineProcess::Stop() {
  process_.reset();
  socket_.reset();
  greeted_ = false;
  asked_ = false;
  in_use_ = false;
  ending_ = false;
}

std::string EngineProcess::DoesNotStart() const {
  return "The speech engine " + options_.program + " does not start";
}

// Whether the process has said nothing wrong, only nothing yet.
bool EngineProcess::IsSlow() {
  return trouble_.empty() && socket_->Wait({}) != EngineSocket::Arrival::Closed;
}

EngineProcess::Outcome EngineProcess::StartAgain(const Listener& listener) {
  Stop();
  try {
    Start();
  } catch (const std::exception& failure) {
    trouble_ = failure.what();
    return Outcome::Failed;
  }
  return Settle(listener);
}

// All waits for the first start together last no longer than one.
EngineProcess::Outcome EngineProcess::TakeFirstStart() {
  const Moment begin = steady_clock::now();
  const Outcome outcome = TakeStart(begin + first_start_left_, AlwaysListening);
  const auto taken = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
  first_start_left_ -= std::min(taken, first_start_left_);
  return outcome;
}

// Takes what a new process says before it speaks.
EngineProcess::Outcome EngineProcess::TakeStart(Moment end, const Listener& listener) {
  const Outcome outcome = greeted_ ? Outcome::Done : TakeGreeting(end, listener);
  return outcome == Outcome::Done && asked_ ? TakeVoices(end, listener) : outcome;
}

EngineProcess::Outcome EngineProcess::TakeGreeting(Moment end, const Listener& listener) {
  const Outcome outcome = Await(end, listener);
  if (outcome == Outcome::Failed && socket_->Wait({}) == EngineSocket::Arrival::Closed) {
    trouble_ = DoesNotStart();
  }
  if (outcome != Outcome::Done) return outcome;
  const EngineMessage greeting = socket_->Take();
  const int rate = SampleRateIn(greeting.content);
  if (greeting.word != EngineWord::Ready) {
    trouble_ = Repaired(greeting.content);
  } else if (rate <= 0) {
    trouble_ = "The speech engine " + options_.program + " has no sample rate";
  } else if (sample_rate_ != 0 && rate != sample_rate_) {
    trouble_ = "The speech engine has changed. It speaks again when Brenwick is started anew";
    if (cache_.Recall()) cache_.Remember({cache_.Recall()->locale, rate, cache_.Recall()->voices});
  } else {
    sample_rate_ = rate;
    greeted_ = true;
    trouble_.clear();
  }
  return greeted_ ? Outcome::Done : Outcome::Failed;
}

EngineProcess::Outcome EngineProcess::TakeVoices(Moment end, const Listener& listener) {
  const Outcome outcome = Await(end, listener);
  if (outcome != Outcome::Done) return outcome;
  const EngineMessage answer = socket_->Take();
  if (answer.word != EngineWord::Voices) return Outcome::Failed;
  asked_ = false;
  voices_ = VoicesIn(answer.content);
  if (!voices_.empty()) usual_voice_ = voices_.front().identifier;
  cache_.Remember({locale_, sample_rate_, voices_});
  return Outcome::Done;
}

std::vector<EngineVoice> EngineProcess::Voices(const std::string& locale) {
  locale_ = locale;
  asked_ = socket_->Send(EngineWord::Voices, locale);
  const std::optional<RememberedEngine>& known = cache_.Recall();
  if (known && known->locale == locale) return known->voices;
  if (asked_ && TakeFirstStart() == Outcome::Done) return std::exchange(voices_, {});
  if (known) return known->voices;
  if (IsSlow()) return {};
  CannotSpeak(trouble_.empty()
                  ? "The speech engine " + options_.program + " does not list its voices"
                  : trouble_);
}

void EngineProcess::Use(const std::string& voice, int rate, int volume) {
  voice_ = voice;
  rate_ = rate;
  volume_ = volume;
  in_use_ = false;
}

std::string EngineProcess::Wanted() const {
  return UseContent({voice_.empty() ? usual_voice_ : voice_, rate_, volume_});
}

void EngineProcess::Say(const std::string& piece, const Listener& listener) {
  constexpr int kFailuresAtOnePlace = 2;
  std::size_t delivered = 0;
  int failures = 0;
  while (failures < kFailuresAtOnePlace) {
    const std::size_t before = delivered;
    const Outcome outcome = SayOnce(piece, delivered, listener);
    if (outcome == Outcome::Done) failure_.clear();
    if (outcome != Outcome::Failed) return;
    Stop();
    failures = delivered > before ? 1 : failures + 1;
  }
  failure_ = trouble_;
  TellOfFailure(piece);
}

// That the process does not start is told once.
void EngineProcess::TellOfFailure(const std::string& piece) {
  if (!options_.tell) return;
  if (trouble_.empty()) {
    options_.tell("The speech engine failed twice at a text of " + std::to_string(piece.size()) +
                  " bytes, the rest of which is left out.");
  } else if (std::exchange(told_trouble_, trouble_) != trouble_) {
    options_.tell(trouble_);
  }
}

// A process that died or hung before it was given the text is replaced by a new one. Stopped: a new
// text might have to be said first.
EngineProcess::Outcome EngineProcess::SayOnce(const std::string& piece, std::size_t& delivered,
                                              const Listener& listener) {
  Outcome outcome = Settle(listener);
  if (outcome == Outcome::Failed) outcome = StartAgain(listener);
  if (outcome != Outcome::Done) return outcome;
  if (!in_use_) in_use_ = socket_->Send(EngineWord::Use, Wanted());
  if (!socket_->Send(EngineWord::Say, piece)) return Outcome::Failed;
  outcome = Hear(delivered, listener);
  if (outcome == Outcome::Stopped) {
    socket_->Send(EngineWord::Cancel);
    ending_ = true;
    cut_at_ = steady_clock::now();
  }
  return outcome;
}

// Waits for the start of a new process, and for the end of a text that was cut short. Failed: there
// is no process to talk to, or it has had time enough.
EngineProcess::Outcome EngineProcess::Settle(const Listener& listener) {
  if (!socket_) return Outcome::Failed;
  const Outcome started = TakeStart(started_at_ + options_.time_to_start, listener);
  if (started == Outcome::Failed && trouble_.empty()) trouble_ = DoesNotStart();
  if (started != Outcome::Done) return started;
  while (ending_) {
    const Outcome outcome = Await(cut_at_ + options_.patience, listener);
    if (outcome != Outcome::Done) return outcome;
    ending_ = socket_->Take().word != EngineWord::End;
    // A process that only goes on speaking leaves Await no time to ask.
    if (ending_ && !listener({})) return Outcome::Stopped;
    if (ending_ && steady_clock::now() > cut_at_ + options_.patience) return Outcome::Failed;
  }
  const bool alive = socket_->Wait({}) == EngineSocket::Arrival::Nothing;
  return alive ? Outcome::Done : Outcome::Failed;
}

void EngineProcess::Rest() {
  if (!socket_ || (greeted_ && !asked_ && !ending_)) return;
  const Outcome outcome = Settle(NeverListening);
  const bool late = ending_ && steady_clock::now() > cut_at_ + options_.patience;
  if (outcome == Outcome::Failed || late) Stop();
}

// Hands on what lies beyond the samples that an earlier try delivered.
EngineProcess::Outcome EngineProcess::Hear(std::size_t& delivered, const Listener& listener) {
  std::size_t known = delivered;
  for (;;) {
    const Outcome outcome = Await(steady_clock::now() + options_.patience, listener);
    if (outcome != Outcome::Done) return outcome;
    const EngineMessage message = socket_->Take();
    if (message.word == EngineWord::End) return Outcome::Done;
    if (message.word != EngineWord::Samples) return Outcome::Failed;
    const std::vector<std::int16_t> samples = SamplesIn(message.content);
    const std::size_t skipped = std::min(known, samples.size());
    known -= skipped;
    delivered += samples.size() - skipped;
    if (!listener(std::span(samples).subspan(skipped))) return Outcome::Stopped;
  }
}

// Waits for a message, at most until then. Failed: none comes. Stopped: the listener wants none.
EngineProcess::Outcome EngineProcess::Await(Moment end, const Listener& listener) {
  for (;;) {
    switch (socket_->Wait(kAskAgain)) {
      case EngineSocket::Arrival::Message:
        return Outcome::Done;
      case EngineSocket::Arrival::Closed:
        return Outcome::Failed;
      case EngineSocket::Arrival::Nothing:
        if (!listener({})) return Outcome::Stopped;
        if (steady_clock::now() > end) return Outcome::Failed;
    }
  }
}

}  // namespace brenwick
