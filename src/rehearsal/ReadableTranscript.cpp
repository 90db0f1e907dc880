#include "rehearsal/ReadableTranscript.h"

#include <algorithm>

namespace brenwick {
namespace {

std::string Member(const nlohmann::json& step, const char* name) {
  const auto found = step.find(name);
  return found != step.end() && found->is_string() ? found->get<std::string>() : std::string();
}

// One line, however many the text has.
std::string OneLine(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return text;
}

// What the messenger tells, in words; empty for steps that nobody needs to read about.
std::string Describe(const nlohmann::json& step) {
  const std::string event = Member(step, "raise");
  const std::string name = Member(step, "name");
  if (event == "OnTextReceived") return name + " writes: " + Member(step, "text");
  if (event == "OnUserStateChanged") {
    return name + " changes to state " + std::to_string(step.value("state", 0));
  }
  if (event == "OnLocalStateChangeResult") {
    return "your own state is now " + std::to_string(step.value("state", 0));
  }
  if (event == "OnAppInviteReceived") return name + " invites you to " + Member(step, "appName");
  if (event == "OnFileTransferInviteReceived") return name + " offers " + Member(step, "fileName");
  if (!event.empty()) return event;
  if (step.contains("start")) return "Brenwick starts";
  if (step.contains("close")) return "Brenwick is closed";
  if (step.contains("click")) return "you click " + Member(step, "click");
  if (step.contains("hotkey")) return "you press " + Member(step, "hotkey");
  return {};
}

}  // namespace

void ReadableTranscript::BeginStep(int, const nlohmann::json& step) {
  const std::string what = Describe(step);
  if (!what.empty()) Line(Colour::Event, OneLine(what));
}

void ReadableTranscript::Write(const Effect& effect) {
  if (effect.contains("speak")) {
    WriteSpeech(effect);
  } else if (effect.contains("box")) {
    Line(Colour::Note, "  box: " + OneLine(effect["box"].get<std::string>()) + " — " +
                           effect["answer"].get<std::string>());
  } else if (effect.contains("open")) {
    Line(Colour::Note, "  opens " + effect["open"].get<std::string>());
  } else if (effect.contains("conversation")) {
    Line(Colour::Note, "  conversation with " + effect["conversation"].get<std::string>());
  } else if (effect.contains("ended")) {
    Line(Colour::Note, "  Brenwick has ended");
  } else if (effect.contains("show")) {
    Line(Colour::Note, "  " + effect.dump(-1, ' ', false, Effect::error_handler_t::replace));
  }
}

void ReadableTranscript::WriteSpeech(const Effect& effect) {
  const auto text = effect["speak"].get<std::string>();
  const auto voice = effect["voice"].get<std::string>();
  if (text.empty()) {
    Line(Colour::Note, "  (silence)");
    return;
  }
  const bool female = voice.find("female") != std::string::npos;
  Line(female ? Colour::Female : Colour::Male,
       "  says: \"" + OneLine(text) + "\"  [" + voice + "]");
}

void ReadableTranscript::Line(Colour colour, const std::string& text) {
  constexpr const char* kCodes[] = {"", "\033[1m", "\033[36m", "\033[35m", "\033[2m"};
  out_ << clock_.TimeText(clock_.Now()) << "  ";
  if (colour_) out_ << kCodes[static_cast<int>(colour)];
  out_ << text;
  if (colour_) out_ << "\033[0m";
  out_ << std::endl;
}

}  // namespace brenwick
