// An engine's process that fails as it is told: "die" and "hang" in a text, or in the environment
// BRENWICK_BAD_VOICE when it starts. Any other text is three samples.
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "desktop/EngineMessages.h"

namespace brenwick {
namespace {

void MisbehaveAt(const std::string& text) {
  if (text.find("die") != std::string::npos) _exit(3);
  while (text.find("hang") != std::string::npos) pause();
}

int Main() {
  EngineSocket program(STDIN_FILENO);
  const char* start = std::getenv("BRENWICK_BAD_VOICE");
  const std::string how = start != nullptr ? start : "";
  MisbehaveAt(how);
  if (how == "fail") {
    program.Send(EngineWord::Failed, "no data");
    return 1;
  }
  program.Send(EngineWord::Ready, "8000");
  while (const auto message = program.Receive()) {
    if (message->word != EngineWord::Say) continue;
    MisbehaveAt(message->content);
    const std::int16_t samples[] = {1, 2, 3};
    program.Send(EngineWord::Samples, AsContent(samples));
    program.Send(EngineWord::End);
  }
  return 0;
}

}  // namespace
}  // namespace brenwick

int main() { return brenwick::Main(); }
