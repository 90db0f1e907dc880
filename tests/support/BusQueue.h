// The queue of those who wait for a bus to let them in.
#pragma once

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

namespace brenwick {

// Fills the queue of a bus that hangs, so that whoever connects next waits until the bus goes on.
// The bus has a path among the files.
class BusQueue {
 public:
  explicit BusQueue(const std::string& address) {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    const std::string prefix = "unix:path=";
    EXPECT_EQ(address.rfind(prefix, 0), 0U) << address;
    const std::string path = address.substr(prefix.size(), address.find(',') - prefix.size());
    path.copy(place.sun_path, sizeof place.sun_path - 1);
    bool room = true;
    while (room) {
      waiting_.push_back(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
      const auto* where = reinterpret_cast<const sockaddr*>(&place);
      room = ::connect(waiting_.back(), where, sizeof place) == 0;
    }
    EXPECT_EQ(errno, EAGAIN);
  }
  BusQueue(const BusQueue&) = delete;
  BusQueue& operator=(const BusQueue&) = delete;
  ~BusQueue() {
    for (const int descriptor : waiting_) ::close(descriptor);
  }

 private:
  std::vector<int> waiting_;
};

}  // namespace brenwick
