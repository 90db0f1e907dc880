#include "web/VersionCheck.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "pages/SettingsBinding.h"
#include "pages/WebsitePage.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

// Holds nothing; cannot even be read while it is broken.
class EmptyStore : public RegistryStore {
 public:
  bool KeyExists(const std::string& /*key*/) override { return true; }
  bool CreateKey(const std::string& /*key*/) override { return true; }
  bool DeleteKey(const std::string& /*key*/) override { return true; }
  std::optional<RegistryValue> ReadValue(const std::string& /*key*/,
                                         const std::string& /*name*/) override {
    if (broken) throw Failure(kPathFileAccess);
    return std::nullopt;
  }
  bool WriteValue(const std::string& /*key*/, const std::string& /*name*/,
                  const RegistryValue& /*value*/) override {
    return true;
  }
  bool DeleteValue(const std::string& /*key*/, const std::string& /*name*/) override {
    return true;
  }
  Texts ValueNames(const std::string& /*key*/) override { return {}; }
  Texts SubKeys(const std::string& /*key*/) override { return {}; }
  std::string ExpandEnvironment(const std::string& text) override { return text; }

  bool broken = false;
};

constexpr int kMostSteps = 1000;
constexpr const char* kNewer = "9";
constexpr const char* kOld = "1";

class VersionCheckTest : public testing::Test {
 protected:
  VersionCheckTest() {
    SetTexts(73, "text 73");
    world.state.MessengerOnline = true;
    world.screen.answer = BoxAnswer::No;
    controls.Serve(access);
    world.loop.Pending = [this] { HandleEvents(); };
    world.screen.WhileBoxShows = [this] {
      counter_at_box.push_back(form.cmdUpdate.Caption());
      if (AtBox) AtBox();
    };
  }

  void SetTexts(std::size_t id, const std::string& text) {
    Texts numbered = NumberedTexts();
    numbered[id] = text;
    texts.Replace(numbered);
  }

  void HandleEvents() {
    if (world.loop.rounds > 10 * kMostSteps) throw Failure(kInvalidCall);  // waits for ever
    if (const auto event = at.find(world.loop.rounds); event != at.end()) event->second();
    if (EachStep) EachStep();
  }

  std::function<void()> Answering(const std::string& version) {
    return [this, version] {
      socket.Accept();
      socket.Arrive("HTTP/1.1 200 OK\r\n\r\n" + version);
      socket.Finish();
    };
  }
  // The boxes by icon and first line, in their order.
  Texts Boxes() const {
    static const std::map<BoxIcon, std::string> kIcons = {{BoxIcon::Critical, "critical "},
                                                          {BoxIcon::Question, "question "},
                                                          {BoxIcon::Exclamation, "exclamation "},
                                                          {BoxIcon::Information, "information "}};
    Texts boxes;
    for (const FakeScreen::Box& box : world.screen.boxes) {
      boxes.push_back(kIcons.at(box.icon) + box.text.substr(0, box.text.find("\r\n")));
    }
    return boxes;
  }
  int Connections() const {
    int count = 0;
    for (const std::string& call : socket.calls) count += call.starts_with("connect") ? 1 : 0;
    return count;
  }
  void ExpectIsOver() {
    EXPECT_EQ(form.cmdUpdate.Caption(), "text 77");
    EXPECT_EQ(form.txtWinSockStatus.Text(), "Closed");
    EXPECT_EQ(socket.calls.back(), "close ");
    EXPECT_EQ(world.screen.LastPointer(), Pointer::Default);
  }

  FakeWorld world;
  frmMain form;
  SettingsValues values;
  SettingsBinding binding{form, values};
  TextTable texts{world.log};
  EmptyStore store;
  Registry registry{store, world.folders};
  TextCleanUp clean_up{world.log};
  Abbreviations abbreviations{world.log, texts, world.status, world.data, world.folders};
  SpokenHistory history{world.log};
  FakeVoice voice;
  Speech speech{world.log,     world.state, values,       texts, clean_up,
                abbreviations, history,     world.status, voice};
  WebsiteControls controls{form};
  WebAccess access{world.log, texts, world.status, controls, controls};
  VersionCheck check{world.log,  world.state,  values, texts,  world.status, registry,
                     world.loop, world.screen, speech, access, controls};
  WebsitePage page{form, check};
  FakeSocket socket{form.wscHttp};

