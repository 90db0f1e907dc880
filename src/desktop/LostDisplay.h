// Saves the settings when the display server goes away.
#pragma once

#include <functional>

namespace brenwick {

// Qt ends the process on the spot when the display server is gone, wherever the program is at that
// moment. While an object lives, `save` is called then, and the process ends right after it. It is
// not called when the process ends normally. There is one object at a time.
class LostDisplay {
 public:
  explicit LostDisplay(std::function<void()> save);
  LostDisplay(const LostDisplay&) = delete;
  LostDisplay& operator=(const LostDisplay&) = delete;
  ~LostDisplay();
};

}  // namespace brenwick
