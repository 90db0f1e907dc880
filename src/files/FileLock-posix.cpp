#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>

#include "files/FileLock.h"

namespace brenwick {
namespace {

int Flock(int descriptor, int operation) {
  int result = ::flock(descriptor, operation);
  while (result != 0 && errno == EINTR) result = ::flock(descriptor, operation);
  return result;
}

// A wait for the lock that may be given up. The system has none: its own wait, which is fair, is
// made on another thread, and a lock that comes too late is let go there.
class Turn {
 public:
  // The descriptor shares its lock with the one that it was duplicated from.
  void Take(int descriptor) {
    const bool locked = Flock(descriptor, LOCK_EX) == 0;
    const std::lock_guard lock(mutex_);
    come_ = locked;
    if (locked && given_up_) Flock(descriptor, LOCK_UN);
    ::close(descriptor);
    changed_.notify_all();
  }

  // Whether the lock comes in that time.
  bool Await(std::chrono::milliseconds patience) {
    std::unique_lock lock(mutex_);
    if (changed_.wait_for(lock, patience, [this] { return come_; })) return true;
    given_up_ = true;
    return false;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool come_ = false;
  bool given_up_ = false;
};

bool AwaitTurn(int descriptor, std::chrono::milliseconds patience) {
  const int shared = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (shared < 0) return false;
  const auto turn = std::make_shared<Turn>();
  try {
    std::thread([turn, shared] { turn->Take(shared); }).detach();
  } catch (const std::system_error&) {
    ::close(shared);
    return false;
  }
  return turn->Await(patience);
}

}  // namespace

FileLock::FileLock(FileCalls& calls, const std::string& path, std::chrono::milliseconds patience)
    : file_(calls, path, OpenMode::Lock), state_(Lock(patience)) {}

FileLock::State FileLock::Lock(std::chrono::milliseconds patience) {
  if (!file_.IsOpen()) return State::Failed;
  if (Flock(file_.Descriptor(), LOCK_EX | LOCK_NB) == 0) return State::Held;
  if (errno != EWOULDBLOCK) return State::Failed;
  if (patience.count() == 0) return State::Busy;
  return AwaitTurn(file_.Descriptor(), patience) ? State::Held : State::Busy;
}

}  // namespace brenwick
