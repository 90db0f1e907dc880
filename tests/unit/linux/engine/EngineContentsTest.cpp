// What the messages between the program and its engine's process hold, written well and otherwise.
#include "linux/engine/EngineContents.h"

#include <gtest/gtest.h>

#include <array>

namespace brenwick {
namespace {

using Samples = std::vector<std::int16_t>;

TEST(EngineContents, AreReadAsTheyWereWritten) {
  const std::vector<EngineVoice> voices = {{"German: eSpeak NG", "gmw/de", "de", false},
                                           {"Grün, female: eSpeak NG", "gmw/de+f2", "", true}};
  EXPECT_EQ(VoicesIn(VoicesContent(voices)), voices);
  const EngineUse use{"gmw/de+f2", -10, 100};
  EXPECT_EQ(UseIn(UseContent(use)), use);
  const Samples samples = {0, 1, -1, 32767, -32768};
  EXPECT_EQ(SamplesIn(SamplesContent(samples)), samples);
  EXPECT_EQ(SampleRateIn("22050"), 22050);
}

// A line end within a voice's name would end the name where it is sent back.
TEST(EngineContents, HoldNoVoiceThatIsWrittenBadly) {
  for (const char* line :
       {"", "a", "a\tb\tc", "a\tb\tc\tx", "a\tb\tc\tff", "a\tb\tc\td\tf", "\tb\tc\tf", "a\tb\t\tf",
        "a\xFF\tb\tc\tf", "a\rb\tb\tc\tf", "a\nb\tc"}) {
    const std::string content = std::string(line) + "\nid\tde\tGerman\tm\n";
    EXPECT_EQ(VoicesIn(content), (std::vector<EngineVoice>{{"German", "id", "de", false}})) << line;
  }
}

TEST(EngineContents, HoldNothingToUseThatIsWrittenBadly) {
  for (const char* content : {"", "a", "a\n1", "a\n1\n", "a\n1\nx", "a\n1\n2\n", "a\n1 \n2",
                              "a\n99999999999\n1", "a\nb\n1\n2"}) {
    EXPECT_EQ(UseIn(content), std::nullopt) << content;
  }
}

TEST(EngineContents, HoldNoRateThatNoDeviceHas) {
  for (const char* content : {"", "x", "0", "-8000", "8000x", "2000000000", "99999999999"}) {
    EXPECT_EQ(SampleRateIn(content), 0) << content;
  }
}

TEST(EngineContents, HoldWholeSamples) {
  EXPECT_EQ(SamplesIn(""), Samples{});
  EXPECT_EQ(SamplesIn("x"), Samples{});
  EXPECT_EQ(SamplesIn(std::string_view("\1\0\2", 3)), Samples{1});
}

}  // namespace
}  // namespace brenwick
