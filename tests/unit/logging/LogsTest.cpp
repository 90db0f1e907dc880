// The daily files, the two logs in them, and the trap for failures.
#include "logging/Logs.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

using namespace std::chrono_literals;

class LogsTest : public testing::Test {
 protected:
  FakeWorld world;
  std::map<std::string, std::string>& files = world.folders.files;
};

class MakeDatedFileTest : public LogsTest {};

TEST_F(MakeDatedFileTest, NamesTodaysFile) {
  EXPECT_EQ(world.files.MakeDatedFile("/logs/", 0), "/logs/20030315.log");
  EXPECT_EQ(world.files.MakeDatedFile("", 0), "20030315.log");
  world.clock.Set(2004, 1, 9);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 0), "x\\20040109.log");
  world.clock.Set(2004, 11, 10);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 0), "x\\20041110.log");
}

TEST_F(MakeDatedFileTest, CountsDaysBackOverTheEndsOfMonthsAndYears) {
  world.clock.Set(2004, 3, 1);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 1), "x\\20040229.log");
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 2), "x\\20040228.log");
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 365), "x\\20030302.log");
  world.clock.Set(2003, 3, 1);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 1), "x\\20030228.log");
  world.clock.Set(2004, 1, 10);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 10), "x\\20031231.log");
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 365), "x\\20030110.log");
}

TEST_F(MakeDatedFileTest, LooksAtTheDateAlone) {
  world.clock.Set(2004, 3, 1, 23h + 59min + 59s + 999ms);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 0), "x\\20040301.log");
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 1), "x\\20040229.log");
  world.clock.Set(2004, 3, 1, 0ms);
  EXPECT_EQ(world.files.MakeDatedFile("x\\", 1), "x\\20040229.log");
}

TEST_F(LogsTest, DebugLineTellsMomentProcedureAndText) {
  world.state.Debug = true;
  world.log.DebugWrite("Form_Load", "Loading  <settings> & more ");
  EXPECT_EQ(files[FakeWorld::kDebugLog],
            "15-3-2003 9.05.07 Form_Load Loading  <settings> & more \r\n");
  EXPECT_EQ(files.size(), 1U);
}

TEST_F(LogsTest, ConversationLineTellsMomentAndText) {
  world.log.ConversationWrite("Anna says señor");
  EXPECT_EQ(files[FakeWorld::kConversationLog], "15-3-2003 9.05.07 Anna says señor\r\n");
  EXPECT_EQ(files.size(), 1U);
}

TEST_F(LogsTest, LinesAreAppended) {
  world.state.Debug = true;
  files[FakeWorld::kDebugLog] = "older\r\n";
  world.log.DebugWrite("a", "1");
  world.clock.now += 1s;
  world.log.DebugWrite("b", "2");
  EXPECT_EQ(files[FakeWorld::kDebugLog],
            "older\r\n15-3-2003 9.05.07 a 1\r\n15-3-2003 9.05.08 b 2\r\n");
}

