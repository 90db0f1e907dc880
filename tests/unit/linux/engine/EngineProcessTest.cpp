// The engine in its own process says what the engine says, whatever happens to the process.
#include "linux/engine/EngineProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <thread>

#include "base/Failure.h"
#include "espeak/EspeakEngine.h"
#include "support/Environment.h"
#include "support/PrivateSpeechd.h"
#include "support/TemporaryFolder.h"

namespace brenwick {
namespace {

using Samples = std::vector<std::int16_t>;

const std::vector<std::string> kTexts = {
    "Anna says hello there.",
    "The boat leaves at seven tomorrow morning, and nobody has packed anything yet.",
    "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich.",
    "1234567890, 3.14159, 2026-11-22; what else?",
};

void UseNormal(SpeechEngine& engine) { engine.Use("gmw/en+f2", 0, 100); }

Samples Said(SpeechEngine& engine, const std::string& text) {
  Samples all;
  engine.Say(text, [&](std::span<const std::int16_t> samples) {
    all.insert(all.end(), samples.begin(), samples.end());
    return true;
  });
  return all;
}

// A test that waits for its end has failed.
constexpr std::chrono::hours kEndlessPatience{1};

// For processes that will hang, however long they have. The others answer at once, and where a
// busy machine makes one late, it is only started once more.
constexpr std::chrono::milliseconds kShortPatience{1000};

// False where the engine has no process for now; the number 0 would mean all processes of the test.
bool Signalled(const EngineProcess& engine, int signal) {
  const pid_t process = engine.ProcessId();
  return process > 0 && kill(process, signal) == 0;
}

class EngineProcessTest : public testing::Test {
 protected:
  EngineProcess Make(const char* program = BRENWICK_VOICE,
                     std::chrono::milliseconds patience = EngineProcessOptions::kPatience) {
    return Make({.program = program, .patience = patience});
  }
  EngineProcess Make(EngineProcessOptions options) {
    options.tell = [this](const std::string& message) { told.push_back(message); };
    return EngineProcess(std::move(options));
  }

  void ExpectLeftOut(const std::string& text, std::chrono::milliseconds patience) {
    EngineProcess engine = Make(BRENWICK_BAD_VOICE, patience);
    EXPECT_EQ(Said(engine, text), Samples{});
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].find(text), std::string::npos) << "a message is nobody else's business";
    EXPECT_EQ(Said(engine, "fine"), (Samples{1, 2, 3}));
    EXPECT_EQ(told.size(), 1U);
  }

  // What a new process says that nothing happens to. An older one would say it a little otherwise:
  // the engine's voices tremble, on purpose and never twice in the same way.
  Samples Expected(const std::string& text) {
    EngineProcess engine = Make();
    UseNormal(engine);
    return Said(engine, text);
  }

  std::vector<std::string> told;
};

TEST_F(EngineProcessTest, SaysWhatTheEngineSays) {
  std::vector<Samples> expected;
  EspeakEngine inside;
  UseNormal(inside);
  for (const std::string& text : kTexts) expected.push_back(Said(inside, text));
  EngineProcess outside = Make();
  UseNormal(outside);
  EXPECT_EQ(outside.SampleRate(), inside.SampleRate());
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    EXPECT_GT(expected[i].size(), 10'000U);
    EXPECT_EQ(Said(outside, kTexts[i]), expected[i]) << kTexts[i];
  }
}

TEST_F(EngineProcessTest, ListsTheVoicesOfTheEngine) {
  EspeakEngine inside;
  EngineProcess outside = Make();
  const auto expected = inside.Voices("de_DE.UTF-8");
  const auto voices = outside.Voices("de_DE.UTF-8");
  ASSERT_EQ(voices.size(), expected.size());
  for (std::size_t i = 0; i < voices.size(); ++i) {
    EXPECT_EQ(voices[i].identifier, expected[i].identifier);
    EXPECT_EQ(voices[i].description, expected[i].description);
    EXPECT_EQ(voices[i].female, expected[i].female);
  }
}

