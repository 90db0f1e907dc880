#include "rehearsal/ScriptedVoice.h"

#include "base/Failure.h"

namespace brenwick {

void ScriptedVoice::Reset() {
  voice_ = 0;
  rate_ = 0;
  volume_ = 100;
}

void ScriptedVoice::FailWhenRefused(const char* call, bool badArgument) const {
  if (badArgument || refused_.contains(call)) throw Failure(kInvalidCall, "SpVoice");
}

void ScriptedVoice::SetVoice(std::size_t index) {
  FailWhenRefused("voice", index >= voices_.size());
  voice_ = index;
}

void ScriptedVoice::SetRate(int rate) {
  FailWhenRefused("rate", rate < -10 || rate > 10);
  rate_ = rate;
}

void ScriptedVoice::SetVolume(int volume) {
  FailWhenRefused("volume", volume < 0 || volume > 100);
  volume_ = volume;
}

void ScriptedVoice::Speak(const std::string&, int) { FailWhenRefused("speak", false); }

void VoiceRecorder::Speak(const std::string& text, int flags) {
  engine_.Speak(text, flags);
  const std::vector<std::string>& voices = engine_.GetVoices();
  const std::size_t voice = engine_.Voice();
  transcript_.Write({{"speak", text},
                     {"flags", flags},
                     {"voice", voice < voices.size() ? voices[voice] : std::string()},
                     {"rate", engine_.Rate()},
                     {"volume", engine_.Volume()}});
}

}  // namespace brenwick
