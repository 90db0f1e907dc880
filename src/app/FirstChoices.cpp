#include "app/FirstChoices.h"

#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

void StoreVoice(RegistryStore& store, const char* name, const std::string& voice) {
  if (!voice.empty()) store.WriteValue(kVoicesKey, name, {.text = voice});
}

}  // namespace

// What cannot be stored is told when the program stores its settings.
void StoreFirstChoices(RegistryStore& store, const std::string& maleVoice,
                       const std::string& femaleVoice) {
  if (store.KeyExists(kBrenwickKey)) return;
  Batch batch(store);
  StoreVoice(store, "Male Voice", maleVoice);
  StoreVoice(store, "Female Voice", femaleVoice);
}

}  // namespace brenwick
