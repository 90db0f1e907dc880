#include "logging/Logs.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "modFunctions";
// Both writers report their failures under this one name.
constexpr const char* kWriter = "DebugWrite";

}  // namespace

void Logs::DebugWrite(std::string_view procedure, std::string_view text) {
  if (!state_.Debug || procedure == "P_MessengerObject") return;
  Trap(kModule, kWriter, [&] { files_.WriteDebugLine(procedure, text); });
}

void Logs::ConversationWrite(std::string_view text) {
  Trap(kModule, kWriter, [&] { files_.WriteConversationLine(text); });
}

}  // namespace brenwick
