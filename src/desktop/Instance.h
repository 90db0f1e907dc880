// Keeps Brenwick single in a user's session, and carries verbs to the program that runs.
#pragma once

#include <QDBusVirtualObject>
#include <QLockFile>
#include <chrono>
#include <functional>
#include <memory>

#include "app/CommandLine.h"

namespace brenwick {

// On the session bus the running program is org.brenwick.Brenwick. Without a bus a lock file among
// the user's run-time files keeps a second program from starting, and no verb can reach the first.
class Instance : public QDBusVirtualObject {
 public:
  Instance() = default;

  // True where there is a session bus that does not answer within a second. Nothing below may be
  // called then, and no part of Qt may use the bus: Qt waits for it far longer.
  static bool BusIsSilent();

  // True when this process is the one from now on. A bus that stops answering for a second counts
  // as one on which another program runs.
  bool Claim();
  // Called with what another process asked for, with the number of the sentence for Verb::Repeat.
  std::function<void(Verb, int)> Asked;

  enum class Answer { Done, NobodyThere, Silent };
  // Asks the running program, whose answer is awaited for kPatience. The verb is any but
  // Verb::None.
  static Answer Ask(Verb verb, int repeat);

  // The time that a running program is given to answer: it may be busy, or just starting.
  static constexpr std::chrono::seconds kPatience{5};

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace brenwick
