#include "files/IniFormat.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "base/Lines.h"
#include "base/SystemText.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr std::string_view kHeading =
    "# The settings of Brenwick. Change them only while it does not run.\n";
constexpr char kHexDigits[] = "0123456789abcdef";
constexpr std::string_view kDigits = "0123456789";
// Characters with an escape of their own, and its letters behind the "\".
constexpr std::string_view kEscaped = "\\\"\n\r\t";
constexpr std::string_view kLetters = "\\\"nrt";

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }

void AppendHex(std::string& text, char byte) {
  const auto value = static_cast<unsigned char>(byte);
  text += kHexDigits[value >> 4];
  text += kHexDigits[value & 0xF];
}

void AppendEscaped(std::string& text, char c) {
  const std::size_t letter = kEscaped.find(c);
  if (letter != std::string_view::npos) {
    text += '\\';
    text += kLetters[letter];
  } else if (IsControl(c)) {
    text += "\\x";
    AppendHex(text, c);
  } else {
    text += c;
  }
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) AppendEscaped(quoted, c);
  return quoted + '"';
}

std::string QuotedIfNeeded(const std::string& name, std::string_view special) {
  const bool plain = !name.empty() && name.front() != ' ' && name.back() != ' ' &&
                     std::none_of(name.begin(), name.end(), IsControl) &&
                     name.find_first_of(special) == std::string::npos;
  return plain ? name : Quoted(name);
}

std::string HexOf(std::string_view bytes) {
  std::string hex;
  for (const char byte : bytes) {
    if (!hex.empty()) hex += ' ';
    AppendHex(hex, byte);
  }
  return hex;
}

std::string Written(const RegistryValue& value) {
  switch (value.type) {
    case ValueKind::Text:
      return Quoted(value.text);
    case ValueKind::ExpandableText:
      return "expand:" + Quoted(value.text);
    case ValueKind::TextList:
      return "multi:" + Quoted(value.text);
    case ValueKind::Number:
      return "dword:" + std::to_string(value.number);
    case ValueKind::Bytes:
      return "hex:" + HexOf(value.text);
    default:
      return "hex(" + std::to_string(static_cast<std::int32_t>(value.type)) +
             "):" + HexOf(value.text);
  }
}

void AppendValues(std::string& ini, const IniKey& key) {
  for (const auto& [folded, value] : key.values) {
    ini += QuotedIfNeeded(value.name, "=\"[#;") + " = " + Written(value.value) + '\n';
  }
}

// What is left of a line while it is read. Each Take… removes what it reads from the front.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : rest_(line) { SkipBlanks(); }

  // True when nothing but a comment is left.
  bool IsAtEnd() {
    SkipBlanks();
    return rest_.empty() || rest_.front() == '#' || rest_.front() == ';';
  }
  bool Take(std::string_view expected) {
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
  }
  void SkipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }

  std::optional<std::string> TakeQuoted();
  // A quoted name, or what stands before the end character, which itself stays.
  std::optional<std::string> TakeName(char end);
  std::optional<std::int32_t> TakeNumber();
  // A number as it is written, without quotes.
  std::optional<std::string> TakeDigits();
  std::optional<std::string> TakeHex();

 private:
  void TakeEscaped(std::string& text);
  std::optional<unsigned> HexByte(std::size_t at) const;

  std::string_view rest_;
};

std::optional<std::string> LineReader::TakeQuoted() {
  if (!Take("\"")) return {};
  std::string text;
  while (!rest_.empty()) {
    if (Take("\"")) return text;
    if (Take("\\")) {
      TakeEscaped(text);
    } else {
      const std::string_view plain = rest_.substr(0, rest_.find_first_of("\"\\"));
      text += plain;
      rest_.remove_prefix(plain.size());
    }
  }
  return {};
}

void LineReader::TakeEscaped(std::string& text) {
  const std::size_t letter = rest_.empty() ? std::string_view::npos : kLetters.find(rest_.front());
  if (letter != std::string_view::npos) {
    text += kEscaped[letter];
    rest_.remove_prefix(1);
  } else if (const auto number = rest_.starts_with('x') ? HexByte(1) : std::nullopt) {
    AppendUtf8(text, *number);
    rest_.remove_prefix(3);
  } else {
    text += '\\';
  }
}

std::optional<unsigned> LineReader::HexByte(std::size_t at) const {
  if (rest_.size() < at + 2) return {};
  unsigned value = 0;
  const char* const first = rest_.data() + at;
  const auto [end, error] = std::from_chars(first, first + 2, value, 16);
  if (error != std::errc() || end != first + 2) return {};
  return value;
}

