// The voices of speech-dispatcher that were there when it was last asked.
//
// It takes a second to list them, which no start waits for; and the list has to be the same at
// every start, whether the server is running already or not. So the program shows the voices that
// are remembered, and asks the server for the next start.
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "linux/speechd/SpeechdAddress.h"
#include "linux/speechd/SpeechdVoices.h"
#include "voice/StopToken.h"

namespace brenwick {

class SpeechdVoiceCache {
 public:
  // Whether a server was reached that has an engine, and whether other voices are remembered now
  // than before.
  using Done = std::function<void(bool reached, bool news)>;

  // path: the file of the remembered voices. `done` is called on the thread that asks.
  SpeechdVoiceCache(SpeechdAddress address, std::string path, Done done);
  ~SpeechdVoiceCache();
  SpeechdVoiceCache(const SpeechdVoiceCache&) = delete;
  SpeechdVoiceCache& operator=(const SpeechdVoiceCache&) = delete;

  // What the file holds; nothing where there is none or it cannot be read.
  std::vector<SpeechdListing> Voices() const;

  // Asks the server, where there is one, on a thread of its own; once in the life of this object
  // that succeeds.
  void Refresh();

 private:
  std::optional<bool> Ask();
  void Work();

  const SpeechdAddress address_;
  const std::string path_;
  const Done done_;
  StopToken stop_;
  std::mutex mutex_;
  bool asked_ = false;  // or being asked
  std::thread thread_;
};

}  // namespace brenwick