  std::map<int, std::function<void()>> at;  // what happens at which step
  std::function<void()> EachStep;
  std::function<void()> AtBox;
  Texts counter_at_box;
};

TEST_F(VersionCheckTest, WaitsInStepsThatItsButtonCounts) {
  Texts captions;
  const auto watching =
      form.cmdUpdate.Changed.Observe([&] { captions.push_back(form.cmdUpdate.Caption()); });
  std::vector<int> slept;
  EachStep = [&] { slept.push_back(static_cast<int>(world.loop.slept.count())); };
  at[3] = Answering(kOld);
  check.UpdateCheck(false);
  EXPECT_EQ(slept, (std::vector<int>{10, 20, 30}));
  EXPECT_EQ(captions, (Texts{"1", "2", "3", "text 77"}));
  ExpectIsOver();
}

TEST_F(VersionCheckTest, ShowsTheSocketAtEachStep) {
  Texts shown;
  EachStep = [&] { shown.push_back(form.txtWinSockStatus.Text()); };
  at[1] = [&] { form.wscHttp.SetState(SocketState::ResolvingHost); };
  at[2] = [&] { form.wscHttp.SetState(SocketState::HostResolved); };
  at[4] = Answering(kOld);
  check.UpdateCheck(false);
  EXPECT_EQ(shown, (Texts{"Connecting", "Resolving host", "Host resolved", "Closing"}));
}

TEST_F(VersionCheckTest, ThePointerIsBusyUntilTheAnswerIsThere) {
  std::vector<Pointer> pointers;
  EachStep = [&] { pointers.push_back(world.screen.LastPointer()); };
  AtBox = [&] { pointers.push_back(world.screen.LastPointer()); };
  at[2] = Answering(kOld);
  check.UpdateCheck(true);
  EXPECT_EQ(pointers,
            (std::vector<Pointer>{Pointer::Hourglass, Pointer::Hourglass, Pointer::Default}));
}

TEST_F(VersionCheckTest, ClosesTheSocketAtBothEnds) {
  at[1] = Answering(kOld);
  check.UpdateCheck(false);
  ASSERT_EQ(socket.calls.size(), 4U);
  EXPECT_EQ(socket.calls[0], "close ");
  EXPECT_EQ(socket.calls[1], std::string("connect ") + kPublisher + ":80 from 0");
  EXPECT_EQ(socket.calls[3], "close ");
}

TEST_F(VersionCheckTest, TheVersionOfTheLastCheckIsNoAnswer) {
  at[1] = Answering(kNewer);
  check.UpdateCheck(false);
  voice.spoken.clear();
  at[3] = Answering(kOld);
  check.UpdateCheck(true);
  EXPECT_EQ(world.loop.rounds, 3);
  EXPECT_EQ(voice.spoken, Texts{"text 72"});
  EXPECT_EQ(Boxes(), Texts{"information text 72"});
}

TEST_F(VersionCheckTest, TheButtonAsksForTheUser) {
  at[1] = Answering(kNewer);
  form.cmdUpdate.UserClick();
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_EQ(world.screen.boxes[0].text, "text 69\r\ntext 70 3.1.200\r\ntext 71 9");
  EXPECT_EQ(voice.spoken, Texts{"text 69"});
}

TEST_F(VersionCheckTest, TheUserIsAskedAfterAThousandStepsAndNotBefore) {
  at[kMostSteps] = [&] { EXPECT_EQ(Boxes(), Texts()); };
  check.UpdateCheck(true);
  EXPECT_EQ(world.loop.rounds, kMostSteps);
  EXPECT_EQ(world.loop.slept, std::chrono::seconds(10));
  EXPECT_EQ(counter_at_box, Texts{"1000"});
  EXPECT_EQ(Boxes(), Texts{"question text 74"});
  EXPECT_EQ(world.screen.boxes[0].buttons, BoxButtons::YesNo);
  EXPECT_EQ(voice.spoken, Texts{"text 73"});
  EXPECT_EQ(form.txtWebVersion.Text(), "");
  ExpectIsOver();
}

