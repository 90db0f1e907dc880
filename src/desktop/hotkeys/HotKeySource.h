// Gives the hotkey controls their keys.
#pragma once

#include <QString>
#include <memory>

#include "forms/frmMain.h"
#include "qt/views/Views.h"

namespace brenwick {

// Gives each enabled hotkey control its key, whichever program has the focus, and tells the control
// of an obstacle. Belongs to the program's thread.
class HotKeySource {
 public:
  enum class Kind { X11, Portal, None };

  HotKeySource() = default;
  HotKeySource(const HotKeySource&) = delete;
  HotKeySource& operator=(const HotKeySource&) = delete;
  virtual ~HotKeySource() = default;

  // Asks for the keys; from now on they reach the program. Called once, when the program has
  // started. It throws nothing and does not wait for the desktop's answer: a key that is not given
  // is an obstacle of its control.
  virtual void Arm() = 0;

  // The kind that fits Qt's name of the platform and WAYLAND_DISPLAY of the environment. Under
  // Wayland a window may use X11, but X11 does not get the keys of the desktop.
  static Kind Fitting(const QString& platform, const QString& waylandDisplay);
  // The one that fits the desktop on which the program runs.
  static std::unique_ptr<HotKeySource> OfThisDesktop(frmMain& form, Views& views);
};

}  // namespace brenwick
