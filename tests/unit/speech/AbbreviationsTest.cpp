#include "speech/Abbreviations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kFile = "/documents/Brenwick/Abbreviations.Txt";
constexpr const char* kStarter = "/program/Abbreviations.Txt";

class AbbreviationsTest : public testing::Test {
 protected:
  AbbreviationsTest() {
    world.state.Debug = true;
    texts.Replace(NumberedTexts());
  }

  void Load(const std::string& content) {
    world.folders.files[kFile] = content;
    abbreviations.EmoticonRead(true);
  }
  std::string Replaced(std::string text) const {
    abbreviations.ReplaceEmoticons(text);
    return text;
  }
  void ExpectReport(const std::string& failure) {
    EXPECT_THROW(abbreviations.EmoticonRead(true), ProgramEnd);
    ASSERT_EQ(world.screen.boxes.size(), 1U);
    EXPECT_EQ(world.screen.boxes[0].text,
              failure + "\r\n\r\nModule: modFunctions\r\nProcedure: EmoticonRead\r\n\r\n");
  }

  FakeWorld world;
  TextTable texts{world.log};
  Abbreviations abbreviations{world.log, texts, world.status, world.data, world.folders};
};

TEST_F(AbbreviationsTest, AreNoneBeforeTheFirstReading) {
  EXPECT_EQ(abbreviations.Count(), 0);
  EXPECT_EQ(Replaced("lol"), "lol");
}

TEST_F(AbbreviationsTest, ReplaceOneText) {
  Load("lol=laughing\r\n:-)= smile \r\n");
  EXPECT_EQ(abbreviations.Count(), 2);
  EXPECT_EQ(Replaced("well lol then"), "well laughing then");
  EXPECT_EQ(Replaced("hello:-)"), "hello smile ");
  EXPECT_EQ(Replaced("lol"), "laughing");
  EXPECT_EQ(Replaced("no more"), "no more");
  EXPECT_EQ(Replaced(""), "");
}

TEST_F(AbbreviationsTest, ReplaceTheFirstOccurrenceOfTheFirstRowAlone) {
  Load("A=one\r\nB=two\r\n");
  EXPECT_EQ(Replaced("B A"), "B one");
  EXPECT_EQ(Replaced("A B A"), "one B A");
  EXPECT_EQ(Replaced("B B"), "two B");
}

TEST_F(AbbreviationsTest, DoNotReplaceWhatTheyPutIn) {
  Load("A=AB\r\nB=C\r\n");
  EXPECT_EQ(Replaced("A"), "AB");
}

TEST_F(AbbreviationsTest, FollowTheOrderOfTheFile) {
  Load("b=2\r\na=1\r\nab=12\r\n");
  EXPECT_EQ(Replaced("ab"), "a2");
}

TEST_F(AbbreviationsTest, CareForCaseAndNotForWords) {
  Load("lol=laughing\r\n");
  EXPECT_EQ(Replaced("LOL"), "LOL");
  EXPECT_EQ(Replaced("lollipop"), "laughinglipop");
}

TEST_F(AbbreviationsTest, AreTakenExactlyAsWritten) {
  Load(" u = you \r\n");
  EXPECT_EQ(Replaced("u there"), "u there");
  EXPECT_EQ(Replaced("are u there"), "are you there");
}

TEST_F(AbbreviationsTest, EndAtTheFirstEqualsSign) {
  Load("x=a=b=\r\ny=\r\n");
  EXPECT_EQ(Replaced("x"), "a=b=");
  EXPECT_EQ(Replaced("any"), "an");
}

TEST_F(AbbreviationsTest, PassOverBlankLines) {
  Load("\r\na=1\r\n   \r\n\r\nb=2\r\n \r\n");
  EXPECT_EQ(abbreviations.Count(), 2);
  EXPECT_EQ(Replaced("b"), "2");
}

TEST_F(AbbreviationsTest, AreReadWithEitherLineEndAndInEitherCodePage) {
  Load(
      "a=ma\xF1"
      "ana\nb=señor");
  EXPECT_EQ(abbreviations.Count(), 2);
  EXPECT_EQ(Replaced("a"), "mañana");
  EXPECT_EQ(Replaced("b"), "señor");
}

TEST_F(AbbreviationsTest, WithoutCharactersAreFoundInFrontOfEveryText) {
  Load("A=one\r\n=Say: \r\nB=two\r\n");
  EXPECT_EQ(Replaced("B"), "Say: B");
  EXPECT_EQ(Replaced("A B"), "one B");
  EXPECT_EQ(Replaced(""), "");
}

TEST_F(AbbreviationsTest, AreNoneWithoutAFile) {
  abbreviations.EmoticonRead(true);
  EXPECT_EQ(abbreviations.Count(), 0);
  EXPECT_EQ(Replaced("lol"), "lol");
  EXPECT_EQ(world.screen.boxes.size(), 0U);
}

