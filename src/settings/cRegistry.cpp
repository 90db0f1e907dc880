#include "settings/cRegistry.h"

#include <cmath>
#include <optional>

#include "base/Failure.h"

namespace brenwick {
namespace {

// A reference to the environment needs two "%" with something between them.
bool HoldsReference(const std::string& text) {
  const std::size_t first = text.find('%');
  return first != std::string::npos && text.find('%', first + 2) != std::string::npos;
}

// The number that is stored of a value; fractions are cut off.
std::optional<std::int32_t> NumberIn(const RegistryVariant& value) {
  if (const auto* number = std::get_if<std::int16_t>(&value)) return *number;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
  if (const auto* number = std::get_if<float>(&value)) {
    const float whole = std::trunc(*number);
    if (!(whole >= -2147483648.0F && whole < 2147483648.0F)) throw Failure(kOverflow);
    return static_cast<std::int32_t>(whole);
  }
  return std::nullopt;
}

// A value as it is written into a text.
std::string TextOf(const RegistryVariant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
  const std::optional<std::int32_t> number = NumberIn(value);
  if (!number) throw Failure(kTypeMismatch);
  return std::to_string(*number);
}

}  // namespace

bool cRegistry::KeyExists() { return store_.KeyExists(SectionKey); }

bool cRegistry::CreateKey() {
  constexpr int kSuccess = 0;
  constexpr int kDenied = 5;
  const int result = store_.CreateKey(SectionKey) ? kSuccess : kDenied;
  if (result != -1) Fail("Failed to create registry Key: '" + SectionKey);
  return true;
}

void cRegistry::DeleteKey() {
  if (!store_.DeleteKey(SectionKey)) Fail("Failed to delete registry Key: '" + Where());
}

void cRegistry::DeleteValue() {
  if (!store_.KeyExists(SectionKey)) {
    Fail("Failed to open key '" + Where() + "' for delete access");
  }
  if (!store_.DeleteValue(SectionKey, ValueKey)) {
    Fail("Failed to delete registry Key: '" + Where() + "',Key: '" + ValueKey);
  }
}

RegistryVariant cRegistry::Value() {
  const std::optional<RegistryValue> stored = store_.ReadValue(SectionKey, ValueKey);
  if (!stored) return std::string();
  ValueType = stored->type;
  switch (stored->type) {
    case ValueKind::Text:
    case ValueKind::TextList:
      return stored->text;
    case ValueKind::ExpandableText:
      return store_.ExpandEnvironment(stored->text);
    case ValueKind::Number:
      return stored->number;
    case ValueKind::BigEndianNumber:
      return std::monostate();
    default:
      return std::vector<std::uint8_t>(stored->text.begin(), stored->text.end());
  }
}

void cRegistry::SetValue(const RegistryVariant& value) {
  if (ValueType == ValueKind::Text || ValueType == ValueKind::ExpandableText) {
    WriteText(TextOf(value));
  } else if (ValueType == ValueKind::Bytes) {
    const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value);
    if (bytes == nullptr) Fail("");
    Write({ValueKind::Bytes, std::string(bytes->begin(), bytes->end()), 0}, "");
  } else if (ValueType == ValueKind::Number) {
    WriteNumber(value);
  } else {
    throw Failure(kTypeMismatch);
  }
}

void cRegistry::WriteText(const std::string& text) {
  Write({HoldsReference(text) ? ValueKind::ExpandableText : ValueKind::Text, text, 0}, text);
}

void cRegistry::WriteNumber(const RegistryVariant& value) {
  const std::optional<std::int32_t> number = NumberIn(value);
  if (number) Write({ValueKind::Number, "", *number}, std::to_string(*number));
}

void cRegistry::Write(const RegistryValue& value, const std::string& shown) {
  if (!store_.WriteValue(SectionKey, ValueKey, value)) FailToSet(shown);
}

void cRegistry::FailToSet(const std::string& shown) {
  Fail("Failed to set registry value Key: '" + Where() + "',Key: '" + ValueKey + "' to value: '" +
       shown + "'");
}

void cRegistry::CreateEXEAssociation(const std::string& programFile, const std::string& icon) {
  const std::string section = SectionKey;
  ValueType = ValueKind::Text;
  ValueKey.clear();
  SectionKey = section + "\\shell\\open\\command";
  WriteText(programFile + " \"%1\"");
  SectionKey = section + "\\DefaultIcon";
  WriteText(icon);
  SectionKey = section;
}

// "-2147483647',Section: 'Software\Brenwick": how messages name the key, between their quotes.
std::string cRegistry::Where() const {
  return std::to_string(ClassKey) + "',Section: '" + SectionKey;
}

void cRegistry::Fail(const std::string& description) {
  const std::string file = folders_.ProgramFile();
  const std::size_t separator = file.rfind(folders_.Separator());
  const std::string name = separator == std::string::npos ? file : file.substr(separator + 1);
  throw Failure(kFailure, description, name + ".cRegistry");
}

}  // namespace brenwick
