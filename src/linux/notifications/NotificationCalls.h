// The bus calls that Brenwick makes about notifications.
#pragma once

#include <string>

#include "linux/BusConnection.h"

namespace brenwick {

// Makes the connection that sends it a monitor: once the bus has answered, it passes every call of
// Notify to this connection, and takes no further messages from it.
BusMessage MonitorNotifications();

// Shows the text as a notification of Brenwick.
BusMessage ShowNotification(const std::string& summary, const std::string& text);

}  // namespace brenwick
