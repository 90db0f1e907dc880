// Where speech-dispatcher is looked for.
#include "linux/speechd/SpeechdAddress.h"

#include <gtest/gtest.h>

#include "support/Environment.h"
#include "support/TemporaryFolder.h"

namespace brenwick {
namespace {

TEST(SpeechdAddress, IsTheSocketOfTheSession) {
  const SpeechdAddress address = SpeechdAddressIn("", "/run/user/1000");
  EXPECT_EQ(address.socket, "/run/user/1000/speech-dispatcher/speechd.sock");
  EXPECT_FALSE(address.given);
}

TEST(SpeechdAddress, IsTheSocketThatTheUserNames) {
  const SpeechdAddress address = SpeechdAddressIn("unix_socket:/tmp/a:b", "/run");
  EXPECT_EQ(address.socket, "/tmp/a:b");
  EXPECT_TRUE(address.given);
  EXPECT_EQ(SpeechdAddressIn("unix_socket", "/run").socket, "/run/speech-dispatcher/speechd.sock");
}

TEST(SpeechdAddress, IsThePortThatTheUserNames) {
  const SpeechdAddress address = SpeechdAddressIn("inet_socket:10.0.0.7:6666", "/run");
  EXPECT_EQ(address.socket, "");
  EXPECT_EQ(address.host, "10.0.0.7");
  EXPECT_EQ(address.port, 6666);
  EXPECT_TRUE(address.given);
}

TEST(SpeechdAddress, IsTheUsualPortOfThisMachine) {
  for (const char* text :
       {"inet_socket", "inet_socket:", "inet_socket:localhost", "inet_socket::x"}) {
    const SpeechdAddress address = SpeechdAddressIn(text, "/run");
    EXPECT_EQ(address.host, "127.0.0.1") << text;
    EXPECT_EQ(address.port, 6560) << text;
  }
}

TEST(SpeechdAddress, IsThatOfTheEnvironment) {
  const Environment folder("XDG_RUNTIME_DIR", "/run/mine");
  const Environment address("SPEECHD_ADDRESS", "");
  EXPECT_EQ(SpeechdAddressOfSession().socket, "/run/mine/speech-dispatcher/speechd.sock");
  const Environment other("SPEECHD_ADDRESS", "unix_socket:/tmp/x");
  EXPECT_EQ(SpeechdAddressOfSession().socket, "/tmp/x");
}

TEST(SpeechdAddress, MayBeThereWhereTheProgramTheSocketOrTheUserSaysSo) {
  const TemporaryFolder folder;
  const Environment path("PATH", "/nowhere:" + folder.Path());
  const SpeechdAddress address = SpeechdAddressIn("", folder.Path());
  EXPECT_FALSE(SpeechdMayBeThere(address));
  EXPECT_TRUE(SpeechdMayBeThere(SpeechdAddressIn("unix_socket", folder.Path())));
  EXPECT_TRUE(SpeechdMayBeThere({folder.Path(), "", 0, false}));
  SetBytes(folder.Inside("speech-dispatcher"), "");
  EXPECT_FALSE(SpeechdMayBeThere(address));
  std::filesystem::permissions(folder.Inside("speech-dispatcher"),
                               std::filesystem::perms::owner_all);
  EXPECT_TRUE(SpeechdMayBeThere(address));
}

}  // namespace
}  // namespace brenwick
