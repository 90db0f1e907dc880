// A server in the place of speech-dispatcher that says the same to whoever connects, whatever it is
// asked, and then nothing more.
#pragma once

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/Fuzz.h"
#include "fuzz/TemporaryFolder.h"
#include "linux/speechd/SpeechdAddress.h"

namespace brenwick {

class SsipServer {
 public:
  SsipServer() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = Path();
    Expect(path.size() < sizeof address.sun_path, "the path of a socket is short");
    path.copy(address.sun_path, path.size());
    const auto* const place = reinterpret_cast<const sockaddr*>(&address);
    Expect(::bind(listening_, place, sizeof address) == 0 && ::listen(listening_, 4) == 0,
           "there is a socket to listen at");
  }
  SsipServer(const SsipServer&) = delete;
  SsipServer& operator=(const SsipServer&) = delete;
  ~SsipServer() { ::close(listening_); }

  SpeechdAddress Address() const { return {Path(), "", 0, true}; }

  // Waits for the next client and says everything to it.
  void Answer(std::string_view bytes) {
    connected_ = ::accept(listening_, nullptr, nullptr);
    const ssize_t sent = ::send(connected_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    Expect(sent == static_cast<ssize_t>(bytes.size()), "a socket holds a whole input");
    ::shutdown(connected_, SHUT_WR);
  }

  // All that the client has said, which is gone by now.
  std::string Heard() {
    std::string heard;
    std::array<char, 4096> bytes;
    for (ssize_t count; (count = ::recv(connected_, bytes.data(), bytes.size(), 0)) > 0;) {
      heard.append(bytes.data(), static_cast<std::size_t>(count));
    }
    ::close(connected_);
    return heard;
  }

 private:
  std::string Path() const { return folder_.Path() + "/socket"; }

  const TemporaryFolder folder_;
  int listening_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  int connected_ = -1;
};

}  // namespace brenwick
