#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>

#include "voice/StopToken.h"

namespace brenwick {
namespace {

int NewDescriptor() {
  const int descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  return descriptor;
}

}  // namespace

StopToken::StopToken() : handle_(NewDescriptor()) {}

StopToken::~StopToken() { ::close(static_cast<int>(handle_)); }

void StopToken::RequestStop() {
  requested_ = true;
  ::eventfd_write(static_cast<int>(handle_), 1);
}

void StopToken::Reset() {
  eventfd_t times = 0;
  ::eventfd_read(static_cast<int>(handle_), &times);
  requested_ = false;
}

bool StopToken::Await(std::chrono::milliseconds time) const {
  constexpr std::chrono::milliseconds kLongest{std::numeric_limits<int>::max()};
  pollfd waiting{static_cast<int>(handle_), POLLIN, 0};
  ::poll(&waiting, 1, static_cast<int>(std::min(time, kLongest).count()));
  return requested_;
}

}  // namespace brenwick
