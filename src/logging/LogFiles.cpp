#include "logging/LogFiles.h"

#include <array>
#include <cstdio>

namespace brenwick {
namespace {

std::string DatedName(const std::string& prefix, LocalTime time, int daysBack) {
  using std::chrono::days;
  const std::chrono::year_month_day date{std::chrono::floor<days>(time) - days(daysBack)};
  std::array<char, 32> digits{};
  std::snprintf(digits.data(), digits.size(), "%d%02u%02u.log", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return prefix + digits.data();
}

}  // namespace

std::string LogFiles::MakeDatedFile(const std::string& prefix, std::int16_t daysBack) {
  return DatedName(prefix, clock_.Now(), daysBack);
}

void LogFiles::WriteDebugLine(std::string_view procedure, std::string_view text) {
  WriteDatedLine(data_.DebugLogs(), std::string(procedure).append(" ").append(text));
}

void LogFiles::WriteConversationLine(std::string_view text) {
  WriteDatedLine(data_.Conversations(), text);
}

void LogFiles::WriteMarkerLine(std::string_view text) {
  WriteLine(data_.DebugMarker(), clock_.Now(), text);
}

// One reading of the clock, so that a line's date is always that of its file.
void LogFiles::WriteDatedLine(const std::string& folder, std::string_view text) {
  const LocalTime now = clock_.Now();
  WriteLine(DatedName(folder, now, 0), now, text);
}

void LogFiles::WriteLine(const std::string& path, LocalTime now, std::string_view text) {
  std::string line = clock_.DateText(now) + " " + clock_.TimeText(now) + " ";
  folders_.Append(path, line.append(text).append("\r\n"));
}

}  // namespace brenwick
