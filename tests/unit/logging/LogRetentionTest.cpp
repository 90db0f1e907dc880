#include "logging/LogRetention.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "pages/LogOptionsPage.h"
#include "pages/SettingsBinding.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

constexpr const char* kConversations = "/documents/Brenwick/Conversations/";
constexpr const char* kDebugLogs = "/documents/Brenwick/DebugLogs/";

class LogRetentionTest : public testing::Test {
 protected:
  LogRetentionTest() { world.clock.Set(2004, 1, 10, std::chrono::hours(12)); }

  void Put(const char* folder, std::initializer_list<const char*> days) {
    for (const char* day : days) world.folders.files[folder + std::string(day) + ".log"] = "old";
  }
  // The days whose logs are there, in order.
  std::set<std::string> Days(const std::string& folder) {
    std::set<std::string> days;
    for (const auto& [path, bytes] : world.folders.files) {
      if (path.starts_with(folder)) days.insert(path.substr(folder.size(), 8));
    }
    return days;
  }
  void Tick() { form.tmrOnceADay.Tick(); }

  FakeWorld world;
  frmMain form;
  SettingsValues values;
  SettingsBinding binding{form, values};
  LogRetention retention{world.log,
                         world.files,
                         world.data,
                         world.folders,
                         world.clock,
                         world.status,
                         {values.ConversationCleanUp, values.ConversationsDaysToKeep},
                         {values.DebugCleanUp, values.DebugDaysToKeep},
                         [this](auto text, const auto& days) {
                           shown += std::to_string(text) + ":" + days + " ";
                           return "text";
                         }};
  LogOptionsPage page{world.log, world.files, world.state, form, world.screen, retention};
  std::string shown;
};

TEST_F(LogRetentionTest, DeletesFromTheFirstDayNotKeptToAYearBack) {
  Put(kConversations, {"20040110", "20040103", "20040102", "20031225", "20030110", "20030109"});
  Tick();
  EXPECT_EQ(Days(kConversations), (std::set<std::string>{"20040110", "20040103", "20030109"}));
}

TEST_F(LogRetentionTest, KeepsEachKindItsOwnTime) {
  Put(kConversations, {"20040108", "20040107"});
  Put(kDebugLogs, {"20040109", "20040108"});
  form.txtLogConversationsDaysToKeep.SetText("2");
  form.txtLogDebugDaysToKeep.SetText("1");
  Tick();
  EXPECT_EQ(Days(kConversations), (std::set<std::string>{"20040108"}));
  EXPECT_EQ(Days(kDebugLogs), (std::set<std::string>{"20040109"}));
  EXPECT_EQ(shown, "148:2 149:1 ");
}

TEST_F(LogRetentionTest, LooksAtOneDayWhenAYearOrMoreIsKept) {
  Put(kConversations, {"20030110", "20030109", "20030108"});
  form.txtLogConversationsDaysToKeep.SetText("365");
  form.chkLogDebugCleanUp.SetTicked(false);
  Tick();
  EXPECT_EQ(Days(kConversations), (std::set<std::string>{"20030110", "20030108"}));
}

TEST_F(LogRetentionTest, KeepsTheNextToLastDayOfAYearWhenAllButOneAreKept) {
  Put(kConversations, {"20030111", "20030110", "20030109"});
  form.txtLogConversationsDaysToKeep.SetText("364");
  Tick();
  EXPECT_EQ(Days(kConversations), (std::set<std::string>{"20030111", "20030109"}));
}

TEST_F(LogRetentionTest, CountsDaysAcrossALeapDay) {
  world.clock.Set(2004, 3, 1);
  Put(kConversations, {"20040229", "20040228"});
  form.txtLogConversationsDaysToKeep.SetText("1");
  Tick();
  EXPECT_EQ(Days(kConversations), (std::set<std::string>{"20040229"}));
}

TEST_F(LogRetentionTest, DeletesNothingWithoutItsTick) {
  Put(kConversations, {"20040101"});
  Put(kDebugLogs, {"20040101"});
  form.chkLogConversationsCleanUp.SetTicked(false);
  form.chkLogDebugCleanUp.SetTicked(false);
  Tick();
  EXPECT_EQ(Days(kConversations).size(), 1U);
  EXPECT_EQ(Days(kDebugLogs).size(), 1U);
  EXPECT_EQ(shown, "");
}

TEST_F(LogRetentionTest, DeletesOnceADayAndAgainOnTheNext) {
  Tick();
  Put(kConversations, {"20040101"});
  Tick();
  EXPECT_EQ(Days(kConversations).size(), 1U);
  world.clock.Set(2004, 1, 11);
  Tick();
  EXPECT_TRUE(Days(kConversations).empty());
}

TEST_F(LogRetentionTest, TakesTheSameDayOfAnotherMonthForToday) {
  Tick();
  Put(kConversations, {"20040101"});
  world.clock.Set(2004, 2, 10);
  Tick();
  EXPECT_EQ(Days(kConversations).size(), 1U);
}

TEST_F(LogRetentionTest, TimerRunsWhileOneKindIsCleanedUp) {
  form.chkLogConversationsCleanUp.SetTicked(false);
  EXPECT_TRUE(form.tmrOnceADay.Enabled());
  form.chkLogDebugCleanUp.SetTicked(false);
  EXPECT_FALSE(form.tmrOnceADay.Enabled());
  form.chkLogConversationsCleanUp.SetTicked(true);
  EXPECT_TRUE(form.tmrOnceADay.Enabled());
}

TEST_F(LogRetentionTest, TellsTheLogWhatTheTimerDoes) {
  world.clock.Set(2003, 3, 15,
                  std::chrono::hours(9) + std::chrono::minutes(5) + std::chrono::seconds(7));
  world.state.Debug = true;
  retention.SetLogCleanTimer();
  form.chkLogConversationsCleanUp.SetTicked(false);
  form.chkLogDebugCleanUp.SetTicked(false);
  EXPECT_EQ(world.DebugLines(),
            (std::vector<std::string>{"SetLogCleantTimer Timer on", "SetLogCleantTimer Timer on",
                                      "SetLogCleantTimer Timer off"}));
}

TEST_F(LogRetentionTest, LogThatCannotBeDeletedIsReported) {
  Put(kConversations, {"20040101"});
  world.folders.Touched = [](const std::string& how, const std::string&) {
    if (how == "delete") throw Failure(kPermissionDenied);
  };
  EXPECT_THROW(Tick(), ProgramEnd);
  EXPECT_EQ(world.screen.boxes.at(0).text,
            "Error (70) : Permission denied\r\n\r\nModule: frmMain\r\nProcedure: "
            "tmrOnceADay_Timer\r\n\r\n");
}

TEST_F(LogRetentionTest, MissingLogFoldersAreNothingToDelete) {
  world.folders.folders = {"/documents"};
  Tick();
  EXPECT_EQ(shown, "148:7 149:7 ");
  EXPECT_TRUE(world.screen.boxes.empty());
}

}  // namespace
}  // namespace brenwick