TEST_F(VersionCheckTest, AfterYesTheStepsAreCountedAnew) {
  world.screen.answer = BoxAnswer::Yes;
  AtBox = [&] {
    if (world.screen.boxes.size() == 2) world.screen.answer = BoxAnswer::No;
  };
  Texts captions;
  at[kMostSteps + 2] = [&] { captions.push_back(form.cmdUpdate.Caption()); };
  check.UpdateCheck(true);
  EXPECT_EQ(captions, Texts{"1"});
  EXPECT_EQ(counter_at_box, (Texts{"1000", "1000"}));
  EXPECT_EQ(world.loop.rounds, 2 * kMostSteps);
}

TEST_F(VersionCheckTest, AnAnswerInTheLastStepIsTaken) {
  at[kMostSteps] = Answering(kNewer);
  check.UpdateCheck(true);
  EXPECT_EQ(Boxes(), Texts{"information text 69"});
}

TEST_F(VersionCheckTest, AnAnswerWhileTheUserIsAskedIsTakenOnYes) {
  world.screen.answer = BoxAnswer::Yes;
  AtBox = [&] {
    if (world.screen.boxes.size() == 1) Answering(kNewer)();
  };
  check.UpdateCheck(true);
  EXPECT_EQ(world.loop.rounds, kMostSteps);
  EXPECT_EQ(Boxes(), (Texts{"question text 74", "information text 69"}));
}

TEST_F(VersionCheckTest, AnAnswerWhileTheUserIsAskedIsNotComparedOnNo) {
  AtBox = Answering(kNewer);
  check.UpdateCheck(true);
  EXPECT_EQ(voice.spoken, Texts{"text 73"});
  EXPECT_EQ(Boxes(), Texts{"question text 74"});
}

TEST_F(VersionCheckTest, ASilentCheckGivesUpWithoutASign) {
  check.UpdateCheck(false);
  EXPECT_EQ(world.loop.rounds, kMostSteps);
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(voice.spoken, Texts());
  EXPECT_EQ(form.txtWebVersion.Text(), "");
  ExpectIsOver();
}

TEST_F(VersionCheckTest, AFailureWhileTheUserIsAskedIsShownOnNo) {
  AtBox = [&] {
    if (world.screen.boxes.size() == 1) socket.Fail();
  };
  check.UpdateCheck(true);
  EXPECT_EQ(voice.spoken, Texts{"text 73"});
  EXPECT_EQ(Boxes(), (Texts{"question text 74", "exclamation text 73"}));
  EXPECT_EQ(world.screen.boxes[1].buttons, BoxButtons::Ok);
  ExpectIsOver();
}

TEST_F(VersionCheckTest, AFailureWithoutATextEndsInTheTimeOut) {
  SetTexts(73, "");
  at[1] = [&] { socket.Fail(); };
  check.UpdateCheck(true);
  EXPECT_EQ(world.loop.rounds, kMostSteps);
  EXPECT_EQ(voice.spoken, Texts{""});
  EXPECT_EQ(Boxes(), (Texts{"question text 74", "exclamation "}));
  EXPECT_EQ(form.txtWebVersion.Text(), "");
  ExpectIsOver();
}

TEST_F(VersionCheckTest, AFailureThatNobodyToldIsShownAfterItsBox) {
  at[1] = [&] { form.wscHttp.SetState(SocketState::Error); };
  check.UpdateCheck(true);
  EXPECT_EQ(Boxes(), (Texts{"question text 74", "exclamation "}));
  EXPECT_EQ(form.txtWebVersion.Text(), "text 73");
}

TEST_F(VersionCheckTest, AFailureIsNotShownInASilentCheck) {
  at[1] = [&] { form.wscHttp.SetState(SocketState::Error); };
  check.UpdateCheck(false);
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(form.txtWebVersion.Text(), "");
}

