// A web server in a process of its own, for one request.
#pragma once

#include <string>

#include "support/Server.h"

namespace brenwick {

class WebServer {
 public:
  // The manners stand in web_server.py.
  explicit WebServer(const char* prosody)
      : server_("/usr/bin/python3", {BRENWICK_SOURCE_DIR "/tests/unit/qt/web_server.py", prosody}),
        port_(server_.Line()) {}
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;
  // It ends with its input, and clears up.
  ~WebServer() { server_.EndItsInput(); }

  std::string Host() const { return "127.0.0.1:" + port_; }
  std::string Line() { return server_.Line(); }

 private:
  Server server_;
  std::string port_;
};

}  // namespace brenwick
