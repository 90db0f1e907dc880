#include "voice/StopToken.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace brenwick {

StopToken::StopToken() : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

StopToken::~StopToken() { ::close(descriptor_); }

void StopToken::Raise() {
  raised_ = true;
  ::eventfd_write(descriptor_, 1);
}

void StopToken::Lower() {
  eventfd_t times = 0;
  ::eventfd_read(descriptor_, &times);
  raised_ = false;
}

bool StopToken::Await(std::chrono::milliseconds time) const {
  pollfd waiting{descriptor_, POLLIN, 0};
  ::poll(&waiting, 1, static_cast<int>(time.count()));
  return raised_;
}

}  // namespace brenwick
