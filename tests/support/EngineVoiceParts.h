// The parts of a voice whose first backend has an engine and an output of the test's choice.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "voice/EngineBackend.h"
#include "voice/QueuedVoice.h"

namespace brenwick {

inline QueuedVoice::Backends WithEngine(std::unique_ptr<SpeechEngine> engine,
                                        std::unique_ptr<SoundOutput> output,
                                        const std::string& locale = "en_GB.UTF-8",
                                        QueuedVoice::Backends others = {}) {
  others.insert(others.begin(), std::make_unique<EngineBackend>(
                                    std::move(engine), std::move(output),
                                    EngineBackendOptions{.name = "eSpeak NG", .locale = locale}));
  return others;
}

}  // namespace brenwick
