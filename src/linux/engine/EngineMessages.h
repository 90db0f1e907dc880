// What the program and the process of its speech engine say to each other over a socket.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace brenwick {

enum class EngineWord : char {
  // From the engine's process when it has started: the samples a second, or why it cannot speak.
  Ready = 'R',
  Failed = 'F',
  // A question and its answer: the voices for a locale, each
  // "identifier \t language \t description \t f or m".
  Voices = 'V',
  // "voice \n rate \n volume" for the texts to come; no answer.
  Use = 'U',
  // A text to speak. The answer is samples, block by block, and an end.
  Say = 'S',
  Samples = 'P',
  End = 'E',
  // Cuts the text that is being spoken short; its end still comes.
  Cancel = 'C',
};

struct EngineMessage {
  EngineWord word;
  std::string content;
};

// One end of the socket, which it closes.
class EngineSocket {
 public:
  explicit EngineSocket(int descriptor) : descriptor_(descriptor) {}
  EngineSocket(const EngineSocket&) = delete;
  EngineSocket& operator=(const EngineSocket&) = delete;
  ~EngineSocket();

  // Waits while the other end takes nothing. False: there is no other end any more.
  bool Send(EngineWord word, std::string_view content = {});

  enum class Arrival { Message, Nothing, Closed };
  // Waits for a whole message until the time is up. Message: Take() has it. Closed: there is no
  // other end any more, or it does not speak this language.
  Arrival Wait(std::chrono::milliseconds time);
  // The message that has arrived.
  EngineMessage Take();

 private:
  bool Read();
  std::size_t Length() const;

  int descriptor_;
  std::string arrived_;  // what has been read and not taken yet
};

}  // namespace brenwick
