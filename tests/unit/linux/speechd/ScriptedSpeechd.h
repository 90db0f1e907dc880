// Servers in the place of speech-dispatcher that say what the test has them say.
#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "linux/speechd/SpeechdAddress.h"
#include "support/TemporaryFolder.h"
#include "voice/StopToken.h"

namespace brenwick {

class ListeningSocket {
 public:
  ListeningSocket() {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder_.Inside("socket");
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    EXPECT_EQ(::bind(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(::listen(descriptor_, 4), 0);
  }
  ~ListeningSocket() { ::close(descriptor_); }
  ListeningSocket(const ListeningSocket&) = delete;
  ListeningSocket& operator=(const ListeningSocket&) = delete;

  SpeechdAddress Address() const { return {folder_.Inside("socket"), "", 0, true}; }
  int Descriptor() const { return descriptor_; }
  int Accept() const { return ::accept(descriptor_, nullptr, nullptr); }

 private:
  TemporaryFolder folder_;
  int descriptor_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

// Answers each line of each of its clients, on a thread of its own.
class ScriptedSpeechd {
 public:
  // Nothing hangs up.
  using Answers = std::function<std::optional<std::string>(const std::string& line)>;

  explicit ScriptedSpeechd(Answers answers)
      : answers_(std::move(answers)), thread_([this] { Serve(); }) {}
  ~ScriptedSpeechd() {
    stop_.RequestStop();
    thread_.join();
  }

  SpeechdAddress Address() const { return socket_.Address(); }

 private:
  void Serve() {
    while (!stop_.StopRequested()) {
      std::vector<pollfd> waiting = {{static_cast<int>(stop_.SystemHandle()), POLLIN, 0},
                                     {socket_.Descriptor(), POLLIN, 0}};
      for (const auto& client : clients_) waiting.push_back({client.first, POLLIN, 0});
      ::poll(waiting.data(), waiting.size(), -1);
      for (std::size_t i = 2; i < waiting.size(); ++i) {
        if (waiting[i].revents != 0 && !Hear(waiting[i].fd)) HangUp(waiting[i].fd);
      }
      if (waiting[1].revents != 0) clients_[socket_.Accept()].clear();
    }
    while (!clients_.empty()) HangUp(clients_.begin()->first);
  }

  void HangUp(int client) {
    ::close(client);
    clients_.erase(client);
  }

  bool Hear(int client) {
    std::array<char, 4096> bytes;
    const ssize_t count = ::recv(client, bytes.data(), bytes.size(), 0);
    if (count <= 0) return false;
    std::string& received = clients_[client].append(bytes.data(), static_cast<std::size_t>(count));
    for (std::size_t end; (end = received.find("\r\n")) != std::string::npos;) {
      const std::optional<std::string> answer = answers_(received.substr(0, end));
      if (!answer) return false;
      ::send(client, answer->data(), answer->size(), MSG_NOSIGNAL);
      received.erase(0, end + 2);
    }
    return true;
  }

  const Answers answers_;
  const ListeningSocket socket_;
  std::map<int, std::string> clients_;  // what each has sent and is not answered yet
  StopToken stop_;
  std::thread thread_;
};

}  // namespace brenwick
