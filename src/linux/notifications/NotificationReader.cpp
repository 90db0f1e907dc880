#include "linux/notifications/NotificationReader.h"

#include <dbus/dbus.h>

#include <cstdint>
#include <string_view>

#include "base/Text.h"
#include "sources/ForeignText.h"

namespace brenwick {
namespace {

constexpr const char* kNotify = "Notify";
constexpr const char* kInterface = "org.freedesktop.Notifications";
constexpr const char* kSignature = "susssasa{sv}i";

// Hints that make desktops show a bar instead of words.
constexpr std::string_view kValue = "value";
constexpr std::string_view kSynchronous = "x-canonical-private-synchronous";

std::string TakeText(DBusMessageIter& values) {
  const char* text = "";
  if (dbus_message_iter_get_arg_type(&values) == DBUS_TYPE_STRING) {
    dbus_message_iter_get_basic(&values, &text);
  }
  dbus_message_iter_next(&values);
  return Repaired(FirstBytes(text, kMostOfNotification));
}

void ReadHint(DBusMessageIter hint, Notification& notification) {
  const std::string name = TakeText(hint);
  DBusMessageIter value;
  dbus_message_iter_recurse(&hint, &value);
  if (name == "category") notification.category = TakeText(value);
  if (name == "desktop-entry") notification.desktop_entry = TakeText(value);
  if (name == kValue || name == kSynchronous) notification.is_gauge = true;
}

void ReadHints(DBusMessageIter& values, Notification& notification) {
  DBusMessageIter hints;
  dbus_message_iter_recurse(&values, &hints);
  while (dbus_message_iter_get_arg_type(&hints) == DBUS_TYPE_DICT_ENTRY) {
    DBusMessageIter hint;
    dbus_message_iter_recurse(&hints, &hint);
    ReadHint(hint, notification);
    dbus_message_iter_next(&hints);
  }
}

}  // namespace

std::optional<Notification> ReadNotification(DBusMessage& message) {
  if (!dbus_message_is_method_call(&message, kInterface, kNotify) ||
      !dbus_message_has_signature(&message, kSignature)) {
    return std::nullopt;
  }
  Notification notification;
  const char* sender = dbus_message_get_sender(&message);
  if (sender != nullptr) notification.sender = sender;
  DBusMessageIter values;
  dbus_message_iter_init(&message, &values);
  notification.application = TakeText(values);
  std::uint32_t replaced = 0;
  dbus_message_iter_get_basic(&values, &replaced);
  notification.replaces = replaced != 0;
  dbus_message_iter_next(&values);
  dbus_message_iter_next(&values);  // the icon
  notification.summary = TakeText(values);
  notification.body = TakeText(values);
  dbus_message_iter_next(&values);  // the buttons
  ReadHints(values, notification);
  return notification;
}

}  // namespace brenwick
