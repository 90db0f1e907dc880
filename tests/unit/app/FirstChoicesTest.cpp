// What a new user begins with.
#include "app/FirstChoices.h"

#include <gtest/gtest.h>

#include "settings/SettingsKeys.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

std::string Stored(MapStore& store, const char* name) {
  const auto value = store.ReadValue(kVoicesKey, name);
  return value ? value->text : "(none)";
}

TEST(FirstChoices, AreStoredWhereNothingIs) {
  MapStore store;
  StoreFirstChoices(store, "he", "she");
  EXPECT_EQ(Stored(store, "Male Voice"), "he");
  EXPECT_EQ(Stored(store, "Female Voice"), "she");
}

TEST(FirstChoices, LeaveAStoreThatHoldsAnythingAlone) {
  MapStore store;
  store.WriteValue(kBrenwickKey, "Left", {.type = ValueKind::Text, .text = "5"});
  StoreFirstChoices(store, "he", "she");
  EXPECT_EQ(Stored(store, "Male Voice"), "(none)");
  EXPECT_EQ(Stored(store, "Female Voice"), "(none)");
}

TEST(FirstChoices, AreStoredWhereAnEarlierStartHadNoVoices) {
  MapStore store;
  store.WriteValue(kBrenwickKey, "Left", {.type = ValueKind::Text, .text = "5"});
  store.WriteValue(kVoicesKey, "Male Speed", {.type = ValueKind::Text, .text = "3"});
  StoreFirstChoices(store, "he", "she");
  EXPECT_EQ(Stored(store, "Male Voice"), "he");
  EXPECT_EQ(Stored(store, "Female Voice"), "she");
  StoreFirstChoices(store, "another", "another");
  EXPECT_EQ(Stored(store, "Male Voice"), "he");
}

TEST(FirstChoices, LeaveASingleChosenVoiceAlone) {
  MapStore store;
  store.WriteValue(kBrenwickKey, "Left", {.type = ValueKind::Text, .text = "5"});
  store.WriteValue(kVoicesKey, "Female Voice", {.type = ValueKind::Text, .text = "Eva"});
  StoreFirstChoices(store, "he", "she");
  EXPECT_EQ(Stored(store, "Male Voice"), "(none)");
  EXPECT_EQ(Stored(store, "Female Voice"), "Eva");
}

TEST(FirstChoices, AreNotStoredWhereTheEngineHasNone) {
  MapStore store;
  StoreFirstChoices(store, "", "she");
  EXPECT_EQ(Stored(store, "Male Voice"), "(none)");
  EXPECT_EQ(Stored(store, "Female Voice"), "she");
}

}  // namespace
}  // namespace brenwick
