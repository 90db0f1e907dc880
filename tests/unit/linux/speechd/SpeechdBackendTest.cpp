// What is said through speech-dispatcher, and what happens when it does not work.
#include "linux/speechd/SpeechdBackend.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

#include "support/PrivateSpeechd.h"
#include "support/SpeechdVoice.h"

namespace brenwick {
namespace {

using std::chrono::milliseconds;
using Lines = std::vector<std::string>;

constexpr const char* kAnna = "de, Anna: test, Speech Dispatcher";
constexpr const char* kKal = "en-US, Kal One: test, Speech Dispatcher";
constexpr int kPurge = SVSFlagsAsync + SVSFPurgeBeforeSpeak;

// Short enough to wait for.
constexpr milliseconds kLittlePatience{500};

// What the engine notes.
std::string Anna(const std::string& text) { return "Anna|0|100|" + text; }

class SpeechdBackendTest : public testing::Test {
 protected:
  SpeechdBackendTest() { server_.AskForVoices(); }

  // A voice whose sentences Anna says.
  std::unique_ptr<SpeechdVoice> MakeAnna(milliseconds patience = SsipConnection::kPatience) {
    auto voice = std::make_unique<SpeechdVoice>(server_, patience);
    voice->Choose(kAnna);
    return voice;
  }

  PrivateSpeechd server_;
};

TEST_F(SpeechdBackendTest, StandsBehindTheFirstSpeakerInTheList) {
  const Lines expected = {"English", "German", kKal, kAnna};
  EXPECT_EQ(SpeechdVoice(server_).GetVoices(), expected);
}

TEST_F(SpeechdBackendTest, SaysASentenceWithItsVoiceRateAndVolume) {
  const auto voice = MakeAnna();
  voice->SayToTheEnd("Guten Morgen");
  voice->Choose(kKal);
  voice->SetRate(-10);
  voice->SetVolume(25);
  voice->SayToTheEnd("Good morning");
  voice->SetRate(7);
  voice->SayToTheEnd("Bye");
  EXPECT_EQ(server_.Said(),
            Lines({Anna("Guten Morgen"), "Kal One|-100|-50|Good morning", "Kal One|70|-50|Bye"}));
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Attached);
  EXPECT_TRUE(voice->Told().empty());
}

TEST_F(SpeechdBackendTest, TakesItsTurnAmongAllSentences) {
  const auto voice = MakeAnna();
  Lines expected;
  for (int i = 0; i < 30; ++i) {
    voice->Choose(i % 3 == 0 ? "English" : kAnna);
    const std::string text = "Sentence " + std::to_string(i);
    voice->Speak(text, SVSFlagsAsync);
    expected.push_back(i % 3 == 0 ? "gmw/en: " + text : Anna(text));
  }
  ASSERT_TRUE(voice->WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), expected);
}

TEST_F(SpeechdBackendTest, IsSilencedByAPurge) {
  const auto voice = MakeAnna();
  voice->Speak("A story without an end [hold]", SVSFlagsAsync);
  voice->Speak("Never said", SVSFlagsAsync);
  ASSERT_TRUE(server_.AwaitSaid(Anna("A story without an end [hold]")));
  voice->Speak("Something else", kPurge);
  ASSERT_TRUE(voice->WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(),
            Lines({Anna("A story without an end [hold]"), "stopped", Anna("Something else")}));
}

TEST_F(SpeechdBackendTest, IsNotHeldUpByAServerThatDoesNotTellOfItsSilence) {
  const auto voice = MakeAnna(std::chrono::hours(1));
  voice->Speak("[deaf]", SVSFlagsAsync);
  ASSERT_TRUE(server_.AwaitSaid(Anna("[deaf]")));
  voice->Choose("English");
  voice->Speak("Two", kPurge);
  EXPECT_TRUE(voice->WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Lines({Anna("[deaf]"), "gmw/en: Two"}));
  EXPECT_TRUE(voice->Told().empty());
}

TEST_F(SpeechdBackendTest, IsSilencedByTheEndOfTheProgram) {
  auto voice = MakeAnna();
  voice->Speak("A story without an end [hold]", SVSFlagsAsync);
  ASSERT_TRUE(server_.AwaitSaid(Anna("A story without an end [hold]")));
  voice.reset();
  EXPECT_TRUE(server_.AwaitSaid("stopped"));
}

