// The one Brenwick of a user's session, and how others reach it.
#pragma once

#include <QDBusVirtualObject>
#include <QLockFile>
#include <functional>
#include <memory>

#include "desktop/DesktopOptions.h"

namespace brenwick {

// On the session bus the running program is org.brenwick.Brenwick. Without a bus a lock file among
// the user's run-time files keeps a second one from starting, and no verb can reach the first.
class Instance : public QDBusVirtualObject {
 public:
  Instance() = default;

  // True when this process is the one from now on.
  bool Claim();
  // Called with what another process asked for, with the number of the sentence for Verb::Repeat.
  std::function<void(Verb, int)> Asked;

  // Asks the running program; false where none can be reached. The verb is any but Verb::None.
  static bool Ask(Verb verb, int repeat);

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace brenwick
