// A call of Notify from any application: as bytes on the bus and as texts in its places, and what
// is read aloud of it.
#include <dbus/dbus.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "linux/BusConnection.h"
#include "linux/notifications/NotificationReader.h"
#include "sources/ForeignText.h"
#include "sources/MailApplications.h"
#include "sources/MailService.h"
#include "sources/NotificationRules.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

constexpr char kWire = 'w';  // an input that begins with it is the body of a call

void AppendNumber(std::string& bytes, std::uint32_t number) {
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift);
}

void Pad(std::string& bytes, std::size_t to) {
  while (bytes.size() % to != 0) bytes += '\0';
}

void AppendField(std::string& fields, char number, char type, const std::string& value) {
  Pad(fields, 8);
  fields += {number, '\1', type, '\0'};
  if (type == DBUS_TYPE_SIGNATURE) {
    fields += static_cast<char>(value.size());
  } else {
    AppendNumber(fields, static_cast<std::uint32_t>(value.size()));
  }
  fields += value + '\0';
}

// The bytes as the body of a call that is otherwise as it should be.
std::string CallWithBody(std::string_view body) {
  constexpr char kPath = 1, kInterface = 2, kMember = 3, kSender = 7, kSignature = 8;
  std::string fields;
  AppendField(fields, kPath, 'o', "/org/freedesktop/Notifications");
  AppendField(fields, kInterface, 's', "org.freedesktop.Notifications");
  AppendField(fields, kMember, 's', "Notify");
  AppendField(fields, kSender, 's', ":1.7");
  AppendField(fields, kSignature, 'g', "susssasa{sv}i");
  std::string call = {DBUS_LITTLE_ENDIAN, DBUS_MESSAGE_TYPE_METHOD_CALL, '\0', '\1'};
  AppendNumber(call, static_cast<std::uint32_t>(body.size()));
  AppendNumber(call, 1);
  AppendNumber(call, static_cast<std::uint32_t>(fields.size()));
  call += fields;
  Pad(call, 8);
  return call.append(body);
}

// Nothing where no bus would pass these bytes on.
BusMessage MessageOf(const std::string& bytes) {
  return BusMessage(dbus_message_demarshal(bytes.data(), static_cast<int>(bytes.size()), nullptr));
}

std::string BytesOf(DBusMessage& message) {
  dbus_message_set_serial(&message, 1);
  char* bytes = nullptr;
  int size = 0;
  Expect(dbus_message_marshal(&message, &bytes, &size), "a message has bytes");
  const std::string copy(bytes, static_cast<std::size_t>(size));
  dbus_free(bytes);
  return copy;
}

void AppendText(DBusMessageIter& values, const std::string& text) {
  const char* const first = text.c_str();
  dbus_message_iter_append_basic(&values, DBUS_TYPE_STRING, &first);
}

void AppendHint(DBusMessageIter& hints, const std::string& name, const std::string& text) {
  DBusMessageIter hint, value;
  dbus_message_iter_open_container(&hints, DBUS_TYPE_DICT_ENTRY, nullptr, &hint);
  AppendText(hint, name);
  dbus_message_iter_open_container(&hint, DBUS_TYPE_VARIANT, "s", &value);
  AppendText(value, text);
  dbus_message_iter_close_container(&hint, &value);
  dbus_message_iter_close_container(&hints, &hint);
}

BusMessage MessageOf(const Notification& notification) {
  BusMessage message(dbus_message_new_method_call(nullptr, "/org/freedesktop/Notifications",
                                                  "org.freedesktop.Notifications", "Notify"));
  DBusMessageIter values, list;
  dbus_message_iter_init_append(message.get(), &values);
  const dbus_uint32_t replaced = notification.replaces ? 3 : 0;
  const dbus_int32_t time = -1;
  AppendText(values, notification.application);
  dbus_message_iter_append_basic(&values, DBUS_TYPE_UINT32, &replaced);
  AppendText(values, "icon");
  AppendText(values, notification.summary);
  AppendText(values, notification.body);
  dbus_message_iter_open_container(&values, DBUS_TYPE_ARRAY, "s", &list);
  AppendText(list, "default");
  dbus_message_iter_close_container(&values, &list);
  dbus_message_iter_open_container(&values, DBUS_TYPE_ARRAY, "{sv}", &list);
  AppendHint(list, "category", notification.category);
  AppendHint(list, "desktop-entry", notification.desktop_entry);
  if (notification.is_gauge) AppendHint(list, "value", "50");
  dbus_message_iter_close_container(&values, &list);
  dbus_message_iter_append_basic(&values, DBUS_TYPE_INT32, &time);
  return message;
}

std::vector<std::string> TextsOf(const Notification& notification) {
  return {notification.application, notification.desktop_entry, notification.category,
          notification.summary, notification.body};
}

bool AreSame(const Notification& one, const Notification& other) {
  return TextsOf(one) == TextsOf(other) && one.replaces == other.replaces &&
         one.is_gauge == other.is_gauge;
}

