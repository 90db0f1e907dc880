// Keeps other programs from changing a file, by a lock on another file beside it.
#pragma once

#include <chrono>
#include <string>

#include "files/FileCalls.h"

namespace brenwick {

// The lock lasts as long as the object, and no longer than the process.
class FileLock {
 public:
  // Makes the file of the lock where it is missing, and waits at most that long for whoever else
  // has the lock; those who wait get it in turn.
  FileLock(FileCalls& calls, const std::string& path, std::chrono::milliseconds patience);

  bool IsHeld() const { return state_ == State::Held; }
  // True where another program still has the lock, false where locking failed.
  bool IsBusy() const { return state_ == State::Busy; }

 private:
  enum class State { Held, Busy, Failed };

  State Lock(std::chrono::milliseconds patience);

  OpenFile file_;
  State state_;
};

}  // namespace brenwick