TEST_F(SpeechdBackendTest, SaysAnyTextAndTheNextOne) {
  const auto voice = MakeAnna();
  for (const char* text : {".", "..", ". dot", " ", "\r\n.\r\nQUIT\r\n", "\x80\xFF\xC3", "\x01"}) {
    voice->SayToTheEnd(text);
  }
  voice->SayToTheEnd("<audio src=\"x\"/> & &lt;");
  EXPECT_EQ(server_.Said(), Lines({Anna("."), Anna(".."), Anna(". dot"), Anna(". QUIT "),
                                   Anna("\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"),
                                   Anna("<audio src=\"x\"/> & &lt;")}));
}

TEST_F(SpeechdBackendTest, SaysALongTextInPieces) {
  const auto voice = MakeAnna();
  std::string text;
  for (int i = 0; i < 40; ++i)
    text += "All of this is said, and in this order: " + std::to_string(i) + ". ";
  voice->SayToTheEnd(text);
  std::string said;
  for (const std::string& line : server_.Said()) said += line.substr(Anna("").size());
  // Where it was cut there is a pause for a space.
  std::erase(said, ' ');
  std::erase(text, ' ');
  EXPECT_EQ(said, text);
  EXPECT_GT(server_.Said().size(), 1U);
}

TEST_F(SpeechdBackendTest, LeavesASentenceToTheFirstSpeakerWhereThereIsNoServer) {
  server_.Kill();
  const auto voice = MakeAnna();
  voice->SayToTheEnd("Hallo");
  voice->Choose(kKal);
  voice->SayToTheEnd("Hello");
  EXPECT_EQ(server_.Said(), Lines({"gmw/de: Hallo", "gmw/en: Hello"}));
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Failed);
  EXPECT_EQ(voice->Speechd().Detail, "Speech Dispatcher is not running");
  EXPECT_EQ(
      voice->Told(),
      Lines{"Speech Dispatcher is not running. Until it works, eSpeak NG speaks in its place."});
}

TEST_F(SpeechdBackendTest, SpeaksAgainOnceThereIsAServer) {
  server_.Kill();
  const auto voice = MakeAnna();
  voice->SayToTheEnd("Eins");
  server_.Start();
  voice->SayToTheEnd("Zwei");
  EXPECT_EQ(server_.Said(), Lines({"gmw/de: Eins", Anna("Zwei")}));
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Attached);
  server_.Kill();
  voice->SayToTheEnd("Drei");
  EXPECT_EQ(voice->Told().size(), 2U);
}

TEST_F(SpeechdBackendTest, SaysWhatALostServerWasSayingOnceMore) {
  const auto voice = MakeAnna();
  voice->Speak("Eins [hold once]", SVSFlagsAsync);
  voice->Speak("Zwei", SVSFlagsAsync);
  ASSERT_TRUE(server_.AwaitSaid(Anna("Eins [hold once]")));
  server_.Replace();
  ASSERT_TRUE(voice->WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(),
            Lines({Anna("Eins [hold once]"), Anna("Eins [hold once]"), Anna("Zwei")}));
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Attached);
  EXPECT_TRUE(voice->Told().empty());
}

TEST_F(SpeechdBackendTest, LeavesASentenceToTheFirstSpeakerWhereTheServerHangs) {
  const auto voice = MakeAnna(kLittlePatience);
  voice->SayToTheEnd("Eins");
  server_.Stop();
  voice->SayToTheEnd("Zwei");
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Failed);
  EXPECT_EQ(voice->Speechd().Detail, "Speech Dispatcher does not answer");
  server_.Continue();
  voice->SayToTheEnd("Drei");
  EXPECT_EQ(server_.Said(), Lines({Anna("Eins"), "gmw/de: Zwei", Anna("Drei")}));
}

TEST_F(SpeechdBackendTest, IsNotHeldUpByAServerThatHangsWhereItIsSilenced) {
  const auto voice = MakeAnna(std::chrono::hours(1));
  voice->SayToTheEnd("Eins");
  server_.Stop();
  voice->Speak("Never said", SVSFlagsAsync);
  voice->Choose("English");
  voice->Speak("Two", kPurge);
  EXPECT_TRUE(voice->WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Lines({Anna("Eins"), "gmw/en: Two"}));
  EXPECT_TRUE(voice->Told().empty());
}

