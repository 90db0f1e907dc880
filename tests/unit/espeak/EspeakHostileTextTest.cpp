// Texts that someone sends to do harm, and texts that only look like it. Whatever was said, the
// next sentence is said as if nothing had been.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/Sound.h"
#include "support/SpeakingToFile.h"
#include "voice/WavFile.h"

namespace brenwick {
namespace {

constexpr const char* kSentence = "You have a new message from somebody you know.";
constexpr int kMarkup = SVSFlagsAsync + SVSFIsXML;
constexpr int kPurge = SVSFlagsAsync + SVSFPurgeBeforeSpeak;

// The engine adds a little noise to its sounds, and the length of the pause before a sentence
// depends on the one before it, so no two are quite the same.
void ExpectSameSpeech(const Sound& a, const Sound& b, const std::string& what) {
  EXPECT_NEAR(Seconds(Trimmed(a)), Seconds(Trimmed(b)), 0.03) << what;
  EXPECT_NEAR(Rms(Trimmed(a)), Rms(Trimmed(b)), 0.15 * Rms(Trimmed(b))) << what;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
    text.replace(at, from.size(), to);
    at += to.size();
  }
  return text;
}

// The ways to write a tag's brackets that something on the way might decode.
std::vector<std::string> Disguises(const std::string& tag) {
  std::vector<std::string> disguises{tag};
  for (const char* bracket : {"&lt;", "&#60;", "&#x3c;", "&#x3C;", "&#0060;", "&amp;lt;",
                              "&amp;#60;", "&amp;amp;lt;", "&#38;lt;", "&#38;#60;", "&LT;", "\x01<",
                              "<\x01", "\xC0\xBC", "\xEF\xBC\x9C", "\xFE\x1A", "<\xFF"}) {
    disguises.push_back(Replaced(tag, "<", bracket));
    disguises.push_back(Replaced(Replaced(tag, "<", bracket), ">", "&gt;"));
  }
  disguises.push_back("<speak>" + tag + "</speak>");
  disguises.push_back("<?xml version=\"1.0\"?><speak xml:base=\"\">" + tag);
  disguises.push_back("<![CDATA[" + tag + "]]>" + tag);
  disguises.push_back("&quot;>" + tag);
  return disguises;
}

class EspeakHostileText : public testing::Test {
 protected:
  void SayToTheEnd(const std::string& text, int flags) {
    voice_.Speak(text, flags);
    ASSERT_TRUE(voice_.WaitUntilSilent(std::chrono::seconds(60)));
  }

  // Says the text and compares the sentence behind it with the same one before it.
  void ExpectNoTraceOf(const std::string& text, int flags) {
    const Sound before = voice_.Said(kSentence);
    SayToTheEnd(text, flags);
    ExpectSameSpeech(voice_.Said(kSentence), before, text.substr(0, 100));
  }

  SpeakingToFile voice_;
};

// A sound file such as someone may send: an engine that follows an audio tag to it converts it to
// its own sample rate by a shell command, and the shell then runs the one in the file's name.
class EspeakHostileFile : public EspeakHostileText {
 protected:
  EspeakHostileFile() {
    constexpr int kOtherRate = 8000;
    constexpr std::int16_t kSilence[100] = {};
    WavFile(sound_file_, kOtherRate, WavFile::Pace::kAtOnce).Write(kSilence);
    std::filesystem::current_path(voice_.Folder());
    voice_.SetRate(10);
  }
  ~EspeakHostileFile() override { std::filesystem::current_path(former_folder_); }

  bool CommandRan() const { return std::filesystem::exists(voice_.Folder() / "ran"); }

