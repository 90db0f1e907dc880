#include "espeak/EspeakEngine.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <atomic>
#include <cmath>

#include "base/Failure.h"
#include "espeak/EspeakLanguages.h"

namespace brenwick {
namespace {

constexpr double kWordsPerMinute = 175;

// The engine speaks no slower than this, whatever number it is given. Below it TimeStretch
// stretches the finished sound.
constexpr int kSlowestWordsPerMinute = espeakRATE_MINIMUM;

// How much sound the engine makes before it hands it over, in milliseconds.
constexpr int kBlockMilliseconds = 60;

std::atomic<bool> engine_in_use = false;

int OnSamples(short* samples, int count, espeak_EVENT* events) noexcept {
  constexpr int kGoOn = 0, kStop = 1;
  auto* engine = static_cast<EspeakEngine*>(events->user_data);
  if (!samples || count <= 0 || !engine) return kGoOn;
  return engine->Deliver({samples, static_cast<std::size_t>(count)}) ? kGoOn : kStop;
}

// The second wall: even an audio element that reached the engine would not be opened.
int RefuseAudio(int, const char*, const char*) { return 1; }

// The sample rate of the library, which is started by the first engine of the process and stays
// until its end: espeak_Terminate can wait for ever for the library's own idle thread when it is
// called a second time. What is left at the end is memory that the library still refers to.
int StartedLibrary() {
  // In this mode the library speaks in the calling thread alone and stops as soon as it is told.
  static const int sample_rate = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, kBlockMilliseconds,
                                                   nullptr, espeakINITIALIZE_DONT_EXIT);
  if (sample_rate > 0) return sample_rate;
  throw Failure(kFileNotFound,
                "The speech engine eSpeak NG does not start: its data are not installed",
                "Brenwick");
}

}  // namespace

EspeakEngine::EspeakEngine() : sample_rate_(StartedLibrary()) {
  if (engine_in_use.exchange(true)) {
    throw Failure(kInvalidCall, "The speech engine eSpeak NG is already in use", "Brenwick");
  }
  espeak_SetSynthCallback(OnSamples);
  espeak_SetUriCallback(RefuseAudio);
}

EspeakEngine::~EspeakEngine() { engine_in_use = false; }

std::vector<EngineVoice> EspeakEngine::Voices(const std::string& locale) {
  return EngineVoicesFor(locale, kEspeakName, InstalledLanguages());
}

void EspeakEngine::Use(const std::string& voice, int rate, int volume) {
  if (!voice.empty() && voice != voice_) {
    espeak_SetVoiceByName(voice.c_str());
    voice_ = voice;
  }
  // Beyond espeakRATE_MAXIMUM the engine speaks faster still, by shortening the finished sound.
  const double wanted = kWordsPerMinute * std::pow(3.0, rate / 10.0);
  const int spoken = std::max(static_cast<int>(std::lround(wanted)), kSlowestWordsPerMinute);
  stretching_speed_ = std::min(wanted / kSlowestWordsPerMinute, 1.0);
  espeak_SetParameter(espeakRATE, spoken, 0);
  espeak_SetParameter(espeakVOLUME, volume, 0);
}

void EspeakEngine::Say(const std::string& piece, const Listener& listener) {
  listener_ = &listener;
  if (stretching_speed_ < 1) slow_.emplace(sample_rate_, stretching_speed_);
  // Never espeakSSML and never espeakPHONEMES: see SpeakableText.h.
  constexpr unsigned kFlags = espeakCHARS_UTF8 | espeakENDPAUSE;
  const espeak_ERROR result =
      espeak_Synth(piece.c_str(), piece.size() + 1, 0, POS_CHARACTER, 0, kFlags, nullptr, this);
  if (slow_ && result == EE_OK) listener(slow_->Rest());
  slow_.reset();
  listener_ = nullptr;
}

bool EspeakEngine::Deliver(std::span<const std::int16_t> samples) {
  return slow_ ? (*listener_)(slow_->Stretched(samples)) : (*listener_)(samples);
}

}  // namespace brenwick
