// What happens while the program starts or ends, when it lets pending events be handled.
#include <functional>
#include <string>
#include <vector>

#include "support/ProgramFixture.h"

namespace brenwick {
namespace {

class StartAndEndTest : public ProgramFixture {
 protected:
  // Happens once, when the program first handles pending events with the messenger attached: while
  // the pages are laid out, before the window is put away and before there is a tray icon.
  void WhileStarting(const std::function<void()>& event) {
    loop_.Pending = [this, event] {
      if (happened_ || scripted_messenger_.Listener() == nullptr) return;
      happened_ = true;
      EXPECT_EQ(Log().back(), "Form_Load Startup - Form : cleanup");
      event();
    };
  }

  void RaiseMessage(const std::string& text) {
    scripted_messenger_.Listener()->OnTextReceived({"ann@x", "ann"}, "X", text);
  }

  bool happened_ = false;
};

TEST_F(StartAndEndTest, OwnStateThatChangesMeanwhileCounts) {
  StartAndEndOnce();
  WhileStarting(
      [this] { scripted_messenger_.Listener()->OnLocalStateChangeResult(MSTATE_OFFLINE); });
  Start();
  EXPECT_EQ(Form().Caption(), "Brenwick, 3.1.0200 (offline) ");
  EXPECT_EQ(Effects("tray").back()["tip"], "Brenwick, 3.1.0200 (offline) ");
  RaiseMessage("hi");
  EXPECT_EQ(Logged("Speak Not online, nothing spoken"), 1);
}

TEST_F(StartAndEndTest, GreetingFollowsTheFinishSentenceBoxWhateverHappenedMeanwhile) {
  StartAndEndOnce();
  ini_store_.WriteValue(kUserKey, "FinishSentence", {ValueKind::Text, "0"});
  WhileStarting([this] {
    // From here on sentences would queue.
    scripted_messenger_.Listener()->OnLocalStateChangeResult(MSTATE_ONLINE);
  });
  VoiceRecorder voice(scripted_voice_, transcript_);
  voice_ = &voice;
  Start();
  const std::vector<Effect> spoken = Effects("speak");
  ASSERT_EQ(spoken.size(), 2U);
  EXPECT_EQ(spoken[0]["flags"], 9);
  EXPECT_EQ(spoken[1]["flags"], 11);
  EndProcess();
}

TEST_F(StartAndEndTest, CloseBeforeTheSettingsWereReadKeepsThem) {
  StartAndEndOnce();
  ini_store_.WriteValue(kUserKey, "Mute", {ValueKind::Text, "1"});
  loop_.Pending = [this] {
    if (happened_) return;
    happened_ = true;
    EXPECT_EQ(Log().back(), "Form_Load Startup - Initializing Brenwick, 3.1.0200");
    Form().UserCloses();
  };
  EXPECT_THROW(Start(), ProgramEnd);
  EXPECT_EQ(Log().back(), "Form_UnLoad Unloading forms");
  EXPECT_EQ(ini_store_.ReadValue(kUserKey, "Mute")->text, "1");
}

TEST_F(StartAndEndTest, CloseThatIsPendingEndsTheStart) {
  WhileStarting([this] { Form().UserCloses(); });
  EXPECT_THROW(Start(), ProgramEnd);
  EXPECT_EQ(Log().back(), "Form_UnLoad Unloading forms");
  EXPECT_EQ(Logged("Form_Load Startup - Completed"), 0);
  EXPECT_TRUE(Effects("box").empty());
  for (const Effect& effect : Effects("tray")) EXPECT_EQ(effect["tray"], "delete");
}

TEST_F(StartAndEndTest, EachStepOfTheEndIsFollowedByWhatIsPending) {
  Start();
  std::vector<std::string> last_lines;
  loop_.Pending = [&] { last_lines.push_back(Log().back()); };
  EXPECT_THROW(Form().UserCloses(), ProgramEnd);
  const std::string place = "Form_Resize VisibleForm Top = 0";
  EXPECT_EQ(last_lines, (std::vector<std::string>{
                            "Form_Load Startup - Completed",
                            "SaveAllSettings Start",  // the status window paints
                            "SaveAllSettings Finish",
                            "Form_QueryUnLoad Releasing Messenger object",
                            "Form_QueryUnLoad Releasing Voice object",
                            "Form_QueryUnLoad Removing tray icon",
                            place,  // of the window that came back from the tray
                            place,
                            "SaveAllSettings Start",
                            "SaveAllSettings Finish",
                            "Form_UnLoad Releasing Messenger object",
                            "Form_UnLoad Releasing Voice object",
                            "Form_UnLoad Removing tray icon",
                            "Form_UnLoad Removing tray icon",
                        }));
}

TEST_F(StartAndEndTest, MessagesAreHeardUntilTheMessengerIsReleased) {
  Start();
  int rounds = 0;
  int heard = 0;
  loop_.Pending = [&] {
    ++rounds;
    if (scripted_messenger_.Listener() == nullptr) return;
    RaiseMessage(std::to_string(rounds));
    ++heard;
  };
  const auto voices_set = Logged("SetVoice Setting female voice to Mary");
  EXPECT_THROW(Form().UserCloses(), ProgramEnd);
  EXPECT_EQ(heard, 3);
  EXPECT_GT(rounds, heard);
  EXPECT_EQ(Logged("Speak Speaking text: ann says 3"), 1);
  // In a voice that nobody sets any more.
  EXPECT_EQ(Logged("SetVoice Setting female voice to Mary"), voices_set);
}

TEST_F(StartAndEndTest, ClosingTwiceEndsOnce) {
  Start();
  loop_.Pending = [this] {
    if (happened_) return;
    happened_ = true;
    Form().UserCloses();
  };
  EXPECT_THROW(Form().UserCloses(), ProgramEnd);
  EXPECT_EQ(Logged("Form_UnLoad Unloading forms"), 1);
  EXPECT_EQ(Effects("tray").back()["tray"], "delete");
  EXPECT_TRUE(Effects("box").empty());
}

// The window can be closed while a question is open.
class ClosingScreen : public ScriptedScreen {
 public:
  using ScriptedScreen::ScriptedScreen;