TEST_F(SpeechdBackendTest, LeavesASentenceToTheFirstSpeakerWhereItsEngineHangs) {
  const auto voice = MakeAnna(kLittlePatience);
  voice->SayToTheEnd("Eins");
  server_.SignalEngine(SIGSTOP);
  voice->SayToTheEnd("Zwei");
  EXPECT_EQ(server_.Said(), Lines({Anna("Eins"), "gmw/de: Zwei"}));
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Failed);
}

TEST_F(SpeechdBackendTest, LeavesASentenceToTheFirstSpeakerWhereItsEngineDies) {
  const auto voice = MakeAnna(kLittlePatience);
  voice->SayToTheEnd("Eins");
  voice->SayToTheEnd("[die]");
  voice->SayToTheEnd("Drei");
  EXPECT_EQ(server_.Said(), Lines({Anna("Eins"), Anna("[die]"), "gmw/de: [die]", "gmw/de: Drei"}));
  EXPECT_EQ(voice->Speechd().Detail, "Speech Dispatcher's speech engine does not work");
  // Nobody has told the user instead that there is no engine.
  EXPECT_FALSE(std::filesystem::exists(server_.Inside("dummy/said")));
  EXPECT_EQ(voice->Told().size(), 1U);
}

TEST_F(SpeechdBackendTest, LeavesASentenceToTheFirstSpeakerThatNeverComesToAnEnd) {
  const auto voice = MakeAnna(milliseconds(100));
  voice->SetRate(10);
  voice->SayToTheEnd("[hold]");
  EXPECT_EQ(server_.Said(), Lines({"Anna|100|100|[hold]", "stopped", "Anna|100|100|[hold]",
                                   "stopped", "gmw/de: [hold]"}));
  EXPECT_EQ(voice->Speechd().Detail, "Speech Dispatcher does not say whether it has spoken");
}

TEST_F(SpeechdBackendTest, LeavesAServerAloneThatDoesNotBegin) {
  SpeechdVoice voice(server_, SpeechdPatience{.answer = kLittlePatience,
                                              .turn = kLittlePatience,
                                              .retry = std::chrono::hours(1)});
  voice.Choose(kAnna);
  voice.SayToTheEnd("[mute]");
  EXPECT_EQ(voice.Speechd().Detail, "Speech Dispatcher does not begin to speak");
  server_.Replace();
  voice.SayToTheEnd("Zwei");
  EXPECT_EQ(server_.Said(), Lines({Anna("[mute]"), "gmw/de: [mute]", "gmw/de: Zwei"}));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Failed);
  voice.TestEngine(1, "Drei");
  voice.SayToTheEnd("Vier");
  EXPECT_EQ(server_.Said(),
            Lines({Anna("[mute]"), "gmw/de: [mute]", "gmw/de: Zwei", Anna("Drei"), Anna("Vier")}));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Attached);
}

TEST_F(SpeechdBackendTest, NoticesThatItsEngineDiedBeforeTheFirstSentence) {
  const auto voice = MakeAnna(kLittlePatience);
  server_.SignalEngine(SIGKILL);
  voice->SayToTheEnd("Eins");
  EXPECT_EQ(server_.Said(), Lines({"gmw/de: Eins"}));
}

TEST_F(SpeechdBackendTest, NoticesThatAnotherEngineSpeaksForOneThatDied) {
  const auto voice = MakeAnna(kLittlePatience);
  voice->SayToTheEnd("Eins");
  server_.SignalEngine(SIGKILL);
  voice->SayToTheEnd("Zwei");
  voice->SayToTheEnd("Drei");
  EXPECT_EQ(server_.Said(), Lines({Anna("Eins"), "gmw/de: Zwei", "gmw/de: Drei"}));
  EXPECT_EQ(voice->Speechd().Detail, "Speech Dispatcher's speech engine does not work");
}

TEST_F(SpeechdBackendTest, WaitsWhileAnotherProgramSpeaks) {
  const auto voice = MakeAnna(kLittlePatience);
  SpeechdVoice other(server_);
  other.Choose(kKal);
  other.Speak("[hold]", SVSFlagsAsync);
  ASSERT_TRUE(server_.AwaitSaid("Kal One|0|100|[hold]"));
  voice->Speak("Eins", SVSFlagsAsync);
  EXPECT_FALSE(voice->WaitUntilSilent(3 * kLittlePatience));
  EXPECT_EQ(server_.Said().size(), 1U);
  other.Speak("", kPurge);
  EXPECT_TRUE(voice->WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Lines({"Kal One|0|100|[hold]", "stopped", Anna("Eins")}));
  EXPECT_EQ(voice->Speechd().State, ConnectionState::Attached);
}

