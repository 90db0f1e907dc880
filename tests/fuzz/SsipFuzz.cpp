// A server in the place of speech-dispatcher that says any bytes: each answer, each event and each
// kind of trouble is what a plain reading of the bytes says.
#include <algorithm>
#include <cctype>
#include <deque>
#include <optional>

#include "base/Lines.h"
#include "fuzz/Fuzz.h"
#include "fuzz/SsipServer.h"
#include "linux/speechd/SsipConnection.h"
#include "voice/SpeakableText.h"

namespace brenwick {
namespace {

// So many commands fit into a socket that nobody reads.
constexpr int kMostCommands = 60;

constexpr std::chrono::hours kLongEnough{1};

enum class End { Answered, Refused, Trouble };

// What came of a command.
struct Outcome {
  End end = End::Trouble;
  std::vector<std::string> lines;

  bool operator==(const Outcome&) const = default;
};

// What the server says at a time.
struct Said {
  int code = 0;
  std::vector<std::string> lines;
};

class PlainReading {
 public:
  explicit PlainReading(std::string_view bytes) {
    for (std::size_t end; (end = bytes.find('\n')) != bytes.npos;) {
      std::string line(bytes.substr(0, end));
      if (line.ends_with('\r')) line.pop_back();
      lines_.push_back(std::move(line));
      bytes.remove_prefix(end + 1);
    }
  }

  Outcome Ask() {
    for (;;) {
      std::optional<Said> said = Next();
      if (!said) return {};
      if (said->code < 300) return {End::Answered, std::move(said->lines)};
      if (said->code < 700) return {End::Refused, {}};
      if (said->lines.empty()) return {};
      events_.emplace_back(said->lines.front(), said->code);
    }
  }

  // The event of the message; nothing where the server makes trouble first.
  std::optional<int> Await(const std::string& message) {
    for (;;) {
      while (!events_.empty()) {
        const auto [number, code] = events_.front();
        events_.pop_front();
        if (number == message) return code;
      }
      const std::optional<Said> said = Next();
      if (!said || said->code < 700 || said->lines.empty()) return std::nullopt;
      events_.emplace_back(said->lines.front(), said->code);
    }
  }

 private:
  std::optional<Said> Next() {
    Said said;
    while (!lines_.empty()) {
      const std::string line = std::move(lines_.front());
      lines_.pop_front();
      const auto digits = std::count_if(line.begin(), line.begin() + std::min<int>(3, Size(line)),
                                        [](unsigned char c) { return std::isdigit(c) != 0; });
      if (Size(line) < 4 || digits < 3) return std::nullopt;
      said.code = std::stoi(line.substr(0, 3));
      if (line[3] != '-') return said;
      said.lines.push_back(line.substr(4));
    }
    return std::nullopt;
  }
  static int Size(const std::string& line) { return static_cast<int>(line.size()); }

  std::deque<std::string> lines_;
  std::deque<std::pair<std::string, int>> events_;
};

template <typename Command>
Outcome OutcomeOf(const Command& command) {
  try {
    return {End::Answered, command()};
  } catch (const SsipRefusal&) {
    return {End::Refused, {}};
  } catch (const SsipTrouble&) {
    return {};
  }
}

// A client that does one thing after the other, as the bits say, until the server makes trouble.
class Client {
 public:
  Client(const SpeechdAddress& address, std::string_view bytes, std::string piece)
      : connection_(address, kLongEnough), reading_(bytes), piece_(std::move(piece)) {}

  void Work(unsigned bits) {
    for (int i = 0; i < kMostCommands; ++i, bits = (bits >> 1) | (bits << 7 & 0x80U)) {
      const bool goes_on = (bits & 1U) != 0 ? Ask() : (bits & 2U) != 0 ? Say() : Await();
      if (!goes_on) return;
    }
  }
  // What the server must have heard.
  const std::string& Commands() const { return commands_; }

 private:
  bool Ask() {
    commands_ += "LIST VOICES\r\n";
    const Outcome outcome = OutcomeOf([&] { return connection_.Ask("LIST VOICES", nullptr); });
    Expect(outcome == reading_.Ask(), "an answer is the server's");
    return outcome.end != End::Trouble;
  }

  bool Say() {
    const Outcome outcome =
        OutcomeOf([&] { return std::vector{connection_.Say(piece_, nullptr)}; });
    commands_ += "SPEAK\r\n";
    Outcome expected = reading_.Ask();
    if (expected.end == End::Answered) {
      commands_ += (piece_.starts_with('.') ? "." : "") + piece_ + "\r\n.\r\n";
      expected = reading_.Ask();
      if (expected.end == End::Answered && expected.lines.empty()) expected = {};
      expected.lines.resize(std::min<std::size_t>(expected.lines.size(), 1));
    }
    Expect(outcome == expected, "a message has the number that the server says");
    if (outcome.end == End::Answered) message_ = outcome.lines.front();
    return outcome.end != End::Trouble;
  }

  bool Await() {
    std::optional<int> event;
    const Outcome outcome = OutcomeOf([&] {
      const auto heard = connection_.Await(message_, kLongEnough, nullptr);
      if (heard) event = static_cast<int>(*heard);
      return std::vector<std::string>();
    });
    Expect(event == reading_.Await(message_), "an event is the message's");
    Expect(event.has_value() == (outcome.end == End::Answered), "the server says it or is gone");
    return event.has_value();
  }

  SsipConnection connection_;
  PlainReading reading_;
  const std::string piece_;
  std::string message_ = "1";
  std::string commands_;
};

// What an input has the program say.
std::string PieceOf(std::string_view bytes) {
  const std::u32string text = SpeakableText(bytes.substr(0, 40), false);
  std::u32string_view rest = text;
  std::string piece = NextPiece(rest);
  return piece.empty() ? "." : piece;
}

// The first byte of an input is what the client does.
void Check(std::string_view bytes) {
  if (bytes.empty()) return;
  static SsipServer server;
  const auto bits = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  std::string commands;
  {
    Client client(server.Address(), bytes, PieceOf(bytes));
    server.Answer(bytes);
    client.Work(bits);
    commands = client.Commands();
  }
  Expect(server.Heard() == commands + "CANCEL SELF\r\n", "the server hears what it is asked");
}

const FuzzTarget kTarget("ssip", Check);

}  // namespace
}  // namespace brenwick
