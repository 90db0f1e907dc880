// Whatever a stranger sends, nothing crashes, hangs or runs, and the next sentence is heard.
#include <gtest/gtest.h>

#include <filesystem>

#include "real/SpokenProgram.h"

namespace brenwick {
namespace {

const std::string kSentence = SpokenProgram::Message("the boat leaves at seven tomorrow morning");

std::string Repeated(const std::string& text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

struct Hostile {
  std::string name;
  std::string text;
};

void PrintTo(const Hostile& hostile, std::ostream* out) { *out << hostile.name; }

class HostileMessages : public testing::TestWithParam<Hostile> {};

TEST_P(HostileMessages, LeaveTheNextSentenceAsItWas) {
  SpokenProgram program;
  const Sound before = program.Hear({kSentence});
  // What is hostile is cut off with the silence key, as a listener would.
  program.Play({SpokenProgram::Message(GetParam().text), R"({"click":"chkScrollLock"})",
                R"({"click":"chkScrollLock"})", R"({"hotkey":"ocxHotKeySilent"})"});
  const Sound after = program.Hear({kSentence});
  // The engine's voices have a little chance in them, so that no two sentences are quite alike.
  EXPECT_GT(Rms(before), 300);
  EXPECT_NEAR(Seconds(after) / Seconds(before), 1, 0.03);
  EXPECT_NEAR(FundamentalHz(after) / FundamentalHz(before), 1, 0.03);
  EXPECT_NEAR(Rms(after) / Rms(before), 1, 0.1);
}

const std::string kControlCharacters = [] {
  std::string all;
  for (char c = 1; c < 32; ++c) all += c;
  return "a" + all + "b\x01" + "90P\x01" + "5S\x7F";
}();

INSTANTIATE_TEST_SUITE_P(
    , HostileMessages,
    testing::Values(Hostile{"ControlCharacters", kControlCharacters},
                    Hostile{"InvalidUtf8", "caf\xC3 \xFF\xFE \xED\xA0\x80 \xF8\x88\x80\x80\x80"},
                    Hostile{"Phonemes", "[[h@'loU]] [["},
                    Hostile{"Ampersands", "a & b &amp &; &#1;"},
                    Hostile{"EndOfCdata", "]]> <![CDATA["},
                    Hostile{"Markup", "<audio src=\"/etc/passwd\"/> <speak> <!-- <?xml"},
                    Hostile{"OneMillionOfOneLetter", std::string(1'000'000, 'a')},
                    Hostile{"OneMillionBrackets", std::string(1'000'000, '[')},
                    Hostile{"TwoThousandEmoji", Repeated("😀", 2000)},
                    Hostile{"RightToLeft", "\u202Eשלום עולם\u202C مرحبا بالعالم \u200F\u2067"},
                    Hostile{"Devanagari",
                            "नमस्ते दुनिया क्ष्म्य ज़्रा "
                            "र्‍क"},
                    Hostile{"Combining", "z" + Repeated("\u0351\u0489", 3000)},
                    Hostile{"Digits", std::string(5000, '9')}),
    [](const auto& test) { return test.param.name; });

TEST(HostileMarkup, RunsNoCommand) {
  SpokenProgram program;
  const std::filesystem::path proof = program.Voice().Folder() / "command-ran";
  const std::string command = "$(touch " + proof.string() + ")";
  for (const std::string& text :
       {"<audio src=\"" + command + "\"/>", "&lt;audio src=\"" + command + "\"/&gt;",
        "&#60;audio src=\"" + command + "\"/&#62;", "&amp;lt;audio src='" + command + "'/&amp;gt;",
        "<audio src=`touch " + proof.string() + "`>x</audio>",
        std::string(990, 'x') + " <audio src=\"" + command + "\"/>"}) {
    program.Play({SpokenProgram::Message(text)});
  }
  EXPECT_GT(Rms(program.Hear({kSentence})), 300);
  EXPECT_FALSE(std::filesystem::exists(proof));
}

}  // namespace
}  // namespace brenwick
