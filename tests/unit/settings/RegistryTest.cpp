#include "settings/Registry.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

constexpr const char* kSection = "Software\\Brenwick\\Text";

// One flat map of values; nothing can be written or deleted while it is broken.
class MemoryStore : public RegistryStore {
 public:
  bool KeyExists(const std::string& key) override { return keys.contains(key); }
  bool CreateKey(const std::string& key) override {
    keys[key];
    return !broken;
  }
  bool DeleteKey(const std::string& key) override { return !broken && keys.erase(key) > 0; }
  std::optional<RegistryValue> ReadValue(const std::string& key, const std::string& name) override {
    if (!keys.contains(key) || !keys[key].contains(name)) return std::nullopt;
    return keys[key][name];
  }
  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override {
    if (!broken) keys[key][name] = value;
    return !broken;
  }
  bool DeleteValue(const std::string& key, const std::string& name) override {
    return !broken && keys[key].erase(name) > 0;
  }
  std::vector<std::string> ValueNames(const std::string& /*key*/) override { return {}; }
  std::vector<std::string> SubKeys(const std::string& /*key*/) override { return {}; }
  std::string ExpandEnvironment(const std::string& text) override { return "expanded " + text; }

  std::map<std::string, std::map<std::string, RegistryValue>> keys;
  bool broken = false;
};

class RegistryTest : public testing::Test {
 protected:
  RegistryTest() { key.ValueKey = "Busy"; }

  RegistryValue& Stored() { return store.keys[kSection]["Busy"]; }
  ValueKind TypeOf(const std::string& text) {
    registry.WriteText(kSection, "Busy", text);
    EXPECT_EQ(Stored().text, text);
    return Stored().type;
  }
  RegistryVariant Read(RegistryConversion conversion) {
    return Registry::GetRegistryValue(key, "Busy", conversion, ValueKind::Text);
  }
  template <typename Step>
  static Failure FailureOf(Step step) {
    try {
      step();
    } catch (const Failure& failure) {
      return failure;
    }
    return {0, "none", ""};
  }

  FakeFolders folders;
  MemoryStore store;
  Registry registry{store, folders};
  cRegistry key = registry.OpenRegistryKey(kSection);
};

TEST_F(RegistryTest, MissingValueReadsAsTheEmptyText) {
  EXPECT_EQ(registry.ReadText(kSection, "Busy"), "");
  EXPECT_EQ(registry.ReadText("Software\\None", "Busy"), "");
  EXPECT_EQ(std::get<std::string>(key.Value()), "");
}

TEST_F(RegistryTest, NeverReadsTheStoredDefault) {
  key.Default = std::string("kept");
  EXPECT_EQ(std::get<std::string>(key.Value()), "");
}

TEST_F(RegistryTest, OneSignOfPercentIsPlainText) {
  EXPECT_EQ(TypeOf("plain"), ValueKind::Text);
  EXPECT_EQ(TypeOf("100%"), ValueKind::Text);
  EXPECT_EQ(TypeOf("%%"), ValueKind::Text);
  EXPECT_EQ(TypeOf(""), ValueKind::Text);
}

TEST_F(RegistryTest, TwoSignsOfPercentApartAreAReference) {
  EXPECT_EQ(TypeOf("%a%"), ValueKind::ExpandableText);
  EXPECT_EQ(TypeOf("at %HOME% now"), ValueKind::ExpandableText);
  EXPECT_EQ(TypeOf("%%%"), ValueKind::ExpandableText);
  EXPECT_EQ(TypeOf("%ö%"), ValueKind::ExpandableText);
  EXPECT_EQ(registry.ReadText(kSection, "Busy"), "expanded %ö%");
}

TEST_F(RegistryTest, TypeThatAsksForAReferenceGetsPlainTextToo) {
  Registry::SetRegistryValue(std::string("plain"), key, "Busy", ValueKind::ExpandableText);
  EXPECT_EQ(Stored().type, ValueKind::Text);
}

TEST_F(RegistryTest, ReadsByTheStoredType) {
  Stored() = {ValueKind::Number, "", -300};
  EXPECT_EQ(std::get<std::int32_t>(key.Value()), -300);
  EXPECT_EQ(key.ValueType, ValueKind::Number);
  Stored() = {ValueKind::BigEndianNumber, "1234", 0};
  EXPECT_TRUE(std::holds_alternative<std::monostate>(key.Value()));
  Stored() = {ValueKind::Bytes, std::string("\x00\xff", 2), 0};
  EXPECT_EQ(std::get<std::vector<std::uint8_t>>(key.Value()), (std::vector<std::uint8_t>{0, 255}));
  Stored() = {ValueKind::TextList, std::string("a\0b\0", 4), 0};
  EXPECT_EQ(std::get<std::string>(key.Value()), std::string("a\0b\0", 4));
}

TEST_F(RegistryTest, WritesNumbersAndFlagsAndCutsFractions) {
  const auto written = [&](const RegistryVariant& value) {
    Registry::SetRegistryValue(value, key, "Busy", ValueKind::Number);
    EXPECT_EQ(Stored().type, ValueKind::Number);
    return Stored().number;
  };
  EXPECT_EQ(written(std::int16_t{-7}), -7);
  EXPECT_EQ(written(std::int32_t{70000}), 70000);
  EXPECT_EQ(written(299.9F), 299);
  EXPECT_EQ(written(-299.9F), -299);
  EXPECT_EQ(written(true), -1);
  EXPECT_EQ(written(false), 0);
}

TEST_F(RegistryTest, WritesNoNumberForAnythingElse) {
  Registry::SetRegistryValue(std::string("300"), key, "Busy", ValueKind::Number);
  EXPECT_FALSE(store.keys[kSection].contains("Busy"));
}

