#include "desktop/EngineProcess.h"

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <sstream>
#include <utility>

#include "base/Failure.h"
#include "base/ProgramState.h"

namespace brenwick {
namespace {

using std::chrono::steady_clock;

// How often the listener is asked whether it still wants to hear more.
constexpr std::chrono::milliseconds kAskAgain{20};

// A machine that has just started is slow.
constexpr std::chrono::seconds kTimeToStart{20};

[[noreturn]] void CannotSpeak(const std::string& reason) {
  throw Failure(kFileNotFound, reason, kTitle);
}

std::vector<std::int16_t> SamplesIn(const std::string& content) {
  std::vector<std::int16_t> samples(content.size() / sizeof(std::int16_t));
  std::memcpy(samples.data(), content.data(), samples.size() * sizeof(std::int16_t));
  return samples;
}

// Starts the program with the descriptor as its standard input; 0 where that fails.
pid_t Spawn(const std::string& program, int descriptor) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, descriptor, STDIN_FILENO);
  std::string name = program;
  std::array<char*, 2> arguments = {name.data(), nullptr};
  pid_t process = 0;
  const int failed =
      posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return failed == 0 ? process : 0;
}

}  // namespace

EngineProcess::EngineProcess(std::string program, Tell tell)
    : program_(std::move(program)), tell_(std::move(tell)) {
  Start();
}

EngineProcess::~EngineProcess() { Stop(); }

void EngineProcess::Start() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    CannotSpeak("The speech engine cannot be started: there are no more sockets");
  }
  socket_ = std::make_unique<EngineSocket>(ends[0]);
  process_ = Spawn(program_, ends[1]);
  close(ends[1]);
  const bool greets = socket_->Wait(kTimeToStart) == EngineSocket::Arrival::Message;
  const auto greeting = greets ? socket_->Receive() : std::nullopt;
  if (greeting && greeting->word == EngineWord::Ready) {
    sample_rate_ = std::stoi(greeting->content);
    return;
  }
  Stop();
  CannotSpeak(greeting ? greeting->content : "The speech engine " + program_ + " does not start");
}

void EngineProcess::Stop() {
  socket_.reset();
  ending_ = false;
  if (process_ == 0) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
  process_ = 0;
}

// With what was last in use. It throws no failure: the next text tries again.
void EngineProcess::StartAgain() {
  Stop();
  try {
    Start();
  } catch (const Failure&) {
    return;
  }
  socket_->Send(EngineWord::Use, use_);
}

std::vector<EspeakVoiceEntry> EngineProcess::Voices(const std::string& locale) {
  socket_->Send(EngineWord::Voices, locale);
  const auto answer = socket_->Receive();
  if (!answer) CannotSpeak("The speech engine " + program_ + " does not answer");
  std::vector<EspeakVoiceEntry> voices;
  std::istringstream lines(answer->content);
  std::string identifier;
  std::string description;
  std::string kind;
  while (std::getline(lines, identifier, '\t') && std::getline(lines, description, '\t') &&
         std::getline(lines, kind)) {
    voices.push_back({description, identifier, kind == "f"});
  }
  return voices;
}

void EngineProcess::Use(const std::string& voice, int rate, int volume) {
  use_ = voice + '\n' + std::to_string(rate) + '\n' + std::to_string(volume);
  if (Settle()) socket_->Send(EngineWord::Use, use_);
}

void EngineProcess::Say(const std::string& piece, const Listener& listener) {
  constexpr int kTries = 2;
  std::size_t delivered = 0;
  for (int i = 0; i < kTries; ++i) {
    if (!Settle()) StartAgain();
    if (SayOnce(piece, delivered, listener) != Outcome::Failed) return;
    Stop();
  }
  if (tell_) tell_("The speech engine failed twice at this, which is left out: " + piece);
}

// Waits for the end of a text that was cut short. False: there is no process to talk to, or it has
// had time enough and does not come to an end.
bool EngineProcess::Settle() {
  while (ending_) {
    const auto waited = steady_clock::now() - cut_at_;
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(EngineSocket::kPatience - waited);
    const bool arrived = left.count() > 0 && socket_->Wait(left) == EngineSocket::Arrival::Message;
    const auto message = arrived ? socket_->Receive() : std::nullopt;
    if (!message) {
      Stop();
    } else if (message->word == EngineWord::End) {
      ending_ = false;
    }
  }
  return socket_ != nullptr;
}

EngineProcess::Outcome EngineProcess::SayOnce(const std::string& piece, std::size_t& delivered,
                                              const Listener& listener) {
  if (!socket_ || !socket_->Send(EngineWord::Say, piece)) return Outcome::Failed;
  const Outcome outcome = Hear(delivered, listener);
  if (outcome == Outcome::Stopped) {
    socket_->Send(EngineWord::Cancel);
    ending_ = true;
    cut_at_ = steady_clock::now();
  }
  return outcome;
}

// Hands on what lies beyond the samples that an earlier try delivered.
EngineProcess::Outcome EngineProcess::Hear(std::size_t& delivered, const Listener& listener) {
  std::size_t known = delivered;
  auto heard_at = steady_clock::now();
  for (;;) {
    const EngineSocket::Arrival arrival = socket_->Wait(kAskAgain);
    if (arrival == EngineSocket::Arrival::Closed) return Outcome::Failed;
    if (arrival == EngineSocket::Arrival::Nothing) {
      if (!listener({})) return Outcome::Stopped;
      if (steady_clock::now() - heard_at > EngineSocket::kPatience) return Outcome::Failed;
      continue;
    }
    const auto message = socket_->Receive();
    if (!message) return Outcome::Failed;
    if (message->word == EngineWord::End) return Outcome::Said;
    const std::vector<std::int16_t> samples = SamplesIn(message->content);
    const std::size_t skipped = std::min(known, samples.size());
    known -= skipped;
    delivered += samples.size() - skipped;
    if (!listener(std::span(samples).subspan(skipped))) return Outcome::Stopped;
    heard_at = steady_clock::now();
  }
}

}  // namespace brenwick
