#include "linux/BusConnecting.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <exception>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

namespace brenwick {

// A descriptor that becomes readable. Both threads own it.
class BusConnecting::Event {
 public:
  Event() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() { close(descriptor_); }

  int Descriptor() const { return descriptor_; }
  void Raise() const { eventfd_write(descriptor_, 1); }

 private:
  int descriptor_;
};

BusConnecting::BusConnecting(Connect connect) : done_(std::make_shared<Event>()) {
  const auto promise = std::make_shared<std::promise<std::unique_ptr<BusConnection>>>();
  result_ = promise->get_future();
  const auto fail = [promise, done = done_] {
    promise->set_exception(std::current_exception());
    done->Raise();
  };
  try {
    std::thread([promise, done = done_, fail, connect = std::move(connect)] {
      try {
        promise->set_value(connect());
        done->Raise();
      } catch (const std::exception&) {
        fail();
      }
    }).detach();
  } catch (const std::system_error&) {
    fail();
  }
}

int BusConnecting::Descriptor() const { return done_->Descriptor(); }

bool BusConnecting::Await(std::chrono::milliseconds limit) const {
  return result_.wait_for(limit) == std::future_status::ready;
}

std::unique_ptr<BusConnection> ConnectInTime(const std::string& address) {
  BusConnecting connecting([address] { return std::make_unique<BusConnection>(address); });
  if (!connecting.Await(BusConnection::kPatience)) throw SilentBus();
  return connecting.Take();
}

bool IsSilent(const std::string& address) {
  try {
    ConnectInTime(address);
    return false;
  } catch (const SilentBus&) {
    return true;
  } catch (const std::runtime_error&) {
    return false;
  }
}

}  // namespace brenwick
