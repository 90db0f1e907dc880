// A message goes in, a human voice comes out: measured at the sound.
#include "real/SpokenProgram.h"

#include <gtest/gtest.h>

namespace brenwick {
namespace {

const std::string kSentence = SpokenProgram::Message("the boat leaves at seven tomorrow morning");

constexpr double kLoud = 300;  // Rms of speech is well above, of noise well below

// A contact whose gender nobody has set speaks with the default voice.
const std::string kAnnaIsListed =
    R"({"raise":"OnUserStateChanged","email":"anna@example.org","name":"Anna","state":9999})";

TEST(SpokenProgram, SaysMessagesInAFemaleAndAMaleVoice) {
  SpokenProgram program;
  program.Play({kAnnaIsListed});
  const Sound female = program.Hear({R"({"click":"optFemale"})", kSentence});
  const Sound male = program.Hear({R"({"click":"optMale"})", kSentence});
  EXPECT_GT(Rms(female), kLoud);
  EXPECT_GT(Rms(male), kLoud);
  EXPECT_GT(FundamentalHz(female), 1.3 * FundamentalHz(male));
  EXPECT_GT(FundamentalHz(male), 60);
}

TEST(SpokenProgram, SpeaksThreeTimesAsFastAtTheHighestRate) {
  SpokenProgram program;
  const double normal = Seconds(program.Hear({kSentence}));
  const double fast =
      Seconds(program.Hear({R"({"type":"txtTalkSpeedFemale","text":"10"})", kSentence}));
  EXPECT_NEAR(fast / normal, 1.0 / 3.0, 0.08);
}

TEST(SpokenProgram, IsSilentAtVolumeZero) {
  SpokenProgram program;
  EXPECT_GT(Rms(program.Hear({kSentence})), kLoud);
  EXPECT_EQ(Rms(program.Hear({R"({"type":"txtTalkVolumeFemale","text":"0"})", kSentence})), 0);
}

TEST(SpokenProgram, CutsTheRestWhenMuted) {
  std::string story;
  for (int i = 0; i < 40; ++i) story += "And then the boat went on and on. ";
  const std::string told = SpokenProgram::Message(story);
  const double length = Seconds(SpokenProgram().Hear({told}));
  SpokenProgram muted(true);
  EXPECT_LT(Seconds(muted.Hear({told, R"({"click":"chkMute"})"})), length / 4);
}

TEST(SpokenProgram, SaysNothingOfAMessageWhileMuted) {
  SpokenProgram program;
  const Sound muted = program.Hear({R"({"click":"chkMute"})", kSentence});
  EXPECT_TRUE(muted.samples.empty());
}

}  // namespace
}  // namespace brenwick
