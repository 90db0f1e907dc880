// The coding of the language files: their readable source becomes the shipped, lightly coded file
// with its checksum.
//
// The coding only keeps users from editing a shipped file by hand; it hides nothing. Each
// character's Windows-1252 code is shifted by a tenth of its position in the line, so the first
// nine characters of a line stay as they are. Plain and coded lines here are Windows-1252 bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Failure.h"

namespace brenwick {

// One line coded and decoded; the length stays. Both raise kInvalidCall when a code would leave
// the range 0 to 255.
std::string GetCodedString(std::string_view plain);
std::string GetDeCodedString(std::string_view coded);

// The sum of the codes of all plain lines; the last line of a coded file holds it as a decimal
// number.
class LanguageChecksum {
 public:
  // Raises kOverflow when the sum leaves the signed 32-bit range.
  void Add(std::string_view plain);
  std::int32_t Value() const { return sum_; }

 private:
  std::int32_t sum_ = 0;
};

// A line of a readable source that has no place in a language file.
class SourceFailure : public Failure {
 public:
  SourceFailure(std::size_t line, std::string reason);

  std::size_t Line() const { return line_; }  // counted from 1, blank lines too
  const std::string& Reason() const { return reason_; }

 private:
  std::size_t line_;
  std::string reason_;
};

// The whole coded file made from a readable source in UTF-8: blank lines left out, the checksum as
// the last line, every line ended by CR LF.
// Raises SourceFailure (kInvalidCall) for a character outside the code page and for a line that
// cannot be coded, kOverflow for a checksum beyond its range.
std::string CodeLanguage(std::string_view source);

// The same source as translators on Windows edit it: in the code page, blank lines kept, every
// line ended by CR LF. Raises SourceFailure (kInvalidCall) for a character outside the code page.
std::string PlainSource(std::string_view source);

}  // namespace brenwick
