#include "contract/RegistryStoreContract.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include "files/IniStore.h"
#include "support/TestClock.h"

namespace brenwick {
namespace {

constexpr const char* kKey = "Software\\Brenwick\\General";

// The store with what it needs to live.
class OwnIniStore : private TestClock, public IniStore {
 public:
  explicit OwnIniStore(const std::string& folder)
      : IniStore(folder + "/settings/store.ini", *this,
                 [](const std::string& message) { ADD_FAILURE() << message; }) {}
};

std::vector<RegistryStoreImplementation> Implementations() {
  return {
      {"Ini", [](const std::string& folder) { return std::make_unique<OwnIniStore>(folder); }},
  };
}

RegistryValue Text(std::string text) { return {ValueKind::Text, std::move(text), 0}; }
RegistryValue Number(std::int32_t number) { return {ValueKind::Number, {}, number}; }

std::vector<std::string> Sorted(std::vector<std::string> names) {
  std::sort(names.begin(), names.end());
  return names;
}

using Names = std::vector<std::string>;

std::string RandomText(std::mt19937& random) {
  const Names pieces = {" ",
                        "\"",
                        "\\",
                        "\n",
                        "\r",
                        "\t",
                        "%",
                        "#",
                        ";",
                        "=",
                        "[",
                        "]",
                        "x",
                        "n",
                        "\\x",
                        "ä",
                        "😀",
                        ":",
                        "hex:",
                        "1",
                        "\x7F",
                        "\x01",
                        std::string(1, '\0')};
  std::string text;
  for (std::size_t left = random() % 12; left > 0; --left) text += pieces[random() % pieces.size()];
  return text;
}

RegistryValue RandomValue(std::mt19937& random) {
  constexpr ValueKind kTypes[] = {
      ValueKind::Text,   ValueKind::ExpandableText,  ValueKind::Bytes,
      ValueKind::Number, ValueKind::BigEndianNumber, ValueKind::TextList};
  const ValueKind type = kTypes[random() % std::size(kTypes)];
  if (type == ValueKind::Number) return Number(static_cast<std::int32_t>(random()));
  if (type != ValueKind::Bytes && type != ValueKind::BigEndianNumber)
    return {type, RandomText(random), 0};
  std::string bytes(random() % 6, ' ');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return {type, bytes, 0};
}

TEST_P(RegistryStoreContract, IsEmptyAtFirst) {
  EXPECT_FALSE(store_->KeyExists(kKey));
  EXPECT_FALSE(store_->ReadValue(kKey, "Introduce"));
  EXPECT_TRUE(store_->ValueNames(kKey).empty());
  EXPECT_TRUE(store_->SubKeys(kKey).empty());
  EXPECT_FALSE(store_->DeleteKey(kKey));
  EXPECT_FALSE(store_->DeleteValue(kKey, "Introduce"));
}

TEST_P(RegistryStoreContract, KeepsAValueForGood) {
  EXPECT_TRUE(store_->WriteValue(kKey, "Introduce", Text("1")));
  EXPECT_EQ(store_->ReadValue(kKey, "Introduce"), Text("1"));
  EXPECT_EQ(Another()->ReadValue(kKey, "Introduce"), Text("1"));
  EXPECT_TRUE(store_->WriteValue(kKey, "Introduce", Number(-7)));
  EXPECT_EQ(Another()->ReadValue(kKey, "Introduce"), Number(-7));
}

TEST_P(RegistryStoreContract, MakesAKeyWithAllAboveIt) {
  EXPECT_TRUE(store_->CreateKey(kKey));
  EXPECT_TRUE(store_->CreateKey(kKey));
  for (const char* key : {"Software", "Software\\Brenwick", kKey}) {
    EXPECT_TRUE(store_->KeyExists(key)) << key;
    EXPECT_TRUE(Another()->KeyExists(key)) << key;
  }
  EXPECT_FALSE(store_->KeyExists("Brenwick"));
  EXPECT_FALSE(store_->KeyExists("Software\\Bren"));
}

TEST_P(RegistryStoreContract, IgnoresCaseAndKeepsNamesAsFirstWritten) {
  EXPECT_TRUE(store_->WriteValue("Software\\Über", "Größe", Text("1")));
  EXPECT_TRUE(store_->WriteValue("SOFTWARE\\ÜBER\\Below", "x", Text("2")));
  EXPECT_TRUE(store_->WriteValue("software\\ÜBER", "GRÖßE", Text("3")));
  const auto another = Another();
  for (RegistryStore* store : {store_.get(), another.get()}) {
    EXPECT_EQ(store->ReadValue("sOFTWARE\\über", "größe"), Text("3"));
    EXPECT_EQ(store->ValueNames("software\\über"), Names{"Größe"});
    EXPECT_EQ(store->SubKeys(""), Names{"Software"});
    EXPECT_EQ(store->SubKeys("SOFTWARE"), Names{"Über"});
  }
}

TEST_P(RegistryStoreContract, ListsValuesAndTheNextKeysBelow) {
  for (const char* key : {"A\\one\\deep", "A\\two", "A b\\three", "A\\one"}) store_->CreateKey(key);
  for (const char* name : {"y", "x", "Male Voice"}) store_->WriteValue("A", name, Text(name));
  EXPECT_EQ(Sorted(store_->SubKeys("A")), (Names{"one", "two"}));
  EXPECT_EQ(Sorted(store_->SubKeys("")), (Names{"A", "A b"}));
  EXPECT_EQ(Sorted(store_->ValueNames("A")), (Names{"Male Voice", "x", "y"}));
  EXPECT_TRUE(store_->ValueNames("A\\one").empty());
}

TEST_P(RegistryStoreContract, DeletesAValue) {
  store_->WriteValue(kKey, "Mute", Text("1"));
  store_->WriteValue(kKey, "Debug", Text("0"));
  EXPECT_TRUE(store_->DeleteValue(kKey, "MUTE"));
  EXPECT_FALSE(store_->DeleteValue(kKey, "Mute"));
  EXPECT_FALSE(Another()->ReadValue(kKey, "Mute"));
  EXPECT_EQ(Another()->ReadValue(kKey, "Debug"), Text("0"));
  EXPECT_TRUE(store_->DeleteValue(kKey, "Debug"));
  EXPECT_TRUE(Another()->KeyExists(kKey));
}

TEST_P(RegistryStoreContract, DeletesAKeyWithItsValuesOnceNothingLiesBelow) {
  store_->WriteValue(kKey, "Mute", Text("1"));
  EXPECT_FALSE(store_->DeleteKey("Software\\Brenwick"));
  EXPECT_TRUE(store_->DeleteKey("software\\brenwick\\GENERAL"));
  EXPECT_FALSE(store_->ReadValue(kKey, "Mute"));
  EXPECT_FALSE(Another()->KeyExists(kKey));
  EXPECT_TRUE(Another()->KeyExists("Software\\Brenwick"));
  EXPECT_TRUE(store_->DeleteKey("Software\\Brenwick"));
  EXPECT_FALSE(Another()->KeyExists("Software\\Brenwick"));
}

TEST_P(RegistryStoreContract, RefusesKeysThatCannotBe) {
  for (const char* key : {"\\", "\\Software", "Software\\", "Software\\\\Brenwick"}) {
    EXPECT_FALSE(store_->CreateKey(key)) << key;
    EXPECT_FALSE(store_->WriteValue(key, "x", Text("1"))) << key;
    EXPECT_FALSE(store_->KeyExists(key)) << key;
  }
  EXPECT_FALSE(store_->DeleteKey(""));
  EXPECT_TRUE(store_->KeyExists(""));
}

TEST_P(RegistryStoreContract, GivesEveryTypeBackAsItWas) {
  const std::vector<RegistryValue> values = {
      Text(""),
      Text("  spaces at both ends  "),
      Text("%HOME% \\ \"quoted\"\r\n\ttab #no comment ;nor this = \\n \\x41"),
      Text(std::string("\0\x01\x1F\x7F", 4)),
      Text("עברית 😀 \xC2\x85 \xE2\x80\xA8"),
      Text(std::string(100'000, 'a')),
      {ValueKind::ExpandableText, "%HOME%/x", 0},
      {ValueKind::TextList, std::string("one\0two\0", 8), 0},
      {ValueKind::Bytes, std::string("\0\xFF\n", 3), 0},
      {ValueKind::Bytes, "", 0},
      {ValueKind::BigEndianNumber, std::string("\0\0\1\x2C", 4), 0},
      Number(0),
      Number(std::numeric_limits<std::int32_t>::min()),
      Number(std::numeric_limits<std::int32_t>::max()),
  };
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_TRUE(store_->WriteValue(kKey, std::to_string(i), values[i]));
  }
  const auto another = Another();
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(store_->ReadValue(kKey, std::to_string(i)), values[i]) << i;
    EXPECT_EQ(another->ReadValue(kKey, std::to_string(i)), values[i]) << i;
  }
}

TEST_P(RegistryStoreContract, TakesAwkwardNames) {
  const Names names = {
      "",   " ",   " a ",  "=",  "a=b",  "\"", "\"a\"", "[a]",     "]", "#a",
      ";a", "a#b", "a\nb", "\\", "a\\b", "\t", "1",     "dword:1", "ä", std::string("a\0b", 3)};
  for (const std::string& name : names) {
    EXPECT_TRUE(store_->WriteValue(kKey, name, Text(name))) << name;
    if (name.empty() || name.find('\\') != std::string::npos) continue;
    EXPECT_TRUE(store_->WriteValue("Awkward\\" + name, name, Text(name))) << name;
  }
  const auto another = Another();
  for (const std::string& name : names) {
    EXPECT_EQ(another->ReadValue(kKey, name), Text(name)) << name;
    if (name.empty() || name.find('\\') != std::string::npos) continue;
    EXPECT_EQ(another->ReadValue("Awkward\\" + name, name), Text(name)) << name;
  }
  EXPECT_EQ(Sorted(another->ValueNames(kKey)), Sorted(names));
}

TEST_P(RegistryStoreContract, GivesRandomValuesBackAsTheyWere) {
  std::mt19937 random(20040110);
  std::vector<std::pair<std::string, RegistryValue>> written;
  Batch batch(*store_);
  for (int i = 0; i < 3'000; ++i) {
    written.emplace_back(std::to_string(i) + RandomText(random), RandomValue(random));
    EXPECT_TRUE(store_->WriteValue(kKey, written.back().first, written.back().second));
  }
  EXPECT_TRUE(batch.Flush());
  const auto another = Another();
  for (const auto& [name, value] : written)
    EXPECT_EQ(another->ReadValue(kKey, name), value) << name;
}

TEST_P(RegistryStoreContract, RepairsTextsThatAreNoUtf8) {
  EXPECT_TRUE(store_->WriteValue(kKey, "a\xFF", Text("b\x80")));
  EXPECT_EQ(store_->ReadValue(kKey, "a\xFF"), Text("b\xEF\xBF\xBD"));
  EXPECT_EQ(Another()->ReadValue(kKey, "a\xEF\xBF\xBD"), Text("b\xEF\xBF\xBD"));
}

TEST_P(RegistryStoreContract, ShowsHeldChangesAtOnceAndKeepsThem) {
  store_->WriteValue(kKey, "Gone", Text("1"));
  Batch batch(*store_);
  EXPECT_TRUE(store_->WriteValue(kKey, "Mute", Text("1")));
  EXPECT_TRUE(store_->DeleteValue(kKey, "Gone"));
  EXPECT_FALSE(store_->DeleteValue(kKey, "Gone"));
  EXPECT_TRUE(store_->CreateKey("Software\\Brenwick\\Grids"));
  EXPECT_EQ(store_->ReadValue(kKey, "Mute"), Text("1"));
  EXPECT_EQ(store_->ValueNames(kKey), Names{"Mute"});
  EXPECT_TRUE(batch.Flush());
  EXPECT_EQ(Another()->ReadValue(kKey, "Mute"), Text("1"));
  EXPECT_FALSE(Another()->ReadValue(kKey, "Gone"));
  EXPECT_TRUE(Another()->KeyExists("Software\\Brenwick\\Grids"));
}

TEST_P(RegistryStoreContract, NestsHoldsAndFlushesAtTheEndOfABlock) {
  {
    const Batch outer(*store_);
    {
      Batch inner(*store_);
      store_->WriteValue(kKey, "a", Text("1"));
      EXPECT_TRUE(inner.Flush());
      EXPECT_TRUE(inner.Flush());
    }
    store_->WriteValue(kKey, "b", Text("2"));
    EXPECT_EQ(store_->ReadValue(kKey, "a"), Text("1"));
  }
  EXPECT_TRUE(store_->Flush());
  EXPECT_EQ(Another()->ReadValue(kKey, "a"), Text("1"));
  EXPECT_EQ(Another()->ReadValue(kKey, "b"), Text("2"));
  EXPECT_TRUE(store_->WriteValue(kKey, "c", Text("3")));
  EXPECT_EQ(Another()->ReadValue(kKey, "c"), Text("3"));
}

TEST_P(RegistryStoreContract, ExpandsTheEnvironment) {
  ::setenv("BRENWICK_TEST", "va%lue", 1);
  ::unsetenv("BRENWICK_NONE");
  const std::pair<const char*, const char*> texts[] = {
      {"", ""},
      {"%BRENWICK_TEST%", "va%lue"},
      {"a%BRENWICK_TEST%b%BRENWICK_TEST%", "ava%luebva%lue"},
      {"%BRENWICK_NONE%/x", "%BRENWICK_NONE%/x"},
      {"%BRENWICK_NONE%BRENWICK_TEST%", "%BRENWICK_NONEva%lue"},
      {"100% of %BRENWICK_TEST%", "100% of va%lue"},
      {"%%", "%%"},
      {"50%", "50%"},
  };
  for (const auto& [text, expanded] : texts) {
    EXPECT_EQ(store_->ExpandEnvironment(text), expanded) << text;
  }
  ::unsetenv("BRENWICK_TEST");
}

INSTANTIATE_TEST_SUITE_P(Each, RegistryStoreContract, testing::ValuesIn(Implementations()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brenwick
