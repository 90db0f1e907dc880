// The speech engine of a rehearsal that is to be heard.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "voice/QueuedVoice.h"

namespace brenwick {

struct RealVoiceOptions {
  // The user's locale: its voices come first in the list.
  std::string locale;
  // Where this is not empty, the speech goes into this WAV file instead of the sound device.
  std::filesystem::path wav_file = {};
  // The file is written only as fast as it would be heard, so that a purge cuts what would not
  // have been heard.
  bool as_heard = false;
};

// Raises a Failure where the engine's data are not installed or another voice of the process has
// the engine, and kPathFileAccess where the WAV file cannot be written; std::runtime_error, in
// words for the user, where the build has no engine.
std::unique_ptr<QueuedVoice> MakeRealVoice(const RealVoiceOptions& options);

}  // namespace brenwick
