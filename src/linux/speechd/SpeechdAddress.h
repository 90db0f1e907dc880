// Where speech-dispatcher answers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brenwick {

struct SpeechdAddress {
  std::string socket;  // the path of its socket; empty where it answers at a port
  std::string host;    // a number, such as "127.0.0.1"
  std::uint16_t port = 0;
  // The user says where it is, so that nobody but the user starts it.
  bool given = false;
};

// The address in $SPEECHD_ADDRESS ("unix_socket:/run/sock", "inet_socket:127.0.0.1:6560"), or,
// where that is empty, the socket in the runtime folder of the user's session.
SpeechdAddress SpeechdAddressIn(std::string_view speechd_address, std::string_view runtime_folder);

// That of this process's environment.
SpeechdAddress SpeechdAddressOfSession();

// Whether the server may be there: its address is given, its socket is there, or its program is
// installed and could be started.
bool SpeechdMayBeThere(const SpeechdAddress& address);

}  // namespace brenwick
