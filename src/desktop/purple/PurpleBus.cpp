#include "desktop/purple/PurpleBus.h"

#include <QDBusArgument>
#include <QDBusError>
#include <algorithm>
#include <utility>

namespace brenwick {
namespace {

// The patience with a client that let the last call go unanswered: many messages may be waiting.
constexpr std::chrono::milliseconds kLittlePatience{50};

bool IsSilence(const QDBusMessage& answer) {
  const QDBusError::ErrorType type = QDBusError(answer).type();
  return type == QDBusError::NoReply || type == QDBusError::Timeout || type == QDBusError::TimedOut;
}

}  // namespace

void PurpleBus::SetClient(const QString& client) {
  client_ = client;
  silent_ = silence_ = false;
}

int PurpleBus::Number(const char* method, const QVariantList& arguments) {
  return Call(method, arguments, "i").value(0).toInt();
}

QString PurpleBus::Text(const char* method, const QVariantList& arguments) {
  return Call(method, arguments, "s").value(0).toString();
}

std::vector<int> PurpleBus::Handles(const char* method, const QVariantList& arguments) {
  const QList<int> handles = qdbus_cast<QList<int>>(Call(method, arguments, "ai").value(0));
  return {handles.begin(), handles.end()};
}

void PurpleBus::Do(const char* method, const QVariantList& arguments) {
  Call(method, arguments, "");
}

bool PurpleBus::TakeSilence() { return std::exchange(silence_, false); }

QVariantList PurpleBus::Call(const char* method, const QVariantList& arguments,
                             const char* signature) {
  if (client_.isEmpty() || given_up_) return {};
  QDBusMessage call =
      QDBusMessage::createMethodCall(client_, kPurplePath, kPurpleInterface, method);
  call.setArguments(arguments);
  call.setAutoStartService(false);
  const auto patience = silent_ ? std::min(patience_, kLittlePatience) : patience_;
  const QDBusMessage answer = bus_.call(call, QDBus::Block, static_cast<int>(patience.count()));
  silent_ = IsSilence(answer);
  silence_ = silence_ || silent_;
  if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != signature) return {};
  return answer.arguments();
}

}  // namespace brenwick
