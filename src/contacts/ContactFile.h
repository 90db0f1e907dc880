// The contact list on the disk: seven lines a contact, in the order of the record's fields.
#pragma once

#include <string>
#include <vector>

#include "contacts/ContactList.h"
#include "logging/DataFolder.h"
#include "platform/Clock.h"
#include "platform/Folders.h"

namespace brenwick {

class ContactFile {
 public:
  ContactFile(ContactList& contacts, DataFolder& data, Folders& folders, Clock& clock)
      : contacts_(contacts), data_(data), folders_(folders), clock_(clock) {}

  // Fills the list with what the file holds, or empties it where there is no file. A file that
  // ends within a contact raises kPastEnd, one of more than 32,767 contacts kOverflow: the contacts
  // before that stay in the list, and the file is kept under a name with the date, since the next
  // Save replaces it. After a file that could not be read at all, the failure is raised and Save
  // leaves the file alone.
  void Load();

  // Replaces the file by the contacts of the list, without the free slots. Does nothing while there
  // is a file that was never loaded: settings that start afresh must not cost the contacts. Raises
  // a Failure when the file cannot be replaced; it then holds what it held.
  void Save();

 private:
  std::string Path();
  void SetAside(const std::string& content);

  ContactList& contacts_;
  DataFolder& data_;
  Folders& folders_;
  Clock& clock_;
  bool loaded_ = false;  // what the file held is in the list or set aside
};

}  // namespace brenwick