// The same speech, but for its trembling.
void ExpectAlike(const Samples& samples, const Samples& expected) {
  const double ratio = static_cast<double>(samples.size()) / static_cast<double>(expected.size());
  EXPECT_NEAR(ratio, 1, 0.02);
}

TEST_F(EngineProcessTest, GoesOnAtTheMissingSampleWhenItsProcessIsKilled) {
  std::minstd_rand random(7);
  int killed = 0;
  for (int round = 0; round < 10; ++round) {
    for (const std::string& text : kTexts) {
      EngineProcess engine = Make();
      UseNormal(engine);
      Samples all;
      // Once in a text: a text at which the engine always fails is another matter.
      bool to_kill = true;
      engine.Say(text, [&](std::span<const std::int16_t> samples) {
        all.insert(all.end(), samples.begin(), samples.end());
        if (to_kill && random() % 10 == 0) {
          to_kill = false;
          killed += Signalled(engine, SIGKILL) ? 1 : 0;
        }
        return true;
      });
      EXPECT_EQ(all, Expected(text)) << text;
    }
  }
  EXPECT_GT(killed, 10);
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(EngineProcessTest, GoesOnWhenItsProcessIsStopped) {
  EngineProcess engine = Make();
  UseNormal(engine);
  Samples all;
  bool stopped = false;
  engine.Say(kTexts[1], [&](std::span<const std::int16_t> samples) {
    all.insert(all.end(), samples.begin(), samples.end());
    if (!stopped) stopped = Signalled(engine, SIGSTOP);
    return true;
  });
  EXPECT_TRUE(stopped);
  EXPECT_EQ(all, Expected(kTexts[1]));
}

TEST_F(EngineProcessTest, GoesOnHoweverOftenItsProcessIsKilledWhileItGetsFurther) {
  EngineProcess engine = Make();
  UseNormal(engine);
  Samples all;
  int killed = 0;
  engine.Say(kTexts[1], [&](std::span<const std::int16_t> samples) {
    all.insert(all.end(), samples.begin(), samples.end());
    if (!samples.empty() && Signalled(engine, SIGKILL)) ++killed;
    return true;
  });
  EXPECT_EQ(all, Expected(kTexts[1]));
  EXPECT_GT(killed, 3);
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(EngineProcessTest, LeavesNoZombieWhenItsProcessDiesBetweenTexts) {
  EngineProcess engine = Make();
  UseNormal(engine);
  const pid_t first = engine.ProcessId();
  ASSERT_EQ(kill(first, SIGKILL), 0);
  while (kill(first, 0) == 0) std::this_thread::yield();
  EXPECT_EQ(Said(engine, kTexts[0]), Expected(kTexts[0]));
  EXPECT_NE(engine.ProcessId(), first);
  EXPECT_EQ(told, std::vector<std::string>{});
}

// A sound device would stay taken for as long as the process lives.
TEST_F(EngineProcessTest, HandsNothingOnThatIsOpen) {
  const int open_here = open("/dev/null", O_RDONLY);  // as a library does, without O_CLOEXEC
  ASSERT_GE(open_here, 0);
  const EngineProcess engine = Make();
  std::vector<std::string> open_there;
  const std::string folder = "/proc/" + std::to_string(engine.ProcessId()) + "/fd";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    open_there.push_back(entry.path().filename());
  }
  std::sort(open_there.begin(), open_there.end());
  EXPECT_EQ(open_there, (std::vector<std::string>{"0", "1", "2"}));
  close(open_here);
}

TEST_F(EngineProcessTest, TakesTheNextTextAfterOneThatWasCutShort) {
  const Samples expected = Expected(kTexts[0]);
  EngineProcess engine = Make();
  UseNormal(engine);
  const pid_t first = engine.ProcessId();
  std::string endless;
  for (int i = 0; i < 2'000; ++i) endless += "and so on ";
  for (int i = 0; i < 5; ++i) {
    engine.Say(endless, [](std::span<const std::int16_t> samples) { return samples.empty(); });
    ExpectAlike(Said(engine, kTexts[0]), expected);
  }
  EXPECT_EQ(engine.ProcessId(), first);
}

// The patience shows that it waits for nothing but the listener.
TEST_F(EngineProcessTest, IsCutShortWhileItsProcessSaysNothing) {
  EngineProcess engine = Make(BRENWICK_VOICE, kEndlessPatience);
  UseNormal(engine);
  ASSERT_TRUE(Signalled(engine, SIGSTOP));
  // The second time it waits for the end of the first.
  for (int i = 0; i < 2; ++i) {
    int asked = 0;
    engine.Say(kTexts[1], [&](std::span<const std::int16_t> samples) {
      EXPECT_TRUE(samples.empty());
      return ++asked < 3;
    });
    EXPECT_EQ(asked, 3);
  }
  ASSERT_TRUE(Signalled(engine, SIGCONT));
  ExpectAlike(Said(engine, kTexts[0]), Expected(kTexts[0]));
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(EngineProcessTest, IsCutShortInTheMiddleOfABlock) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE, kEndlessPatience);
  int asked = 0;
  engine.Say("this will stall", [&](std::span<const std::int16_t>) { return ++asked < 3; });
  EXPECT_EQ(asked, 3);
}

TEST_F(EngineProcessTest, IsCutShortWhileItsProcessSpeaksWithoutEnd) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE, kEndlessPatience);
  // The second time it waits for the end of the first.
  for (int i = 0; i < 2; ++i) {
    int asked = 0;
    engine.Say("this will drone", [&](std::span<const std::int16_t>) { return ++asked < 3; });
    EXPECT_EQ(asked, 3);
  }
}

