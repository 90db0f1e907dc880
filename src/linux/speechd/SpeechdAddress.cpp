#include "linux/speechd/SpeechdAddress.h"

#include <unistd.h>

#include <charconv>
#include <cstdlib>
#include <filesystem>

namespace brenwick {
namespace {

constexpr std::uint16_t kUsualPort = 6560;
constexpr const char* kThisMachine = "127.0.0.1";
constexpr std::string_view kSocketInRuntimeFolder = "/speech-dispatcher/speechd.sock";

// Takes what stands before the next colon from the front of the text.
std::string TakePart(std::string_view& text) {
  const std::size_t colon = text.find(':');
  std::string part(text.substr(0, colon));
  text.remove_prefix(colon == std::string_view::npos ? text.size() : colon + 1);
  return part;
}

std::uint16_t Port(std::string_view digits) {
  std::uint16_t port = kUsualPort;
  std::from_chars(digits.data(), digits.data() + digits.size(), port);
  return port;
}

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string RuntimeFolder() {
  const std::string folder = Variable("XDG_RUNTIME_DIR");
  return folder.empty() ? "/run/user/" + std::to_string(::getuid()) : folder;
}

bool OnPath(const std::string& program) {
  const std::string path = Variable("PATH");
  for (std::string_view rest = path; !rest.empty();) {
    if (::access((TakePart(rest) + "/" + program).c_str(), X_OK) == 0) return true;
  }
  return false;
}

}  // namespace

SpeechdAddress SpeechdAddressIn(std::string_view speechd_address, std::string_view runtime_folder) {
  SpeechdAddress address{std::string(runtime_folder) + std::string(kSocketInRuntimeFolder), "", 0,
                         !speechd_address.empty()};
  const std::string method = TakePart(speechd_address);
  if (method == "inet_socket") {
    const std::string host = TakePart(speechd_address);
    address.socket.clear();
    address.host = host.empty() || host == "localhost" ? kThisMachine : host;
    address.port = Port(speechd_address);
  } else if (!speechd_address.empty()) {
    address.socket = speechd_address;
  }
  return address;
}

SpeechdAddress SpeechdAddressOfSession() {
  return SpeechdAddressIn(Variable("SPEECHD_ADDRESS"), RuntimeFolder());
}

bool SpeechdMayBeThere(const SpeechdAddress& address) {
  std::error_code none;
  return address.given || std::filesystem::exists(address.socket, none) ||
         OnPath("speech-dispatcher");
}

}  // namespace brenwick
