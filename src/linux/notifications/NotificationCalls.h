// The calls that Brenwick itself makes about notifications.
#pragma once

#include <string>

#include "linux/BusConnection.h"

namespace brenwick {

// From its answer on, the bus shows the connection that sends it every call of Notify, and takes
// nothing from it any more.
BusMessage MonitorNotifications();

// Shows the text as Brenwick's own.
BusMessage ShowNotification(const std::string& summary, const std::string& text);

}  // namespace brenwick