std::optional<std::string> LineReader::TakeName(char end) {
  if (rest_.starts_with('"')) return TakeQuoted();
  std::string_view name = rest_.substr(0, rest_.find(end));
  rest_.remove_prefix(name.size());
  while (!name.empty() && IsBlank(name.back())) name.remove_suffix(1);
  if (name.empty()) return {};
  return std::string(name);
}

std::optional<std::int32_t> LineReader::TakeNumber() {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
  if (error != std::errc()) return {};
  rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
  return number;
}

std::optional<std::string> LineReader::TakeDigits() {
  const std::size_t sign = rest_.starts_with('-') ? 1 : 0;
  const std::size_t end = std::min(rest_.find_first_not_of(kDigits, sign), rest_.size());
  if (end == sign) return {};
  const std::string digits(rest_.substr(0, end));
  rest_.remove_prefix(end);
  return digits;
}

std::optional<std::string> LineReader::TakeHex() {
  std::string bytes;
  while (!IsAtEnd()) {
    const std::optional<unsigned> byte = HexByte(0);
    if (!byte) return {};
    bytes += static_cast<char>(*byte);
    rest_.remove_prefix(2);
  }
  return bytes;
}

std::optional<RegistryValue> TextValue(ValueKind type, std::optional<std::string> text) {
  if (!text) return {};
  return RegistryValue{type, std::move(*text), 0};
}

// Kinds whose values are no raw bytes.
bool HasOwnForm(ValueKind type) {
  return type == ValueKind::Text || type == ValueKind::ExpandableText ||
         type == ValueKind::TextList || type == ValueKind::Number;
}

std::optional<RegistryValue> TakeValue(LineReader& line) {
  if (line.Take("expand:")) return TextValue(ValueKind::ExpandableText, line.TakeQuoted());
  if (line.Take("multi:")) return TextValue(ValueKind::TextList, line.TakeQuoted());
  if (line.Take("hex:")) return TextValue(ValueKind::Bytes, line.TakeHex());
  if (line.Take("dword:")) {
    const std::optional<std::int32_t> number = line.TakeNumber();
    if (!number) return {};
    return RegistryValue{ValueKind::Number, {}, *number};
  }
  if (line.Take("hex(")) {
    const std::optional<std::int32_t> type = line.TakeNumber();
    if (!type || !line.Take("):") || HasOwnForm(ValueKind{*type})) return {};
    return TextValue(ValueKind{*type}, line.TakeHex());
  }
  if (auto digits = line.TakeDigits()) return TextValue(ValueKind::Text, std::move(digits));
  return TextValue(ValueKind::Text, line.TakeQuoted());
}

// Takes one line into the data; the key is that of the section the line stands in. False: the line
// is none.
bool TakeLine(std::string_view text, IniData& data, std::string& key) {
  LineReader line(text);
  if (line.IsAtEnd()) return true;
  if (line.Take("[")) {
    line.SkipBlanks();
    const std::optional<std::string> section = line.TakeName(']');
    line.SkipBlanks();
    if (!section || !line.Take("]") || !line.IsAtEnd()) return false;
    key = *section;
    return data.CreateKey(key);
  }
  const std::optional<std::string> name = line.TakeName('=');
  line.SkipBlanks();
  if (!name || !line.Take("=")) return false;
  line.SkipBlanks();
  const std::optional<RegistryValue> value = TakeValue(line);
  return value && line.IsAtEnd() && data.Write(key, *name, *value);
}

bool IsStray(char c) { return IsControl(c) && c != '\t'; }

}  // namespace

std::string ToIni(const IniData& data) {
  std::string ini(kHeading);
  for (const auto& [folded, key] : data.Keys()) {
    // A key that is only on the way to others shows in their paths, the root in nothing.
    if (key.values.empty() && (folded.empty() || !data.IsLeaf(folded))) continue;
    if (!folded.empty()) ini += "\n[" + QuotedIfNeeded(key.path, "]\"") + "]\n";
    AppendValues(ini, key);
  }
  return ini;
}

std::optional<IniData> FromIni(std::string_view content) {
  IniData data;
  std::string key;
  for (const std::string_view bytes : Lines(WithoutByteOrderMark(content))) {
    if (std::any_of(bytes.begin(), bytes.end(), IsStray)) return {};
    if (!TakeLine(TextFromSystemCodePage(bytes), data, key)) return {};
  }
  return data;
}

}  // namespace brenwick
