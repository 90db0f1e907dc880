// The icon in the notification area.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>

#include "desktop/qt/Views.h"
#include "forms/frmMain.h"
#include "platform/TrayIcon.h"

namespace brenwick {

class DesktopTray : public TrayIcon {
 public:
  DesktopTray(EndOfProgram& end);

  void Add(const std::string& tip) override;
  void Modify(const std::string& tip) override;
  void Delete() override;

  // The menu shows the form's items; the icon tells whether the program is muted.
  void Observe(frmMain& form, Views& views);
  // Whether the user is signed in, for the icon.
  void SetOnline(bool online);

  static bool Available() { return QSystemTrayIcon::isSystemTrayAvailable(); }

 private:
  void Activated(QSystemTrayIcon::ActivationReason reason);
  void ShowIcon();

  EndOfProgram& end_;
  QMenu menu_;
  QSystemTrayIcon icon_;
  bool muted_ = false;
  bool online_ = true;
};

}  // namespace brenwick
