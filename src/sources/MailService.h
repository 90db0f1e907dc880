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

// The same; a contact whose sign-in name is that of the mail service, too, goes by it in quotation
// marks.
MessengerContact QuotedContact(std::string signinName, std::string friendlyName);

// The notice that the mail service writes when mail has come from this sender. No name can break
// the notice or make it one of another kind.
std::string NewMailNotice(const std::string& from);
// The notice that so many mails have not been read; the program counts no further than 32767.
std::string InboxNotice(unsigned count);

}  // namespace brenwick
