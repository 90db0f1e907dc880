// Tells when something has come at a descriptor, or when it is time to look for another one; the
// world's event loop stands behind it.
#pragma once

#include <chrono>
#include <functional>

namespace brenwick {

class ReadinessWatch {
 public:
  ReadinessWatch() = default;
  ReadinessWatch(const ReadinessWatch&) = delete;
  ReadinessWatch& operator=(const ReadinessWatch&) = delete;
  virtual ~ReadinessWatch() = default;

  // From now on the handler is called on the program's thread while the descriptor is readable, and
  // once in any case, but not before this returns.
  virtual void Start(int descriptor, std::function<void()> readable) = 0;
  // Calls the handler once more, behind what waits for the program meanwhile.
  virtual void Again() = 0;
  // Watches nothing any more, and calls this handler once when the time is over.
  virtual void Later(std::chrono::milliseconds time, std::function<void()> over) = 0;
  // No handler is called again. One may be running.
  virtual void Stop() = 0;
};

}  // namespace brenwick
