// Which notifications tell of new mail.
#pragma once

#include "sources/Notification.h"

namespace brenwick {

// By the notification's own category or, where it has none, by the application.
bool TellsOfMail(const Notification& notification);

}  // namespace brenwick