TEST_F(EngineProcessTest, EndsAProcessThatSpeaksWithoutEnd) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE, kShortPatience);
  engine.Say("this will drone", [](std::span<const std::int16_t>) { return false; });
  EXPECT_EQ(Said(engine, "fine"), (Samples{1, 2, 3}));
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineDies) {
  ExpectLeftOut("this will die", kEndlessPatience);
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineHangs) {
  ExpectLeftOut("this will hang", kShortPatience);
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineStopsInTheMiddleOfABlock) {
  ExpectLeftOut("this will stall", kShortPatience);
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineSaysWhatIsNoMessage) {
  ExpectLeftOut("this will babble", kEndlessPatience);
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineSaysWhatIsNoAnswer) {
  ExpectLeftOut("this will mumble", kEndlessPatience);
}

// It would otherwise be at it until the next text.
TEST_F(EngineProcessTest, EndsAProcessThatHangsAtItsRest) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE, kShortPatience);
  const pid_t process = engine.ProcessId();
  engine.Say("this will hang", [](std::span<const std::int16_t>) { return false; });
  EXPECT_EQ(kill(process, 0), 0);
  EXPECT_TRUE(Await([&] {
    engine.Rest();
    return kill(process, 0) != 0;
  }));
  EXPECT_EQ(engine.ProcessId(), 0);
  EXPECT_EQ(Said(engine, "fine"), (Samples{1, 2, 3}));
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(EngineProcessTest, KeepsAProcessThatIsNotLateAtItsRest) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE, kEndlessPatience);
  const pid_t process = engine.ProcessId();
  engine.Rest();
  EXPECT_EQ(engine.ProcessId(), process);
  engine.Say("this will hang", [](std::span<const std::int16_t>) { return false; });
  engine.Rest();
  EXPECT_EQ(engine.ProcessId(), process);
  EXPECT_EQ(kill(process, 0), 0);
}

void ExpectCannotStart(const char* program, const std::string& reason) {
  try {
    const EngineProcess engine({.program = program});
    ADD_FAILURE() << "it started";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kFileNotFound);
    EXPECT_NE(failure.Description().find(reason), std::string::npos) << failure.Description();
  }
}

