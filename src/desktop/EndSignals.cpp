#include "desktop/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace brenwick {
namespace {

constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal may come in the middle of anything; its handler may only write to this pipe.
std::array<int, 2> pipe_ends = {-1, -1};

extern "C" void WriteSignal(int /*signal*/) {
  const int kept = errno;
  // A full pipe already tells of a signal.
  [[maybe_unused]] const auto written = write(pipe_ends[1], "!", 1);
  errno = kept;
}

void Handle(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals() {
  if (pipe2(pipe_ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  notifier_ = std::make_unique<QSocketNotifier>(pipe_ends[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
    std::array<char, 16> bytes{};
    [[maybe_unused]] const auto taken = read(pipe_ends[0], bytes.data(), bytes.size());
    if (Asked) Asked();
  });
  Handle(WriteSignal);
}

EndSignals::~EndSignals() {
  Handle(SIG_DFL);
  notifier_.reset();
  for (const int end : pipe_ends) close(end);
}

}  // namespace brenwick
