// One request for the number of the newest version, over the window's socket.
#pragma once

#include <cstddef>
#include <string>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Progress.h"

namespace brenwick {

class WebAccess {
 public:
  // Takes over the events of wscHttp.
  WebAccess(Logs& log, frmMain& form, const TextTable& texts, Progress& progress);

  // Asks the server, "HOST" or "HOST:PORT", for /download/version.txt and returns at once. The
  // answer's body appears in txtWebVersion when the server has closed the connection; after a
  // failure text 73 appears there. Whatever the server sends is only ever text.
  void WebGetVersionInfo(const std::string& server);

  // To be called at each step of waiting for the answer: one that has begun to arrive and does not
  // come to its end in kMostSteps steps is given up as a failure.
  void CountStep();

  // Shows the name of the socket's state in txtWinSockStatus.
  void ShowSocketState();

  static constexpr std::size_t kLongestAnswer = 65536;  // bytes; a longer one is a failure
  static constexpr int kMostSteps = 1000;

 private:
  void wscHttp_Connect();
  void wscHttp_DataArrival();
  void wscHttp_Close();
  void wscHttp_Error();
  void GiveUp();

  Logs& log_;
  frmMain& form_;
  const TextTable& texts_;
  Progress& progress_;
  std::string host_;
  std::string path_;
  std::string response_;
  bool done_ = false;
  int steps_arriving_ = 0;
};

}  // namespace brenwick
