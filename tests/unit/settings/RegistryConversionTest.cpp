// What a stored value becomes on reading, and what a failed call tells.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "settings/Registry.h"
#include "support/Fakes.h"
#include "support/MapStore.h"

namespace brenwick {
namespace {

class RegistryConversionTest : public testing::Test {
 protected:
  RegistryVariant Read(RegistryConversion c) {
    return Registry::GetRegistryValue(key, "Busy", c, ValueKind::Text);
  }
  std::int32_t FailureOf(RegistryConversion c) {
    try {
      Read(c);
    } catch (const Failure& f) {
      return f.Number();
    }
    return 0;
  }
  RegistryValue& Stored() { return store.keys["K"]["Busy"]; }
  FakeFolders folders;
  MapStore store;
  Registry registry{store, folders};
  cRegistry key = registry.OpenRegistryKey("K");
};

TEST_F(RegistryConversionTest, CurrencyHasFourDecimals) {
  EXPECT_EQ(std::get<double>(Read(RegistryConversion::Currency)), 0.0);  // missing
  const std::vector<std::pair<std::string, double>> cases = {{"", 0},
                                                             {"12.5", 12.5},
                                                             {"12.34567", 12.3457},
                                                             {"-12.34567", -12.3457},
                                                             {"0.00004", 0},
                                                             {"0.00006", 0.0001},
                                                             {" 7 ", 7}};
  for (const auto& [text, expected] : cases) {
    Stored() = {ValueKind::Text, text, 0};
    EXPECT_EQ(std::get<double>(Read(RegistryConversion::Currency)), expected) << text;
  }
  Stored() = {ValueKind::Number, "", -300};
  EXPECT_EQ(std::get<double>(Read(RegistryConversion::Currency)), -300.0);
}

TEST_F(RegistryConversionTest, RoundsHalvesToEven) {
  for (const auto& [text, expected] : std::vector<std::pair<std::string, int>>{
           {"0.5", 0}, {"1.5", 2}, {"2.5", 2}, {"-1.5", -2}, {"12.6", 13}}) {
    Stored() = {ValueKind::Text, text, 0};
    EXPECT_EQ(std::get<std::int32_t>(Read(RegistryConversion::Integer32)), expected) << text;
    EXPECT_EQ(std::get<std::int16_t>(Read(RegistryConversion::Integer16)), expected) << text;
  }
}

TEST_F(RegistryConversionTest, WhatIsNoNumberOrTooLargeIsAFailure) {
  Stored() = {ValueKind::Text, "2147483648", 0};
  EXPECT_EQ(FailureOf(RegistryConversion::Integer32), kOverflow);
  Stored() = {ValueKind::Text, "32768", 0};
  EXPECT_EQ(FailureOf(RegistryConversion::Integer16), kOverflow);
  EXPECT_EQ(FailureOf(RegistryConversion::Integer32), 0);
  Stored() = {ValueKind::Bytes, "1", 0};
  for (const auto c : {RegistryConversion::Integer32, RegistryConversion::Currency,
                       RegistryConversion::Integer16, RegistryConversion::Single}) {
    EXPECT_EQ(FailureOf(c), kTypeMismatch);
  }
  EXPECT_TRUE(std::get<bool>(Read(RegistryConversion::Flag)));
  Stored() = {ValueKind::BigEndianNumber, "1234", 0};
  EXPECT_EQ(std::get<std::int32_t>(Read(RegistryConversion::Integer32)), 0);
  EXPECT_TRUE(std::get<bool>(Read(RegistryConversion::Flag)));
}

TEST_F(RegistryConversionTest, RegistersTheProgramForAFileType) {
  cRegistry type = registry.OpenRegistryKey("Software\\Classes\\Brenwick.List");
  type.CreateEXEAssociation("/program/brenwick", "/program/brenwick,0");
  EXPECT_EQ(store.keys["Software\\Classes\\Brenwick.List\\shell\\open\\command"][""],
            (RegistryValue{ValueKind::Text, "/program/brenwick \"%1\"", 0}));
  EXPECT_EQ(store.keys["Software\\Classes\\Brenwick.List\\DefaultIcon"][""],
            (RegistryValue{ValueKind::Text, "/program/brenwick,0", 0}));
  EXPECT_EQ(store.keys.size(), 2U);
  EXPECT_EQ(type.SectionKey, "Software\\Classes\\Brenwick.List");
}

TEST_F(RegistryConversionTest, EachKindOfWriteTellsItsFailure) {
  store.broken = true;
  const auto text = [&](const RegistryVariant& value, ValueKind type) {
    try {
      Registry::SetRegistryValue(value, key, "Busy", type);
    } catch (const Failure& f) {
      return std::to_string(f.Number()) + f.Description();
    }
    return std::string("none");
  };
  const std::string start =
      "26001Failed to set registry value Key: '-2147483647',Section: 'K',Key: 'Busy' to value: '";
  EXPECT_EQ(text(std::int32_t{300}, ValueKind::Number), start + "300'");
  EXPECT_EQ(text(std::vector<std::uint8_t>{1}, ValueKind::Bytes), start + "'");
  EXPECT_EQ(text(std::string("300"), ValueKind::Number), "none");
}

TEST_F(RegistryConversionTest, NumberBeyond32BitsIsNoDword) {
  EXPECT_THROW(Registry::SetRegistryValue(3e9F, key, "Busy", ValueKind::Number), Failure);
  Registry::SetRegistryValue(
      3e9, key, "Busy",
      ValueKind::Number);  // a double is no kind that a ValueKind::Number takes
  EXPECT_FALSE(store.keys["K"].contains("Busy"));
}

TEST_F(RegistryConversionTest, ValueThatIsNoTextIsWrittenAsOne) {
  Registry::SetRegistryValue(true, key, "Busy", ValueKind::Text);
  EXPECT_EQ(Stored(), (RegistryValue{ValueKind::Text, "True", 0}));
  try {
    Registry::SetRegistryValue(std::vector<std::uint8_t>{1}, key, "Busy", ValueKind::Text);
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kTypeMismatch);
  }
}

TEST_F(RegistryConversionTest, MessagesNameTheRootOfTheAccess) {
  key.ClassKey = -2147483646;
  try {
    key.DeleteKey();
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Description(), "Failed to delete registry Key: '-2147483646',Section: 'K");
  }
}

}  // namespace
}  // namespace brenwick
