#include "settings/Registry.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "base/Failure.h"
#include "base/Numbers.h"

namespace brenwick {
namespace {

bool IsEmpty(const RegistryVariant& value) {
  const auto* text = std::get_if<std::string>(&value);
  return std::holds_alternative<std::monostate>(value) || (text != nullptr && text->empty());
}

double AsNumber(const RegistryVariant& value) {
  if (IsEmpty(value)) return 0;
  if (const auto* text = std::get_if<std::string>(&value)) return WholeNumber(*text);
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  throw Failure(kTypeMismatch);
}

// Only a number counts as zero, as itself or as a text.
bool IsZero(const RegistryVariant& value) {
  try {
    return !IsEmpty(value) && AsNumber(value) == 0;
  } catch (const Failure&) {
    return false;
  }
}

// A value that is no text and no number reads as the empty text: an edited store must not keep
// the program from starting.
std::string AsText(const RegistryVariant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  return {};
}

std::int32_t AsInteger32(double number) {
  const double rounded = std::nearbyint(number);
  using Range = std::numeric_limits<std::int32_t>;
  if (!(rounded >= Range::min() && rounded <= Range::max())) throw Failure(kOverflow);
  return static_cast<std::int32_t>(rounded);
}

}  // namespace

cRegistry Registry::OpenRegistryKey(const std::string& section) {
  cRegistry key(store_, folders_);
  key.ClassKey = kCurrentUserRoot;
  key.SectionKey = section;
  return key;
}

RegistryVariant Registry::GetRegistryValue(cRegistry& key, const std::string& name,
                                           RegistryConversion conversion, ValueKind type) {
  key.ValueType = type;
  key.ValueKey = name;
  const RegistryVariant value = key.Value();
  switch (conversion) {
    case RegistryConversion::Flag:
      return !IsZero(value);
    case RegistryConversion::Text:
      return AsText(value);
    case RegistryConversion::Integer32:
      return AsInteger32(AsNumber(value));
    case RegistryConversion::Currency:
      return std::nearbyint(AsNumber(value) * 10000) / 10000;
    case RegistryConversion::Integer16:
      return ToInteger16(AsNumber(value));
    case RegistryConversion::Single:
      return static_cast<float>(AsNumber(value));
    case RegistryConversion::None:
      break;
  }
  return value;
}

void Registry::SetRegistryValue(const RegistryVariant& value, cRegistry& key,
                                const std::string& name, ValueKind type) {
  key.ValueType = type;
  key.ValueKey = name;
  key.SetValue(value);
}

void Registry::DeleteRegistryValue(cRegistry& key, const std::string& name) {
  key.ValueKey = name;
  key.DeleteValue();
}

std::string Registry::ReadText(const std::string& section, const std::string& name) {
  cRegistry key = OpenRegistryKey(section);
  return std::get<std::string>(
      GetRegistryValue(key, name, RegistryConversion::Text, ValueKind::Text));
}

void Registry::WriteText(const std::string& section, const std::string& name,
                         const std::string& text) {
  cRegistry key = OpenRegistryKey(section);
  SetRegistryValue(text, key, name, ValueKind::Text);
}

}  // namespace brenwick
