// The engine in its own process says what the engine says, whatever happens to the process.
#include "desktop/EngineProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <random>

#include "base/Failure.h"
#include "desktop/EspeakEngine.h"

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

class EngineProcessTest : public testing::Test {
 protected:
  EngineProcess Make(const char* program = BRENWICK_VOICE) {
    return {program, [this](const std::string& message) { told.push_back(message); }};
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
          killed += kill(engine.ProcessId(), SIGKILL) == 0 ? 1 : 0;
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
    if (!stopped) stopped = kill(engine.ProcessId(), SIGSTOP) == 0;
    return true;
  });
  EXPECT_TRUE(stopped);
  EXPECT_EQ(all, Expected(kTexts[1]));
}

TEST_F(EngineProcessTest, SpeaksAgainAfterItDiedBetweenTexts) {
  EngineProcess engine = Make();
  UseNormal(engine);
  const pid_t first = engine.ProcessId();
  ASSERT_EQ(kill(first, SIGKILL), 0);
  EXPECT_EQ(Said(engine, kTexts[0]), Expected(kTexts[0]));
  EXPECT_NE(engine.ProcessId(), first);
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

// It would have to wait for ever if the listener were asked only when there are samples.
TEST_F(EngineProcessTest, IsCutShortWhileItsProcessSaysNothing) {
  EngineProcess engine = Make();
  UseNormal(engine);
  ASSERT_EQ(kill(engine.ProcessId(), SIGSTOP), 0);
  int asked = 0;
  engine.Say(kTexts[1], [&](std::span<const std::int16_t> samples) {
    EXPECT_TRUE(samples.empty());
    return ++asked < 3;
  });
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(Said(engine, kTexts[0]), Expected(kTexts[0]));
  EXPECT_EQ(told, std::vector<std::string>{});
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineDies) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE);
  EXPECT_EQ(Said(engine, "this will die"), Samples{});
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("this will die"), std::string::npos);
  EXPECT_EQ(Said(engine, "fine"), (Samples{1, 2, 3}));
  EXPECT_EQ(told.size(), 1U);
}

TEST_F(EngineProcessTest, LeavesOutATextAtWhichTheEngineHangs) {
  EngineProcess engine = Make(BRENWICK_BAD_VOICE);
  EXPECT_EQ(Said(engine, "this will hang"), Samples{});
  ASSERT_EQ(told.size(), 1U);
  EXPECT_EQ(Said(engine, "fine"), (Samples{1, 2, 3}));
}

void ExpectCannotStart(const char* program, const std::string& reason) {
  try {
    const EngineProcess engine(program, {});
    ADD_FAILURE() << "it started";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kFileNotFound);
    EXPECT_NE(failure.Description().find(reason), std::string::npos) << failure.Description();
  }
}

TEST_F(EngineProcessTest, TellsWhyItCannotStart) {
  ExpectCannotStart("/no/such/brenwick-voice", "/no/such/brenwick-voice");
  ASSERT_EQ(setenv("BRENWICK_BAD_VOICE", "fail", 1), 0);
  ExpectCannotStart(BRENWICK_BAD_VOICE, "no data");
  ASSERT_EQ(setenv("BRENWICK_BAD_VOICE", "die", 1), 0);
  ExpectCannotStart(BRENWICK_BAD_VOICE, "does not start");
  ASSERT_EQ(unsetenv("BRENWICK_BAD_VOICE"), 0);
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