TEST_F(EngineProcessTest, TellsWhyItCannotStart) {
  ExpectCannotStart("/no/such/brenwick-voice", "/no/such/brenwick-voice does not start: No such");
  for (const char* how : {"fail", "die"}) {
    const Environment at_start("BRENWICK_BAD_VOICE", how);
    ExpectCannotStart(BRENWICK_BAD_VOICE,
                      how == std::string("fail") ? "no data" : "does not start");
  }
  for (const char* rate : {"rate ", "rate many", "rate 0", "rate -8000", "rate 99999999999"}) {
    const Environment at_start("BRENWICK_BAD_VOICE", rate);
    ExpectCannotStart(BRENWICK_BAD_VOICE, "has no sample rate");
  }
}

// What is remembered of an engine, for a test to begin with.
class RememberedEngineTest : public EngineProcessTest {
 protected:
  static constexpr const char* kLocale = "de_DE.UTF-8";
  const std::vector<EngineVoice> voices_ = {{"Ido, male: eSpeak NG", "art/io", "io", false},
                                            {"Ido, female: eSpeak NG", "art/io+f2", "io", true}};

  void Remember(int sample_rate) {
    EngineVoiceCache(Memory()).Remember({kLocale, sample_rate, voices_});
  }
  std::string Memory() const { return folder_.Inside("state/voices"); }

 private:
  TemporaryFolder folder_;
};

TEST_F(RememberedEngineTest, ListsItsVoicesAndIsCutShortWhileTheEngineHangsAtItsStart) {
  Remember(22'050);
  const Environment at_start("BRENWICK_BAD_VOICE", "hang");
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE, .memory = Memory()});
  EXPECT_EQ(engine.SampleRate(), 22'050);
  EXPECT_EQ(engine.Voices(kLocale), voices_);
  int asked = 0;
  engine.Say("this is cut short", [&](std::span<const std::int16_t>) { return ++asked < 3; });
  EXPECT_EQ(asked, 3);
  engine.Rest();
  EXPECT_NE(engine.ProcessId(), 0);
}

TEST_F(RememberedEngineTest, ListsNoVoicesWhereItHangsAtItsFirstStart) {
  const Environment at_start("BRENWICK_BAD_VOICE", "hang");
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE,
                               .memory = Memory(),
                               .first_start = std::chrono::milliseconds(100)});
  EXPECT_EQ(engine.Voices(kLocale), std::vector<EngineVoice>{});
  EXPECT_EQ(EngineVoiceCache(Memory()).Recall(), std::nullopt);
}

TEST_F(RememberedEngineTest, ListsTheVoicesOfAnotherLocaleWhereItHangs) {
  Remember(22'050);
  const Environment at_start("BRENWICK_BAD_VOICE", "hang");
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE,
                               .memory = Memory(),
                               .first_start = std::chrono::milliseconds(100)});
  EXPECT_EQ(engine.Voices("fr_FR"), voices_);
  EXPECT_EQ(EngineVoiceCache(Memory()).Recall()->locale, kLocale);
}

TEST_F(RememberedEngineTest, SpeaksWithTheUsualVoiceWhereItIsToUseNone) {
  EngineProcess engine = Make();
  const std::vector<EngineVoice> voices = engine.Voices(kLocale);
  engine.Use("", 0, 100);
  const Samples said = Said(engine, kTexts[2]);
  EngineProcess expected = Make();
  expected.Use(voices.front().identifier, 0, 100);
  EXPECT_EQ(said, Said(expected, kTexts[2]));
}

