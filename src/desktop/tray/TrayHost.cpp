#include "desktop/tray/TrayHost.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <utility>

#include "desktop/bus/BusName.h"

namespace brenwick {
namespace {

const QString kService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kPath = QStringLiteral("/StatusNotifierWatcher");

// A service may keep the list of the icons while no notification area shows them.
QDBusMessage QuestionForArea() {
  QDBusMessage call =
      QDBusMessage::createMethodCall(kService, kPath, "org.freedesktop.DBus.Properties", "Get");
  call.setAutoStartService(false);
  return call << kService << QStringLiteral("IsStatusNotifierHostRegistered");
}

bool SaysYes(const QDBusMessage& answer) {
  const QDBusReply<QDBusVariant> reply = answer;
  return reply.isValid() && reply.value().variant().toBool();
}

}  // namespace

TrayHost::TrayHost(QDBusConnection bus)
    : bus_(std::move(bus)), watcher_(kService, bus_, QDBusServiceWatcher::WatchForOwnerChange) {
  selection_.Changed = [this] { Update(); };
  connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] { AskBus(); });
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus_.connect(kService, kPath, kService, signal, this, SLOT(AskBus()));
  }
  registered_ =
      SaysYes(bus_.call(QuestionForArea(), QDBus::Block, static_cast<int>(kBusPatience.count())));
  Update();
}

// A new question replaces one that has not been answered yet.
void TrayHost::AskBus() {
  answer_ = std::make_unique<QDBusPendingCallWatcher>(bus_.asyncCall(QuestionForArea()));
  connect(answer_.get(), &QDBusPendingCallWatcher::finished, this, [this] {
    registered_ = SaysYes(answer_->reply());
    Update();
  });
}

void TrayHost::Update() {
  const bool present = registered_ || selection_.Owned();
  if (present == present_) return;
  present_ = present;
  if (Changed) Changed();
}

}  // namespace brenwick
