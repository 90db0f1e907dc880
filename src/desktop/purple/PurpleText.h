// Makes texts of libpurple fit for the program.
#pragma once

#include <QString>
#include <string>

#include "platform/MessengerClient.h"

namespace brenwick {

// The name of a person or a thing: one line of valid UTF-8, of a length that can be listened to.
std::string NameOf(const QString& name);

// The plain text of a message: libpurple's messages are HTML on every network. A message that is
// too long to have been written by hand is cut.
std::string PlainMessage(const QString& html);

// The contact by its name, or by its id where it has none or poses as the mail service.
MessengerContact HonestContact(const QString& id, const QString& name);

// What the mail service says of one new mail from this sender.
std::string MailNotice(const QString& from);

}  // namespace brenwick
