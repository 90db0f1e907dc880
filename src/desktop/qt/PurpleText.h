// Texts of libpurple as the program takes them.
#pragma once

#include <QString>
#include <string>

#include "platform/MessengerClient.h"

namespace brenwick {

// The program's form of a text: UTF-8, which Qt writes valid whatever the text holds.
std::string TextOf(const QString& text);

// A message as it is read: libpurple's are HTML, whatever the network.
std::string PlainMessage(const QString& html);

// The one whose messages are notices of mail. Nobody else may be called so: see HonestContact.
MessengerContact MailService();

// The contact under a name that is not the mail service's. One who took that name appears under the
// sign-in name, and one who is even signed in as that in quotation marks.
MessengerContact HonestContact(const QString& id, const QString& name);

// What the mail service says of one new mail from this sender, and of so many unread ones.
std::string MailNotice(const QString& from);
std::string InboxNotice(unsigned count);

}  // namespace brenwick
