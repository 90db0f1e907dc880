#include "files/IniData.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr char kSeparator = '\\';
// So that one long line of a file cannot make keys without end.
constexpr std::ptrdiff_t kDeepest = 512;
constexpr std::size_t kLongest = 16 * 1024;

bool IsKey(std::string_view key) {
  return !key.empty() && key.size() <= kLongest && key.front() != kSeparator &&
         key.back() != kSeparator && key.find("\\\\") == std::string_view::npos &&
         std::count(key.begin(), key.end(), kSeparator) < kDeepest;
}

// What all keys below a key start with.
std::string Below(const std::string& folded) { return folded.empty() ? "" : folded + kSeparator; }

// Only what belongs to the type is kept, so that memory and file hold the same.
RegistryValue Canonical(const RegistryValue& value) {
  if (value.type == ValueKind::Number) return {ValueKind::Number, {}, value.number};
  return {value.type, value.text, 0};
}

}  // namespace

bool IniData::HasKey(const std::string& key) const { return keys_.contains(LowerCase(key)); }

bool IniData::CreateKey(const std::string& key) {
  if (HasKey(key)) return true;
  if (!IsKey(key)) return false;
  std::string above;
  for (std::size_t start = 0; start < key.size();) {
    const std::size_t end = std::min(key.find(kSeparator, start), key.size());
    const std::string path = Below(above) + key.substr(start, end - start);
    // An existing part is kept as it was first written, in the paths below it as well.
    above = keys_.try_emplace(LowerCase(path), IniKey{path, {}}).first->second.path;
    start = end + 1;
  }
  return true;
}

bool IniData::DeleteKey(const std::string& key) {
  const std::string folded = LowerCase(key);
  return !folded.empty() && IsLeaf(folded) && keys_.erase(folded) > 0;
}

std::optional<RegistryValue> IniData::Find(const std::string& key, const std::string& name) const {
  const auto entry = keys_.find(LowerCase(key));
  if (entry == keys_.end()) return {};
  const auto value = entry->second.values.find(LowerCase(name));
  if (value == entry->second.values.end()) return {};
  return value->second.value;
}

bool IniData::Write(const std::string& key, const std::string& name, const RegistryValue& value) {
  if (!CreateKey(key)) return false;
  auto& values = keys_.at(LowerCase(key)).values;
  values.try_emplace(LowerCase(name), IniValue{name, {}}).first->second.value = Canonical(value);
  return true;
}

bool IniData::Erase(const std::string& key, const std::string& name) {
  const auto entry = keys_.find(LowerCase(key));
  return entry != keys_.end() && entry->second.values.erase(LowerCase(name)) > 0;
}

std::vector<std::string> IniData::ValueNames(const std::string& key) const {
  std::vector<std::string> names;
  const auto entry = keys_.find(LowerCase(key));
  if (entry == keys_.end()) return names;
  for (const auto& [folded, value] : entry->second.values) names.push_back(value.name);
  return names;
}

std::vector<std::string> IniData::SubKeys(const std::string& key) const {
  std::vector<std::string> names;
  const std::string start = Below(LowerCase(key));
  for (auto below = keys_.lower_bound(start); below != keys_.end(); ++below) {
    const auto& [folded, entry] = *below;
    if (!folded.starts_with(start)) break;
    if (folded.empty() || folded.find(kSeparator, start.size()) != std::string::npos) continue;
    names.push_back(entry.path.substr(entry.path.rfind(kSeparator) + 1));
  }
  return names;
}

bool IniData::IsLeaf(const std::string& folded) const {
  const std::string start = Below(folded);
  const auto below = start.empty() ? std::next(keys_.begin()) : keys_.lower_bound(start);
  return below == keys_.end() || !below->first.starts_with(start);
}

}  // namespace brenwick
