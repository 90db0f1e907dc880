// What the program knows about each contact, and the only ways to read and change it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "language/TextTable.h"
#include "logging/Logs.h"
#include "settings/SettingsValues.h"

namespace brenwick {

struct ContactRecord {
  std::string Email;            // the sign-in name and key, compared exactly; "" marks a free slot
  std::string Name;             // the display name that the messenger reported last
  std::string FriendlyName;     // the user's own name for the contact
  std::string Gender;           // "M", "F", or "?" while nobody has said
  std::string Ignore;           // "True", "False", or "", which counts as "False"
  std::string Status;           // the last state code in decimal digits; "" counts as 11
  std::string HasFriendlyName;  // "True", "False" or ""
};

class ContactList {
 public:
  ContactList(Logs& log, const SettingsValues& settings, const TextTable& texts)
      : log_(log), settings_(settings), texts_(texts) {}

  // Records a contact's new state. The first record that is free or the contact's own takes the
  // name and the state, but not the address: while a free slot lies before a contact's record, its
  // news land there, and nobody new is listed. Without such a record a new one is appended; past
  // 32,767 records that is an overflow.
  void ListAdd(const std::string& email, const std::string& name, std::int32_t stateCode);

  // Changes one field of the contact by its code: "N" Name, "A" FriendlyName, "G" Gender,
  // "I" Ignore, "S" Status; "X" empties the record. An unknown contact or code changes nothing.
  void ListMod(std::string_view code, const std::string& email, const std::string& value);

  // What is shown and said of a contact, by the same codes: words of the interface language for
  // "G", "I" and "S", the name to say for "A". "Unknown" for "G", "I" and "S" of an address that is
  // not listed; "" for every other code and for codes that name nothing.
  std::string GetContactValue(const std::string& email, std::string_view code) const;

  // The word for a record's gender and for whether it is ignored, in the interface language.
  std::string GenderWord(const ContactRecord& record) const;
  std::string IgnoreWord(const ContactRecord& record) const;

  // The first record with that address; nullptr where there is none.
  const ContactRecord* FindRecord(const std::string& email) const;

  // Set one field of every record, free slots included.
  void SetAllIgnored(const std::string& value);
  void SetAllStatus(const std::string& value);
  // Sets the state of the record with that index, counted from 0.
  void SetStatus(std::size_t index, const std::string& value);

  const std::vector<ContactRecord>& Records() const { return records_; }
  void Replace(std::vector<ContactRecord> records);

  // Called after each change: with the index, counted from 0, of the one record that was changed or
  // appended, or once for all records.
  std::function<void(std::size_t)> RecordChanged;
  std::function<void()> AllChanged;

  // Called at the end of ListAdd, and at the end of ListMod with the number of the record, counted
  // from 1, or 0 where there was none.
  std::function<void()> AfterAdd;
  std::function<void(int)> AfterMod;

 private:
  void Append(ContactRecord record);
  // The index of the first record with that address; the number of records where there is none.
  std::size_t FirstWith(const std::string& email) const;
  void Change(std::size_t index, std::string_view code, const std::string& value);
  void Empty(std::size_t index);
  std::string SpokenName(const ContactRecord& record) const;
  std::string StateText(const ContactRecord& record) const;

  Logs& log_;
  const SettingsValues& settings_;
  const TextTable& texts_;
  std::vector<ContactRecord> records_;
  std::unordered_map<std::string, std::size_t> first_;  // the first record of each address
};

}  // namespace brenwick