TEST_F(LogsTest, LongLinesAreKeptWhole) {
  const std::string text(100'000, 'x');
  world.log.ConversationWrite(text);
  EXPECT_EQ(files[FakeWorld::kConversationLog], "15-3-2003 9.05.07 " + text + "\r\n");
}

TEST_F(LogsTest, NothingIsWrittenWhileDebuggingIsOff) {
  world.folders.folders.clear();
  world.log.DebugWrite("Form_Load", "text");
  EXPECT_EQ(files.size(), 0U);
  EXPECT_EQ(world.screen.boxes.size(), 0U);
  EXPECT_EQ(world.folders.documents_asked, 0);
}

TEST_F(LogsTest, DropsTheLinesOfOneProcedure) {
  world.state.Debug = true;
  world.log.DebugWrite("P_MessengerObject", "text");
  EXPECT_EQ(files.size(), 0U);
  world.log.DebugWrite("p_MessengerObject", "1");
  world.log.DebugWrite("P_MessengerObject ", "2");
  EXPECT_EQ(world.DebugLines(),
            (std::vector<std::string>{"p_MessengerObject 1", "P_MessengerObject  2"}));
}

TEST_F(LogsTest, ConversationsAreWrittenWhateverTheSwitches) {
  world.state.Debug = false;
  world.state.SaveConversations = false;
  world.log.ConversationWrite("text");
  EXPECT_EQ(files.count(FakeWorld::kConversationLog), 1U);
}

TEST_F(LogsTest, NewDayHasANewFile) {
  world.state.Debug = true;
  world.clock.Set(2003, 3, 15, 23h + 59min + 59s);
  world.log.DebugWrite("a", "late");
  world.clock.Set(2003, 3, 16, 1s);
  world.log.DebugWrite("a", "early");
  EXPECT_EQ(files["/documents/Brenwick/DebugLogs/20030315.log"], "15-3-2003 23.59.59 a late\r\n");
  EXPECT_EQ(files["/documents/Brenwick/DebugLogs/20030316.log"], "16-3-2003 0.00.01 a early\r\n");
}

TEST_F(LogsTest, LineAtMidnightCarriesTheDateOfItsFile) {
  world.clock.Set(2003, 3, 15, 23h + 59min + 59s + 999ms);
  world.clock.step = 1ms;
  world.log.ConversationWrite("text");
  EXPECT_EQ(files[FakeWorld::kConversationLog], "15-3-2003 23.59.59 text\r\n");
  EXPECT_EQ(files.size(), 1U);
}

TEST_F(LogsTest, ConversationLogThatCannotBeWrittenIsReported) {
  world.folders.folders.clear();
  EXPECT_THROW(world.log.ConversationWrite("text"), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (76) : Path not found\r\n\r\nModule: modFunctions\r\nProcedure: "
            "DebugWrite\r\n\r\n");
}

TEST_F(LogsTest, DebugLogThatCannotBeWrittenEndsInTheShorterReport) {
  world.state.Debug = true;
  world.folders.folders.clear();
  EXPECT_THROW(world.log.DebugWrite("Form_Load", "text"), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text, "Error in ErrorHandler");
}

TEST_F(LogsTest, TrapReturnsWhatTheBodyReturns) {
  EXPECT_EQ(world.log.Trap("module", "procedure", [] { return 7; }), 7);
  bool ran = false;
  world.log.Trap("module", "procedure", [&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_EQ(world.screen.boxes.size(), 0U);
}

TEST_F(LogsTest, TrapReportsAFailure) {
  world.state.Debug = true;
  EXPECT_THROW(
      world.log.Trap("frmMain", "Form_Load", [] { throw Failure(26001, "No key", "store"); }),
      ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (26001) : No key\r\n\r\nModule: frmMain\r\nProcedure: Form_Load\r\n\r\n");
  EXPECT_EQ(world.DebugLines(),
            (std::vector<std::string>{
                "ERROR in frmMain, Form_Load Line : 26001, Error : No key, Source: store"}));
}

TEST_F(LogsTest, TrapReportsEveryOtherException) {
  world.state.Debug = true;
  EXPECT_THROW(world.log.Trap("frmMain", "Form_Load", [] { throw std::runtime_error("odd"); }),
               ProgramEnd);
  EXPECT_EQ(world.DebugLines(), (std::vector<std::string>{"ERROR in frmMain, Form_Load Line : 5, "
                                                          "Error : odd, Source: Brenwick"}));
}

TEST_F(LogsTest, TrapLetsTheProgramEnd) {
  EXPECT_THROW(world.log.Trap("frmMain", "Form_Load", [] { throw ProgramEnd{}; }), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.size(), 0U);
}

TEST_F(LogsTest, InnermostTrapReportsAlone) {
  EXPECT_THROW(
      world.log.Trap("outer", "Outer",
                     [&] { world.log.Trap("inner", "Inner", [] { throw Failure(kOverflow); }); }),
      ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text,
            "Error (6) : Overflow\r\n\r\nModule: inner\r\nProcedure: Inner\r\n\r\n");
}

TEST_F(LogsTest, StepWhoseFailureDoesNotMatterIsLeft) {
  int reached = 0;
  IgnoringFailures([&] {
    ++reached;
    throw Failure(kOverflow);
  });
  IgnoringFailures([&] { ++reached; });
  EXPECT_EQ(reached, 2);
  EXPECT_THROW(IgnoringFailures([] { throw ProgramEnd{}; }), ProgramEnd);
}

TEST_F(LogsTest, DataFolderIsTheProgramsOwnInTheDocuments) {
  EXPECT_EQ(world.data.Path(), "/documents/Brenwick");
  EXPECT_EQ(world.data.Inside("a.Txt"), "/documents/Brenwick/a.Txt");
  EXPECT_EQ(world.data.DebugLogs(), "/documents/Brenwick/DebugLogs/");
  EXPECT_EQ(world.data.Conversations(), "/documents/Brenwick/Conversations/");
  EXPECT_EQ(world.folders.documents_asked, 1);
}

TEST_F(LogsTest, DataFolderMakesWhatIsMissing) {
  const std::set<std::string> all = world.folders.folders;
  world.folders.folders = {"/documents"};
  world.data.Create();
  EXPECT_EQ(world.folders.folders, all);
  world.folders.folders.erase("/documents/Brenwick/Conversations");
  world.data.Create();
  EXPECT_EQ(world.folders.folders, all);
}

}  // namespace
}  // namespace brenwick
