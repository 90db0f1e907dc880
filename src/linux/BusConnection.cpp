#include "linux/BusConnection.h"

#include <dbus/dbus.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace brenwick {
namespace {

class BusError {
 public:
  BusError() { dbus_error_init(&error_); }
  BusError(const BusError&) = delete;
  BusError& operator=(const BusError&) = delete;
  ~BusError() { dbus_error_free(&error_); }

  DBusError* Out() { return &error_; }
  [[noreturn]] void Raise() const {
    if (dbus_error_has_name(&error_, DBUS_ERROR_NO_REPLY)) throw SilentBus();
    throw std::runtime_error(error_.message != nullptr ? error_.message : "the bus is gone");
  }

 private:
  DBusError error_;
};

}  // namespace

void UnrefMessage::operator()(DBusMessage* message) const { dbus_message_unref(message); }

std::string SessionBusAddress() {
  const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (address != nullptr && *address != '\0') return address;
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime == nullptr || *runtime == '\0') return {};
  const std::string socket = std::string(runtime) + "/bus";
  std::error_code ignored;
  return std::filesystem::is_socket(socket, ignored) ? "unix:path=" + socket : std::string();
}

BusMessage CallWithTexts(const BusMethod& method, const std::vector<std::string>& texts) {
  BusMessage call(
      dbus_message_new_method_call(method.service, method.path, method.interface, method.member));
  dbus_message_set_no_reply(call.get(), true);
  for (const std::string& text : texts) {
    const char* value = text.c_str();
    dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &value, DBUS_TYPE_INVALID);
  }
  return call;
}

void BusConnection::Close::operator()(DBusConnection* connection) const {
  dbus_connection_close(connection);
  dbus_connection_unref(connection);
}

BusConnection::BusConnection(const std::string& address) {
  if (address.empty()) throw std::runtime_error("there is no session bus");
  BusError error;
  connection_.reset(dbus_connection_open_private(address.c_str(), error.Out()));
  if (!connection_) error.Raise();
  const BusMessage hello(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                      DBUS_INTERFACE_DBUS, "Hello"));
  const BusMessage answer = Call(*hello);
  const char* name = nullptr;
  if (!dbus_message_get_args(answer.get(), error.Out(), DBUS_TYPE_STRING, &name,
                             DBUS_TYPE_INVALID)) {
    error.Raise();
  }
  name_ = name;
}

BusConnection::~BusConnection() = default;

bool BusConnection::IsOpen() const { return dbus_connection_get_is_connected(connection_.get()); }

int BusConnection::Descriptor() const {
  int descriptor = -1;
  dbus_connection_get_unix_fd(connection_.get(), &descriptor);
  return descriptor;
}

BusMessage BusConnection::Call(DBusMessage& call) {
  BusError error;
  BusMessage answer(dbus_connection_send_with_reply_and_block(
      connection_.get(), &call, static_cast<int>(kPatience.count()), error.Out()));
  if (!answer) error.Raise();
  return answer;
}

bool BusConnection::Send(DBusMessage& message) {
  if (!IsOpen() || !dbus_connection_send(connection_.get(), &message, nullptr)) return false;
  using Clock = std::chrono::steady_clock;
  const Clock::time_point end = Clock::now() + kPatience;
  while (IsOpen() && dbus_connection_has_messages_to_send(connection_.get())) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    if (left <= left.zero()) return false;
    dbus_connection_read_write(connection_.get(), static_cast<int>(left.count()));
  }
  return IsOpen();
}

void BusConnection::Read() { dbus_connection_read_write(connection_.get(), 0); }

BusMessage BusConnection::Next() {
  return BusMessage(dbus_connection_pop_message(connection_.get()));
}

}  // namespace brenwick
