// The error report, which ends the program, and the failures that it tells of.
#include "logging/ErrorReport.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

class ErrorReportTest : public testing::Test {
 protected:
  ErrorReportTest() { world.state.Debug = true; }

  void Report(std::int32_t number = 6) {
    EXPECT_THROW(world.report.ErrorHandler("frmMain", "Form_Load", number, "Overflow", "there"),
                 ProgramEnd);
  }
  Texts Boxes() const {
    Texts texts;
    for (const FakeScreen::Box& box : world.screen.boxes) texts.push_back(box.text);
    return texts;
  }

  const std::string message =
      "Error (6) : Overflow\r\n\r\nModule: frmMain\r\nProcedure: Form_Load\r\n\r\n";
  const std::string line = "ERROR in frmMain, Form_Load Line : 6, Error : Overflow, Source: there";
  const std::string fallback = "Error in ErrorHandler";
  FakeWorld world;
};

TEST_F(ErrorReportTest, ShowsTheFailure) {
  Report();
  ASSERT_EQ(Boxes(), (Texts{message}));
  EXPECT_EQ(world.screen.boxes[0].title, "Unexpected Error! Version: 3.1.0200");
  EXPECT_EQ(world.screen.boxes[0].icon, BoxIcon::Critical);
  EXPECT_EQ(world.screen.boxes[0].buttons, BoxButtons::Ok);
}

TEST_F(ErrorReportTest, NotesTheFailureInTheDebugLog) {
  Report();
  EXPECT_EQ(world.DebugLines(), (Texts{line}));
}

TEST_F(ErrorReportTest, NotesNothingWhileDebuggingIsOff) {
  world.state.Debug = false;
  world.folders.folders.clear();
  Report();
  EXPECT_EQ(Boxes(), (Texts{message}));
  EXPECT_EQ(world.folders.files.size(), 0U);
}

TEST_F(ErrorReportTest, WritesNumbersPlainly) {
  Report(-2147483647);
  EXPECT_TRUE(world.screen.boxes.at(0).text.starts_with("Error (-2147483647) : Overflow\r\n"));
  EXPECT_TRUE(world.DebugLines().at(0).find("Line : -2147483647, Error") != std::string::npos);
}

TEST_F(ErrorReportTest, HidesTheStatusWindowThenLogsThenShowsThenUnloads) {
  Texts steps;
  world.status.StatusForm(true, "Reading");
  const Subscription subscription = world.status.Form().VisibilityChanged.Observe(
      [&] { steps.emplace_back(world.status.Form().Visible() ? "shown" : "hidden"); });
  world.folders.Touched = [&](const std::string& how, const std::string&) {
    steps.push_back(how);
    world.status.Form().Show();
  };
  world.screen.WhileBoxShows = [&] { steps.emplace_back("box"); };
  world.report.UnloadWindows = [&] { steps.emplace_back("unload"); };
  Report();
  EXPECT_EQ(steps, (Texts{"hidden", "append", "shown", "hidden", "box", "unload"}));
}

TEST_F(ErrorReportTest, FallsBackWhenTheLogCannotBeWritten) {
  world.status.StatusForm(true, "Reading");
  world.folders.folders.clear();
  Report();
  ASSERT_EQ(Boxes(), (Texts{fallback}));
  EXPECT_EQ(world.screen.boxes[0].icon, BoxIcon::Critical);
  EXPECT_EQ(world.screen.boxes[0].buttons, BoxButtons::Ok);
  EXPECT_FALSE(world.status.Form().Visible());
  EXPECT_EQ(world.folders.files.size(), 0U);
}

TEST_F(ErrorReportTest, FallsBackWhenWindowsCannotBeUnloaded) {
  world.report.UnloadWindows = [] { throw Failure(kPermissionDenied); };
  Report();
  EXPECT_EQ(Boxes(), (Texts{message, fallback}));
  EXPECT_EQ(world.DebugLines(), (Texts{line, "Errorhandler Error in errorhandler 70"}));
}

