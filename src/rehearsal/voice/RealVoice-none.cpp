#include <stdexcept>

#include "rehearsal/voice/RealVoice.h"

namespace brenwick {

std::unique_ptr<QueuedVoice> MakeRealVoice(const RealVoiceOptions& /*options*/) {
  throw std::runtime_error(
      "this build of brenwick-rehearse has no speech engine and opens no sound device");
}

}  // namespace brenwick
