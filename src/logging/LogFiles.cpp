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
  Append(debug_file_, &DataFolder::DebugLogs, {procedure, " ", text});
}

void LogFiles::WriteConversationLine(std::string_view text) {
  Append(conversation_file_, &DataFolder::Conversations, {text});
}

void LogFiles::WriteMarkerLine(std::string_view text) {
  folders_.Append(data_.DebugMarker(), Moment(clock_.Now()).append(text).append("\r\n"));
}

// One reading of the clock, so that a line's date is always that of its file.
void LogFiles::Append(DailyFile& file, std::string (DataFolder::*folder)(),
                      std::initializer_list<std::string_view> parts) {
  const LocalTime now = clock_.Now();
  const auto day = std::chrono::floor<std::chrono::days>(now);
  if (file.path.empty() || file.day != day) file = {day, DatedName((data_.*folder)(), now, 0)};
  std::string line = Moment(now);
  for (const std::string_view part : parts) line.append(part);
  folders_.Append(file.path, line.append("\r\n"));
}

std::string LogFiles::Moment(LocalTime now) {
  constexpr std::size_t kUsualLength = 120;
  std::string moment;
  moment.reserve(kUsualLength);
  return moment.append(clock_.DateText(now)).append(" ").append(clock_.TimeText(now)).append(" ");
}

}  // namespace brenwick
