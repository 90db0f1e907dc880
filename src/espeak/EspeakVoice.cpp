#include "espeak/EspeakVoice.h"

#include <utility>

namespace brenwick {
namespace {

EspeakVoice::Others InFront(std::unique_ptr<SpeechBackend> first, EspeakVoice::Others others) {
  others.insert(others.begin(), std::move(first));
  return others;
}

}  // namespace

EspeakVoice::EspeakVoice(const EspeakOptions& options, Others others)
    : EspeakVoice(std::make_unique<EspeakBackend>(options), std::move(others)) {}

EspeakVoice::EspeakVoice(std::unique_ptr<EspeakBackend> espeak, Others others)
    : QueuedVoice(InFront(std::move(espeak), std::move(others))),
      espeak_(static_cast<EspeakBackend&>(First())) {}

bool EspeakVoice::HasSound() {
  Queue().WaitUntilPrepared();
  return espeak_.HasSound();
}

}  // namespace brenwick