TEST_F(AbbreviationsTest, AreForgottenWhenTheFileIsGone) {
  Load("lol=laughing\r\n");
  world.folders.files.erase(kFile);
  abbreviations.EmoticonRead(true);
  EXPECT_EQ(abbreviations.Count(), 0);
  EXPECT_EQ(Replaced("lol"), "lol");
}

TEST_F(AbbreviationsTest, AreReplacedWholeByANewReading) {
  Load("a=1\r\nb=2\r\n");
  Load("c=3\r\n");
  EXPECT_EQ(abbreviations.Count(), 1);
  EXPECT_EQ(Replaced("a b c"), "a b 3");
}

TEST_F(AbbreviationsTest, StopAtALineWithoutAnEqualsSign) {
  world.folders.files[kFile] = "a=1\r\nbad line\r\nc=3\r\n";
  ExpectReport("Error (5) : Invalid procedure call or argument");
  EXPECT_EQ(abbreviations.Count(), 2);
  EXPECT_EQ(Replaced("a"), "1");
  EXPECT_EQ(Replaced("bed line, c"), "bed line, c");
}

TEST_F(AbbreviationsTest, StayWhenTheFileHoldsBlankLinesAlone) {
  Load("a=1\r\nb=2\r\n");
  world.folders.files[kFile] = "\r\n   \r\n";
  ExpectReport("Error (9) : Subscript out of range");
  EXPECT_EQ(abbreviations.Count(), 2);
  EXPECT_EQ(Replaced("b"), "2");
}

TEST_F(AbbreviationsTest, StayWhenTheFileIsEmpty) {
  Load("a=1\r\n");
  world.folders.files[kFile] = "";
  ExpectReport("Error (9) : Subscript out of range");
  EXPECT_EQ(Replaced("a"), "1");
}

TEST_F(AbbreviationsTest, TellTheLogTheNumberOfTheLastRow) {
  Load("a=1\r\n\r\nb=2\r\nc=3\r\n");
  EXPECT_EQ(world.DebugLines(),
            (Texts{std::string("EmoticonRead Reading abbreviations from ") + kFile,
                   "EmoticonRead Found 2 abbreviations"}));
}

TEST_F(AbbreviationsTest, TellTheLogNothingFoundWithoutAFile) {
  abbreviations.EmoticonRead(true);
  EXPECT_EQ(world.DebugLines(),
            (Texts{std::string("EmoticonRead Reading abbreviations from ") + kFile}));
}

TEST_F(AbbreviationsTest, AreReadWithABusyPointer) {
  world.folders.files[kFile] = "a=1\r\n";
  std::vector<Pointer> during;
  world.folders.Touched = [&](const std::string& how, const std::string&) {
    if (how == "read") during.push_back(world.screen.LastPointer());
  };
  abbreviations.EmoticonRead(true);
  abbreviations.EmoticonRead(false);
  ASSERT_GE(during.size(), 2U);
  for (const Pointer pointer : during) EXPECT_EQ(pointer, Pointer::Hourglass);
  EXPECT_EQ(world.screen.LastPointer(), Pointer::Default);
}

TEST_F(AbbreviationsTest, OnlySetTheStatusTextAtStartUp) {
  abbreviations.EmoticonRead(true);
  EXPECT_EQ(world.status.Form().lblStatus.Caption(), "text 93");
  EXPECT_FALSE(world.status.Form().Visible());
  EXPECT_EQ(world.loop.rounds, 0);
  world.status.StatusForm(true, "Starting");
  abbreviations.EmoticonRead(true);
  EXPECT_TRUE(world.status.Form().Visible());
}

TEST_F(AbbreviationsTest, ShowTheStatusWindowForAReload) {
  std::vector<std::string> shown;
  world.loop.Pending = [&] { shown.push_back(world.status.Form().lblStatus.Caption()); };
  std::vector<bool> visible;
  world.folders.Touched = [&](const std::string&, const std::string&) {
    visible.push_back(world.status.Form().Visible());
  };
  world.state.Debug = false;
  world.folders.files[kFile] = "a=1\r\n";
  abbreviations.EmoticonRead(false);
  EXPECT_EQ(shown, (Texts{"text 93"}));
  ASSERT_FALSE(visible.empty());
  for (const bool each : visible) EXPECT_TRUE(each);
  EXPECT_FALSE(world.status.Form().Visible());
}

TEST_F(AbbreviationsTest, StartFromTheProgramsOwnFile) {
  world.folders.files[kStarter] = "lol=laughing\r\n";
  abbreviations.CreateUserFile();
  EXPECT_EQ(world.folders.files[kFile], "lol=laughing\r\n");
}

TEST_F(AbbreviationsTest, KeepTheUsersOwnFile) {
  world.folders.files[kStarter] = "lol=laughing\r\n";
  world.folders.files[kFile] = "mine=yours\r\n";
  abbreviations.CreateUserFile();
  EXPECT_EQ(world.folders.files[kFile], "mine=yours\r\n");
}

TEST_F(AbbreviationsTest, NeedNoFileOfTheProgram) {
  abbreviations.CreateUserFile();
  EXPECT_EQ(world.folders.files.size(), 0U);
}

}  // namespace
}  // namespace brenwick
