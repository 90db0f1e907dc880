// Where the keys of the hotkey controls come from.
#pragma once

#include <QString>
#include <memory>

#include "forms/frmMain.h"
#include "qt/views/Views.h"

namespace brenwick {

// Gives each enabled hotkey control its key, whichever program has the focus, and tells the control
// what it met.
class HotKeySource {
 public:
  enum class Kind { X11, Portal, None };

  HotKeySource() = default;
  HotKeySource(const HotKeySource&) = delete;
  HotKeySource& operator=(const HotKeySource&) = delete;
  virtual ~HotKeySource() = default;

  // Keys are asked for, and reach the program, from here on.
  virtual void Arm() = 0;

  // Which kind fits: Qt's name of the platform, and WAYLAND_DISPLAY of the environment. Under
  // Wayland a window may stand on X11, but the keys of the desktop are not there.
  static Kind Fitting(const QString& platform, const QString& waylandDisplay);
  // The one that fits the desktop on which the program runs.
  static std::unique_ptr<HotKeySource> OfThisDesktop(frmMain& form, Views& views);
};

}  // namespace brenwick