TEST_F(RegistryTest, WritesANumberAsTheTextThatAsksForIt) {
  Registry::SetRegistryValue(std::int32_t{300}, key, "Busy", ValueKind::Text);
  EXPECT_EQ(Stored(), (RegistryValue{ValueKind::Text, "300", 0}));
}

TEST_F(RegistryTest, BytesNeedBytes) {
  Registry::SetRegistryValue(std::vector<std::uint8_t>{0, 255}, key, "Busy", ValueKind::Bytes);
  EXPECT_EQ(Stored().text, std::string("\x00\xff", 2));
  const Failure failure = FailureOf(
      [&] { Registry::SetRegistryValue(std::string("text"), key, "Busy", ValueKind::Bytes); });
  EXPECT_EQ(failure.Number(), 26001);
  EXPECT_EQ(failure.Description(), "");
}

TEST_F(RegistryTest, OtherTypesCannotBeWritten) {
  for (const ValueKind type : {ValueKind::TextList, ValueKind::BigEndianNumber}) {
    EXPECT_EQ(FailureOf([&] {
                Registry::SetRegistryValue(std::string("x"), key, "Busy", type);
              }).Number(),
              kTypeMismatch);
  }
}

TEST_F(RegistryTest, ConvertsAnEmptyValue) {
  EXPECT_TRUE(std::get<bool>(Read(RegistryConversion::Flag)));
  EXPECT_EQ(std::get<std::string>(Read(RegistryConversion::Text)), "");
  EXPECT_EQ(std::get<std::int32_t>(Read(RegistryConversion::Integer32)), 0);
  EXPECT_EQ(std::get<std::int16_t>(Read(RegistryConversion::Integer16)), 0);
  EXPECT_EQ(std::get<float>(Read(RegistryConversion::Single)), 0.0F);
}

TEST_F(RegistryTest, ConvertsAText) {
  Stored() = {ValueKind::Text, "12.5", 0};
  EXPECT_TRUE(std::get<bool>(Read(RegistryConversion::Flag)));
  EXPECT_EQ(std::get<std::int32_t>(Read(RegistryConversion::Integer32)), 12);
  EXPECT_EQ(std::get<std::int16_t>(Read(RegistryConversion::Integer16)), 12);
  EXPECT_EQ(std::get<float>(Read(RegistryConversion::Single)), 12.5F);
  EXPECT_EQ(std::get<std::string>(Read(RegistryConversion::None)), "12.5");
}

TEST_F(RegistryTest, OnlyZeroIsAFalseFlag) {
  Stored() = {ValueKind::Text, "0", 0};
  EXPECT_FALSE(std::get<bool>(Read(RegistryConversion::Flag)));
  Stored() = {ValueKind::Number, "", 0};
  EXPECT_FALSE(std::get<bool>(Read(RegistryConversion::Flag)));
  Stored() = {ValueKind::Number, "", -1};
  EXPECT_TRUE(std::get<bool>(Read(RegistryConversion::Flag)));
  Stored() = {ValueKind::Text, "yes", 0};
  EXPECT_TRUE(std::get<bool>(Read(RegistryConversion::Flag)));
}

TEST_F(RegistryTest, KnowsWhetherAKeyExists) {
  EXPECT_FALSE(key.KeyExists());
  registry.WriteText(kSection, "Busy", "x");
  EXPECT_TRUE(key.KeyExists());
}

TEST_F(RegistryTest, CreatingAKeyFailsEvenWhenItWorks) {
  const Failure failure = FailureOf([&] { key.CreateKey(); });
  EXPECT_EQ(failure.Number(), 26001);
  EXPECT_EQ(failure.Description(), "Failed to create registry Key: 'Software\\Brenwick\\Text");
  EXPECT_EQ(failure.Source(), "brenwick.cRegistry");
  EXPECT_TRUE(key.KeyExists());
}

TEST_F(RegistryTest, TellsWhatCouldNotBeDeleted) {
  EXPECT_EQ(FailureOf([&] { key.DeleteKey(); }).Description(),
            "Failed to delete registry Key: '-2147483647',Section: 'Software\\Brenwick\\Text");
  EXPECT_EQ(FailureOf([&] { Registry::DeleteRegistryValue(key, "Busy"); }).Description(),
            "Failed to open key '-2147483647',Section: 'Software\\Brenwick\\Text' for delete "
            "access");
  registry.WriteText(kSection, "Away", "x");
  EXPECT_EQ(FailureOf([&] { Registry::DeleteRegistryValue(key, "Busy"); }).Description(),
            "Failed to delete registry Key: '-2147483647',Section: "
            "'Software\\Brenwick\\Text',Key: 'Busy");
}

TEST_F(RegistryTest, DeletesAValueAndAKey) {
  registry.WriteText(kSection, "Busy", "x");
  Registry::DeleteRegistryValue(key, "Busy");
  EXPECT_TRUE(store.keys[kSection].empty());
  key.DeleteKey();
  EXPECT_FALSE(key.KeyExists());
}

TEST_F(RegistryTest, TellsWhatCouldNotBeWritten) {
  store.broken = true;
  const Failure failure = FailureOf([&] { registry.WriteText(kSection, "Busy", "at work"); });
  EXPECT_EQ(failure.Number(), 26001);
  EXPECT_EQ(failure.Source(), "brenwick.cRegistry");
  EXPECT_EQ(failure.Description(),
            "Failed to set registry value Key: '-2147483647',Section: "
            "'Software\\Brenwick\\Text',Key: 'Busy' to value: 'at work'");
}

}  // namespace
}  // namespace brenwick
