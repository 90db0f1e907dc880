// Tells when something has come at a descriptor; the world's event loop stands behind it.
#pragma once

#include <functional>

namespace brenwick {

class DescriptorWatch {
 public:
  DescriptorWatch() = default;
  DescriptorWatch(const DescriptorWatch&) = delete;
  DescriptorWatch& operator=(const DescriptorWatch&) = delete;
  virtual ~DescriptorWatch() = default;

  // From now on the handler is called on the program's thread while the descriptor is readable, and
  // once in any case, but not before this returns.
  virtual void Start(int descriptor, std::function<void()> readable) = 0;
  // Calls the handler once more, behind what waits for the program meanwhile.
  virtual void Again() = 0;
  // The handler is not called again. It may be running.
  virtual void Stop() = 0;
};

}  // namespace brenwick
