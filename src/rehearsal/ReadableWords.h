// A rehearsal told in words: who does what.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "forms/frmMain.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

struct Told {
  std::string who;
  std::string what;  // empty: nothing that a person needs to read
};

// What a step of the script does. It need not be a valid one; what is missing or of another type
// is left out.
Told TellStep(const nlohmann::json& step, const frmMain& form);
// What the program does, speaking aside.
Told TellEffect(const Effect& effect);

// "is" and a state of the messenger in words: "online", "out to lunch".
std::string StateInWords(std::int32_t state);

}  // namespace brenwick
