#include "speech/SpokenHistory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "pages/RepeatPage.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

class SpokenHistoryTest : public testing::Test {
 protected:
  Texts Places() const {
    Texts places;
    for (int i = 0; i < 4; ++i) places.push_back(history.At(i).text + history.At(i).voice);
    return places;
  }
  Texts Boxes() const {
    Texts shown;
    for (const TextBox& box : form.txtSpokenMessages) shown.push_back(box.Text());
    return shown;
  }

  FakeWorld world;
  frmMain form;
  SpokenHistory history{world.log};
  SettingsValues values;
  FakeVoice voice;
  TextTable texts{world.log};
  TextCleanUp clean_up{world.log};
  Abbreviations abbreviations{world.log, texts, world.status, world.data, world.folders};
  Speech speech{world.log,     world.state, values,       texts, clean_up,
                abbreviations, history,     world.status, voice};
  RepeatPage page{world.log, form, history, speech};
};

TEST_F(SpokenHistoryTest, StartsEmpty) {
  EXPECT_EQ(Places(), (Texts{"", "", "", ""}));
  EXPECT_EQ(Boxes(), (Texts{"", "", "", ""}));
}

TEST_F(SpokenHistoryTest, KeepsTheFourNewestWithTheirVoices) {
  history.SpeakArray("a", "M");
  EXPECT_EQ(Places(), (Texts{"aM", "", "", ""}));
  history.SpeakArray("b", "F");
  history.SpeakArray("c", "M");
  history.SpeakArray("d", "F");
  EXPECT_EQ(Places(), (Texts{"dF", "cM", "bF", "aM"}));
  history.SpeakArray("e", "M");
  EXPECT_EQ(Places(), (Texts{"eM", "dF", "cM", "bF"}));
}

TEST_F(SpokenHistoryTest, KeepsTheSameSentenceTwice) {
  history.SpeakArray("a", "M");
  history.SpeakArray("a", "M");
  EXPECT_EQ(Places(), (Texts{"aM", "aM", "", ""}));
}

TEST_F(SpokenHistoryTest, ShowsTheSentences) {
  for (const char* sentence : {"a", "b", "c", "d", "e"}) history.SpeakArray(sentence, "M");
  EXPECT_EQ(Boxes(), (Texts{"e", "d", "c", "b"}));
}

TEST_F(SpokenHistoryTest, ShowsTheSentencesInDisabledBoxesToo) {
  for (TextBox& box : form.txtSpokenMessages) box.SetEnabled(false);
  history.SpeakArray("a", "M");
  EXPECT_EQ(Boxes(), (Texts{"a", "", "", ""}));
}

TEST_F(SpokenHistoryTest, HasFourPlaces) {
  for (const int index : {-1, 4, 32767}) {
    try {
      history.At(index);
      ADD_FAILURE() << index;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kSubscript);
    }
  }
}

TEST_F(SpokenHistoryTest, TellsTheLog) {
  world.state.Debug = true;
  history.SpeakArray("a", "M");
  EXPECT_EQ(world.DebugLines(), (Texts{"Speak Text to array (for 'say what' keys)"}));
}

TEST_F(SpokenHistoryTest, ReportsABoxThatCannotShowASentence) {
  form.txtSpokenMessages[0].Change = [] { throw Failure(kOverflow); };
  EXPECT_THROW(history.SpeakArray("a", "M"), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (6) : Overflow\r\n\r\nModule: frmMain\r\nProcedure: SpeakArray\r\n\r\n");
}

TEST_F(SpokenHistoryTest, ForgetsWhenItIsCleared) {
  history.SpeakArray("a", "M");
  history.Clear();
  EXPECT_EQ(Places(), (Texts{"", "", "", ""}));
}

}  // namespace
}  // namespace brenwick
