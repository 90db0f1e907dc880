// The parts of the screen that the program uses beyond its own windows.
#pragma once

#include <string>

#include "base/Font.h"

namespace brenwick {

enum class BoxIcon { Critical, Question, Exclamation, Information };
enum class BoxButtons { Ok, YesNo };
enum class BoxAnswer { Ok, Yes, No };

enum class Pointer { Default = 0, Hourglass = 11 };

// The program calls each operation on its own thread. None of them fails: without a display each
// does nothing, and a question is answered with its safe answer. Only MessageBox lets events run.
class Screen {
 public:
  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  // Shows a modal message box and returns when the user has answered it, however long that takes;
  // events are handled meanwhile. Closing a YesNo box counts as No. Throws ProgramEnd where a
  // handler ends the program meanwhile.
  virtual BoxAnswer MessageBox(const std::string& text, const std::string& title, BoxIcon icon,
                               BoxButtons buttons) = 0;
  virtual void Beep() = 0;
  virtual void SetPointer(Pointer pointer) = 0;
  // Sends a key, written like "{BACKSPACE}", to the control that has the focus. It arrives after
  // the handler that sent it has returned.
  virtual void SendKeys(const std::string& keys) = 0;
  // Opens an address with the user's own program for it; whether that worked is not told.
  virtual void Open(const std::string& address) = 0;

  // The width of a text in a font, in twips.
  virtual float TextWidth(const std::string& text, const Font& font) = 0;
  virtual float TwipsPerPixelX() = 0;
};

}  // namespace brenwick
