// The icon in the notification area.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <functional>
#include <memory>

#include "base/ProgramState.h"
#include "desktop/tray/TrayHost.h"
#include "forms/frmMain.h"
#include "platform/TrayIcon.h"
#include "qt/views/Views.h"

namespace brenwick {

class DesktopTray : public TrayIcon {
 public:
  explicit DesktopTray(EndOfProgram& end);

  void Add(const std::string& tip) override;
  void Modify(const std::string& tip) override;
  void Delete() override;

  // The menu shows the form's items; the icon tells whether the program is muted and whether the
  // user is signed in, as the state has it at each Add and Modify.
  void Observe(frmMain& form, const ProgramState& state, Views& views);

  // Whether there is a notification area that shows the icon.
  bool Available() const { return host_.Present(); }
  // Called when a notification area has appeared or gone.
  std::function<void()> AvailableChanged;

 private:
  void Activated(QSystemTrayIcon::ActivationReason reason);
  void MakeIcon();
  void ShowIcon();

  EndOfProgram& end_;
  TrayHost host_{QDBusConnection::sessionBus()};
  QMenu menu_;
  std::unique_ptr<QSystemTrayIcon> icon_;  // while the program wants it and somebody shows it
  QString tip_;
  bool wanted_ = false;
  const CheckBox* mute_ = nullptr;
  const ProgramState* state_ = nullptr;
};

}  // namespace brenwick
