// The one sender whose messages the program takes for notices of new mail, by its display name.
#pragma once

#include <string>

#include "platform/MessengerClient.h"

namespace brenwick {

inline constexpr const char* kMailService = "Hotmail";

// True for a display name that would make the program take a contact for the mail service.
bool IsMailServiceName(const std::string& name);

// The contact as an ordinary one: whoever is called like the mail service goes by the sign-in name.
MessengerContact OrdinaryContact(std::string signinName, std::string friendlyName);

// As above; and whoever is even signed in as the mail service goes by that in quotation marks.
MessengerContact QuotedContact(std::string signinName, std::string friendlyName);

// What the mail service writes when mail has come from this sender. The name cannot break the
// notice, nor make another kind of it.
std::string NewMailNotice(const std::string& from);
// And when so many mails have not been read; the program counts no further than 32767.
std::string InboxNotice(unsigned count);

}  // namespace brenwick