  BoxAnswer MessageBox(const std::string&, const std::string&, BoxIcon, BoxButtons) override {
    WhileOpen();
    return BoxAnswer::Yes;
  }

  std::function<void()> WhileOpen;
};

TEST_F(StartAndEndTest, ClosingEndsAnOpenQuestionWithoutAnAnswer) {
  ClosingScreen screen(transcript_);
  screen_ = &screen;
  Start();
  Form().txtBusy.UserTypes("is not to be disturbed");
  screen.WhileOpen = [this] { Form().UserCloses(); };
  EXPECT_THROW(Form().cmdDefaults[1].UserClick(), ProgramEnd);
  // A Yes would have reset the text.
  EXPECT_EQ(ini_store_.ReadValue(kTextKey, "Busy")->text, "is not to be disturbed");
  EXPECT_EQ(Log().back(), "Form_UnLoad Unloading forms");
  EndProcess();
}

// A tray icon that cannot be taken away, at its first tries.
class StickyTray : public ScriptedTray {
 public:
  StickyTray(Transcript& transcript, int failures)
      : ScriptedTray(transcript), failures_(failures) {}

  void Delete() override {
    if (failures_-- > 0) throw Failure(kPathFileAccess);
    ScriptedTray::Delete();
  }

 private:
  int failures_;
};

TEST_F(StartAndEndTest, EndThatFailsIsReported) {
  StickyTray tray(transcript_, 1);
  tray_ = &tray;
  Start();
  EXPECT_THROW(Form().UserCloses(), ProgramEnd);
  EXPECT_EQ(OnlyBox()["box"], Report(75, "Path/File access error", "Form_QueryUnload"));
  EXPECT_EQ(Log().back(), "Form_UnLoad Unloading forms");
  EndProcess();
}

TEST_F(StartAndEndTest, EndThatFailsInItsReportTooIsOverAllTheSame) {
  StickyTray tray(transcript_, 100);
  tray_ = &tray;
  Start();
  EXPECT_THROW(Form().mPopExit.UserClick(), ProgramEnd);
  const std::vector<Effect> boxes = Effects("box");
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_EQ(boxes[0]["box"], Report(75, "Path/File access error", "Form_QueryUnload"));
  EXPECT_EQ(boxes[1]["box"], "Error in ErrorHandler");
  EXPECT_TRUE(ini_store_.ReadValue(kTextKey, "Busy").has_value());
  EndProcess();
}

TEST_F(StartAndEndTest, AutostartEntryThatIsGoneCannotBeTakenAway) {
  Start();
  ASSERT_TRUE(Form().chkStartWithWindows.Ticked());
  ini_store_.DeleteValue(kRunKey, "Brenwick");
  EXPECT_THROW(Form().chkStartWithWindows.UserClick(), ProgramEnd);
  EXPECT_EQ(OnlyBox()["box"],
            Report(26001,
                   "Failed to delete registry Key: '-2147483647',Section: "
                   "'Software\\Microsoft\\Windows\\CurrentVersion\\Run',Key: 'Brenwick",
                   "chkStartWithWindows_Click"));
  EXPECT_FALSE(ini_store_.ReadValue(kRunKey, "Brenwick").has_value());
}

}  // namespace
}  // namespace brenwick