TEST_F(ErrorReportTest, FallsBackForEveryOtherException) {
  world.report.UnloadWindows = [] { throw std::runtime_error("odd"); };
  Report();
  EXPECT_EQ(Boxes(), (Texts{message, fallback}));
  EXPECT_EQ(world.DebugLines(), (Texts{line, "Errorhandler Error in errorhandler 5"}));
}

TEST_F(ErrorReportTest, HidesTheStatusWindowBeforeItFallsBack) {
  world.report.UnloadWindows = [this] {
    world.status.StatusForm(true, "Saving");
    throw Failure(kPermissionDenied);
  };
  std::vector<bool> visible;
  world.screen.WhileBoxShows = [&] { visible.push_back(world.status.Form().Visible()); };
  Report();
  EXPECT_EQ(visible, (std::vector<bool>{false, false}));
}

TEST_F(ErrorReportTest, FallsBackWhenUnloadingReportsAFailureOfItsOwn) {
  world.report.UnloadWindows = [this] {
    world.log.Trap("frmMain", "Form_Unload", [] { throw Failure(kPathNotFound); });
  };
  Report();
  EXPECT_EQ(Boxes(), (Texts{message, fallback}));
  EXPECT_EQ(world.DebugLines(), (Texts{line, "Errorhandler Error in errorhandler 76"}));
}

TEST_F(ErrorReportTest, FallsBackWhenAnEventFailsWhileItsBoxShows) {
  int unloaded = 0;
  world.report.UnloadWindows = [&] { ++unloaded; };
  world.screen.WhileBoxShows = [this] {
    world.screen.WhileBoxShows = nullptr;
    world.log.Trap("frmMain", "tmrOnceADay_Timer", [] { throw Failure(kFileNotFound); });
  };
  Report();
  EXPECT_EQ(Boxes(), (Texts{message, fallback}));
  EXPECT_EQ(world.DebugLines(), (Texts{line, "Errorhandler Error in errorhandler 53"}));
  EXPECT_EQ(unloaded, 0);
}

TEST_F(ErrorReportTest, EndsTheProgramEvenWhenItsOwnStepsFail) {
  for (int i = 0; i < 32767; ++i) world.pointer.SetHourglass(true);
  Report();
  EXPECT_LE(Boxes().size(), 2U);
}

TEST(Failure, DescribesItsNumber) {
  const std::vector<std::pair<FailureNumber, std::string>> descriptions = {
      {kInvalidCall, "Invalid procedure call or argument"},
      {kOverflow, "Overflow"},
      {kSubscript, "Subscript out of range"},
      {kTypeMismatch, "Type mismatch"},
      {kFileNotFound, "File not found"},
      {kPastEnd, "Input past end of file"},
      {kPermissionDenied, "Permission denied"},
      {kPathFileAccess, "Path/File access error"},
      {kPathNotFound, "Path not found"},
  };
  for (const auto& [number, description] : descriptions) {
    const Failure failure(number);
    EXPECT_EQ(failure.Number(), number);
    EXPECT_EQ(failure.Description(), description);
    EXPECT_EQ(failure.what(), description);
    EXPECT_EQ(failure.Source(), "Brenwick");
  }
}

TEST(Failure, MayBeTheProgramsOwn) {
  const Failure failure(65535, "Language string 175 is not found...", "LoadText");
  EXPECT_EQ(failure.Number(), 65535);
  EXPECT_STREQ(failure.what(), "Language string 175 is not found...");
  EXPECT_EQ(failure.Source(), "LoadText");
}

TEST(ProgramVersion, IsWrittenInTwoWays) {
  EXPECT_EQ(ProgramVersion{}.Padded(), "3.1.0200");
  EXPECT_EQ((ProgramVersion{3, 1, 7}.Padded()), "3.1.0007");
  EXPECT_EQ((ProgramVersion{12, 0, 12345}.Padded()), "12.0.12345");
  EXPECT_EQ((ProgramVersion{3, 1, 7}.Plain()), "3.1.7");
  EXPECT_EQ(VersionText({3, 1, 200}), "Brenwick, 3.1.0200");
}

}  // namespace
}  // namespace brenwick
