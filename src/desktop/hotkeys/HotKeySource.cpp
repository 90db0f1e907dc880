#include "desktop/hotkeys/HotKeySource.h"

#include <QDBusConnection>
#include <QGuiApplication>

#include "desktop/hotkeys/PortalHotKeys.h"
#include "desktop/hotkeys/X11HotKeys.h"

namespace brenwick {
namespace {

class NoHotKeys : public HotKeySource {
 public:
  void Arm() override {}
};

}  // namespace

HotKeySource::Kind HotKeySource::Fitting(const QString& platform, const QString& waylandDisplay) {
  if (platform.startsWith("wayland")) return Kind::Portal;
  if (platform != "xcb") return Kind::None;
  return waylandDisplay.isEmpty() ? Kind::X11 : Kind::Portal;
}

std::unique_ptr<HotKeySource> HotKeySource::OfThisDesktop(frmMain& form, Views& views) {
  switch (Fitting(QGuiApplication::platformName(), qEnvironmentVariable("WAYLAND_DISPLAY"))) {
    case Kind::X11:
      return std::make_unique<X11HotKeys>(form, views);
    case Kind::Portal:
      return std::make_unique<PortalHotKeys>(QDBusConnection::sessionBus(), form, views);
    case Kind::None:
      break;
  }
  return std::make_unique<NoHotKeys>();
}

}  // namespace brenwick
