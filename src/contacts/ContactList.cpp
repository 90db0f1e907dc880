#include "contacts/ContactList.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "ModFunctions";

}  // namespace

void ContactList::ListAdd(const std::string& email, const std::string& name,
                          std::int32_t stateCode) {
  log_.Trap(kModule, "ListAdd", [&] {
    const std::size_t index = std::min(FirstWith(""), FirstWith(email));
    if (index < records_.size()) {
      records_[index].Name = name;
      records_[index].Status = std::to_string(stateCode);
    } else {
      Append({email, name, "", "?", "", std::to_string(stateCode), ""});
    }
    if (RecordChanged) RecordChanged(index);
    if (AfterAdd) AfterAdd();
  });
}

void ContactList::Append(ContactRecord record) {
  if (records_.size() >= std::numeric_limits<std::int16_t>::max()) throw Failure(kOverflow);
  first_.emplace(record.Email, records_.size());
  records_.push_back(std::move(record));
}

void ContactList::Replace(std::vector<ContactRecord> records) {
  records_ = std::move(records);
  first_.clear();
  first_.reserve(records_.size());
  for (std::size_t i = 0; i < records_.size(); ++i) first_.emplace(records_[i].Email, i);
  if (AllChanged) AllChanged();
}

void ContactList::ListMod(std::string_view code, const std::string& email,
                          const std::string& value) {
  log_.Trap(kModule, "ListMod", [&] {
    const std::size_t index = FirstWith(email);
    const bool listed = index < records_.size();
    if (listed) {
      Change(index, code, value);
      if (RecordChanged) RecordChanged(index);
    }
    if (AfterMod) AfterMod(listed ? static_cast<int>(index) + 1 : 0);
  });
}

void ContactList::Change(std::size_t index, std::string_view code, const std::string& value) {
  ContactRecord& record = records_[index];
  if (code == "N") {
    record.Name = value;
  } else if (code == "A") {
    record.FriendlyName = value;
    record.HasFriendlyName = value.empty() ? "False" : "True";
  } else if (code == "G") {
    record.Gender = value;
  } else if (code == "I") {
    record.Ignore = value;
  } else if (code == "S") {
    record.Status = value;
  } else if (code == "X") {
    Empty(index);
  }
}

// The address may stand in a later record, too: that is the first with it from now on.
void ContactList::Empty(std::size_t index) {
  const std::string email = std::exchange(records_[index], {}).Email;
  if (email.empty()) return;
  const auto next =
      std::find_if(records_.begin() + static_cast<std::ptrdiff_t>(index), records_.end(),
                   [&](const ContactRecord& other) { return other.Email == email; });
  if (next == records_.end()) {
    first_.erase(email);
  } else {
    first_[email] = static_cast<std::size_t>(next - records_.begin());
  }
  std::size_t& free = first_.emplace("", index).first->second;
  free = std::min(free, index);
}

std::string ContactList::GetContactValue(const std::string& email, std::string_view code) const {
  // The lookup reports its failures under this procedure's name.
  return log_.Trap(kModule, "UseRepeatHotKeys", [&]() -> std::string {
    const ContactRecord* record = FindRecord(email);
    if (record == nullptr) return code == "S" || code == "I" || code == "G" ? "Unknown" : "";
    if (code == "E") return record->Email;
    if (code == "N") return record->Name;
    if (code == "A") return SpokenName(*record);
    if (code == "G") return GenderWord(*record);
    if (code == "I") return IgnoreWord(*record);
    if (code == "S") return StateText(*record);
    return "";
  });
}

const ContactRecord* ContactList::FindRecord(const std::string& email) const {
  const std::size_t index = FirstWith(email);
  return index < records_.size() ? &records_[index] : nullptr;
}

std::size_t ContactList::FirstWith(const std::string& email) const {
  const auto found = first_.find(email);
  return found == first_.end() ? records_.size() : found->second;
}

void ContactList::SetAllIgnored(const std::string& value) {
  for (ContactRecord& record : records_) record.Ignore = value;
  if (AllChanged) AllChanged();
}

void ContactList::SetAllStatus(const std::string& value) {
  for (ContactRecord& record : records_) record.Status = value;
  if (AllChanged) AllChanged();
}

void ContactList::SetStatus(std::size_t index, const std::string& value) {
  records_[index].Status = value;
  if (RecordChanged) RecordChanged(index);
}

std::string ContactList::SpokenName(const ContactRecord& record) const {
  const bool own = settings_.UseMyNames && record.HasFriendlyName == "True";
  return own && !record.FriendlyName.empty() ? record.FriendlyName : record.Name;
}

std::string ContactList::GenderWord(const ContactRecord& record) const {
  const bool female = (record.Gender == "?" ? settings_.DefaultVoice : record.Gender) == "F";
  return texts_.LoadText(female ? 117 : 116);
}

std::string ContactList::IgnoreWord(const ContactRecord& record) const {
  return texts_.LoadText(record.Ignore == "True" ? 167 : 168);
}

std::string ContactList::StateText(const ContactRecord& record) const {
  const auto trimmed = [](const std::string& text) { return std::string(Trimmed(text)); };
  switch (LeadingInteger16(record.Status.empty() ? "11" : record.Status)) {
    case 0:
      return texts_.LoadText(52);
    case 1:
      return settings_.Away;
    case 2:
      return texts_.LoadText(54);
    case 7:
      return texts_.LoadText(55);
    case 8:
      return texts_.LoadText(58);
    case 3:
    case 4:
    case 5:
    case 6:
    case 9:
      return texts_.LoadText(9);
    case 10:
      return trimmed(settings_.Online);
    case 11:
      return trimmed(settings_.Offline);
    case 12:
      return trimmed(settings_.Away);
    case 13:
      return trimmed(settings_.Busy);
    default:
      return "Error: " + texts_.LoadText(9);
  }
}

}  // namespace brenwick
