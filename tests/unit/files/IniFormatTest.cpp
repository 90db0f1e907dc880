#include "files/IniFormat.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace brenwick {
namespace {

constexpr const char* kKey = "Software\\Brenwick\\General";

RegistryValue Text(std::string text) { return {ValueKind::Text, std::move(text), 0}; }

TEST(IniFormat, RefusesEveryLineThatIsNone) {
  for (const std::string line : {"garbage",
                                 "a",
                                 "a =",
                                 "a = \"",
                                 "a = \"b",
                                 "a = \"b\\\"",
                                 "a = \"b\" c",
                                 "= \"b\"",
                                 "a = b",
                                 "a = 1x",
                                 "a = -",
                                 "a = dword:",
                                 "a = dword:x",
                                 "a = dword:1x",
                                 "a = dword:2147483648",
                                 "a = hex:0",
                                 "a = hex:00 f",
                                 "a = hex:0g",
                                 "a = hex:-1",
                                 "a = hex(:00",
                                 "a = hex(5:00",
                                 "a = hex(1):00",
                                 "a = hex(4):00",
                                 "a = expand:",
                                 "a = multi:x",
                                 "a = exp",
                                 "[",
                                 "[]",
                                 "[a",
                                 "[a] b",
                                 "[\"a]",
                                 "[\"a\"",
                                 "[a\\]",
                                 "[a\\\\b]",
                                 "\"a = \"b\"",
                                 "\"a\" \"b\""}) {
    EXPECT_FALSE(FromIni("[key]\nx = \"1\"\n" + line + "\n")) << line;
  }
  EXPECT_FALSE(FromIni(std::string("a = \"\0\"\n", 8)));
  EXPECT_FALSE(FromIni(std::string(4096, '\0')));
  EXPECT_FALSE(FromIni("a = \"\x01\"\n"));
  EXPECT_FALSE(FromIni("[" + std::string(100'000, 'a') + "]\n"));
}

// Nothing but the missing rest of the last line can go unseen, and that only between two lines.
TEST(IniFormat, SeesThatALineIsCutOff) {
  IniData data;
  data.Write(kKey, "Introduce", Text("one \"two\" \\"));
  data.Write(kKey, "Path", {ValueKind::ExpandableText, "%HOME%/x", 0});
  const std::string whole = ToIni(data);
  int seen = 0;
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto cut = FromIni(std::string_view(whole).substr(0, length));
    if (!cut) {
      ++seen;
      continue;
    }
    for (const std::string& name : cut->ValueNames(kKey)) {
      EXPECT_EQ(cut->Find(kKey, name), data.Find(kKey, name)) << length;
    }
  }
  EXPECT_GT(seen, 60);
}

TEST(IniFormat, TakesAnyBytes) {
  std::mt19937 random(7);
  constexpr std::string_view kBytes = "[]\"\"\\=#;\n\n\r\tax1- :()hex:dword:expand:\xC3\xA4\xFF";
  for (int i = 0; i < 20'000; ++i) {
    std::string content;
    for (std::size_t left = random() % 40; left > 0; --left)
      content += kBytes[random() % kBytes.size()];
    const auto data = FromIni(content);
    if (data) {
      EXPECT_EQ(FromIni(ToIni(*data)), data) << content;
    }
  }
}

}  // namespace
}  // namespace brenwick
