// A failure in the middle of the start that no step of it traps.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "RecordingTranscript.h"
#include "app/Program.h"
#include "base/Failure.h"
#include "desktop/IniStore.h"
#include "rehearsal/RehearsalFolders.h"
#include "rehearsal/ScratchFolder.h"
#include "rehearsal/ScriptedVoice.h"
#include "rehearsal/ScriptedWorld.h"

namespace brenwick {
namespace {

// A messenger that cannot be reached at all.
class NoMessenger : public ScriptedMessenger {
 public:
  NoMessenger(Transcript& transcript, Failure failure)
      : ScriptedMessenger(transcript), failure_(std::move(failure)) {}

  void Attach(MessengerListener&) override { throw Failure(failure_); }

 private:
  Failure failure_;
};

class FailingStartTest : public testing::Test {
 protected:
  // The only box that such a start shows.
  Effect BoxAfter(const Failure& failure) {
    NoMessenger messenger(transcript_, failure);
    ParseMoment("2004-01-10T12:00:00", clock_.now);
    Program program(messenger, voice_, store_, screen_, tray_, loop_, clock_, folders_, system_);
    EXPECT_THROW(program.Start(), ProgramEnd);
    Effect box;
    for (const std::string& line : transcript_.lines) {
      const Effect effect = Effect::parse(line);
      if (!effect.contains("box")) continue;
      EXPECT_TRUE(box.is_null()) << "a second box: " << effect;
      box = effect;
    }
    return box;
  }

  std::string DebugLog() {
    return folders_.Read((folder_.Path() / "documents").string() +
                         "/Brenwick/DebugLogs/20040110.log");
  }

  ScratchFolder folder_;
  RecordingTranscript transcript_;
  ScriptedVoice voice_;
  ScriptedScreen screen_{transcript_};
  ScriptedTray tray_{transcript_};
  ScriptedLoop loop_;
  ScriptedClock clock_;
  ScriptedSystem system_;
  RehearsalFolders folders_{{(folder_.Path() / "documents").string(), BRENWICK_PROGRAM_FOLDER, ""}};
  IniStore store_{(folder_.Path() / "store.ini").string(), clock_, [](const std::string&) {}};
};

TEST_F(FailingStartTest, IsLoggedAndReportedAsTheStartsOwn) {
  const Effect box = BoxAfter(Failure(kPermissionDenied));
  EXPECT_EQ(
      box["box"],
      "Error (70) : Permission denied\r\n\r\nModule: frmMain\r\nProcedure: Form_Load\r\n\r\n");
  EXPECT_EQ(box["icon"], "critical");
  const std::string log = DebugLog();
  const std::size_t told = log.find("Form_Load Startup - Error in formload :70\r\n");
  ASSERT_NE(told, std::string::npos);
  EXPECT_NE(log.find("ERROR in frmMain, Form_Load Line : 70, Error : Permission denied", told),
            std::string::npos);
  EXPECT_EQ(log.find("Startup - Completed"), std::string::npos);
}

TEST_F(FailingStartTest, OfItsOwnNumberIsToldInAMessage) {
  const Effect box = BoxAfter(Failure(12345, "told apart", "Brenwick"));
  EXPECT_EQ(box["icon"], "information");
  EXPECT_EQ(box["title"], "Brenwick");
  EXPECT_NE(box["box"].get<std::string>().find("Brenwick could not be started."),
            std::string::npos);
  EXPECT_EQ(DebugLog().find("ERROR in"), std::string::npos);
}

}  // namespace
}  // namespace brenwick