  const std::filesystem::path former_folder_ = std::filesystem::current_path();
  const std::filesystem::path sound_file_ = voice_.Folder() / "$(touch ran)";
};

TEST_F(EspeakHostileFile, RunsNoCommandWhateverTheFlags) {
  const std::string source = "<audio src=\"" + sound_file_.string();
  for (const std::string& text : {source + "\" />", source + "\">x</audio>"}) {
    for (int flags = 0; flags < 32; ++flags) {
      SayToTheEnd(text, flags);
      ASSERT_FALSE(CommandRan()) << text << flags;
    }
  }
  EXPECT_GT(Rms(voice_.Recorded()), 300);
}

TEST_F(EspeakHostileFile, RunsNoCommandInDisguise) {
  for (const std::string& text : Disguises("<audio src=\"" + sound_file_.string() + "\" />")) {
    for (const int flags : {1, 9}) {
      SayToTheEnd(text, flags);
      ASSERT_FALSE(CommandRan()) << text;
    }
  }
  EXPECT_GT(Rms(voice_.Recorded()), 300);
}

TEST_F(EspeakHostileFile, RunsNoCommandThatIsCutInTwo) {
  const std::string tag = "&lt;audio src=&quot;" + sound_file_.string() + "&quot; />";
  for (std::size_t before = 1000 - tag.size(); before <= 1002; before += 3) {
    // Zero-width spaces fill the first piece without a sound.
    std::string text;
    for (std::size_t i = 0; i < before; ++i) text += "\u200B";
    SayToTheEnd(text + tag + Replaced(tag, "&lt;", "<"), kMarkup);
    ASSERT_FALSE(CommandRan()) << before;
  }
  EXPECT_GT(Rms(voice_.Recorded()), 300);
}

TEST_F(EspeakHostileText, SaysAnEntityAsItsCharacterInMarkupAlone) {
  const Sound meant = voice_.Said("this & that");
  const Sound spelled = voice_.Said("this &amp; that");
  ExpectSameSpeech(voice_.Said("this &amp; that", kMarkup), meant, "&amp;");
  ExpectSameSpeech(voice_.Said("this &#38; that", kMarkup), meant, "&#38;");
  ExpectSameSpeech(voice_.Said("this & that", kMarkup), meant, "&");
  ExpectSameSpeech(voice_.Said("this &amp;amp; that", kMarkup), spelled, "&amp;amp;");
  EXPECT_GT(Seconds(spelled), Seconds(meant) + 0.1);
}

TEST_F(EspeakHostileText, SaysWhatStandsBehindATag) {
  const Sound plain = voice_.Said("Hello there, how are you?");
  for (const char* tag : {"<", "<b", "<!--", "</speak>", "]]>", "<break time=\"60s\"/>"}) {
    const Sound said = voice_.Said(tag + std::string(" Hello there, how are you?"), kMarkup);
    EXPECT_GT(Seconds(Trimmed(said)), 0.9 * Seconds(Trimmed(plain))) << tag;
    EXPECT_LT(Seconds(said), Seconds(plain) + 5) << tag;
  }
}

TEST_F(EspeakHostileText, TakesNoCommandFromControlCharacters) {
  for (const std::string command : {"\x01"
                                    "300S",
                                    "\x01"
                                    "5A",
                                    "\x01"
                                    "90P",
                                    "\x01"
                                    "1Y"}) {
    ExpectNoTraceOf(command + " Hello", SVSFlagsAsync);
    ExpectNoTraceOf("Hello " + command, kMarkup);
  }
  for (const char* reference : {"&#1;300S", "&#x1;5A", "&#x01;90P", "&#001;300S", "&#38;#1;300S"}) {
    ExpectNoTraceOf(reference + std::string(" Hello"), kMarkup);
  }
  const double pitch = FundamentalHz(voice_.Said(kSentence));
  SayToTheEnd(
      "\x01"
      "90P Hello",
      SVSFlagsAsync);
  EXPECT_NEAR(FundamentalHz(voice_.Said(kSentence)), pitch, 0.2 * pitch);
  std::string all;
  for (int c = 0; c < 0xA0; ++c) all += static_cast<char>(c);
  ExpectNoTraceOf(all, SVSFlagsAsync);
}

TEST_F(EspeakHostileText, TakesNoPhonemes) {
  // As phonemes this would be one short word.
  const Sound said = voice_.Said("[[h@l'oU]]");
  ExpectSameSpeech(said, voice_.Said("[[h@l'oU]]", kMarkup), "[[");
  EXPECT_GT(Seconds(Trimmed(said)), 1.5 * Seconds(Trimmed(voice_.Said("Hello"))));
}

TEST_F(EspeakHostileText, SurvivesWhatIsNoText) {
  for (const char* text : {"\x80\xBF", "\xFF\xFE", "\xC3(", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                           "\xF8\x88\x80\x80\x80", "Hello \xE2\x82", "\xEF\xBF\xBE"}) {
    ExpectNoTraceOf(text, SVSFlagsAsync);
    ExpectNoTraceOf(text, kMarkup);
  }
  ExpectNoTraceOf(std::string("nothing\0behind", 14), SVSFlagsAsync);
  const Sound without = voice_.Said("nothing behind");
  ExpectSameSpeech(voice_.Said(std::string("nothing \0behind", 15)), without, "NUL");
}

TEST_F(EspeakHostileText, SpeaksScriptsOfManyKinds) {
  for (const char* text :
       {"שלום עולם", "مرحبا بالعالم", "नमस्ते दुनिया", "こんにちは", "你好，世界。", "안녕하세요",
        "สวัสดี", "Здравствуй, мир", "Γειά σου", "🙂👍🏽👨‍👩‍👧",
        "\u202Eabc\u202C def", "e\u0301\u0301\u0301\u0301"}) {
    EXPECT_GT(Rms(voice_.Said(text)), 100) << text;
    ExpectNoTraceOf(text, kMarkup);
  }
}

TEST_F(EspeakHostileText, CrashesNoVoice) {
  voice_.SetRate(8);
  for (std::size_t i = 0; i < voice_.GetVoices().size(); ++i) {
    voice_.SetVoice(i);
    for (const char* text : {",-\u094B\u0916 a", "'-h", "\"-\u01A7", "1-\u094B", "v'zb", "l?s("}) {
      voice_.Speak(text, SVSFlagsAsync);
    }
  }
  EXPECT_GT(Rms(voice_.Recorded()), 300);
}

TEST_F(EspeakHostileText, IsSilencedInTheMiddleOfAnEndlessText) {
  std::string emoji;
  for (int i = 0; i < 2000; ++i) emoji += "😀";
  const Sound sentence = voice_.Said(kSentence);
  for (const std::string& text :
       {std::string(1'000'000, 'a'), std::string(1'000'000, ' '), std::string(1'000'000, '9'),
        std::string(1'000'000, '<'), emoji}) {
    voice_.Speak(text, kMarkup);
    voice_.Speak("", kPurge);
    voice_.Speak(kSentence, SVSFlagsAsync);
    const Sound all = voice_.Recorded();
    EXPECT_LT(Seconds(all), 1000) << text.substr(0, 4);
    const Sound end = Part(all, Seconds(all) - Seconds(sentence), 1e9);
    ExpectSameSpeech(end, sentence, text.substr(0, 4));
  }
}

TEST_F(EspeakHostileText, SaysALongWordToItsEnd) {
  const double short_word = Seconds(voice_.Said(std::string(1000, 'a')));
  const double long_word = Seconds(voice_.Said(std::string(4000, 'a')));
  EXPECT_NEAR(long_word / short_word, 4, 0.4);
}

}  // namespace
}  // namespace brenwick
