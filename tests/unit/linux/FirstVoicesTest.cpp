// What a user hears who has chosen no voices yet.
#include "linux/FirstVoices.h"

#include <gtest/gtest.h>

#include "settings/SettingsKeys.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

const VoicePair kPair = {"he", "she"};

std::string Stored(MapStore& store, const char* name) {
  const auto value = store.ReadValue(kVoicesKey, name);
  return value ? value->text : "(none)";
}

TEST(FirstVoices, AreStoredWhereNothingIs) {
  MapStore store;
  StoreFirstVoices(store, kPair);
  EXPECT_EQ(Stored(store, "Male Voice"), "he");
  EXPECT_EQ(Stored(store, "Female Voice"), "she");
}

TEST(FirstVoices, LeaveAStoreThatHoldsAnythingAlone) {
  MapStore store;
  store.WriteValue(kBrenwickKey, "Left", {.type = ValueKind::Text, .text = "5"});
  StoreFirstVoices(store, kPair);
  EXPECT_EQ(Stored(store, "Male Voice"), "(none)");
  EXPECT_EQ(Stored(store, "Female Voice"), "(none)");
}

TEST(FirstVoices, AreNotStoredWhereTheEngineHasNone) {
  MapStore store;
  StoreFirstVoices(store, {"", "she"});
  EXPECT_EQ(Stored(store, "Male Voice"), "(none)");
  EXPECT_EQ(Stored(store, "Female Voice"), "she");
}

}  // namespace
}  // namespace brenwick
