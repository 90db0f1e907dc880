// One request for the number of the newest version, over a socket.
#pragma once

#include <cstddef>
#include <string>

#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Progress.h"
#include "web/VersionDisplay.h"

namespace brenwick {

class WebAccess {
 public:
  // The connection to the server. Nothing here waits: what comes of a call is told by calling the
  // wscHttp_ functions below, on the program's thread.
  class Socket {
   public:
    Socket() = default;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    virtual ~Socket() = default;
    virtual void Connect(const std::string& host, int port) = 0;
    virtual void SendData(const std::string& data) = 0;
    // The data that has arrived and was not yet taken.
    virtual std::string GetData() = 0;
    // Ends the connection, or the attempt at one; nothing is told of it from then on.
    virtual void Close() = 0;
    // Whether the connection failed and was not closed since.
    virtual bool Failed() const = 0;
  };

  WebAccess(Logs& log, const TextTable& texts, Progress& progress, Socket& socket,
            VersionDisplay& display)
      : log_(log), texts_(texts), progress_(progress), socket_(socket), display_(display) {}

  // Asks the server, "HOST" or "HOST:PORT", for /download/version.txt and returns at once. When the
  // server has closed the connection, Answer is the body of what it sent; after a failure it is
  // text 73. Whatever the server sends is only ever text.
  void WebGetVersionInfo(const std::string& server);

  // To be called at each step of waiting for the answer: one that has begun to arrive and does not
  // come to its end in kMostSteps steps is given up as a failure.
  void CountStep();

  // Empty until there is an answer. It is shown wherever it changes.
  const std::string& Answer() const { return answer_; }
  void SetAnswer(const std::string& text);

  // Whether the socket failed.
  bool Failed() const { return socket_.Failed(); }
  void Close() { socket_.Close(); }

  // The events of the socket.
  void wscHttp_Connect();
  void wscHttp_DataArrival();
  void wscHttp_Close();
  void wscHttp_Error();

  static constexpr std::size_t kLongestAnswer = 65536;  // bytes; a longer one is a failure
  static constexpr int kMostSteps = 1000;

 private:
  void GiveUp();

  Logs& log_;
  const TextTable& texts_;
  Progress& progress_;
  Socket& socket_;
  VersionDisplay& display_;
  std::string host_;
  std::string path_;
  std::string response_;
  std::string answer_;
  bool done_ = false;
  int steps_arriving_ = 0;
};

}  // namespace brenwick
