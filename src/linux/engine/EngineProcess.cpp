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

// A machine that has just started is slow.
constexpr std::chrono::seconds kTimeToStart{20};

[[noreturn]] void CannotSpeak(const std::string& reason) {
  throw Failure(kFileNotFound, reason, kTitle);
}

bool AlwaysListening(std::span<const std::int16_t> /*samples*/) { return true; }
bool NeverListening(std::span<const std::int16_t> /*samples*/) { return false; }

}  // namespace

EngineProcess::EngineProcess(std::string program, Tell tell, milliseconds patience)
    : program_(std::move(program)), tell_(std::move(tell)), patience_(patience) {
  Start();
  if (Await(steady_clock::now() + kTimeToStart, AlwaysListening) != Outcome::Done) {
    CannotSpeak("The speech engine " + program_ + " does not start");
  }
  const EngineMessage greeting = socket_->Take();
  if (greeting.word != EngineWord::Ready) CannotSpeak(Repaired(greeting.content));
  sample_rate_ = SampleRateIn(greeting.content);
  if (sample_rate_ == 0) CannotSpeak("The speech engine " + program_ + " has no sample rate");
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
  process_ = std::make_unique<ChildProcess>(program_, ends[1]);
}

void EngineProcess::Stop() {
  process_.reset();
  socket_.reset();
  ending_ = false;
  in_use_ = false;
}

EngineProcess::Outcome EngineProcess::StartAgain(const Listener& listener) {
  Stop();
  try {
    Start();
  } catch (const std::exception&) {
    return Outcome::Failed;
  }
  const Outcome outcome = Await(steady_clock::now() + kTimeToStart, listener);
  if (outcome == Outcome::Stopped) Stop();
  if (outcome != Outcome::Done) return outcome;
  return socket_->Take().word == EngineWord::Ready ? Outcome::Done : Outcome::Failed;
}

std::vector<EngineVoice> EngineProcess::Voices(const std::string& locale) {
  socket_->Send(EngineWord::Voices, locale);
  if (Await(steady_clock::now() + kTimeToStart, AlwaysListening) != Outcome::Done) {
    CannotSpeak("The speech engine " + program_ + " does not list its voices");
  }
  return VoicesIn(socket_->Take().content);
}

void EngineProcess::Use(const std::string& voice, int rate, int volume) {
  use_ = UseContent({voice, rate, volume});
  in_use_ = false;
}

void EngineProcess::Say(const std::string& piece, const Listener& listener) {
  constexpr int kFailuresAtOnePlace = 2;
  std::size_t delivered = 0;
  int failures = 0;
  while (failures < kFailuresAtOnePlace) {
    const std::size_t before = delivered;
    if (SayOnce(piece, delivered, listener) != Outcome::Failed) return;
    Stop();
    failures = delivered > before ? 1 : failures + 1;
  }
  if (tell_) {
    tell_("The speech engine failed twice at a text of " + std::to_string(piece.size()) +
          " bytes, the rest of which is left out.");
  }
}

// A process that died or hung before it was given the text is replaced by a new one. Stopped: a new
// text might have to be said first.
EngineProcess::Outcome EngineProcess::SayOnce(const std::string& piece, std::size_t& delivered,
                                              const Listener& listener) {
  Outcome outcome = Settle(listener);
  if (outcome == Outcome::Failed) outcome = StartAgain(listener);
  if (outcome != Outcome::Done) return outcome;
  if (!in_use_) in_use_ = socket_->Send(EngineWord::Use, use_);
  if (!socket_->Send(EngineWord::Say, piece)) return Outcome::Failed;
  outcome = Hear(delivered, listener);
  if (outcome == Outcome::Stopped) {
    socket_->Send(EngineWord::Cancel);
    ending_ = true;
    cut_at_ = steady_clock::now();
  }
  return outcome;
}

// Waits for the end of a text that was cut short. Failed: there is no process to talk to, or it has
// had time enough and does not come to an end.
EngineProcess::Outcome EngineProcess::Settle(const Listener& listener) {
  while (ending_) {
    const Outcome outcome = Await(cut_at_ + patience_, listener);
    if (outcome != Outcome::Done) return outcome;
    ending_ = socket_->Take().word != EngineWord::End;
    // A process that only goes on speaking leaves Await no time to ask.
    if (ending_ && !listener({})) return Outcome::Stopped;
    if (ending_ && steady_clock::now() > cut_at_ + patience_) return Outcome::Failed;
  }
  const bool alive = socket_ && socket_->Wait({}) == EngineSocket::Arrival::Nothing;
  return alive ? Outcome::Done : Outcome::Failed;
}

void EngineProcess::Rest() {
  if (!ending_) return;
  const Outcome outcome = Settle(NeverListening);
  const bool late = steady_clock::now() > cut_at_ + patience_;
  if (outcome == Outcome::Failed || (ending_ && late)) Stop();
}

// Hands on what lies beyond the samples that an earlier try delivered.
EngineProcess::Outcome EngineProcess::Hear(std::size_t& delivered, const Listener& listener) {
  std::size_t known = delivered;
  for (;;) {
    const Outcome outcome = Await(steady_clock::now() + patience_, listener);
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
EngineProcess::Outcome EngineProcess::Await(steady_clock::time_point end,
                                            const Listener& listener) {
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
