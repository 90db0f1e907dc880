#include "desktop/Instance.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QStandardPaths>
#include <algorithm>
#include <iterator>

#include "desktop/bus/BusName.h"
#include "linux/BusConnecting.h"

namespace brenwick {
namespace {

const QString kService = QStringLiteral("org.brenwick.Brenwick");
const QString kPath = QStringLiteral("/org/brenwick/Brenwick");
const QString kApplication = QStringLiteral("org.freedesktop.Application");
constexpr int kFirst = 1;
constexpr int kLast = 4;

struct Method {
  Verb verb;
  const char* name;
  const char* signature;
};

constexpr Method kMethods[] = {
    {Verb::Show, "Show", ""}, {Verb::Stop, "Stop", ""}, {Verb::Repeat, "Repeat", "i"},
    {Verb::Mute, "Mute", ""}, {Verb::Quit, "Quit", ""},
};

// A desktop gives this token to a program that it starts, and by it allows the window to come to
// the front.
constexpr const char* kTokenVariable = "XDG_ACTIVATION_TOKEN";
const QString kTokenKey = QStringLiteral("activation-token");

QVariantMap PlatformData() {
  const QString token = qEnvironmentVariable(kTokenVariable);
  return token.isEmpty() ? QVariantMap{} : QVariantMap{{kTokenKey, token}};
}

// Qt reads the token from the environment when the window asks for the keyboard.
void TakeToken(const QDBusMessage& activate) {
  const auto data = qdbus_cast<QVariantMap>(activate.arguments().value(0));
  const QString token = data.value(kTokenKey).toString();
  if (!token.isEmpty()) qputenv(kTokenVariable, token.toUtf8());
}

bool IsActivate(const QDBusMessage& message) {
  return message.interface() == kApplication && message.member() == "Activate" &&
         message.signature() == "a{sv}";
}

const Method* FindMethod(const QDBusMessage& message) {
  if (!message.interface().isEmpty() && message.interface() != kService) return nullptr;
  for (const Method& method : kMethods) {
    if (message.member() == method.name && message.signature() == method.signature) return &method;
  }
  return nullptr;
}

QDBusMessage CallFor(Verb verb, int repeat) {
  if (verb == Verb::Show) {
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kApplication, "Activate");
    return call << PlatformData();
  }
  const auto* method = std::find_if(std::begin(kMethods), std::end(kMethods),
                                    [verb](const Method& each) { return each.verb == verb; });
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kService, method->name);
  if (verb == Verb::Repeat) call << repeat;
  return call;
}

}  // namespace

bool Instance::BusIsSilent() { return IsSilent(SessionBusAddress()); }

bool Instance::Claim() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (bus.isConnected()) {
    return bus.registerVirtualObject(kPath, this) && TakeBusName(bus, kService);
  }
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  lock_ = std::make_unique<QLockFile>(folder + "/brenwick.lock");
  lock_->setStaleLockTime(0);
  return lock_->tryLock();
}

Instance::Answer Instance::Ask(Verb verb, int repeat) {
  // The connection's thread runs until the end of the process. The register of types has to outlive
  // it, so it is made before the connection.
  qRegisterMetaType<QDBusVariant>();
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return Answer::NobodyThere;
  QDBusMessage call = CallFor(verb, repeat);
  call.setAutoStartService(false);
  const auto patience = std::chrono::milliseconds(kPatience).count();
  const QDBusMessage answer = bus.call(call, QDBus::Block, static_cast<int>(patience));
  if (answer.type() == QDBusMessage::ReplyMessage) return Answer::Done;
  return QDBusError(answer).type() == QDBusError::NoReply ? Answer::Silent : Answer::NobodyThere;
}

QString Instance::introspect(const QString& /*path*/) const {
  QString xml = "<interface name=\"" + kService + "\">\n";
  for (const Method& method : kMethods) {
    xml += QString("<method name=\"%1\">").arg(method.name);
    if (*method.signature != '\0') {
      xml += QString("<arg name=\"number\" type=\"%1\" direction=\"in\"/>").arg(method.signature);
    }
    xml += "</method>\n";
  }
  return xml + "</interface>\n<interface name=\"" + kApplication +
         "\"><method name=\"Activate\">"
         "<arg name=\"platform_data\" type=\"a{sv}\" direction=\"in\"/></method></interface>\n";
}

// The answer goes out first: the verb may end the program.
bool Instance::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  if (IsActivate(message)) {
    TakeToken(message);
    connection.send(message.createReply());
    if (Asked) Asked(Verb::Show, kFirst);
    return true;
  }
  const Method* method = FindMethod(message);
  if (method == nullptr) return false;
  const int number = method->verb == Verb::Repeat ? message.arguments().value(0).toInt() : kFirst;
  if (number < kFirst || number > kLast) {
    connection.send(message.createErrorReply(QDBusError::InvalidArgs,
                                             "the number of a sentence is one from 1 to 4"));
    return true;
  }
  connection.send(message.createReply());
  if (Asked) Asked(method->verb, number);
  return true;
}

}  // namespace brenwick
