#include "sources/MailApplications.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/Text.h"

namespace brenwick {
namespace {

// The names of the desktop entries of mail programs, as distributions and Flatpak call them, in
// lower case. Those without a desktop entry are known by their own name.
constexpr std::string_view kMailApplications[] = {
    "balsa",
    "betterbird",
    "ch.protonmail.protonmail-desktop",
    "claws-mail",
    "com.getmailspring.mailspring",
    "com.tutanota.tutanota",
    "eu.betterbird.betterbird",
    "evolution",
    "geary",
    "io.elementary.mail",
    "kmail",
    "kmail2",
    "mailnag",
    "mailspring",
    "net.thunderbird.thunderbird",
    "org.claws_mail.claws-mail",
    "org.gnome.evolution",
    "org.gnome.geary",
    "org.kde.kmail2",
    "org.kde.trojita",
    "org.mozilla.thunderbird",
    "proton-mail",
    "sylpheed",
    "thunderbird",
    "thunderbird-esr",
    "trojita",
    "tutanota-desktop",
};

bool IsMailApplication(const std::string& name) {
  std::string entry = LowerCase(name);
  std::replace(entry.begin(), entry.end(), ' ', '-');
  return std::find(std::begin(kMailApplications), std::end(kMailApplications), entry) !=
         std::end(kMailApplications);
}

}  // namespace

bool TellsOfMail(const Notification& notification) {
  if (!notification.category.empty()) {
    return notification.category == "email.arrived" || notification.category == "email";
  }
  return IsMailApplication(notification.desktop_entry.empty() ? notification.application
                                                              : notification.desktop_entry);
}

}  // namespace brenwick
