// What the user sees of a long operation: the busy pointer and the status window.
#pragma once

#include <string>

namespace brenwick {

// Called on the program's thread.
class Progress {
 public:
  Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  virtual ~Progress() = default;

  // One busy section more, or one less; the pointer stays busy until the outermost has ended.
  // Raises kOverflow past the 16-bit range.
  virtual void SetHourglass(bool on) = 0;

  // true: shows the status window with that text, in front of everything, and lets it paint, which
  // handles pending events. false: takes it away; the text does not matter, and no event is
  // handled. Throws ProgramEnd where a handler ends the program; raises kOverflow as SetHourglass
  // does.
  virtual void StatusForm(bool show, const std::string& text = "") = 0;
  // Only the status window's text, whether the window shows or not.
  virtual void SetText(const std::string& text) = 0;
};

}  // namespace brenwick
