// Texts of libpurple as the program takes them.
#pragma once

#include <QString>
#include <string>

#include "platform/MessengerClient.h"

namespace brenwick {

// What somebody or something is called: one line, of a length that can be listened to, in UTF-8,
// which Qt writes valid whatever the name holds.
std::string NameOf(const QString& name);

// A message as it is read: libpurple's are HTML, whatever the network. The end of one that nobody
// can have written by hand is missing.
std::string PlainMessage(const QString& html);

// The contact by its name, or by its id where it has none or poses as the mail service.
MessengerContact HonestContact(const QString& id, const QString& name);

// What the mail service says of one new mail from this sender.
std::string MailNotice(const QString& from);

}  // namespace brenwick
