// The daily log files: their names, and adding a line.
#pragma once

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "logging/DataFolder.h"
#include "platform/Clock.h"
#include "platform/Folders.h"

namespace brenwick {

class LogFiles {
 public:
  LogFiles(DataFolder& data, Folders& folders, Clock& clock)
      : data_(data), folders_(folders), clock_(clock) {}

  // prefix + yyyymmdd + ".log", for today or a day that many days ago.
  std::string MakeDatedFile(const std::string& prefix, std::int16_t daysBack);

  // One line at the end of today's file. The file is opened, written and closed for each line, so
  // that nothing is lost in a crash and the file can be read meanwhile. Raise a Failure when the
  // file cannot be written.
  void WriteDebugLine(std::string_view procedure, std::string_view text);
  void WriteConversationLine(std::string_view text);
  // The same for the file that marks the next start as one to debug.
  void WriteMarkerLine(std::string_view text);

 private:
  // Today's file in a folder, and the day that it is for.
  struct DailyFile {
    std::chrono::local_days day{};
    std::string path;
  };

  void Append(DailyFile& file, std::string (DataFolder::*folder)(),
              std::initializer_list<std::string_view> parts);
  std::string Moment(LocalTime now);

  DataFolder& data_;
  Folders& folders_;
  Clock& clock_;
  DailyFile debug_file_;
  DailyFile conversation_file_;
};

}  // namespace brenwick
