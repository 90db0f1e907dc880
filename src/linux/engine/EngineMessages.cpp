#include "linux/engine/EngineMessages.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace brenwick {
namespace {

// A word and the length of the content, in the byte order of the machine that both run on.
constexpr std::size_t kHeader = 1 + sizeof(std::uint32_t);

// No message is nearly as long; what looks like one is no message.
constexpr std::size_t kLongest = 1 << 24;

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

}  // namespace

EngineSocket::~EngineSocket() { close(descriptor_); }

bool EngineSocket::Send(EngineWord word, std::string_view content) {
  const auto length = static_cast<std::uint32_t>(content.size());
  std::string header(kHeader, static_cast<char>(word));
  std::memcpy(header.data() + 1, &length, sizeof(length));
  return WriteAll(descriptor_, header) && WriteAll(descriptor_, content);
}

EngineSocket::Arrival EngineSocket::Wait(std::chrono::milliseconds time) {
  using std::chrono::milliseconds, std::chrono::steady_clock;
  const auto end = steady_clock::now() + time;
  while (arrived_.size() < Length()) {
    const auto left = std::chrono::ceil<milliseconds>(end - steady_clock::now());
    pollfd watched = {descriptor_, POLLIN, 0};
    const int ready = poll(&watched, 1, static_cast<int>(std::max(left, milliseconds{}).count()));
    if (ready == 0) return Arrival::Nothing;
    if (ready > 0 ? !Read() : errno != EINTR) return Arrival::Closed;
  }
  return Arrival::Message;
}

EngineMessage EngineSocket::Take() {
  const std::size_t length = Length();
  EngineMessage message{static_cast<EngineWord>(arrived_[0]),
                        arrived_.substr(kHeader, length - kHeader)};
  arrived_.erase(0, length);
  return message;
}

// False when nothing more will come.
bool EngineSocket::Read() {
  std::array<char, 1 << 16> bytes;  // NOLINT(*-member-init): it is filled at once
  const ssize_t taken = recv(descriptor_, bytes.data(), bytes.size(), MSG_DONTWAIT);
  if (taken < 0) return errno == EAGAIN || errno == EINTR;
  arrived_.append(bytes.data(), static_cast<std::size_t>(taken));
  return taken > 0 && Length() <= kLongest;
}

// Of the first message, with its header; of the header alone while that is not whole.
std::size_t EngineSocket::Length() const {
  if (arrived_.size() < kHeader) return kHeader;
  std::uint32_t content = 0;
  std::memcpy(&content, arrived_.data() + 1, sizeof(content));
  return kHeader + content;
}

}  // namespace brenwick
