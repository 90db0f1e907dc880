// The screen beyond the program's own windows, by Qt.
#pragma once

#include <string>
#include <unordered_map>

#include "platform/Screen.h"
#include "qt/EndOfProgram.h"

namespace brenwick {

class QtScreen : public Screen {
 public:
  explicit QtScreen(const EndOfProgram& end) : end_(end) {}

  BoxAnswer MessageBox(const std::string& text, const std::string& title, BoxIcon icon,
                       BoxButtons buttons) override;
  void Beep() override;
  void SetPointer(Pointer pointer) override;
  void SendKeys(const std::string& keys) override;
  void Open(const std::string& address) override;
  float TextWidth(const std::string& text, const Font& font) override;
  float TwipsPerPixelX() override;

 private:
  const EndOfProgram& end_;
  Pointer pointer_ = Pointer::Default;
  std::unordered_map<std::string, float> widths_;  // of texts, in twips
};

}  // namespace brenwick