TEST_F(RememberedEngineTest, RemembersTheVoicesThatTheEngineHasNow) {
  Remember(22'050);
  {
    EngineProcess engine = Make({.program = BRENWICK_VOICE, .memory = Memory()});
    EXPECT_EQ(engine.Voices(kLocale), voices_);
    EXPECT_GT(Said(engine, kTexts[0]).size(), 10'000U);
  }
  EngineProcess engine = Make({.program = BRENWICK_VOICE, .memory = Memory()});
  EXPECT_EQ(engine.Voices(kLocale), EspeakEngine().Voices(kLocale));
}

TEST_F(RememberedEngineTest, ForgetsTheOrderOfAnotherLocale) {
  Remember(22'050);
  EngineProcess engine = Make({.program = BRENWICK_VOICE, .memory = Memory()});
  EXPECT_EQ(engine.Voices("fr_FR"), EspeakEngine().Voices("fr_FR"));
  EXPECT_EQ(EngineVoiceCache(Memory()).Recall()->locale, "fr_FR");
}

TEST_F(RememberedEngineTest, TellsOnceThatTheEngineDoesNotStart) {
  Remember(22'050);
  const Environment at_start("BRENWICK_BAD_VOICE", "fail");
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE, .memory = Memory()});
  EXPECT_EQ(Said(engine, "one"), Samples{});
  EXPECT_EQ(Said(engine, "two"), Samples{});
  EXPECT_EQ(told, std::vector<std::string>{"no data"});
}

TEST_F(RememberedEngineTest, IsInTroubleUntilTheEngineStarts) {
  Remember(8'000);
  std::optional<Environment> at_start(std::in_place, "BRENWICK_BAD_VOICE", "fail");
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE, .memory = Memory()});
  EXPECT_EQ(engine.Trouble(), "");
  Said(engine, "one");
  EXPECT_EQ(engine.Trouble(), "no data");
  at_start.reset();
  EXPECT_EQ(Said(engine, "two"), (Samples{1, 2, 3}));
  EXPECT_EQ(engine.Trouble(), "");
}

TEST_F(RememberedEngineTest, IsInTroubleWhereTheEngineHangsAtItsStart) {
  Remember(8'000);
  const Environment at_start("BRENWICK_BAD_VOICE", "hang");
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE,
                               .memory = Memory(),
                               .time_to_start = std::chrono::milliseconds(100)});
  EXPECT_EQ(Said(engine, "one"), Samples{});
  EXPECT_NE(engine.Trouble().find("does not start"), std::string::npos);
  EXPECT_EQ(told, std::vector<std::string>{engine.Trouble()});
}

TEST_F(RememberedEngineTest, IsInNoTroubleWhereATextIsLeftOut) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE);
  EXPECT_EQ(Said(engine, "this will die"), Samples{});
  EXPECT_EQ(told.size(), 1U);
  EXPECT_EQ(engine.Trouble(), "");
}

TEST_F(RememberedEngineTest, SpeaksAtItsNewSampleRateFromTheNextStartOn) {
  Remember(7'000);
  {
    EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE, .memory = Memory()});
    EXPECT_EQ(engine.SampleRate(), 7'000);
    EXPECT_EQ(Said(engine, "one"), Samples{});
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("has changed"), std::string::npos);
    EXPECT_EQ(engine.Trouble(), told[0]);
  }
  EngineProcess engine = Make({.program = BRENWICK_BAD_VOICE, .memory = Memory()});
  EXPECT_EQ(engine.SampleRate(), 8'000);
  EXPECT_EQ(Said(engine, "two"), (Samples{1, 2, 3}));
}

TEST(EngineVoiceCacheTest, TakesAFileThatItCannotReadForNone) {
  const TemporaryFolder folder;
  const std::string path = folder.Inside("voices");
  for (const char* content : {"", "\n", "22050\n", "x\tC\ngmw/en\ten\tEnglish\tm\n", "22050\tC\n",
                              "22050\tC\ngmw/en\ten\n", "22050\nC\tgmw/en\ten\tEnglish\tm\n"}) {
    std::ofstream(path) << content;
    EXPECT_EQ(EngineVoiceCache(path).Recall(), std::nullopt) << content;
  }
  std::ofstream(path) << "22050\tC\ngmw/en\ten\tEnglish\tm\n";
  const RememberedEngine expected{"C", 22'050, {{"English", "gmw/en", "en", false}}};
  EXPECT_EQ(EngineVoiceCache(path).Recall(), expected);
}

TEST_F(EngineProcessTest, LeavesNoProcessBehind) {
  pid_t process = 0;
  {
    const EngineProcess engine = Make();
    process = engine.ProcessId();
    EXPECT_EQ(kill(process, 0), 0);
  }
  EXPECT_NE(kill(process, 0), 0);
}

}  // namespace
}  // namespace brenwick
