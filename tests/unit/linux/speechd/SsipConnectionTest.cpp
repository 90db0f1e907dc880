// What the protocol of speech-dispatcher means, and what a server may do that does not keep to it.
#include "linux/speechd/SsipConnection.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "support/PrivateSpeechd.h"
#include "unit/linux/speechd/ScriptedSpeechd.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds;
using Event = SsipConnection::Event;
using Texts = std::vector<std::string>;

constexpr std::chrono::minutes kLongEnough{1};
constexpr milliseconds kLittlePatience{50};

// A server that says what the test has it say.
class Script {
 public:
  Script() = default;
  ~Script() { HangUp(); }
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  SpeechdAddress Address() const { return socket_.Address(); }

  void Say(const std::string& bytes) {
    if (connected_ < 0) connected_ = socket_.Accept();
    EXPECT_EQ(::send(connected_, bytes.data(), bytes.size(), MSG_NOSIGNAL),
              static_cast<ssize_t>(bytes.size()));
  }
  void HangUp() {
    if (connected_ >= 0) ::close(connected_);
  }

 private:
  const ListeningSocket socket_;
  int connected_ = -1;
};

template <typename Call>
std::string TroubleOf(const Call& call) {
  try {
    call();
  } catch (const SsipTrouble& trouble) {
    return trouble.what();
  }
  return "none";
}

TEST(SsipConnection, GivesTheLinesOfAnAnswer) {
  Script server;
  SsipConnection connection(server.Address());
  server.Say("250-one\r\n250-two three\r\n250 OK DONE\r\n216 OK\r\n");
  EXPECT_EQ(connection.Ask("LIST", nullptr), Texts({"one", "two three"}));
  EXPECT_EQ(connection.Ask("SET", nullptr), Texts());
}

TEST(SsipConnection, GoesOnBehindARefusal) {
  Script server;
  SsipConnection connection(server.Address());
  server.Say("409 ERR RATE TOO HIGH\r\n203 OK\r\n");
  EXPECT_THROW(connection.Ask("SET SELF RATE 101", nullptr), SsipRefusal);
  EXPECT_NO_THROW(connection.Ask("SET SELF RATE 100", nullptr));
}

TEST(SsipConnection, KeepsWhatHappensForWhoeverAwaitsIt) {
  Script server;
  SsipConnection connection(server.Address());
  server.Say(
      "230 OK\r\n701-7\r\n701-1\r\n701 BEGIN\r\n225-7\r\n225 OK QUEUED\r\n702-6\r\n702-1\r\n");
  EXPECT_EQ(connection.Say("x", nullptr), "7");
  EXPECT_EQ(connection.Await("7", kLongEnough, nullptr), Event::Begin);
  EXPECT_EQ(connection.Await("7", kLittlePatience, nullptr), std::nullopt);
  // The rest of another message's end comes only now.
  server.Say("702 END\r\n702-7\r\n702-1\r\n702 END\r\n");
  EXPECT_EQ(connection.Await("7", kLongEnough, nullptr), Event::End);
}

TEST(SsipConnection, IsStoppedByTheSign) {
  Script server;
  SsipConnection connection(server.Address(), kLongEnough);
  StopToken stop;
  stop.RequestStop();
  EXPECT_THROW(connection.Ask("LIST", &stop), SsipStopped);
  EXPECT_EQ(connection.Await("1", kLongEnough, &stop), std::nullopt);
  stop.Reset();
  server.Say("250 OK\r\n");
  EXPECT_NO_THROW(connection.Ask("LIST", &stop));
}

