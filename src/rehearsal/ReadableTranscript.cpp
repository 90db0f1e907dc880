#include "rehearsal/ReadableTranscript.h"

#include "base/Text.h"
#include "rehearsal/PlainText.h"

namespace brenwick {
namespace {

// Characters. What is longer pushes the rest of its line on.
constexpr std::size_t kWhoWidth = 12;
constexpr std::size_t kSaidWidth = 48;

std::string Padded(const std::string& text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return length < width ? text + std::string(width - length, ' ') : text;
}

// "English (Great Britain), male: eSpeak NG" without the engine behind the colon, and what is
// not as usual.
std::string VoiceInWords(const Effect& speech) {
  const auto voice = speech["voice"].get<std::string>();
  std::string words = voice.substr(0, voice.rfind(": "));
  const int rate = speech["rate"].get<int>();
  const int volume = speech["volume"].get<int>();
  if (rate != 0) words += ", rate " + std::to_string(rate);
  if (volume != 100) words += ", volume " + std::to_string(volume);
  return words;
}

}  // namespace

void ReadableTranscript::BeginStep(int, const nlohmann::json& step) {
  if (form_ != nullptr) Line(Tone::Event, TellStep(step, *form_));
}

void ReadableTranscript::Write(const Effect& effect) {
  if (effect.contains("speak")) {
    WriteSpeech(effect);
  } else {
    Line(Tone::Note, TellEffect(effect));
  }
}

void ReadableTranscript::WriteSpeech(const Effect& effect) {
  const auto text = effect["speak"].get<std::string>();
  if (text.empty()) {
    Line(Tone::Note, {"Brenwick", "falls silent"});
  } else {
    Line(Tone::Said, {"Brenwick", "\"" + text + "\""}, VoiceInWords(effect));
  }
}

void ReadableTranscript::Line(Tone tone, const Told& told, const std::string& voice) {
  constexpr const char* kColours[] = {"", "\033[1;36m", "\033[2m"};
  if (told.what.empty()) return;
  const char* colour = colour_ ? kColours[static_cast<int>(tone)] : "";
  const char* plain = colour_ ? "\033[0m" : "";
  std::string what = PlainText(told.what);
  if (tone == Tone::Said) what = Padded(what, kSaidWidth);
  out_ << clock_.TimeText(clock_.Now()) << (tone == Tone::Said ? "  \u266A " : "    ") << colour
       << Padded(PlainText(told.who), kWhoWidth) << "  " << what << plain;
  if (!voice.empty()) out_ << "  " << PlainText(voice);
  out_ << std::endl;
}

}  // namespace brenwick
