#include "rehearsal/Transcript.h"

namespace brenwick {

void JsonTranscript::BeginStep(int number, const nlohmann::json&) { Write({{"step", number}}); }

void JsonTranscript::Write(const Effect& effect) {
  out_ << effect.dump(-1, ' ', false, Effect::error_handler_t::replace) << '\n';
  if (flush_) out_.flush();
}

}  // namespace brenwick
