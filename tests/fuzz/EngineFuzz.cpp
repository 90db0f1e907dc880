// What the program and the process of its speech engine say to each other, any bytes in either
// direction: the one may be in the hands of a hostile text.
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <optional>

#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "linux/engine/EngineContents.h"
#include "linux/engine/EngineMessages.h"

namespace brenwick {
namespace {

using Arrival = EngineSocket::Arrival;

constexpr std::size_t kHeader = 5;
constexpr std::size_t kLongest = 1 << 24;

// Both ends of a socket. Of one the bytes are written as they are.
class Ends {
 public:
  Ends() {
    Expect(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_.data()) == 0,
           "there is a pair of sockets");
  }

  int First() const { return ends_[0]; }
  int Second() const { return ends_[1]; }
  void Write(std::string_view bytes) const {
    const ssize_t sent = ::send(First(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    Expect(sent == static_cast<ssize_t>(bytes.size()), "a socket holds a whole input");
  }
  void EndWriting() const { ::shutdown(First(), SHUT_WR); }

 private:
  std::array<int, 2> ends_{};
};

// The messages in the bytes by a plain reading.
std::deque<EngineMessage> MessagesIn(std::string_view bytes) {
  std::deque<EngineMessage> messages;
  while (bytes.size() >= kHeader) {
    std::uint32_t length = 0;
    std::memcpy(&length, bytes.data() + 1, sizeof length);
    if (length > kLongest || bytes.size() - kHeader < length) break;
    messages.push_back(
        {static_cast<EngineWord>(bytes.front()), std::string(bytes.substr(kHeader, length))});
    bytes.remove_prefix(kHeader + length);
  }
  return messages;
}

void ExpectNext(EngineSocket& socket, std::deque<EngineMessage>& expected) {
  Expect(!expected.empty(), "no message comes of nothing");
  const EngineMessage message = socket.Take();
  Expect(message.word == expected.front().word && message.content == expected.front().content,
         "a message is what was sent");
  expected.pop_front();
}

// The bytes come in two blows.
void CheckStream(std::string_view bytes) {
  std::deque<EngineMessage> expected = MessagesIn(bytes);
  const Ends ends;
  EngineSocket socket(ends.Second());
  const EngineSocket other(ends.First());
  ends.Write(bytes.substr(0, bytes.size() / 2));
  while (socket.Wait({}) == Arrival::Message) ExpectNext(socket, expected);
  ends.Write(bytes.substr(bytes.size() / 2));
  ends.EndWriting();
  while (socket.Wait(std::chrono::hours(1)) == Arrival::Message) ExpectNext(socket, expected);
  Expect(expected.empty(), "every message arrives");
  Expect(socket.Wait({}) == Arrival::Closed, "an end that has gone stays gone");
}

// Messages that are sent as they should be, from both ends at once.
void CheckConversation(std::string_view bytes) {
  const Ends ends;
  EngineSocket first(ends.First());
  EngineSocket second(ends.Second());
  std::vector<std::string_view> parts = Parts(bytes);
  // More would not fit into the socket while nobody reads.
  parts.resize(std::min<std::size_t>(parts.size(), 40));
  for (const std::string_view part : parts) {
    Expect(first.Send(EngineWord::Say, part) && second.Send(EngineWord::Samples, part),
           "a message can be sent");
  }
  for (const std::string_view part : parts) {
    Expect(first.Wait({}) == Arrival::Message && first.Take().content == part &&
               second.Wait({}) == Arrival::Message && second.Take().content == part,
           "messages arrive in their order");
  }
  Expect(first.Wait({}) == Arrival::Nothing, "nothing else arrives");
}

bool IsField(const std::string& text) {
  return IsValidUtf8(text) && text.find_first_of("\t\r\n") == text.npos;
}

void CheckVoices(std::string_view content) {
  const std::vector<EngineVoice> voices = VoicesIn(content);
  for (const EngineVoice& voice : voices) {
    Expect(IsField(voice.identifier) && IsField(voice.language) && IsField(voice.description),
           "a voice cannot break a message");
    Expect(!voice.identifier.empty() && !voice.description.empty(), "a voice is called something");
    const EngineUse use{voice.identifier, -10, 100};
    Expect(UseIn(UseContent(use)) == use, "a voice that is listed can be used");
  }
  Expect(VoicesIn(VoicesContent(voices)) == voices, "voices are listed again as they were");
}

void CheckUse(std::string_view content) {
  const std::optional<EngineUse> use = UseIn(content);
  if (use) Expect(UseIn(UseContent(*use)) == use, "what is to be used is read as it was written");
}

void CheckSamples(std::string_view content) {
  const std::vector<std::int16_t> samples = SamplesIn(content);
  const std::string_view again = SamplesContent(samples);
  Expect(content.starts_with(again) && content.size() - again.size() < sizeof(std::int16_t),
         "every whole sample is heard");
  const int rate = SampleRateIn(content);
  Expect(rate == 0 || SampleRateIn(std::to_string(rate)) == rate, "a rate is a number");
  Expect(rate >= 0, "no rate is less than nothing");
}

void Check(std::string_view bytes) {
  CheckStream(bytes);
  CheckConversation(bytes);
  CheckVoices(bytes);
  CheckUse(bytes);
  CheckSamples(bytes);
  for (const EngineMessage& message : MessagesIn(bytes)) {
    CheckVoices(message.content);
    CheckUse(message.content);
  }
}

const FuzzTarget kTarget("engine", Check);

}  // namespace
}  // namespace brenwick
