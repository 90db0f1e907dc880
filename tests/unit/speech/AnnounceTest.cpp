#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/messenger/MessengerRoom.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

class AnnounceTest : public testing::Test {
 protected:
  AnnounceTest() {
    room.world.folders.files["/documents/Brenwick/Abbreviations.Txt"] =
        "lol=laughs\r\nbrb=back\r\n";
    room.abbreviations.EmoticonRead(true);
  }

  MessengerRoom room;
};

TEST_F(AnnounceTest, SaysTheFirstAbbreviationOfTheTableInFull) {
  EXPECT_EQ(room.speech.Announce("brb lol lol", false, kMale), Outcome::Spoken);
  EXPECT_EQ(room.voice.spoken, Texts{"brb laughs lol"});
}

TEST_F(AnnounceTest, TracesTheSentenceBeforeItIsSaid) {
  Texts traced;
  room.speech.Announce("lol", false, kMale, [&](const std::string& sentence) {
    EXPECT_EQ(room.voice.spoken, Texts{});
    traced.push_back(sentence);
  });
  EXPECT_EQ(traced, Texts{"laughs"});
  EXPECT_EQ(room.voice.spoken, Texts{"laughs"});
}

TEST_F(AnnounceTest, MuteHoldsUnlessItMustBeSaid) {
  room.form.chkMute.SetTicked(true);
  room.voice.spoken.clear();
  EXPECT_EQ(room.speech.Announce("lol", false, kMale), Outcome::Muted);
  EXPECT_EQ(room.voice.spoken, Texts{});
  EXPECT_EQ(room.form.lstMessages.List(0), "text 13: laughs");
  EXPECT_EQ(room.speech.Announce("lol", true, kMale), Outcome::Spoken);
  EXPECT_EQ(room.voice.spoken, Texts{"laughs"});
}

}  // namespace
}  // namespace brenwick
