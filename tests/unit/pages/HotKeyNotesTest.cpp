// What the pages tell of hotkeys that could not be had.
#include "pages/HotKeyNotes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

const KeyObstacle kTaken{KeyObstacle::Kind::Taken};

// The texts 175 and 176 of a language.
std::vector<std::string> Language(const std::string& taken, const std::string& notGiven) {
  std::vector<std::string> texts(178, "another text");
  texts[175] = taken;
  texts[176] = notGiven;
  return texts;
}

class HotKeyNotesTest : public testing::Test {
 protected:
  HotKeyNotesTest() {
    texts.Replace(Language("taken: %a!", "call: %a!"));
    form.ocxHotKeySilent.SetEnabled(true);
  }

  // A label that is hidden shows nothing, whatever its caption.
  static std::string Shown(const Label& label) { return label.Visible() ? label.Caption() : ""; }

  FakeWorld world;
  frmMain form;
  TextTable texts{world.log};
  HotKeyNotes notes{form, texts};
};

TEST(KeyName, IsWrittenAsOnTheKeys) {
  EXPECT_EQ(KeyName({.vkey = 0x91}), "Scroll Lock");
  EXPECT_EQ(KeyName({.vkey = 0x54, .ctrlkey = true, .shiftkey = true}), "Ctrl+Shift+T");
  EXPECT_EQ(KeyName({.vkey = 0x31, .winkey = true}), "Win+1");
}

TEST_F(HotKeyNotesTest, StandOnThePageOfTheKey) {
  form.ocxHotKeySilent.SetObstacle(kTaken);
  EXPECT_EQ(Shown(form.lblHotKeySilent), "taken: Scroll Lock!");
  EXPECT_EQ(Shown(form.lblHotKeyActivateBW) + Shown(form.lblHotKeyRepeat), "");
  form.ocxHotKeyActivateBW.SetObstacle(kTaken);
  EXPECT_EQ(Shown(form.lblHotKeyActivateBW), "taken: Ctrl+Shift+T!");
  EXPECT_EQ(Shown(form.lblHotKeyRepeat), "");
}

TEST_F(HotKeyNotesTest, ListTheKeysOfAPageInTheirOrder) {
  for (const std::size_t i : {2U, 0U}) form.ocxSpeakMsg1.at(i).SetObstacle(kTaken);
  EXPECT_EQ(Shown(form.lblHotKeyRepeat), "taken: Ctrl+Shift+1, Ctrl+Shift+3!");
  form.ocxSpeakMsg1[0].SetObstacle({});
  EXPECT_EQ(Shown(form.lblHotKeyRepeat), "taken: Ctrl+Shift+3!");
}

TEST_F(HotKeyNotesTest, GoWhenTheKeyCanBeHad) {
  form.ocxHotKeySilent.SetObstacle(kTaken);
  form.ocxHotKeySilent.SetObstacle({});
  EXPECT_FALSE(form.lblHotKeySilent.Visible());
}

TEST_F(HotKeyNotesTest, GoWhileNobodyWantsTheKey) {
  form.ocxHotKeySilent.SetObstacle(kTaken);
  form.ocxHotKeySilent.SetEnabled(false);
  EXPECT_FALSE(form.lblHotKeySilent.Visible());
  form.ocxHotKeySilent.SetEnabled(true);
  EXPECT_EQ(Shown(form.lblHotKeySilent), "taken: Scroll Lock!");
}

TEST_F(HotKeyNotesTest, NameTheCommandsWhereThereAreNoKeys) {
  form.ocxHotKeySilent.SetObstacle({KeyObstacle::Kind::NotGiven, "brenwick --stop"});
  EXPECT_EQ(Shown(form.lblHotKeySilent), "call: brenwick --stop!");
  for (const std::size_t i : {1U, 3U}) {
    form.ocxSpeakMsg1.at(i).SetObstacle({KeyObstacle::Kind::NotGiven, "say " + std::to_string(i)});
  }
  EXPECT_EQ(Shown(form.lblHotKeyRepeat), "call: say 1, say 3!");
}

TEST_F(HotKeyNotesTest, FollowTheLanguage) {
  form.ocxHotKeySilent.SetObstacle(kTaken);
  texts.Replace(Language("belegt: %a", ""));
  EXPECT_EQ(Shown(form.lblHotKeySilent), "belegt: Scroll Lock");
  EXPECT_EQ(Shown(form.lblHotKeyActivateBW) + Shown(form.lblHotKeyRepeat), "");
}

// As the language has them that the program comes with.
TEST_F(HotKeyNotesTest, AreInEnglishWhereALanguageOfTheUsersLacksThem) {
  std::ifstream file(BRENWICK_SOURCE_DIR "/languages/English.txt");
  std::vector<std::string> english = {""};
  for (std::string line; std::getline(file, line);) {
    if (line.find_first_not_of(" \r") != std::string::npos) english.push_back(line);
  }
  for (const KeyObstacle& obstacle : {kTaken, KeyObstacle{KeyObstacle::Kind::NotGiven, "it"}}) {
    form.ocxHotKeySilent.SetObstacle(obstacle);
    texts.Replace(english);
    const std::string wanted = Shown(form.lblHotKeySilent);
    EXPECT_FALSE(wanted.empty());
    texts.Replace(std::vector<std::string>(175, "another text"));
    EXPECT_EQ(Shown(form.lblHotKeySilent), wanted);
  }
  EXPECT_TRUE(world.screen.boxes.empty());
}

}  // namespace
}  // namespace brenwick
