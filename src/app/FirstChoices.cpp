#include "app/FirstChoices.h"

#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

void StoreVoice(RegistryStore& store, const char* name, const std::string& voice) {
  if (!voice.empty()) store.WriteValue(kVoicesKey, name, {.text = voice});
}

bool HoldsVoice(RegistryStore& store, const char* name) {
  return store.ReadValue(kVoicesKey, name).has_value();
}

// An engine that was too slow to list its voices leaves a new user without any.
bool LacksBothVoices(RegistryStore& store) {
  return store.KeyExists(kVoicesKey) && !HoldsVoice(store, "Male Voice") &&
         !HoldsVoice(store, "Female Voice");
}

}  // namespace

// What cannot be stored is told when the program stores its settings.
void StoreFirstChoices(RegistryStore& store, const std::string& maleVoice,
                       const std::string& femaleVoice) {
  if (store.KeyExists(kBrenwickKey) && !LacksBothVoices(store)) return;
  Batch batch(store);
  StoreVoice(store, "Male Voice", maleVoice);
  StoreVoice(store, "Female Voice", femaleVoice);
}

}  // namespace brenwick
