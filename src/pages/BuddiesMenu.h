// The contacts in the tray menu, each with its state.
#pragma once

#include <functional>
#include <string>

#include "contacts/ContactList.h"
#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "platform/Screen.h"

namespace brenwick {

class BuddiesMenu {
 public:
  // Opens a conversation with the contact of this address.
  using OpenConversation = std::function<void(const std::string&)>;

  // Takes over the clicks of mnuBuddiesOnLine.
  BuddiesMenu(Logs& log, frmMain& form, Screen& screen, ContactList& contacts,
              OpenConversation openConversation);

  // Brings the captions and states of the items up to date: one item a record, free slots
  // included. Items never go away.
  void ShowBuddies();

 private:
  std::string Caption(const ContactRecord& record) const;
  void mnuBuddiesOnLine_Click(int index);

  Logs& log_;
  frmMain& form_;
  Screen& screen_;
  ContactList& contacts_;
  OpenConversation open_conversation_;
};

}  // namespace brenwick
