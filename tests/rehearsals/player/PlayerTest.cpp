// What the player finds wrong with a rehearsal, and what it lets pass.
#include "rehearsals/player/Player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "rehearsals/player/Comparison.h"
#include "support/TemporaryFolder.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kShowMute =
    R"({"show":"chkMute","value":0,"caption":"Mute","tooltip":"","enabled":true,"visible":true})";

class PlayerTest : public testing::Test {
 protected:
  PlayerTest() {
    fs::create_directories(tree_.Inside("a/case"));
    Write("a/case/script.jsonl", "# Shows a box.\n{\"show\":\"chkMute\"}\n");
    Write("a/case/transcript", std::string("{\"step\":1}\n") + kShowMute + "\n");
  }

  void Write(const std::string& name, const std::string& text) {
    fs::create_directories(fs::path(tree_.Inside(name)).parent_path());
    SetBytes(tree_.Inside(name), text);
  }
  std::string Read(const std::string& name) { return BytesOf(tree_.Inside(name)); }
  void Remove(const std::string& name) { fs::remove_all(tree_.Inside(name)); }

  // A script that starts the program and ends it, with its transcript.
  void WriteStart(const std::string& head = "# Starts.\n", const std::string& command = "") {
    Write("a/case/script.jsonl", head + R"({"start":")" + command + "\"}\n{\"close\":true}\n");
    Write("a/case/transcript", "{\"step\":1}\n...\n{\"step\":2}\n...\n");
  }

  std::string Check() { return player_.Check("a/case"); }

  TemporaryFolder tree_;
  Player player_{tree_.Path(), BRENWICK_PROGRAM_FOLDER, nullptr};
};

TEST_F(PlayerTest, FindsNothingWrongWhereAllIsWell) { EXPECT_EQ(Check(), ""); }

TEST_F(PlayerTest, FindsAnotherTranscript) {
  Write("a/case/transcript", "{\"step\":1}\n{\"beep\":true}\n");
  const std::string wrong = Check();
  EXPECT_THAT(wrong, StartsWith("line 2 of the expected transcript is\n  {\"beep\":true}"));
  EXPECT_THAT(wrong, HasSubstr("-{\"beep\":true}\n+" + std::string(kShowMute)));
}

TEST_F(PlayerTest, FindsTheTranscriptMissing) {
  Remove("a/case/transcript");
  EXPECT_THAT(Check(), HasSubstr("there is no transcript"));
}

TEST_F(PlayerTest, FindsTheScriptMissing) {
  Remove("a/case/script.jsonl");
  EXPECT_THAT(Check(), HasSubstr("there is no "));
}

TEST_F(PlayerTest, TellsWhatIsWrongWithAScript) {
  Write("a/case/script.jsonl", "{\"show\":\"chkMute\"}\n{\"leap\":1}\n");
  EXPECT_THAT(Check(), StartsWith("exit status 2\n"));
  EXPECT_THAT(Check(), HasSubstr("script.jsonl:2: "));
}

TEST_F(PlayerTest, TellsWhatTheProgramSaysOfItsStore) {
  WriteStart();
  Write("a/case/store", std::string("\0\0\0", 3));
  EXPECT_THAT(Check(), StartsWith("exit status 0\nbrenwick-rehearse: "));
}

TEST_F(PlayerTest, LaysOutTheDocumentsOfTheCase) {
  WriteStart("# Keeps a file.\n# unchanged: Brenwick/Conversations/20040109.log\n");
  EXPECT_EQ(Check(), "Brenwick/Conversations/20040109.log was not there before");
  Write("a/case/before/Brenwick/Conversations/20040109.log", "kept\r\n");
  EXPECT_EQ(Check(), "");
}

TEST_F(PlayerTest, FindsAFileThatDidNotStayAsItWas) {
  WriteStart("# Writes the contacts with other line ends.\n# unchanged: Brenwick/Brenwick.Lst\n");
  Write("a/case/before/Brenwick/Brenwick.Lst", "ann@x\nAnn\n\n?\n\n10\n\n");
  EXPECT_THAT(Check(), StartsWith("Brenwick/Brenwick.Lst holds\nann@x\r\n"));
}

TEST_F(PlayerTest, ComparesFilesAfterwards) {
  WriteStart();
  Write("a/case/after/Brenwick/Brenwick.Lst", "");
  Write("a/case/before/Brenwick/Brenwick.Lst", "ann@x\r\nAnn\r\n\r\n?\r\n\r\n10\r\n\r\n");
  EXPECT_THAT(Check(), StartsWith("Brenwick/Brenwick.Lst holds\nann@x\r\n"));
  Write("a/case/after/Brenwick/Brenwick.Lst", Read("a/case/before/Brenwick/Brenwick.Lst"));
  EXPECT_EQ(Check(), "");
  Write("a/case/after/Brenwick/more", "");
  EXPECT_EQ(Check(), "Brenwick/more was not written");
}

TEST_F(PlayerTest, PutsWorldsUnderTheCase) {
  WriteStart("# Two worlds.\n# world: first\n# world: second\n# afterwards: second\n");
  EXPECT_THAT(Check(), HasSubstr("worlds/first"));
  Write("worlds/first/before/Brenwick/x", "1");
  Write("worlds/first/before/Brenwick/y", "1");
  Write("worlds/second/before/Brenwick/x", "2");
  EXPECT_EQ(Check(), "");
  Write("a/case/before/Brenwick/x", "3");
  EXPECT_EQ(Check(), "Brenwick/x holds\n3\nand not\n2");
}

