#include "pages/VoiceLists.h"

#include <algorithm>

namespace brenwick {

void VoiceLists::Fill() {
  const std::vector<std::string>& voices = voice_.GetVoices();
  for (const std::string& description : voices) {
    form_.cmbVoiceMale.AddItem(description);
    form_.cmbVoiceFemale.AddItem(description);
    log_.DebugWrite("Form_Load", "Startup - Found voice : " + description);
  }
  log_.DebugWrite("Form_Load", "Startup - Total voices : " + std::to_string(voices.size()));
  if (voices.empty()) return;
  form_.cmbVoiceMale.SetListIndex(0);
  form_.cmbVoiceFemale.SetListIndex(0);
}

void VoiceLists::SelectStored(ComboBox& list, const std::string& stored) {
  const std::vector<std::string>& entries = list.Items();
  const auto found = std::find(entries.begin(), entries.end(), stored);
  if (stored.empty() || found == entries.end()) return;
  list.SetListIndex(static_cast<int>(found - entries.begin()));
}

}  // namespace brenwick
