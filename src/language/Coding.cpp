#include "language/Coding.h"

#include <limits>
#include <optional>
#include <utility>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

int CodeOf(char byte) { return static_cast<unsigned char>(byte); }

std::string Shifted(std::string_view line, int direction) {
  std::string result;
  result.reserve(line.size());
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::size_t shift = (i + 1) / 10;
    if (shift > 255) throw Failure(kInvalidCall);
    const int code = CodeOf(line[i]) + direction * static_cast<int>(shift);
    if (code < 0 || code > 255) throw Failure(kInvalidCall);
    result += static_cast<char>(code);
  }
  return result;
}

// The source's lines in the code page.
std::vector<std::string> SourceLines(std::string_view source) {
  std::vector<std::string> lines;
  for (const std::string_view line : Lines(WithoutByteOrderMark(source))) {
    std::optional<std::string> bytes = ToWindows1252(line);
    if (!bytes) throw SourceFailure(lines.size() + 1, "a character that Windows-1252 lacks");
    lines.push_back(std::move(*bytes));
  }
  return lines;
}

// A control character can turn into a line end (or a blank line) where it is shifted, and would
// then move the number of every text behind it.
bool BreaksTheFile(std::string_view coded) {
  return coded.find_first_of(kLineEnd) != std::string_view::npos || IsBlank(coded);
}

std::string CodedLine(std::string_view plain, std::size_t number) {
  std::string coded;
  try {
    coded = GetCodedString(plain);
  } catch (const Failure&) {
    throw SourceFailure(number, "a character that cannot be coded so far behind in its line");
  }
  if (BreaksTheFile(coded)) throw SourceFailure(number, "a control character");
  return coded;
}

}  // namespace

std::string GetCodedString(std::string_view plain) { return Shifted(plain, 1); }

std::string GetDeCodedString(std::string_view coded) { return Shifted(coded, -1); }

void LanguageChecksum::Add(std::string_view plain) {
  for (const char byte : plain) {
    const int code = CodeOf(byte);
    if (sum_ > std::numeric_limits<std::int32_t>::max() - code) throw Failure(kOverflow);
    sum_ += code;
  }
}

SourceFailure::SourceFailure(std::size_t line, std::string reason)
    : Failure(kInvalidCall), line_(line), reason_(std::move(reason)) {}

std::string CodeLanguage(std::string_view source) {
  std::string file;
  LanguageChecksum checksum;
  std::size_t number = 0;
  for (const std::string& line : SourceLines(source)) {
    ++number;
    if (IsBlank(line)) continue;
    file.append(CodedLine(line, number)).append(kLineEnd);
    checksum.Add(line);
  }
  return file.append(std::to_string(checksum.Value())).append(kLineEnd);
}

std::string PlainSource(std::string_view source) {
  std::string file;
  for (const std::string& line : SourceLines(source)) file.append(line).append(kLineEnd);
  return file;
}

}  // namespace brenwick
