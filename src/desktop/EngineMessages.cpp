#include "desktop/EngineMessages.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace brenwick {
namespace {

// A word and the length of the content, in the byte order of the machine that both run on.
constexpr std::size_t kHeader = 1 + sizeof(std::uint32_t);

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

EngineSocket::Arrival EngineSocket::Wait(std::chrono::milliseconds time) const {
  pollfd watched = {descriptor_, POLLIN, 0};
  if (poll(&watched, 1, static_cast<int>(time.count())) <= 0) return Arrival::Nothing;
  char byte = 0;
  const ssize_t peeked = recv(descriptor_, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
  return peeked > 0 ? Arrival::Message : Arrival::Closed;
}

std::optional<EngineMessage> EngineSocket::Receive() {
  std::array<char, kHeader> header{};
  if (!ReadAll(header)) return std::nullopt;
  std::uint32_t length = 0;
  std::memcpy(&length, header.data() + 1, sizeof(length));
  EngineMessage message{static_cast<EngineWord>(header[0]), std::string(length, '\0')};
  if (!ReadAll(message.content)) return std::nullopt;
  return message;
}

bool EngineSocket::ReadAll(std::span<char> bytes) const {
  while (!bytes.empty()) {
    const ssize_t taken = recv(descriptor_, bytes.data(), bytes.size(), MSG_DONTWAIT);
    if (taken > 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(taken));
    } else if (taken == 0 || (errno != EAGAIN && errno != EINTR)) {
      return false;
    } else if (Wait(kPatience) != Arrival::Message) {
      return false;
    }
  }
  return true;
}

std::string_view AsContent(std::span<const std::int16_t> samples) {
  const auto bytes = std::as_bytes(samples);
  return {static_cast<const char*>(static_cast<const void*>(bytes.data())), bytes.size()};
}

}  // namespace brenwick
