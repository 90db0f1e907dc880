// The transcript for people: when, who, what is said, and in which voice.
#pragma once

#include <ostream>
#include <string>

#include "platform/Clock.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class ReadableTranscript : public Transcript {
 public:
  ReadableTranscript(std::ostream& out, Clock& clock, bool colour)
      : out_(out), clock_(clock), colour_(colour) {}

  void BeginStep(int number, const nlohmann::json& step) override;
  void Write(const Effect& effect) override;

 private:
  enum class Colour { Plain, Event, Male, Female, Note };

  void Line(Colour colour, const std::string& text);
  void WriteSpeech(const Effect& effect);

  std::ostream& out_;
  Clock& clock_;
  bool colour_;
};

}  // namespace brenwick
