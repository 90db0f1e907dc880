// Reads a notification from the call that travels over the bus.
#pragma once

#include <optional>

#include "sources/Notification.h"

struct DBusMessage;

namespace brenwick {

// Nothing where the message is no well-formed call of Notify. Texts are repaired and cut.
std::optional<Notification> ReadNotification(DBusMessage& message);

}  // namespace brenwick
