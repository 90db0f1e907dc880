// Changing what is known about a contact: the three list pages and the "Contact info" frame.
#pragma once

#include <string>
#include <string_view>

#include "contacts/ContactList.h"
#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "pages/ContactPages.h"
#include "platform/Screen.h"

namespace brenwick {

class ContactEditing {
 public:
  // Takes over the lists, the sort options and the buttons of the contact pages.
  ContactEditing(Logs& log, frmMain& form, Screen& screen, ContactList& contacts,
                 ContactPages& pages);

 private:
  void WireLists();
  void WireSortOptions();
  void WireButtons();
  void IgnoreSelectListBox();
  void GenderSelectListBox();
  void BuddyNamesSelectListBox();
  // "I" switches the ignore flag, "G" the gender, "A" fills the "Contact info" frame.
  void SetModRecord(const std::string& email, std::string_view which);
  void ClearContactInfo();
  void FillContactInfo(const ContactRecord& record);
  // Stores the "Contact info" frame into the list.
  void BuddyListUpdate(std::string_view which);
  // Back to the list page, with the refreshed line selected.
  void BuddyNamesList(std::string_view which);
  void ShowBuddyNamesPage();
  void cmdBuddyNamesDelete_Click();
  void SetAllIgnored(bool ignored);
  std::string OpenLine(const ListBox& list);

  Logs& log_;
  frmMain& form_;
  Screen& screen_;
  ContactList& contacts_;
  ContactPages& pages_;
};

}  // namespace brenwick
