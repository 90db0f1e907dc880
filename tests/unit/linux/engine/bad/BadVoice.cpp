// An engine's process that fails as a word of the text tells it, or the environment variable
// BRENWICK_BAD_VOICE when it starts, where "rate 7" is its sample rate. Any other text is three
// samples.
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "linux/engine/EngineContents.h"
#include "linux/engine/EngineMessages.h"

namespace brenwick {
namespace {

void Write(const std::string& bytes) {
  if (write(STDIN_FILENO, bytes.data(), bytes.size()) < 0) _exit(4);
}

void MisbehaveAt(const std::string& text) {
  const auto holds = [&](const char* word) { return text.find(word) != std::string::npos; };
  if (holds("die")) _exit(3);
  if (holds("babble")) Write(std::string(100, '\xff'));
  // A block of samples that is never whole.
  if (holds("stall")) Write(std::string{'P', 100, 0, 0, 0});
  while (holds("hang") || holds("stall") || holds("babble")) pause();
}

void SayThreeSamples(EngineSocket& program) {
  const std::int16_t samples[] = {1, 2, 3};
  program.Send(EngineWord::Samples, SamplesContent(samples));
  program.Send(EngineWord::End);
}

// Takes no notice of what the program says meanwhile.
void SpeakWithoutEnd(EngineSocket& program) {
  const std::int16_t samples[] = {1, 2, 3};
  while (program.Send(EngineWord::Samples, SamplesContent(samples))) {
  }
  _exit(0);
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
  program.Send(EngineWord::Ready, how.starts_with("rate ") ? how.substr(5) : "8000");
  for (;;) {
    const EngineSocket::Arrival arrival = program.Wait(std::chrono::hours(1));
    if (arrival == EngineSocket::Arrival::Closed) return 0;
    if (arrival == EngineSocket::Arrival::Nothing) continue;
    const EngineMessage message = program.Take();
    if (message.word != EngineWord::Say) continue;
    MisbehaveAt(message.content);
    if (message.content.find("drone") != std::string::npos) SpeakWithoutEnd(program);
    if (message.content.find("mumble") != std::string::npos) program.Send(EngineWord::Ready, "mm");
    SayThreeSamples(program);
  }
}

}  // namespace
}  // namespace brenwick

int main() { return brenwick::Main(); }
