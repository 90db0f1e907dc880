// Calls to a client that is built on libpurple.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>
#include <QVariantList>
#include <atomic>
#include <chrono>
#include <vector>

namespace brenwick {

inline const QString kPurpleService = QStringLiteral("im.pidgin.purple.PurpleService");
inline const QString kPurplePath = QStringLiteral("/im/pidgin/purple/PurpleObject");
inline const QString kPurpleInterface = QStringLiteral("im.pidgin.purple.PurpleInterface");

// Each call waits for its answer as long as the patience lasts. Where no answer comes, or one of
// another shape, the result is 0 or empty: the object of a handle may be gone before the client is
// asked about it, and that is no error. Belongs to the client's thread.
class PurpleBus {
 public:
  PurpleBus(QDBusConnection bus, std::chrono::milliseconds patience)
      : bus_(std::move(bus)), patience_(patience) {}

  // The client's own name on the bus; empty: there is none, and every call fails at once.
  void SetClient(const QString& client);
  const QString& Client() const { return client_; }

  int Number(const char* method, const QVariantList& arguments = {});
  QString Text(const char* method, const QVariantList& arguments = {});
  std::vector<int> Handles(const char* method, const QVariantList& arguments = {});
  void Do(const char* method, const QVariantList& arguments);

  // Whether the client let the last call go unanswered.
  bool Silent() const { return silent_; }
  // Whether the client let any call go unanswered since the last call of this.
  bool TakeSilence();
  // From any thread: all further calls fail at once.
  void GiveUp() { given_up_ = true; }

 private:
  // The answer's arguments, which have this signature.
  QVariantList Call(const char* method, const QVariantList& arguments, const char* signature);

  QDBusConnection bus_;
  std::chrono::milliseconds patience_;
  QString client_;
  bool silent_ = false;
  bool silence_ = false;
  std::atomic<bool> given_up_ = false;
};

}  // namespace brenwick
