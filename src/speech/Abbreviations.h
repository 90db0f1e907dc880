// The user's table of abbreviations and emoticons, and what is said instead of them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "language/TextTable.h"
#include "logging/DataFolder.h"
#include "logging/Logs.h"
#include "platform/Folders.h"
#include "platform/Progress.h"

namespace brenwick {

class Abbreviations {
 public:
  Abbreviations(Logs& log, const TextTable& texts, Progress& progress, DataFolder& data,
                Folders& folders)
      : log_(log), texts_(texts), progress_(progress), data_(data), folders_(folders) {}

  // Gives a user who has no "Abbreviations.Txt" a copy of the program's own, to edit; returns the
  // path of the user's file.
  std::string CreateUserFile();

  // Replaces the table by what "Abbreviations.Txt" in the data folder holds: one entry a line, the
  // abbreviation before the first "=", the text to say behind it, both exactly as written; blank
  // lines do not count. Without the file the table is empty. A line without "=", and a file of
  // blank lines alone, end in the error report.
  // atStartup: the status window shows already, so only its text is set.
  void EmoticonRead(bool atStartup);

  // Replaces the first occurrence of the first abbreviation of the table that the text contains;
  // nothing else in the text is touched.
  void ReplaceEmoticons(std::string& text) const;

  // The number of entries; a bad line that stopped the reading is counted.
  int Count() const { return count_; }

 private:
  struct Row {
    std::string abbreviation;
    std::string replacement;
  };

  void Load(const std::string& path);

  Logs& log_;
  const TextTable& texts_;
  Progress& progress_;
  DataFolder& data_;
  Folders& folders_;
  std::vector<Row> rows_ = std::vector<Row>(1);
  int count_ = 0;
};

}  // namespace brenwick
