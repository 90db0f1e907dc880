// The transcript for people: when, who, what is said, and in which voice.
#pragma once

#include <ostream>
#include <string>

#include "platform/Clock.h"
#include "rehearsal/ReadableWords.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class ReadableTranscript : public Transcript {
 public:
  ReadableTranscript(std::ostream& out, Clock& clock, bool colour)
      : out_(out), clock_(clock), colour_(colour) {}

  void Watch(const frmMain& form) override { form_ = &form; }
  void BeginStep(int number, const nlohmann::json& step) override;
  void Write(const Effect& effect) override;

 private:
  enum class Tone { Event, Said, Note };

  void WriteSpeech(const Effect& effect);
  void Line(Tone tone, const Told& told, const std::string& voice = "");

  std::ostream& out_;
  Clock& clock_;
  bool colour_;
  const frmMain* form_ = nullptr;
};

}  // namespace brenwick
