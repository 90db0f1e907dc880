// The name by which a contact is called.
#pragma once

#include <string>

#include "contacts/ContactList.h"
#include "platform/MessengerClient.h"
#include "settings/SettingsValues.h"
#include "speech/TextCleanUp.h"

namespace brenwick {

class SpokenName {
 public:
  SpokenName(const SettingsValues& settings, const ContactList& contacts,
             const TextCleanUp& cleanUp)
      : settings_(settings), contacts_(contacts), clean_up_(cleanUp) {}

  // While "Use my own names" is on, a listed contact's own name or, where it has none, its stored
  // display name, whole. Else the display name or, with "Only say users firstname", what stands
  // before its first space. Run-together capitals are split, with the leading space that this
  // brings.
  std::string Of(const MessengerContact& contact) const;

  // The same with a shouted name in proper case, as state announcements say it.
  std::string Calmed(const MessengerContact& contact) const;

 private:
  std::string Choose(const MessengerContact& contact) const;

  const SettingsValues& settings_;
  const ContactList& contacts_;
  const TextCleanUp& clean_up_;
};

}  // namespace brenwick
