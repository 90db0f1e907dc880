#include "rehearsal/Interruption.h"

#include <algorithm>
#include <csignal>
#include <thread>

namespace brenwick {
namespace {

constexpr int kNoSignal = 0;
volatile std::sig_atomic_t noted = kNoSignal;

void Note(int signal) { noted = signal; }

}  // namespace

void NoteInterruptions() {
  struct sigaction action {};
  action.sa_handler = Note;
  // A read that waits for the next line of a script returns instead of beginning anew.
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
  // This one comes again with each further line of the transcript.
  action.sa_flags = 0;
  sigaction(SIGPIPE, &action, nullptr);
}

bool Interrupted() { return noted != kNoSignal; }

void SleepUnlessInterrupted(std::chrono::milliseconds time) {
  constexpr std::chrono::milliseconds kSlice{50};
  const auto end = std::chrono::steady_clock::now() + time;
  for (auto now = end - time; now < end && !Interrupted(); now = std::chrono::steady_clock::now()) {
    std::this_thread::sleep_until(std::min<decltype(now)>(now + kSlice, end));
  }
}

void EndAsInterrupted() {
  if (!Interrupted()) return;
  std::signal(noted, SIG_DFL);
  std::raise(noted);
}

}  // namespace brenwick
