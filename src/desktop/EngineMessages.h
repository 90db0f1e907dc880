// What the program and the process of its speech engine say to each other over a socket.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brenwick {

enum class EngineWord : char {
  // From the engine's process when it has started: the samples a second, or why it cannot speak.
  Ready = 'R',
  Failed = 'F',
  // A question and its answer: the voices for a locale, each "identifier \t description \t f or m".
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
  // Waits for something to read until the time is up. Message: Receive will not wait for its
  // beginning.
  Arrival Wait(std::chrono::milliseconds time) const;
  // Waits for a whole message; nothing once there is no other end, or when it is silent for
  // kPatience in the middle of a message.
  std::optional<EngineMessage> Receive();

  // So long an engine that is at work may be silent.
  static constexpr std::chrono::milliseconds kPatience{2000};

 private:
  bool ReadAll(std::span<char> bytes) const;

  int descriptor_;
};

// Samples as the content of a message.
std::string_view AsContent(std::span<const std::int16_t> samples);

}  // namespace brenwick
