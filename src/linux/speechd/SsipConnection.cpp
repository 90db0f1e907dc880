#include "linux/speechd/SsipConnection.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>

namespace brenwick {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr const char* kNotThere = "Speech Dispatcher is not running";
constexpr const char* kNoAnswer = "Speech Dispatcher does not answer";
constexpr const char* kGone = "Speech Dispatcher ended the connection";
constexpr const char* kUnclear = "Speech Dispatcher says what makes no sense";

// Several times as many as a list of all voices has; a server that sends more has gone mad.
constexpr std::size_t kMostLines = 100'000;
constexpr std::size_t kMostEvents = 100'000;
constexpr std::size_t kLongestAnswer = 1 << 24;  // bytes

constexpr std::size_t kCodeDigits = 3;
constexpr int kFirstRefusal = 300;
constexpr int kFirstEvent = 700;

// The code at the front of a line; nothing where there is none, or nothing behind it.
std::optional<int> CodeOf(const std::string& line) {
  constexpr std::string_view kDigits = "0123456789";
  const std::size_t digits = std::min(line.find_first_not_of(kDigits), line.size());
  if (digits < kCodeDigits || line.size() == kCodeDigits) return std::nullopt;
  int code = 0;
  std::from_chars(line.data(), line.data() + kCodeDigits, code);
  return code;
}

milliseconds Left(steady_clock::time_point until) {
  const auto left = std::chrono::ceil<milliseconds>(until - steady_clock::now());
  return std::max(left, milliseconds(0));
}

bool ConnectLocally(int socket, const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, path.data(), path.size());
  return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool ConnectToPort(int socket, const std::string& host, std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1) return false;
  if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    return true;
  }
  pollfd connected{socket, POLLOUT, 0};
  return errno == EINPROGRESS &&
         ::poll(&connected, 1, static_cast<int>(SsipConnection::kPatience.count())) == 1 &&
         (connected.revents & (POLLERR | POLLHUP)) == 0;
}

}  // namespace

SsipConnection::SsipConnection(const SpeechdAddress& address, milliseconds patience)
    : patience_(patience),
      socket_(::socket(address.socket.empty() ? AF_INET : AF_UNIX,
                       SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
  const bool connected = address.socket.empty() ? ConnectToPort(socket_, address.host, address.port)
                                                : ConnectLocally(socket_, address.socket);
  if (connected) return;
  ::close(socket_);
  throw SsipTrouble(kNotThere);
}

SsipConnection::~SsipConnection() {
  constexpr std::string_view kTakeBack = "CANCEL SELF\r\n";
  ::send(socket_, kTakeBack.data(), kTakeBack.size(), MSG_NOSIGNAL);
  ::close(socket_);
}

std::vector<std::string> SsipConnection::Ask(std::string_view command, const StopToken* stop,
                                             milliseconds patience) {
  Send(std::string(command) + "\r\n");
  return ReceiveAnswer(stop, patience).lines;
}

std::string SsipConnection::Say(const std::string& text, const StopToken* stop) {
  Ask("SPEAK", stop);
  // A line that is nothing but a dot ends the text; at the front of one it is doubled.
  Send((text.starts_with('.') ? "." : "") + text + "\r\n.\r\n");
  const std::vector<std::string> lines = ReceiveAnswer(stop, patience_).lines;
  if (lines.empty()) throw SsipTrouble(kUnclear);
  return lines.front();
}

std::optional<SsipConnection::Event> SsipConnection::Await(const std::string& message,
                                                           milliseconds time,
                                                           const StopToken* stop) {
  const Moment until = steady_clock::now() + time;
  for (;;) {
    while (!events_.empty()) {
      const auto [number, event] = std::move(events_.front());
      events_.pop_front();
      if (number == message) return event;
    }
    const std::optional<Answer> answer = Receive(until, stop);
    if (!answer) return std::nullopt;
    if (!KeepAsEvent(*answer)) throw SsipTrouble(kUnclear);
  }
}

// What does not fit between here and the server is taken for a server that does not read.
void SsipConnection::Send(const std::string& bytes) {
  const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
  if (sent < 0 && errno != EAGAIN) throw SsipTrouble(kGone);
  if (sent != static_cast<ssize_t>(bytes.size())) throw SsipSilence(kNoAnswer);
}

SsipConnection::Answer SsipConnection::ReceiveAnswer(const StopToken* stop, milliseconds patience) {
  for (;;) {
    std::optional<Answer> answer = TakeAnswer();
    if (!answer) {
      // A long answer may take longer, as long as it goes on.
      if (Read(steady_clock::now() + patience, stop)) continue;
      if (stop && stop->StopRequested()) throw SsipStopped();
      throw SsipSilence(kNoAnswer);
    }
    if (KeepAsEvent(*answer)) continue;
    if (answer->code < kFirstRefusal) return std::move(*answer);
    throw SsipRefusal("Speech Dispatcher refuses: " + answer->last);
  }
}

bool SsipConnection::KeepAsEvent(const Answer& answer) {
  if (answer.code < kFirstEvent) return false;
  if (answer.lines.empty() || events_.size() == kMostEvents) throw SsipTrouble(kUnclear);
  events_.emplace_back(answer.lines.front(), static_cast<Event>(answer.code));
  return true;
}

// Nothing when the time is up or the stop is requested; what has come by then is kept.
std::optional<SsipConnection::Answer> SsipConnection::Receive(Moment until, const StopToken* stop) {
  for (;;) {
    if (std::optional<Answer> answer = TakeAnswer()) return answer;
    if (!Read(until, stop)) return std::nullopt;
  }
}

// The lines of an answer are "249-…" and the last "249 …".
std::optional<SsipConnection::Answer> SsipConnection::TakeAnswer() {
  std::size_t taken = 0;
  std::optional<Answer> answer;
  while (!answer) {
    const std::size_t end = received_.find('\n', taken);
    if (end == std::string::npos) break;
    std::string line = received_.substr(taken, end - taken);
    taken = end + 1;
    if (line.ends_with('\r')) line.pop_back();
    const std::optional<int> code = CodeOf(line);
    if (!code) throw SsipTrouble(kUnclear);
    const std::string content = line.substr(kCodeDigits + 1);
    if (unfinished_.lines.size() == kMostLines) throw SsipTrouble(kUnclear);
    if (line[kCodeDigits] == '-') {
      unfinished_.lines.push_back(content);
    } else {
      answer = Answer{*code, content, std::move(unfinished_.lines)};
      unfinished_ = {};
    }
  }
  received_.erase(0, taken);
  if (answer) unanswered_ = received_.size();
  return answer;
}

bool SsipConnection::Read(Moment until, const StopToken* stop) {
  std::array<pollfd, 2> waiting{
      pollfd{socket_, POLLIN, 0},
      pollfd{stop ? static_cast<int>(stop->SystemHandle()) : -1, POLLIN, 0}};
  const int ready = ::poll(waiting.data(), waiting.size(), static_cast<int>(Left(until).count()));
  if (ready <= 0 || waiting[1].revents != 0) return false;
  std::array<char, 65536> bytes;
  const ssize_t count = ::recv(socket_, bytes.data(), bytes.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return true;
  if (count <= 0) throw SsipTrouble(kGone);
  received_.append(bytes.data(), static_cast<std::size_t>(count));
  unanswered_ += static_cast<std::size_t>(count);
  if (unanswered_ > kLongestAnswer) throw SsipTrouble(kUnclear);
  return true;
}

}  // namespace brenwick
