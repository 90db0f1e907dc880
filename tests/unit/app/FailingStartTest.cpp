// A failure in the middle of the start that no step of it traps.
#include <functional>
#include <stdexcept>
#include <string>

#include "base/Failure.h"
#include "support/ProgramFixture.h"

namespace brenwick {
namespace {

// What fails, if anything, in the worlds below.
struct Fault {
  std::string call;
  std::function<void()> raise;

  void At(const char* name) const {
    if (call == name) raise();
  }
};

class FailingMessenger : public ScriptedMessenger {
 public:
  FailingMessenger(Transcript& transcript, const Fault& fault)
      : ScriptedMessenger(transcript), fault_(fault) {}

  void Attach(MessengerListener& listener) override {
    fault_.At("Attach");
    ScriptedMessenger::Attach(listener);
  }
  std::int32_t MyStatus() override {
    fault_.At("MyStatus");
    return ScriptedMessenger::MyStatus();
  }
  std::string MyName() override {
    fault_.At("MyName");
    return ScriptedMessenger::MyName();
  }

 private:
  const Fault& fault_;
};

class FailingVoice : public ScriptedVoice {
 public:
  explicit FailingVoice(const Fault& fault) : fault_(fault) {}

  const std::vector<std::string>& GetVoices() override {
    fault_.At("GetVoices");
    return ScriptedVoice::GetVoices();
  }

 private:
  const Fault& fault_;
};

class FailingTray : public ScriptedTray {
 public:
  FailingTray(Transcript& transcript, const Fault& fault)
      : ScriptedTray(transcript), fault_(fault) {}

  void Add(const std::string& tip) override {
    fault_.At("Add");
    ScriptedTray::Add(tip);
  }
  void Modify(const std::string& tip) override {
    fault_.At("Modify");
    ScriptedTray::Modify(tip);
  }

 private:
  const Fault& fault_;
};

class FailingSystem : public ScriptedSystem {
 public:
  explicit FailingSystem(const Fault& fault) : fault_(fault) {}

  std::pair<std::string, std::string> OSVersion() override {
    fault_.At("OSVersion");
    return ScriptedSystem::OSVersion();
  }

 private:
  const Fault& fault_;
};

class FailingStartTest : public ProgramFixture {
 protected:
  FailingStartTest() {
    messenger_ = &failing_messenger_;
    voice_ = &failing_voice_;
    tray_ = &failing_tray_;
    system_ = &failing_system_;
  }

  void FailToStart(const std::string& call, std::function<void()> raise) {
    StartAndEndOnce();
    fault_ = {call, std::move(raise)};
    EXPECT_THROW(Start(), ProgramEnd);
  }

  // The steps of the start that the log tells.
  std::vector<std::string> Steps() {
    const std::string own = "Form_Load ";
    std::vector<std::string> steps;
    for (const std::string& line : Log()) {
      if (line.starts_with(own)) steps.push_back(line.substr(own.size()));
    }
    return steps;
  }

  void ExpectStatusGoneBeforeTheBox() const {
    bool shows = false;
    bool box = false;
    for (const std::string& line : transcript_.lines) {
      const Effect effect = Effect::parse(line);
      if (effect.contains("status")) shows = !effect["status"].is_null();
      if (!effect.contains("box")) continue;
      box = true;
      EXPECT_FALSE(shows);
    }
    EXPECT_TRUE(box);
    EXPECT_FALSE(Effects("status").empty());
  }

  Fault fault_;
  FailingMessenger failing_messenger_{transcript_, fault_};
  FailingVoice failing_voice_{fault_};
  FailingTray failing_tray_{transcript_, fault_};
  FailingSystem failing_system_{fault_};
};

void DenyPermission() { throw Failure(kPermissionDenied); }

struct Step {
  const char* call;
  const char* last;  // the last step before the failure
};

class FailingStepTest : public FailingStartTest, public testing::WithParamInterface<Step> {};

TEST_P(FailingStepTest, IsLoggedAndReportedAsTheStartsOwn) {
  FailToStart(GetParam().call, DenyPermission);
  const Effect box = OnlyBox();
  EXPECT_EQ(box["box"], Report(70, "Permission denied", "Form_Load"));
  EXPECT_EQ(box["icon"], "critical");
  ExpectStatusGoneBeforeTheBox();
  const std::vector<std::string> steps = Steps();
  ASSERT_GE(steps.size(), 2U);
  EXPECT_EQ(steps[steps.size() - 2], GetParam().last);
  EXPECT_EQ(steps.back(), "Startup - Error in formload :70");
  EXPECT_EQ(Logged("ERROR in frmMain, Form_Load Line : 70, Error : Permission denied, Source: "
                   "Brenwick"),
            1);
}

INSTANTIATE_TEST_SUITE_P(, FailingStepTest,
                         testing::Values(Step{"Attach", "Startup - Initialize Messenger object"},
                                         Step{"GetVoices", "Startup - Building list of voices"},
                                         Step{"MyStatus", "Startup - Checking Messenger state"},
                                         Step{"Add", "Startup - Creating tray-icon"},
                                         Step{"OSVersion", "Startup - Form : Show Windows version"},
                                         Step{"MyName", "Startup - Speaking introduction"},
                                         Step{"Modify", "Startup - Form : Modifying tray-icon"}),
                         [](const auto& step) { return std::string(step.param.call); });

TEST_F(FailingStartTest, ByAnyOtherExceptionIsToldAsOne) {
  FailToStart("MyStatus", [] { throw std::out_of_range("no such place"); });
  EXPECT_EQ(OnlyBox()["box"], Report(5, "no such place", "Form_Load"));
  EXPECT_EQ(Steps().back(), "Startup - Error in formload :5");
}

TEST_F(FailingStartTest, OfItsOwnNumberIsToldInAMessage) {
  FailToStart("Attach", [] { throw Failure(12345, "told apart", "Brenwick"); });
  const Effect box = OnlyBox();
  EXPECT_EQ(box["box"],
            "Brenwick could not be started.\r\n"
            "Please start it again. If that does not help, please reinstall it.");
  EXPECT_EQ(box["title"], "Brenwick");
  EXPECT_EQ(box["icon"], "information");
  EXPECT_EQ(box["buttons"], "OK");
  ExpectStatusGoneBeforeTheBox();
  // It ends at once: this is the last line, and no window is unloaded.
  EXPECT_EQ(Log().back(), "Form_Load Startup - Error in formload :12345");
  EXPECT_EQ(Effect::parse(transcript_.lines.back()), box);
}

TEST_F(FailingStartTest, WithoutADocumentsFolderIsReportedThoughNothingCanBeLogged) {
  const std::string file = (folder_.Path() / "file").string();
  folders_.Replace(file, "in the way");
  RehearsalFolders folders({file + "/documents", BRENWICK_PROGRAM_FOLDER, ""});
  program_folders_ = &folders;
  EXPECT_THROW(Start(), ProgramEnd);
  EXPECT_EQ(OnlyBox()["box"], Report(76, "Path not found", "Form_Load"));
  EndProcess();
}

}  // namespace
}  // namespace brenwick