void CheckMail(const NotifiedMessage& message) {
  Expect(message.text.starts_with("FROM:"), "mail is told by its sender");
  Expect(message.text.find_first_of("\r\n") == message.text.size() - 1, "one line tells of mail");
  Expect(UpperCase(message.text).find("INBOX-UNREAD:") == std::string::npos,
         "no application counts the mails of an inbox");
}

void CheckMessage(const NotifiedMessage& message, const Notification& notification) {
  constexpr std::size_t kLongestContact = 128 + 1 + 1024;
  const MessengerContact& contact = message.contact;
  Expect(!HasControls(contact.SigninName) && !HasControls(contact.FriendlyName),
         "a contact's names are one line");
  Expect(!contact.SigninName.empty() && contact.SigninName.size() <= kLongestContact,
         "a contact's name ends somewhere");
  Expect(!contact.FriendlyName.empty(), "a contact is called something");
  Expect(IsValidUtf8(contact.SigninName) && IsValidUtf8(message.text), "texts are valid UTF-8");
  Expect(!message.text.empty(), "a message says something");
  const bool is_mail = TellsOfMail(notification);
  Expect(IsMailServiceName(contact.FriendlyName) == is_mail,
         "the mail service alone tells of mail");
  if (is_mail) CheckMail(message);
}

// The user has the program read what this application shows.
class Listener {
 public:
  std::optional<NotifiedMessage> Read(const Notification& notification) {
    return rules_.Read(notification);
  }

  // Whether it is known now. Otherwise it has no name.
  bool SwitchOn() {
    const std::vector<SeenApplication> all = applications_.All();
    Expect(all.size() <= 1, "one notification is of one application");
    if (all.empty()) return false;
    Expect(!all[0].On, "an application is off until it is switched on");
    Expect(!all[0].Name.empty() && !HasControls(all[0].Name), "an application's name is one line");
    applications_.Switch(all[0].Name, true);
    Expect(applications_.IsOn(all[0].Name), "an application that is switched on is on");
    return true;
  }

 private:
  MapStore store_;
  SeenApplications applications_{store_};
  NotificationRules rules_{applications_};
};

bool SaysNothing(const Notification& notification) {
  return !TellsOfMail(notification) && OneLine(notification.summary).empty() &&
         WithoutMarkup(notification.body).empty();
}

void CheckRules(Notification notification) {
  Listener listener;
  Expect(!listener.Read(notification), "nothing is read that is not switched on");
  if (!listener.SwitchOn()) return;
  notification.replaces = false;
  const std::optional<NotifiedMessage> message = listener.Read(notification);
  const bool silent = notification.is_gauge || SaysNothing(notification);
  Expect(message.has_value() != silent, "whatever says something is read");
  if (!message) return;
  CheckMessage(*message, notification);
  notification.replaces = true;
  Expect(!listener.Read(notification), "the same again is nothing new");
  const std::string more = notification.body + "\nand more";
  notification.body = more;
  if (const auto next = listener.Read(notification)) CheckMessage(*next, notification);
}

void CheckWire(std::string_view body) {
  const BusMessage message = MessageOf(CallWithBody(body));
  if (!message) return;
  const std::optional<Notification> notification = ReadNotification(*message);
  Expect(notification.has_value(), "what the bus passes on can be read");
  Expect(notification->sender == ":1.7", "the bus says who has sent it");
  for (const std::string& text : TextsOf(*notification)) {
    Expect(IsValidUtf8(text) && text.size() <= kMostOfNotification, "a text is cut and valid");
  }
  Expect(AreSame(*ReadNotification(*MessageOf(BytesOf(*MessageOf(*notification)))), *notification),
         "what was read can be sent and read again");
  CheckRules(*notification);
}

// The parts of an input are an application's name, its entry, a category, a heading and a body.
void CheckTexts(std::string_view bytes) {
  std::vector<std::string> texts;
  for (const std::string_view part : Parts(bytes)) texts.push_back(Repaired(part));
  texts.resize(5);
  Notification sent;
  sent.application = texts[0];
  sent.desktop_entry = texts[1];
  sent.category = texts[2];
  sent.summary = texts[3];
  sent.body = texts[4];
  sent.replaces = bytes.size() % 2 == 1;
  sent.is_gauge = bytes.size() % 16 == 15;
  const BusMessage message = MessageOf(BytesOf(*MessageOf(sent)));
  Expect(message != nullptr, "a message that was made well is passed on");
  const std::optional<Notification> read = ReadNotification(*message);
  Expect(read && AreSame(*read, sent), "what was sent is read");
  CheckRules(*read);
}

void Check(std::string_view bytes) {
  if (bytes.starts_with(kWire)) CheckWire(bytes.substr(1));
  CheckTexts(bytes);
}

const FuzzTarget kTarget("notification", Check);

}  // namespace
}  // namespace brenwick