// Another program that has something important to say.
class Alarm {
 public:
  explicit Alarm(const PrivateSpeechd& server) : connection_(server.Address()) {
    connection_.Ask("SET SELF NOTIFICATION ALL on", nullptr);
    connection_.Ask("SET SELF PRIORITY important", nullptr);
    connection_.Ask("SET SELF SYNTHESIS_VOICE Kal One", nullptr);
    connection_.Ask("SET SELF VOLUME 100", nullptr);
  }

  void Sound() {
    const std::string message = connection_.Say("Alarm", nullptr);
    while (const auto event = connection_.Await(message, std::chrono::minutes(1), nullptr)) {
      if (event == SsipConnection::Event::End) return;
    }
    ADD_FAILURE() << "it is not said";
  }

 private:
  SsipConnection connection_;
};

TEST_F(SpeechdBackendTest, GoesOnBehindThePieceThatAnotherProgramCutOff) {
  SpeechdVoice voice(server_, SpeechdPatience{.retry = {}, .heard = {}});
  voice.Choose(kAnna);
  const std::string first = "[hold] " + std::string(600, 'a') + ".";
  const std::string second = std::string(600, 'b') + ".";
  voice.Speak(first + " " + second, SVSFlagsAsync);
  ASSERT_TRUE(server_.AwaitSaid(Anna(first)));
  Alarm(server_).Sound();
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Lines({Anna(first), "stopped", "Kal One|0|100|Alarm", Anna(second)}));
  EXPECT_TRUE(voice.Told().empty());
}

TEST_F(SpeechdBackendTest, SaysOnceMoreWhatAnotherProgramCutOffAtOnce) {
  SpeechdVoice voice(server_, SpeechdPatience{.retry = {}, .heard = std::chrono::hours(1)});
  voice.Choose(kAnna);
  voice.Speak("[hold]", SVSFlagsAsync);
  voice.Speak("Zwei", SVSFlagsAsync);
  Alarm alarm(server_);
  for (const std::size_t lines : {1U, 4U}) {
    ASSERT_TRUE(Await([&] { return server_.Said().size() == lines; }));
    alarm.Sound();
  }
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  const std::string heard = "Kal One|0|100|Alarm";
  EXPECT_EQ(server_.Said(), Lines({Anna("[hold]"), "stopped", heard, Anna("[hold]"), "stopped",
                                   heard, Anna("Zwei")}));
  EXPECT_TRUE(voice.Told().empty());
}

TEST_F(SpeechdBackendTest, IsTestedAlone) {
  SpeechdVoice voice(server_);
  voice.TestEngine(1, "One");
  voice.TestEngine(0, "Two");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said(), Lines({"Kal One|0|100|One", "gmw/en: Two"}));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Attached);
  server_.Kill();
  voice.TestEngine(1, "Three");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server_.Said().size(), 2U);
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Failed);
}

TEST(SpeechdBackend, IsMetByItsTest) {
  PrivateSpeechd server;
  server.Kill();
  SpeechdVoice voice(server);
  EXPECT_EQ(voice.GetVoices(), Lines({"English", "German"}));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Waiting);
  server.Start();
  voice.TestEngine(1, "Hello");
  ASSERT_TRUE(voice.WaitUntilSilent(std::chrono::minutes(1)));
  EXPECT_EQ(server.Said().size(), 1U);
  EXPECT_TRUE(Await([&] {
    return voice.Speechd().Detail == "Its voices are in the lists from the next start on";
  }));
  EXPECT_EQ(voice.Speechd().State, ConnectionState::Attached);
  EXPECT_EQ(SpeechdVoice(server).GetVoices(), Lines({"English", "German", kKal, kAnna}));
}

TEST(SpeechdBackend, KnowsHowLongATextMayTake) {
  using std::chrono::seconds;
  EXPECT_LT(UsualTime("Hello.", 0), seconds(2));
  // 60 characters are about four seconds, three times as many at the slowest.
  EXPECT_GT(UsualTime(std::string(60, 'a'), 0), seconds(6));
  EXPECT_GT(UsualTime(std::string(60, 'a'), -10), seconds(20));
  // A digit is a word and a symbol may be several.
  EXPECT_GT(UsualTime(std::string(10, '7'), 0), seconds(5));
  EXPECT_GT(UsualTime("😀😀😀😀", 0), seconds(8));
}

}  // namespace
}  // namespace brenwick
