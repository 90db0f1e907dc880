// A speech-dispatcher of a test's own, with an engine that only writes down what it should say. Its
// folder could be the home and the runtime folder of a session.
#pragma once

#include <signal.h>
#include <sys/types.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "linux/speechd/SpeechdAddress.h"
#include "support/TemporaryFolder.h"

namespace brenwick {

// Waits until that is so, for longer than it can take; whether it is.
template <typename Condition>
bool Await(const Condition& condition) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::yield();
  }
  return true;
}

class PrivateSpeechd {
 public:
  // With a real engine beside, its sound goes into the file "sound".
  enum class Engines { kNoting, kNotingAndReal };
  explicit PrivateSpeechd(Engines engines = Engines::kNoting);
  ~PrivateSpeechd();
  PrivateSpeechd(const PrivateSpeechd&) = delete;
  PrivateSpeechd& operator=(const PrivateSpeechd&) = delete;

  // Returns when it takes connections, as it does when the test begins.
  void Start();
  void Kill();
  // Another one takes its place before it is killed.
  void Replace();
  void Stop();
  void Continue();
  void SignalEngine(int signal);

  // Returns when its voices are remembered in the file "voices" of the folder "state".
  void AskForVoices() const;

  // Those of the engine "test", "name TAB language TAB variant" each. At first it has "Anna", who
  // speaks German, and "Kal One", who speaks American English.
  void SetVoices(const std::vector<std::string>& voices);

  SpeechdAddress Address() const { return {Socket(), "", 0, true}; }
  std::string Socket() const { return Inside("speech-dispatcher/speechd.sock"); }
  const std::string& Folder() const { return folder_.Path(); }
  std::string Inside(const std::string& name) const { return folder_.Inside(name); }

  // What its engine, and whoever writes into the same file, has been given to say.
  std::vector<std::string> Said() const;
  bool AwaitSaid(const std::string& line) const;

 private:
  TemporaryFolder folder_;
  pid_t server_ = 0;
};

}  // namespace brenwick
