// What is saved when the display goes away under the program.
#pragma once

#include <functional>

namespace brenwick {

// Qt ends the process on the spot when the display server is gone, wherever the program is at that
// moment, and returns to nobody. While this lives, `save` is called on the way out, and the process
// ends after it without another step. An ordinary end of the process passes by it. There is one at
// a time.
class LostDisplay {
 public:
  explicit LostDisplay(std::function<void()> save);
  LostDisplay(const LostDisplay&) = delete;
  LostDisplay& operator=(const LostDisplay&) = delete;
  ~LostDisplay();
};

}  // namespace brenwick
