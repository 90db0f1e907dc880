// The icon in the notification area.
#pragma once

#include <functional>
#include <string>

namespace brenwick {

// Mouse messages of the icon, as the window system numbers them.
enum TrayMouseMessage : int {
  kLeftButtonUp = 514,
  kLeftDoubleClick = 515,
  kRightButtonUp = 517,
};

class TrayIcon {
 public:
  TrayIcon() = default;
  TrayIcon(const TrayIcon&) = delete;
  TrayIcon& operator=(const TrayIcon&) = delete;
  virtual ~TrayIcon() = default;

  // Shows the icon with a tip of at most 64 characters. A desktop without a notification area is
  // no failure: the icon appears when one does.
  virtual void Add(const std::string& tip) = 0;
  virtual void Modify(const std::string& tip) = 0;
  virtual void Delete() = 0;

  // Called with a TrayMouseMessage, or any other number, for each mouse message of the icon.
  std::function<void(int)> MouseMessage;
};

}  // namespace brenwick
