#include "desktop/hotkeys/PortalHotKeys.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <algorithm>
#include <utility>

namespace brenwick {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
const QString kSession = QStringLiteral("org.freedesktop.portal.Session");
constexpr uint kGranted = 0;

// As the portal writes keys: modifiers in capitals, then the key's symbol.
QString Trigger(const HotKey& key) {
  constexpr int kScrollLock = 0x91;
  QString trigger;
  if (key.ctrlkey) trigger += "CTRL+";
  if (key.shiftkey) trigger += "SHIFT+";
  if (key.winkey) trigger += "LOGO+";
  return trigger + (key.vkey == kScrollLock ? QString("Scroll_Lock") : QChar(key.vkey).toLower());
}

// By this token the desktop allows the window to come to the front; Qt reads it from the
// environment.
void TakeToken(const QVariantMap& options) {
  const QString token = options.value("activation_token").toString();
  if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
}

}  // namespace

PortalHotKeys::PortalHotKeys(QDBusConnection bus, frmMain& form, Views& views)
    : bus_(std::move(bus)),
      views_(views),
      keys_{{form.ocxHotKeyActivateBW, "show", "Show the window", "brenwick --show"},
            {form.ocxHotKeySilent, "stop", "Stop speaking", "brenwick --stop"}},
      watcher_(kService, bus_, QDBusServiceWatcher::WatchForOwnerChange) {
  qDBusRegisterMetaType<PortalShortcut>();
  qDBusRegisterMetaType<PortalShortcuts>();
  for (HotKeyControl& control : form.ocxSpeakMsg1) {
    const QString number = QString::number(control.Index() + 1);
    keys_.push_back({control, "repeat" + number, "Say sentence " + number + " again",
                     "brenwick --repeat " + number.toStdString()});
  }
}

PortalHotKeys::~PortalHotKeys() {
  if (session_.isEmpty()) return;
  QDBusMessage close = QDBusMessage::createMethodCall(kService, session_, kSession, "Close");
  close.setAutoStartService(false);
  bus_.send(close);
}

void PortalHotKeys::Arm() {
  if (!bus_.isConnected()) return NoKeys();
  Listen();
  OpenSession();
}

// Listens to every request and session and compares paths later, which is simpler than listening to
// each path as it becomes known.
void PortalHotKeys::Listen() {
  const struct {
    QString interface;
    const char* signal;
  } kSignals[] = {{kRequest, "Response"},
                  {kSession, "Closed"},
                  {kShortcuts, "Activated"},
                  {kShortcuts, "ShortcutsChanged"}};
  for (const auto& each : kSignals) {
    bus_.connect(kService, {}, each.interface, each.signal, this, SLOT(Hear(QDBusMessage)));
  }
  connect(&watcher_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString&, const QString&, const QString& owner) {
            views_.ForwardUserAction([&] { HearOwner(owner); });
          });
}

// A portal that comes back has forgotten the session. The first one that comes was started by the
// program's own call, which needs no second session.
void PortalHotKeys::HearOwner(const QString& owner) {
  if (owner.isEmpty()) {
    portal_gone_ = true;
    NoKeys();
  } else if (std::exchange(portal_gone_, false)) {
    OpenSession();
  }
}

void PortalHotKeys::OpenSession() {
  Ask("CreateSession", {}, {{"session_handle_token", NextToken()}},
      [this](const QVariantMap& results) {
        session_ = results.value("session_handle").toString();
        BindShortcuts();
      });
}

void PortalHotKeys::BindShortcuts() {
  PortalShortcuts shortcuts;
  for (const Key& key : keys_) {
    shortcuts.push_back(
        {key.id,
         {{"description", key.description}, {"preferred_trigger", Trigger(key.control.Key())}}});
  }
  Ask("BindShortcuts",
      {QVariant::fromValue(QDBusObjectPath(session_)), QVariant::fromValue(shortcuts), QString()},
      {}, [this](const QVariantMap& results) {
        Bound(qdbus_cast<PortalShortcuts>(results.value("shortcuts")));
      });
}

void PortalHotKeys::Ask(const char* method, QVariantList arguments, QVariantMap options,
                        std::function<void(const QVariantMap&)> granted) {
  const QString token = NextToken();
  const QString sender = bus_.baseService().mid(1).replace('.', '_');
  request_ = {kPath + "/request/" + sender + '/' + token, std::move(granted)};
  options["handle_token"] = token;
  arguments.push_back(options);
  QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kShortcuts, method);
  call.setArguments(arguments);
  auto* answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, path = request_.path] {
    answer->deleteLater();
    if (!answer->isError() || path != request_.path) return;
    portal_gone_ = answer->error().type() == QDBusError::ServiceUnknown;
    views_.ForwardUserAction([this] { NoKeys(); });
  });
}

void PortalHotKeys::Hear(const QDBusMessage& signal) {
  const QVariantList values = signal.arguments();
  const QString path = signal.path();
  const auto of_session = [&] {
    return !session_.isEmpty() && values.value(0).value<QDBusObjectPath>().path() == session_;
  };
  views_.ForwardUserAction([&] {
    if (signal.member() == "Response" && path == request_.path) {
      Answered(values.value(0).toUInt(), qdbus_cast<QVariantMap>(values.value(1)));
    } else if (signal.member() == "Closed" && path == session_) {
      NoKeys();
    } else if (signal.member() == "Activated" && of_session()) {
      TakeToken(qdbus_cast<QVariantMap>(values.value(3)));
      Activated(values.value(1).toString());
    } else if (signal.member() == "ShortcutsChanged" && of_session()) {
      Bound(qdbus_cast<PortalShortcuts>(values.value(1)));
    }
  });
}

void PortalHotKeys::Answered(uint code, const QVariantMap& results) {
  const Request answered = std::exchange(request_, {});
  if (code == kGranted) {
    answered.Granted(results);
  } else {
    NoKeys();
  }
}

void PortalHotKeys::Activated(const QString& id) {
  for (const Key& key : keys_) {
    if (key.id == id) key.control.UserPress();
  }
}

void PortalHotKeys::Bound(const PortalShortcuts& shortcuts) {
  for (const Key& key : keys_) {
    const bool bound = std::any_of(shortcuts.begin(), shortcuts.end(),
                                   [&](const auto& shortcut) { return shortcut.id == key.id; });
    key.control.SetObstacle(bound ? KeyObstacle{}
                                  : KeyObstacle{KeyObstacle::Kind::NotGiven, key.command});
  }
}

void PortalHotKeys::NoKeys() {
  session_.clear();
  request_ = {};
  Bound({});
}

QString PortalHotKeys::NextToken() { return "brenwick" + QString::number(++tokens_); }

}  // namespace brenwick