TEST_F(VersionCheckTest, AnAnswerThatTricklesIsGivenUpThoughTheUserWouldWait) {
  world.screen.answer = BoxAnswer::Yes;
  at[5] = [&] { socket.Accept(); };
  EachStep = [&] {
    if (form.wscHttp.State() == SocketState::Connected) socket.Arrive("x");
  };
  check.UpdateCheck(true);
  EXPECT_EQ(world.loop.rounds, 5 + WebAccess::kMostSteps);
  EXPECT_EQ(form.txtWebVersion.Text(), "text 73");
  EXPECT_EQ(Boxes(), (Texts{"question text 74", "information text 72"}));
  ExpectIsOver();
}

TEST_F(VersionCheckTest, NoSecondCheckBeginsMeanwhile) {
  at[2] = [&] { check.UpdateCheck(false); };
  at[3] = [&] { EXPECT_EQ(form.cmdUpdate.Caption(), "2"); };
  at[4] = Answering(kOld);
  check.UpdateCheck(true);
  EXPECT_EQ(Connections(), 1);
  EXPECT_EQ(world.loop.rounds, 4);
  EXPECT_EQ(Boxes(), Texts{"information text 72"});
}

TEST_F(VersionCheckTest, ASilentCheckBecomesTheUsersWhenHeAsks) {
  at[2] = [&] { form.cmdUpdate.UserClick(); };
  at[4] = Answering(kOld);
  check.UpdateCheck(false);
  EXPECT_EQ(Connections(), 1);
  EXPECT_EQ(Boxes(), Texts{"information text 72"});
  EXPECT_EQ(voice.spoken, Texts{"text 72"});
}

TEST_F(VersionCheckTest, ASilentCheckThatBecameTheUsersAsksHim) {
  at[kMostSteps] = [&] { form.cmdUpdate.UserClick(); };
  check.UpdateCheck(false);
  EXPECT_EQ(Boxes(), Texts{"question text 74"});
  EXPECT_EQ(voice.spoken, Texts{"text 73"});
}

TEST_F(VersionCheckTest, TheNextCheckIsItsOwn) {
  at[1] = Answering(kNewer);
  at[2] = Answering(kNewer);
  check.UpdateCheck(true);
  check.UpdateCheck(false);
  EXPECT_EQ(Connections(), 2);
  EXPECT_EQ(Boxes(), Texts{"information text 69"});
  EXPECT_EQ(voice.spoken, (Texts{"text 69", "text 69"}));
}

TEST_F(VersionCheckTest, TheEndOfTheProgramEndsTheWaiting) {
  at[2] = [] { throw ProgramEnd{}; };
  EXPECT_THROW(check.UpdateCheck(true), ProgramEnd);
  EXPECT_EQ(world.loop.rounds, 2);
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(voice.spoken, Texts());
}

TEST_F(VersionCheckTest, AFailureOfTheCheckIsReported) {
  store.broken = true;
  EXPECT_THROW(check.UpdateCheck(false), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_TRUE(
      world.screen.boxes[0].text.ends_with("Module: frmMain\r\nProcedure: UpdateCheck\r\n\r\n"));
}

TEST_F(VersionCheckTest, AFailureOfTheWebSiteButtonIsReported) {
  store.broken = true;
  EXPECT_THROW(form.cmdWebSite.UserClick(), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_TRUE(world.screen.boxes[0].text.ends_with(
      "Module: frmMain\r\nProcedure: cmdWebSite_Click\r\n\r\n"));
}

TEST_F(VersionCheckTest, TheProgramChecksWhereTheUserWantsItAndIsSignedIn) {
  for (const bool wanted : {false, true}) {
    for (const bool online : {false, true}) {
      form.chkNewVersionBrenwick.SetTicked(wanted);
      world.state.MessengerOnline = online;
      const int before = Connections();
      check.CheckAutomatically();
      EXPECT_EQ(Connections() - before, wanted && online ? 1 : 0);
    }
  }
  EXPECT_EQ(Boxes(), Texts());
}

}  // namespace
}  // namespace brenwick
