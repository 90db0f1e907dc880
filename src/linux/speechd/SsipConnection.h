// A conversation with speech-dispatcher in its own protocol, SSIP: lines of text over a socket.
//
// Its client library waits without an end for the answer of a server that hangs, and no purge gets
// through to it. Here every wait has an end and looks at the stop.
#pragma once

#include <chrono>
#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "linux/speechd/SpeechdAddress.h"
#include "voice/StopToken.h"

namespace brenwick {

// Nothing more can be done over a connection; what() says why, in English.
class SsipTrouble : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The server hangs, and would over another connection as well.
class SsipSilence : public SsipTrouble {
 public:
  using SsipTrouble::SsipTrouble;
};

// The server does not do what it was asked; the connection is as good as before.
class SsipRefusal : public SsipTrouble {
 public:
  using SsipTrouble::SsipTrouble;
};

// The stop was requested while the server was to answer. The connection is of no more use.
struct SsipStopped {};

class SsipConnection {
 public:
  // How long a server may take to answer a command.
  static constexpr std::chrono::milliseconds kPatience{2000};

  enum class Event : int { Begin = 701, End = 702, Canceled = 703, Paused = 704, Resumed = 705 };

  // Raises SsipTrouble where no server takes the connection.
  explicit SsipConnection(const SpeechdAddress& address,
                          std::chrono::milliseconds patience = kPatience);
  // Takes back what was handed over and has not been said: a server goes on without its client.
  ~SsipConnection();
  SsipConnection(const SsipConnection&) = delete;
  SsipConnection& operator=(const SsipConnection&) = delete;

  // The lines of the server's answer, without their numbers and without the last, which only says
  // how it went. Raises SsipRefusal where it refuses the command, SsipTrouble where it does not
  // answer or is gone, and SsipStopped. Without a stop it waits through everything.
  std::vector<std::string> Ask(std::string_view command, const StopToken* stop) {
    return Ask(command, stop, patience_);
  }
  std::vector<std::string> Ask(std::string_view command, const StopToken* stop,
                               std::chrono::milliseconds patience);

  // Hands over a text and returns the number of its message. The text is valid UTF-8 (any other
  // ends the connection), one line and not empty.
  std::string Say(const std::string& text, const StopToken* stop);

  // What next happens to that message; nothing when the time is up or the stop is requested first.
  std::optional<Event> Await(const std::string& message, std::chrono::milliseconds time,
                             const StopToken* stop);

 private:
  using Moment = std::chrono::steady_clock::time_point;

  // What the server says at a time: an answer, or what happened to a message.
  struct Answer {
    int code = 0;
    std::string last;
    std::vector<std::string> lines;
  };

  void Send(const std::string& bytes);
  Answer ReceiveAnswer(const StopToken* stop, std::chrono::milliseconds patience);
  std::optional<Answer> Receive(Moment until, const StopToken* stop);
  std::optional<Answer> TakeAnswer();
  bool Read(Moment until, const StopToken* stop);
  bool KeepAsEvent(const Answer& answer);

  const std::chrono::milliseconds patience_;
  int socket_;
  std::string received_;
  std::size_t unanswered_ = 0;  // bytes that have come since the last whole answer
  Answer unfinished_;
  std::deque<std::pair<std::string, Event>> events_;
};

}  // namespace brenwick
