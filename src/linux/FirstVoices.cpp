#include "linux/FirstVoices.h"

#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

void StoreVoice(RegistryStore& store, const char* name, const std::string& voice) {
  if (!voice.empty()) store.WriteValue(kVoicesKey, name, {.text = voice});
}

}  // namespace

// What cannot be stored is told when the program stores its settings.
void StoreFirstVoices(RegistryStore& store, const VoicePair& voices) {
  if (store.KeyExists(kBrenwickKey)) return;
  Batch batch(store);
  StoreVoice(store, "Male Voice", voices.male);
  StoreVoice(store, "Female Voice", voices.female);
}

}  // namespace brenwick
