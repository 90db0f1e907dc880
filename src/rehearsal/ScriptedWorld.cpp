#include "rehearsal/ScriptedWorld.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr float kTwipsPerCharacter = 90;

const char* NameOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return "critical";
    case BoxIcon::Question:
      return "question";
    case BoxIcon::Exclamation:
      return "exclamation";
    case BoxIcon::Information:
      return "information";
  }
  return "";
}

const char* NameOf(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::Ok:
      return "OK";
    case BoxAnswer::Yes:
      return "Yes";
    case BoxAnswer::No:
      return "No";
  }
  return "";
}

}  // namespace

void ScriptedMessenger::InstantMessage(const std::string& contact) {
  transcript_.Write({{"conversation", contact}});
}

BoxAnswer ScriptedScreen::MessageBox(const std::string& text, const std::string& title,
                                     BoxIcon icon, BoxButtons buttons) {
  const BoxAnswer answer = NextAnswer(buttons);
  transcript_.Write({{"box", text},
                     {"title", title},
                     {"icon", NameOf(icon)},
                     {"buttons", buttons == BoxButtons::Ok ? "OK" : "YesNo"},
                     {"answer", NameOf(answer)}});
  return answer;
}

BoxAnswer ScriptedScreen::NextAnswer(BoxButtons buttons) {
  std::string answer;
  if (!answers.empty()) {
    answer = answers.front();
    answers.pop_front();
  }
  if (buttons == BoxButtons::Ok) return BoxAnswer::Ok;
  return answer == "Yes" ? BoxAnswer::Yes : BoxAnswer::No;
}

void ScriptedScreen::Beep() { transcript_.Write({{"beep", true}}); }

void ScriptedScreen::SetPointer(Pointer pointer) {
  if (pointer == pointer_) return;
  pointer_ = pointer;
  transcript_.Write({{"pointer", pointer == Pointer::Hourglass ? "hourglass" : "default"}});
}

void ScriptedScreen::SendKeys(const std::string& keys) {
  transcript_.Write({{"sendkeys", keys}});
  sent_keys_.push_back(keys);
}

void ScriptedScreen::Open(const std::string& address) { transcript_.Write({{"open", address}}); }

float ScriptedScreen::TextWidth(const std::string& text, const Font&) {
  return kTwipsPerCharacter * static_cast<float>(CharacterCount(text));
}

void ScriptedScreen::Reset() {
  pointer_ = Pointer::Default;
  sent_keys_.clear();
}

void ScriptedTray::Write(const char* what, const std::string& tip) {
  tip_ = tip;
  transcript_.Write({{"tray", what}, {"tip", tip_}});
}

std::string ScriptedClock::DateText(LocalTime time) {
  const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(time)};
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text.data();
}

std::string ScriptedClock::TimeText(LocalTime time) {
  const std::chrono::hh_mm_ss clock{time - std::chrono::floor<std::chrono::days>(time)};
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

bool ParseMoment(const std::string& text, LocalTime& moment) {
  constexpr std::string_view kPattern = "dddd-dd-ddTdd:dd:dd";
  const bool fits =
      std::equal(text.begin(), text.end(), kPattern.begin(), kPattern.end(),
                 [](char c, char p) { return p == 'd' ? c >= '0' && c <= '9' : c == p; });
  if (!fits) return false;
  const auto part = [&text](std::size_t at) {
    return static_cast<unsigned>(std::stoi(text.substr(at, 2)));
  };
  const std::chrono::year_month_day date{std::chrono::year{std::stoi(text.substr(0, 4))},
                                         std::chrono::month{part(5)}, std::chrono::day{part(8)}};
  if (!date.ok() || part(11) > 23 || part(14) > 59 || part(17) > 59) return false;
  moment = std::chrono::local_days{date} + std::chrono::hours(part(11)) +
           std::chrono::minutes(part(14)) + std::chrono::seconds(part(17));
  return true;
}

}  // namespace brenwick
