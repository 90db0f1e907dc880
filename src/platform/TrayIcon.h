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

// The program calls each operation on its own thread. None of them waits or throws.
class TrayIcon {
 public:
  TrayIcon() = default;
  TrayIcon(const TrayIcon&) = delete;
  TrayIcon& operator=(const TrayIcon&) = delete;
  virtual ~TrayIcon() = default;

  // Shows the icon with a tip of at most 64 characters. A desktop without a notification area is
  // no failure: the icon appears when one does.
  virtual void Add(const std::string& tip) = 0;
  // Gives the icon another tip; harmless without one.
  virtual void Modify(const std::string& tip) = 0;
  // Takes the icon away; harmless without one.
  virtual void Delete() = 0;

  // Called on the program's thread with a TrayMouseMessage, or any other number, for each mouse
  // message of the icon. The handler may end the program by throwing ProgramEnd.
  std::function<void(int)> MouseMessage;
};

}  // namespace brenwick
