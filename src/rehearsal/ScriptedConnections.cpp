#include "rehearsal/ScriptedConnections.h"

namespace brenwick {

void ScriptedConnections::SwitchApplication(const std::string& name, bool on) {
  transcript_.Write({{"application", name}, {"on", on}});
  for (SeenApplication& application : applications_) {
    if (application.Name == name) application.On = on;
  }
}

void ScriptedConnections::SetGroupChats(bool on) {
  if (on == group_chats_) return;
  transcript_.Write({{"groupChats", on}});
  group_chats_ = on;
}

}  // namespace brenwick