TEST(SsipConnection, TellsWhatIsWrong) {
  const auto trouble_with = [](const std::string& answer, bool hangs_up = false) {
    Script server;
    SsipConnection connection(server.Address(), kLittlePatience);
    server.Say(answer);
    if (hangs_up) server.HangUp();
    return TroubleOf([&] { connection.Say("x", nullptr); });
  };
  EXPECT_EQ(trouble_with(""), "Speech Dispatcher does not answer");
  EXPECT_EQ(trouble_with("230 OK\r\n225"), "Speech Dispatcher does not answer");
  EXPECT_EQ(trouble_with("230-a\r\n", true), "Speech Dispatcher ended the connection");
  EXPECT_EQ(trouble_with("300 ERR NO\r\n"), "Speech Dispatcher refuses: ERR NO");
  for (const char* nonsense :
       {"\r\n", "OK\r\n", "23\r\n", "230\r\n", "23 OK\r\n", "-12 OK\r\n", "2x0 OK\r\n",
        "+20 OK\r\n", " 20 OK\r\n", "701 BEGIN\r\n", "230 OK\r\n225 OK\r\n"}) {
    EXPECT_EQ(trouble_with(nonsense), "Speech Dispatcher says what makes no sense") << nonsense;
  }
}

constexpr const char* kUnclear = "Speech Dispatcher says what makes no sense";

// What fits into a socket that is read behind each of them.
std::string Repeated(const std::string& bytes) {
  std::string repeated;
  while (repeated.size() < 100'000) repeated += bytes;
  return repeated;
}

TEST(SsipConnection, ListensToNoEndlessAnswer) {
  constexpr int kEndless = 400;
  const std::string long_line = "250-" + std::string(1000, 'x') + "\r\n";
  for (const std::string& bytes : {std::string("250-x\r\n"), long_line, std::string("x")}) {
    const std::string many = Repeated(bytes);
    Script server;
    SsipConnection connection(server.Address());
    EXPECT_EQ(TroubleOf([&] {
                for (int i = 0; i < kEndless; ++i) {
                  server.Say(many);
                  connection.Await("1", milliseconds(0), nullptr);
                }
              }),
              kUnclear);
  }
}

TEST(SsipConnection, KeepsNoEndlessEvents) {
  constexpr int kEndless = 40;
  const std::string many = Repeated("701-2\r\n701 BEGIN\r\n");
  Script server;
  SsipConnection connection(server.Address(), milliseconds(0));
  std::string trouble;
  for (int i = 0; i < kEndless && trouble != kUnclear; ++i) {
    server.Say(many);
    trouble = TroubleOf([&] { connection.Ask("LIST", nullptr); });
  }
  EXPECT_EQ(trouble, kUnclear);
}

TEST(SsipConnection, TellsWhereThereIsNoServer) {
  const auto trouble_at = [](const SpeechdAddress& address) {
    return TroubleOf([&] { const SsipConnection connection(address); });
  };
  const std::string missing = "Speech Dispatcher is not running";
  EXPECT_EQ(trouble_at({"/nowhere/socket", "", 0, true}), missing);
  EXPECT_EQ(trouble_at({std::string(200, 'x'), "", 0, true}), missing);
  EXPECT_EQ(trouble_at({"", "no number", 6560, true}), missing);
  // Nobody listens at a port that was just bound.
  const int bound = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  ASSERT_EQ(::bind(bound, reinterpret_cast<const sockaddr*>(&address), size), 0);
  ASSERT_EQ(::getsockname(bound, reinterpret_cast<sockaddr*>(&address), &size), 0);
  const SpeechdAddress port{"", "127.0.0.1", ntohs(address.sin_port), true};
  EXPECT_EQ(trouble_at(port), missing);
  ASSERT_EQ(::listen(bound, 1), 0);
  EXPECT_EQ(trouble_at(port), "none");
  ::close(bound);
}

TEST(SsipConnection, TakesBackWhatHasNotBeenSaid) {
  PrivateSpeechd server;
  {
    SsipConnection connection(server.Address());
    connection.Ask("SET SELF NOTIFICATION ALL on", nullptr);
    const std::string message = connection.Say("[hold]", nullptr);
    EXPECT_EQ(connection.Await(message, kLongEnough, nullptr), Event::Begin);
    connection.Say("never", nullptr);
  }
  EXPECT_TRUE(server.AwaitSaid("stopped"));
  EXPECT_EQ(server.Said().size(), 2U);
}

}  // namespace
}  // namespace brenwick
