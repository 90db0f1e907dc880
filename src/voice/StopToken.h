// What tells a thread that works or waits to stop.
#pragma once

#include <atomic>
#include <chrono>

namespace brenwick {

// Any thread may raise and lower it; who works looks at it, or waits at it.
class StopToken {
 public:
  StopToken();
  ~StopToken();
  StopToken(const StopToken&) = delete;
  StopToken& operator=(const StopToken&) = delete;

  void Raise();
  void Lower();
  bool Raised() const { return raised_; }

  // Waits until it is raised, or for that long; whether it is raised.
  bool Await(std::chrono::milliseconds time) const;

  // Can be read from while the sign is raised, for whoever waits for something else as well.
  int Descriptor() const { return descriptor_; }

 private:
  std::atomic<bool> raised_ = false;
  int descriptor_;
};

}  // namespace brenwick
