// brenwick-voice: the speech engine in a process of its own, so that a text which the engine cannot
// bear takes nothing else down. Brenwick starts it, with its standard input as a socket to talk
// over (EngineMessages.h); it ends when that is closed.
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <iostream>

#include "espeak/EspeakEngine.h"
#include "linux/engine/EngineContents.h"
#include "linux/engine/EngineMessages.h"

namespace brenwick {
namespace {

void Use(EspeakEngine& engine, const std::string& content) {
  const std::optional<EngineUse> use = UseIn(content);
  if (use) engine.Use(use->voice, use->rate, use->volume);
}

void Say(EspeakEngine& engine, EngineSocket& program, const std::string& piece) {
  engine.Say(piece, [&](std::span<const std::int16_t> samples) {
    if (!samples.empty() && !program.Send(EngineWord::Samples, SamplesContent(samples)))
      return false;
    // While a text is being spoken the program says nothing but that it has had enough.
    return program.Wait({}) == EngineSocket::Arrival::Nothing;
  });
  program.Send(EngineWord::End);
}

void Serve(EspeakEngine& engine, EngineSocket& program) {
  constexpr std::chrono::hours kAlways{24};
  program.Send(EngineWord::Ready, std::to_string(engine.SampleRate()));
  for (;;) {
    const EngineSocket::Arrival arrival = program.Wait(kAlways);
    if (arrival == EngineSocket::Arrival::Closed) return;
    if (arrival == EngineSocket::Arrival::Nothing) continue;
    const EngineMessage message = program.Take();
    if (message.word == EngineWord::Voices) {
      program.Send(EngineWord::Voices, VoicesContent(engine.Voices(message.content)));
    } else if (message.word == EngineWord::Use) {
      Use(engine, message.content);
    } else if (message.word == EngineWord::Say) {
      Say(engine, program, message.content);
    }
  }
}

int Main() {
  // It is of no use to anybody else, and might be in the middle of a text.
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  EngineSocket program(STDIN_FILENO);
  try {
    EspeakEngine engine;
    Serve(engine, program);
    return 0;
  } catch (const std::exception& failure) {
    if (program.Send(EngineWord::Failed, failure.what())) return 1;
    std::cerr << "brenwick-voice is started by Brenwick, and by nothing else\n";
    return 2;
  }
}

}  // namespace
}  // namespace brenwick

int main() { return brenwick::Main(); }
