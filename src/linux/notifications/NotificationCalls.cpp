#include "linux/notifications/NotificationCalls.h"

#include <dbus/dbus.h>

#include <cstdint>

#include "base/ProgramState.h"

namespace brenwick {
namespace {

constexpr const char* kRule =
    "type='method_call',interface='org.freedesktop.Notifications',member='Notify'";

// The body of a notification is markup.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

}  // namespace

BusMessage MonitorNotifications() {
  BusMessage call(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                               DBUS_INTERFACE_MONITORING, "BecomeMonitor"));
  const char* rules[] = {kRule};
  const char** first = rules;
  const std::uint32_t flags = 0;
  dbus_message_append_args(call.get(), DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &first, 1,
                           DBUS_TYPE_UINT32, &flags, DBUS_TYPE_INVALID);
  return call;
}

BusMessage ShowNotification(const std::string& summary, const std::string& text) {
  BusMessage call(dbus_message_new_method_call("org.freedesktop.Notifications",
                                               "/org/freedesktop/Notifications",
                                               "org.freedesktop.Notifications", "Notify"));
  dbus_message_set_no_reply(call.get(), true);
  const std::string body = Escaped(text);
  const char* const words[] = {kTitle, "brenwick", summary.c_str(), body.c_str()};
  const std::uint32_t none = 0;
  const std::int32_t as_usual = -1;
  dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &words[0], DBUS_TYPE_UINT32, &none,
                           DBUS_TYPE_STRING, &words[1], DBUS_TYPE_STRING, &words[2],
                           DBUS_TYPE_STRING, &words[3], DBUS_TYPE_INVALID);
  DBusMessageIter values;
  DBusMessageIter empty;
  dbus_message_iter_init_append(call.get(), &values);
  dbus_message_iter_open_container(&values, DBUS_TYPE_ARRAY, "s", &empty);
  dbus_message_iter_close_container(&values, &empty);
  dbus_message_iter_open_container(&values, DBUS_TYPE_ARRAY, "{sv}", &empty);
  dbus_message_iter_close_container(&values, &empty);
  dbus_message_iter_append_basic(&values, DBUS_TYPE_INT32, &as_usual);
  return call;
}

}  // namespace brenwick
