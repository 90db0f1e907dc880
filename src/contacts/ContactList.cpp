#include "contacts/ContactList.h"

#include <algorithm>
#include <limits>

#include "base/Numbers.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "ModFunctions";

}  // namespace

void ContactList::ListAdd(const std::string& email, const std::string& name,
                          std::int32_t stateCode) {
  log_.Trap(kModule, "ListAdd", [&] {
    const auto found = std::find_if(records_.begin(), records_.end(), [&](const auto& record) {
      return record.Email.empty() || record.Email == email;
    });
    if (found != records_.end()) {
      found->Name = name;
      found->Status = std::to_string(stateCode);
    } else {
      Append({email, name, "", "?", "", std::to_string(stateCode), ""});
    }
    if (AfterAdd) AfterAdd();
  });
}

void ContactList::Append(ContactRecord record) {
  if (records_.size() >= std::numeric_limits<std::int16_t>::max()) throw Failure(kOverflow);
  records_.push_back(std::move(record));
}

void ContactList::ListMod(std::string_view code, const std::string& email,
                          const std::string& value) {
  log_.Trap(kModule, "ListMod", [&] {
    ContactRecord* record = Find(email);
    if (record != nullptr) Change(*record, code, value);
    const auto number = record == nullptr ? 0 : record - records_.data() + 1;
    if (AfterMod) AfterMod(static_cast<int>(number));
  });
}

void ContactList::Change(ContactRecord& record, std::string_view code, const std::string& value) {
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
    record = {};
  }
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

ContactRecord* ContactList::Find(const std::string& email) {
  return const_cast<ContactRecord*>(FindRecord(email));
}

const ContactRecord* ContactList::FindRecord(const std::string& email) const {
  const auto found = std::find_if(records_.begin(), records_.end(),
                                  [&](const auto& record) { return record.Email == email; });
  return found == records_.end() ? nullptr : &*found;
}

void ContactList::SetAllIgnored(const std::string& value) {
  for (ContactRecord& record : records_) record.Ignore = value;
}

void ContactList::SetAllStatus(const std::string& value) {
  for (ContactRecord& record : records_) record.Status = value;
}

std::string ContactList::SpokenName(const ContactRecord& record) const {
  const bool own =
      form_.chkUseMyNamesInsteadOfBuddyNames.Ticked() && record.HasFriendlyName == "True";
  return own && !record.FriendlyName.empty() ? record.FriendlyName : record.Name;
}

std::string ContactList::GenderWord(const ContactRecord& record) const {
  const bool female = record.Gender == "?" ? form_.optFemale.Chosen() : record.Gender == "F";
  return texts_.LoadText(female ? 117 : 116);
}

std::string ContactList::IgnoreWord(const ContactRecord& record) const {
  return texts_.LoadText(record.Ignore == "True" ? 167 : 168);
}

std::string ContactList::StateText(const ContactRecord& record) const {
  const auto trimmed = [](const TextBox& box) { return std::string(Trimmed(box.Text())); };
  switch (LeadingInteger16(record.Status.empty() ? "11" : record.Status)) {
    case 0:
      return texts_.LoadText(52);
    case 1:
      return form_.txtAway.Text();
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
      return trimmed(form_.txtOnline);
    case 11:
      return trimmed(form_.txtOffline);
    case 12:
      return trimmed(form_.txtAway);
    case 13:
      return trimmed(form_.txtBusy);
    default:
      return "Error: " + texts_.LoadText(9);
  }
}

}  // namespace brenwick
