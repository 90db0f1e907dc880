#include "desktop/qt/DesktopTray.h"

#include "desktop/qt/MenuView.h"
#include "desktop/qt/Strings.h"

namespace brenwick {
namespace {

constexpr int kNoMessage = 0;

}  // namespace

DesktopTray::DesktopTray(EndOfProgram& end) : end_(end) {
  menu_.setObjectName("mPopupSys");
  icon_.setContextMenu(&menu_);
  QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                   [this](QSystemTrayIcon::ActivationReason reason) { Activated(reason); });
  // Some notification areas open the menu by themselves and tell of no click.
  QObject::connect(&menu_, &QMenu::aboutToShow, &icon_, [this] {
    end_.Guard([this] {
      if (MouseMessage) MouseMessage(kRightButtonUp);
    });
  });
  ShowIcon();
}

void DesktopTray::Add(const std::string& tip) {
  icon_.setToolTip(ToQt(tip));
  icon_.show();
}

void DesktopTray::Modify(const std::string& tip) { icon_.setToolTip(ToQt(tip)); }

void DesktopTray::Delete() { icon_.hide(); }

void DesktopTray::Observe(frmMain& form, Views& views) {
  FillMenu(menu_, form, views);
  views.Keep(form.PopupMenuWanted.Observe([this, &form, &views] { FillMenu(menu_, form, views); }));
  views.Keep(form.chkMute.Changed.Observe([this, &form] {
    muted_ = form.chkMute.Ticked();
    ShowIcon();
  }));
}

void DesktopTray::SetOnline(bool online) {
  online_ = online;
  ShowIcon();
}

void DesktopTray::Activated(QSystemTrayIcon::ActivationReason reason) {
  int message = kNoMessage;
  if (reason == QSystemTrayIcon::Trigger) message = kLeftButtonUp;
  if (reason == QSystemTrayIcon::DoubleClick) message = kLeftDoubleClick;
  end_.Guard([&] {
    if (MouseMessage) MouseMessage(message);
  });
}

void DesktopTray::ShowIcon() {
  const char* name = muted_ ? "muted" : online_ ? "brenwick" : "offline";
  icon_.setIcon(QIcon(QString(":/icons/tray/%1.svg").arg(name)));
}

}  // namespace brenwick