TEST_F(PlayerTest, LaysOutAFileUnderAnotherName) {
  WriteStart("# Copies.\n# copy: first/before/x to documents/y\n# holds: first/before/x as y\n");
  Write("worlds/first/before/x", "1");
  EXPECT_EQ(Check(), "");
  Write("a/case/script.jsonl", "# Holds.\n# holds: first/before/x as y\n{\"start\":\"\"}\n");
  Write("a/case/transcript", "{\"step\":1}\n...\n");
  EXPECT_EQ(Check(), "y was not written");
}

TEST_F(PlayerTest, TakesAStoreOfTheWorldOrOfTheCase) {
  Write("a/case/script.jsonl", "# Two stores.\n# world: muted\n{\"show\":\"store\"}\n");
  Write("worlds/muted/store", "[Software\\Brenwick\\User]\nMute = \"1\"\n");
  EXPECT_THAT(Check(), HasSubstr(R"("Mute":"1")"));
  Write("a/case/store", "[Software\\Brenwick\\User]\nMute = \"0\"\n");
  EXPECT_THAT(Check(), HasSubstr(R"("Mute":"0")"));
}

TEST_F(PlayerTest, PutsFilesOverACopyOfTheProgram) {
  Write("a/case/script.jsonl",
        "# Two languages more.\n{\"start\":\"\"}\n{\"show\":\"cmbLanguage\"}\n");
  EXPECT_THAT(Check(), Not(HasSubstr("Klingon")));
  Write("a/case/program/Languages/Klingon.TML", "x");
  EXPECT_THAT(Check(), HasSubstr("\"Klingon\""));
  EXPECT_FALSE(fs::exists(fs::path(BRENWICK_PROGRAM_FOLDER) / "Languages/Klingon.TML"));
}

TEST_F(PlayerTest, CallsTheFolderOfTheRunAlikeEachTime) {
  Write("a/case/script.jsonl", "{\"start\":\"\"}\n{\"show\":\"txtDocumentsAndSettings\"}\n");
  EXPECT_THAT(Check(), HasSubstr("\"text\":\"FOLDER/documents/Brenwick\""));
}

TEST_F(PlayerTest, EachRunHasFoldersOfItsOwn) {
  WriteStart("# Leaves files behind.\n", "/DEBUG");
  EXPECT_EQ(Check(), "");
  WriteStart("# Finds none.\n");
  Write("a/case/after/Brenwick/MkDebug.Tmp", "");
  EXPECT_EQ(Check(), "Brenwick/MkDebug.Tmp was not written");
}

TEST_F(PlayerTest, LooksForLinesInTheDebugLog) {
  WriteStart("# Writes a log.\n", "/DEBUG");
  Write("a/case/log", "Form_Unload Unloading forms\n");
  const std::string wrong = Check();
  EXPECT_THAT(wrong, StartsWith("the debug log does not hold these lines together\n"));
  EXPECT_THAT(wrong, HasSubstr("+"));
  Write("a/case/log", "nobody wrote this\n");
  EXPECT_THAT(Check(), HasSubstr("-nobody wrote this\n"));
  Write("a/case/log", "");
  EXPECT_EQ(Check(), "the expected log is empty");
}

TEST_F(PlayerTest, FindsTheDebugLogMissing) {
  Write("a/case/log", "A : one\n");
  EXPECT_EQ(Check(), "no debug log was written");
}

TEST_F(PlayerTest, RefusesAWordThatNobodyKnows) {
  Write("a/case/script.jsonl", "# Shows a box.\n# wrld: first\n{\"show\":\"chkMute\"}\n");
  EXPECT_EQ(Check(), "nobody knows \"wrld:\"");
}

TEST_F(PlayerTest, ComparesWithTheTranscriptOfAnotherCase) {
  Write("b/script.jsonl", "# As the other.\n# transcript: a/case\n{\"show\":\"chkMute\"}\n");
  EXPECT_EQ(player_.Check("b"), "");
  Write("a/case/transcript", "{\"step\":1}\n");
  EXPECT_THAT(player_.Check("b"), StartsWith("nothing more was expected"));
  EXPECT_THAT(player_.Update("b"), StartsWith("nothing more was expected"));
  Write("b/transcript", "{\"step\":1}\n");
  EXPECT_THAT(player_.Check("b"), HasSubstr("beside the shared one"));
}

TEST_F(PlayerTest, WritesTheTranscriptAnew) {
  WriteStart();
  Remove("a/case/transcript");
  EXPECT_EQ(player_.Update("a/case"), "");
  const TextLines short_one = SplitLines(Read("a/case/transcript"));
  EXPECT_EQ(short_one.at(1), "...");
  EXPECT_EQ(short_one.at(2), R"({"step":2})");
  EXPECT_EQ(Check(), "");

  WriteStart("# whole start\n");
  EXPECT_EQ(player_.Update("a/case"), "");
  EXPECT_THAT(Read("a/case/transcript"), Not(HasSubstr("\n...\n")));
  EXPECT_GT(SplitLines(Read("a/case/transcript")).size(), short_one.size());
  EXPECT_EQ(Check(), "");
}

TEST_F(PlayerTest, LeavesTheTranscriptWhereTheScriptIsWrong) {
  Write("a/case/script.jsonl", "{\"leap\":1}\n");
  const std::string before = Read("a/case/transcript");
  EXPECT_THAT(player_.Update("a/case"), StartsWith("exit status 2"));
  EXPECT_EQ(Read("a/case/transcript"), before);
}

TEST_F(PlayerTest, ListsCasesByName) {
  Write("b/script.jsonl", "");
  Write("a/another/script.jsonl", "");
  Write("worlds/first/store", "");
  EXPECT_EQ(CaseNames(tree_.Path()), std::vector<std::string>({"a/another", "a/case", "b"}));
}

}  // namespace
}  // namespace brenwick
