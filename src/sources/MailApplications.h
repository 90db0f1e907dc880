// Recognises notifications of new mail.
#pragma once

#include "sources/Notification.h"

namespace brenwick {

// Judges by the notification's category or, where it has none, by the application.
bool TellsOfMail(const Notification& notification);

}  // namespace brenwick
