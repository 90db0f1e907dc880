#include "desktop/tray/DesktopTray.h"

#include "qt/Strings.h"
#include "qt/views/MenuView.h"

namespace brenwick {
namespace {

constexpr int kNoMessage = 0;

}  // namespace

DesktopTray::DesktopTray(EndOfProgram& end) : end_(end) {
  menu_.setObjectName("mPopupSys");
  // Some notification areas open the menu by themselves and report no click.
  QObject::connect(&menu_, &QMenu::aboutToShow, &menu_, [this] {
    end_.Guard([this] {
      if (MouseMessage) MouseMessage(kRightButtonUp);
    });
  });
  host_.Changed = [this] {
    MakeIcon();
    if (AvailableChanged) AvailableChanged();
  };
}

void DesktopTray::Add(const std::string& tip) {
  wanted_ = true;
  Modify(tip);
  MakeIcon();
}

void DesktopTray::Modify(const std::string& tip) {
  tip_ = ToQt(tip);
  ShowIcon();
}

void DesktopTray::Delete() {
  wanted_ = false;
  MakeIcon();
}

void DesktopTray::Observe(frmMain& form, const ProgramState& state, Views& views) {
  state_ = &state;
  mute_ = &form.chkMute;
  FillMenu(menu_, form, views);
  views.Own(form.PopupMenuWanted.Observe([this, &form, &views] { FillMenu(menu_, form, views); }));
  views.Own(form.chkMute.Changed.Observe([this] { ShowIcon(); }));
}

// An icon that is made without a notification area would never be shown.
void DesktopTray::MakeIcon() {
  if (!end_.HasDisplay()) return;
  if (!wanted_ || !host_.Present()) {
    icon_.reset();
    return;
  }
  if (icon_) return;
  icon_ = std::make_unique<QSystemTrayIcon>();
  icon_->setContextMenu(&menu_);
  QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                   [this](QSystemTrayIcon::ActivationReason reason) { Activated(reason); });
  ShowIcon();
  icon_->show();
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
  if (!icon_ || !end_.HasDisplay()) return;
  const bool muted = mute_ != nullptr && mute_->Ticked();
  const bool online = state_ == nullptr || state_->MessengerOnline;
  const char* name = muted ? "muted" : online ? "brenwick" : "offline";
  icon_->setIcon(QIcon(QString(":/icons/tray/%1.svg").arg(name)));
  icon_->setToolTip(tip_);
}

}  // namespace brenwick
