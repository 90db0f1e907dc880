#include "sources/SeenApplications.h"

#include <algorithm>

#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kOn = "1";
constexpr const char* kOff = "0";

}  // namespace

SeenApplications::SeenApplications(RegistryStore& store) : store_(store) {
  for (const std::string& name : store_.ValueNames(kKey)) {
    const auto value = store_.ReadValue(kKey, name);
    seen_.push_back({name, value && value->type == ValueKind::Text && value->text == kOn});
  }
}

std::size_t SeenApplications::Find(const std::string& name) const {
  const std::string wanted = LowerCase(name);
  const auto found = std::find_if(seen_.begin(), seen_.end(), [&wanted](const auto& each) {
    return LowerCase(each.Name) == wanted;
  });
  return static_cast<std::size_t>(found - seen_.begin());
}

bool SeenApplications::See(const std::string& name) {
  const auto known = seen_.begin() + static_cast<std::ptrdiff_t>(Find(name));
  if (known != seen_.end()) {
    std::rotate(known, known + 1, seen_.end());
    return false;
  }
  seen_.push_back({name, false});
  changed_ = true;
  ForgetOldest();
  return true;
}

void SeenApplications::ForgetOldest() {
  const auto off = [](const SeenApplication& each) { return !each.On; };
  const auto count = std::count_if(seen_.begin(), seen_.end(), off);
  if (count <= static_cast<std::ptrdiff_t>(kMostOff)) return;
  seen_.erase(std::find_if(seen_.begin(), seen_.end(), off));
}

void SeenApplications::Switch(const std::string& name, bool on) {
  See(name);  // so that it stands last
  seen_.back().On = on;
  changed_ = true;
  Save();
}

bool SeenApplications::IsOn(const std::string& name) const {
  const std::size_t place = Find(name);
  return place < seen_.size() && seen_[place].On;
}

std::vector<SeenApplication> SeenApplications::All() const {
  std::vector<SeenApplication> all = seen_;
  std::sort(all.begin(), all.end(),
            [](const auto& a, const auto& b) { return LessIgnoringCase(a.Name, b.Name); });
  return all;
}

std::vector<std::string> SeenApplications::On() const {
  std::vector<std::string> names;
  for (const SeenApplication& each : All()) {
    if (each.On) names.push_back(each.Name);
  }
  return names;
}

void SeenApplications::Save() {
  if (!changed_) return;
  Batch batch(store_);
  for (const std::string& name : store_.ValueNames(kKey)) {
    if (Find(name) == seen_.size()) store_.DeleteValue(kKey, name);
  }
  for (const SeenApplication& each : seen_) {
    const RegistryValue value{ValueKind::Text, each.On ? kOn : kOff, 0};
    if (store_.ReadValue(kKey, each.Name) != value) store_.WriteValue(kKey, each.Name, value);
  }
  changed_ = !batch.Flush();
}

}  // namespace brenwick
