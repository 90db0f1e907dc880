// The main window as it is designed, and what every window can do.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Failure.h"
#include "forms/frmMain.h"

namespace brenwick {
namespace {

class FormTest : public testing::Test {
 protected:
  template <typename Kind>
  Kind& Of(const std::string& name, int index = -1) {
    auto* control = dynamic_cast<Kind*>(form.Find(name, index));
    if (control == nullptr) throw Failure(kSubscript, name);
    return *control;
  }

  frmMain form;
};

TEST_F(FormTest, EveryControlHasANameOfItsOwn) {
  std::set<std::pair<std::string, int>> names;
  for (const Control* control : form.Controls()) {
    EXPECT_NE(control->Name(), "");
    EXPECT_TRUE(names.emplace(control->Name(), control->Index()).second) << control->Name();
  }
  EXPECT_GT(names.size(), 140U);
}

TEST_F(FormTest, NamesBeginWithTheirKind) {
  const std::vector<std::pair<std::string, std::function<bool(Control*)>>> kinds = {
      {"chk", [](Control* c) { return dynamic_cast<CheckBox*>(c) != nullptr; }},
      {"opt", [](Control* c) { return dynamic_cast<OptionButton*>(c) != nullptr; }},
      {"cmd", [](Control* c) { return dynamic_cast<Button*>(c) != nullptr; }},
      {"txt", [](Control* c) { return dynamic_cast<TextBox*>(c) != nullptr; }},
      {"lst", [](Control* c) { return dynamic_cast<ListBox*>(c) != nullptr; }},
      {"cmb", [](Control* c) { return dynamic_cast<ComboBox*>(c) != nullptr; }},
      {"lbl", [](Control* c) { return dynamic_cast<Label*>(c) != nullptr; }},
      {"fra", [](Control* c) { return dynamic_cast<Frame*>(c) != nullptr; }},
      {"tmr", [](Control* c) { return dynamic_cast<Timer*>(c) != nullptr; }},
      {"wsc", [](Control* c) { return dynamic_cast<Winsock*>(c) != nullptr; }},
      {"ocx", [](Control* c) { return dynamic_cast<HotKeyControl*>(c) != nullptr; }},
  };
  for (Control* control : form.Controls()) {
    const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&](const auto& each) { return each.second(control); });
    const std::string& name = control->Name();
    const bool menu = name.starts_with("mnu") || name.starts_with("mPop");
    ASSERT_EQ(kind == kinds.end(), menu) << name;
    if (!menu) {
      EXPECT_TRUE(name.starts_with(kind->first)) << name;
    }
  }
}

TEST_F(FormTest, FindsEachControlByNameAndIndex) {
  for (Control* control : form.Controls()) {
    EXPECT_EQ(form.Find(control->Name(), control->Index()), control) << control->Name();
  }
  EXPECT_EQ(form.Find("chkMute"), &form.chkMute);
  EXPECT_EQ(form.Find("cmdDefaults", 2), &form.cmdDefaults[2]);
  EXPECT_EQ(form.Find("cmdDefaults"), nullptr);
  EXPECT_EQ(form.Find("cmdDefaults", 3), nullptr);
  EXPECT_EQ(form.Find("chkmute"), nullptr);
  EXPECT_EQ(form.Find(""), nullptr);
}

TEST_F(FormTest, ShowsOnePageAlone) {
  for (const Frame& page : form.fraPage) {
    EXPECT_EQ(page.Visible(), page.Index() == kGeneralPage) << page.Index();
    EXPECT_EQ(page.Page(), page.Index());
  }
}

TEST_F(FormTest, PagesCarryTheirCaptions) {
  const std::vector<std::string> captions = {" General ",      " Spoken ",
                                             " Text ",         " Voices  ",
                                             " Buddynames ",   "  Ignore ",
                                             " Gender",        " Connections ",
                                             " Spoken words ", " Save settings ",
                                             " Website",       " Log options",
                                             " Repeat ",       "",
                                             " About ",        " Contact info "};
  std::vector<std::string> found;
  for (const Frame& page : form.fraPage) found.push_back(page.Caption());
  EXPECT_EQ(found, captions);
}

TEST_F(FormTest, CheckBoxesStartAsDesigned) {
  const std::set<std::string> ticked = {
      "chkIntroduce",       "chkShowStartupScreen", "chkIntroduceUser",
      "chkFirstName",       "chkNotifyUserState",   "chkNotifyNewEmail",
      "chkFinishSentence",  "chkScrollLock",        "chkLogConversationsCleanUp",
      "chkLogDebugCleanUp", "chkUseRepeat"};
  std::set<std::string> found;
  for (Control* control : form.Controls()) {
    const auto* box = dynamic_cast<CheckBox*>(control);
    if (box != nullptr && box->Ticked()) found.insert(box->Name());
  }
  EXPECT_EQ(found, ticked);
}

TEST_F(FormTest, OptionsStartAsDesigned) {
  const std::set<std::string> chosen = {"optFemale", "optBuddyNamesSortContact",
                                        "optIgnoreSortContact", "optGenderSortContact"};
  std::set<std::string> found;
  for (Control* control : form.Controls()) {
    const auto* option = dynamic_cast<OptionButton*>(control);
    if (option != nullptr && option->Chosen()) found.insert(option->Name());
  }
  EXPECT_EQ(found, chosen);
}

TEST_F(FormTest, OnlyContactInfoHasKeysForItsButtons) {
  std::vector<std::string> pressed;
  for (Control* control : form.Controls()) {
    const auto* button = dynamic_cast<Button*>(control);
    if (button == nullptr || button->PressedBy() == Button::Key::None) continue;
    EXPECT_EQ(button->Page(), kContactInfoPage);
    pressed.push_back(button->Name());
  }
  EXPECT_EQ(pressed, (std::vector<std::string>{"cmdBuddyNamesOK", "cmdBuddyNamesCancel"}));
  EXPECT_EQ(form.cmdBuddyNamesOK.PressedBy(), Button::Key::Enter);
  EXPECT_EQ(form.cmdBuddyNamesCancel.PressedBy(), Button::Key::Escape);
}

TEST_F(FormTest, OptionsStandInFiveGroups) {
  const std::vector<std::vector<std::string>> groups = {
      {"optMale", "optFemale"},
      {"optBuddyNamesSortContact", "optBuddyNamesSortEmail", "optBuddyNamesSortName"},
      {"optIgnoreSortContact", "optIgnoreSortEmail", "optIgnoreSortName"},
      {"optGenderSortContact", "optGenderSortEmail", "optGenderSortName"},
      {"optBuddyNamesMale", "optBuddyNamesFemale"},
  };
  for (const auto& group : groups) Of<OptionButton>(group.back()).Choose();
  for (const auto& group : groups) {
    for (const std::string& name : group) {
      EXPECT_EQ(Of<OptionButton>(name).Chosen(), name == group.back()) << name;
    }
  }
  for (const auto& group : groups) Of<OptionButton>(group.front()).Choose();
  for (const auto& group : groups) EXPECT_FALSE(Of<OptionButton>(group.back()).Chosen());
}

TEST_F(FormTest, BoxesStartWithTheirTexts) {
  const std::vector<std::pair<std::string, std::string>> texts = {
      {"txtIntroductionText", "Welcome to the Brenwick."},
      {"txtOnline", "is online."},
      {"txtOffline", "is offline."},
      {"txtAway", "is away."},
      {"txtBusy", "is busy."},
      {"txtSays", "says"},
      {"txtTalkSpeedMale", "0"},
      {"txtTalkSpeedFemale", "0"},
      {"txtTalkVolumeMale", "100"},
      {"txtTalkVolumeFemale", "100"},
      {"txtLogConversationsDaysToKeep", "7"},
      {"txtLogDebugDaysToKeep", "7"},
  };
  for (const auto& [name, text] : texts) EXPECT_EQ(Of<TextBox>(name).Text(), text) << name;
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Of<TextBox>("txtSpokenMessages", i).Text(), "");
}

TEST_F(FormTest, BoxesThatOnlyShowAreLocked) {
  std::multiset<std::string> locked;
  for (Control* control : form.Controls()) {
    const auto* box = dynamic_cast<TextBox*>(control);
    if (box != nullptr && box->Locked()) locked.insert(box->Name());
  }
  EXPECT_EQ(locked,
            (std::multiset<std::string>{
                "txtDocumentsAndSettings", "txtEngine", "txtEngine", "txtSource", "txtSource",
                "txtSource", "txtLogConversationsDaysToKeep", "txtLogDebugDaysToKeep",
                "txtSpokenMessages", "txtSpokenMessages", "txtSpokenMessages", "txtSpokenMessages",
                "txtWebVersion", "txtWinSockStatus"}));
}

TEST_F(FormTest, WhatBelongsToALogIsDisabledWhileTheLogIsOff) {
  std::set<std::string> disabled;
  for (const Control* control : form.Controls()) {
    if (control->Page() != kNoPage && !control->Enabled()) disabled.insert(control->Name());
  }
  EXPECT_EQ(disabled,
            (std::set<std::string>{"chkLogConversationsCleanUp", "chkLogDebugCleanUp",
                                   "lblLogConversationsDaysToKeep", "lblLogDebugDaysToKeep",
                                   "txtLogConversationsDaysToKeep", "txtLogDebugDaysToKeep"}));
}

TEST_F(FormTest, FourBoxesCarryATip) {
  std::set<std::string> tips;
  for (const Control* control : form.Controls()) {
    if (control->ToolTip().empty()) continue;
    EXPECT_EQ(control->ToolTip(), ">= -10 AND <= 10");
    tips.insert(control->Name());
  }
  EXPECT_EQ(tips, (std::set<std::string>{"txtTalkSpeedFemale", "txtTalkSpeedMale",
                                         "txtTalkVolumeFemale", "txtTalkVolumeMale"}));
}

TEST_F(FormTest, ContactListsAreSortedAndTheOthersAreNot) {
  for (const char* name : {"lstBuddyNames", "lstIgnore", "lstGender", "lstMenu", "lstMessages"}) {
    auto& list = Of<ListBox>(name);
    list.AddItem("b");
    list.AddItem("a");
    const bool sorted = list.List(0) == "a";
    EXPECT_EQ(sorted, list.Page() >= kBuddyNamesPage && list.Page() <= kGenderPage) << name;
  }
}

TEST_F(FormTest, TimersStartAsDesigned) {
  EXPECT_EQ(form.tmrSayStateAgain.Interval(), 1000);
  EXPECT_FALSE(form.tmrSayStateAgain.Enabled());
  EXPECT_EQ(form.tmrOnceADay.Interval(), 60000);
  EXPECT_TRUE(form.tmrOnceADay.Enabled());
}

TEST_F(FormTest, HotKeysStartAsDesigned) {
  EXPECT_EQ(form.ocxHotKeySilent.Key().vkey, 145);
  EXPECT_FALSE(form.ocxHotKeySilent.Key().winkey);
  EXPECT_FALSE(form.ocxHotKeySilent.Enabled());
  EXPECT_EQ(form.ocxHotKeyActivateBW.Key().vkey, 'T');
  EXPECT_TRUE(form.ocxHotKeyActivateBW.Enabled());
  for (const HotKeyControl& key : form.ocxSpeakMsg1) {
    EXPECT_EQ(key.Key().vkey, '1' + key.Index());
    EXPECT_TRUE(key.Key().ctrlkey);
    EXPECT_TRUE(key.Key().shiftkey);
    EXPECT_FALSE(key.Key().winkey);
    EXPECT_TRUE(key.Enabled());
  }
}

TEST_F(FormTest, TrayMenuHasItsItemsInOrder) {
  using Items = std::vector<MenuItem*>;
  EXPECT_EQ(form.ItemsOf(form.mPopupSys),
            (Items{&form.mnuMute, &form.mnuSeparator, &form.mnuBuddies, &form.mPopRestore,
                   &form.mPopExit}));
  EXPECT_EQ(form.ItemsOf(form.mnuBuddies), (Items{&form.mnuBuddiesOnLine[0]}));
  form.mnuBuddiesOnLine.Load(1);
  EXPECT_EQ(form.ItemsOf(form.mnuBuddies),
            (Items{&form.mnuBuddiesOnLine[0], &form.mnuBuddiesOnLine[1]}));
  EXPECT_EQ(form.ItemsOf(form.mnuMute), Items{});
  EXPECT_EQ(form.ItemsOf(form.mnuBuddiesOnLine[0]), Items{});
}

TEST_F(FormTest, TrayMenuCarriesItsCaptions) {
  std::vector<std::string> captions = {form.mPopupSys.Caption()};
  for (const MenuItem* item : form.ItemsOf(form.mPopupSys)) captions.push_back(item->Caption());
  captions.push_back(form.mnuBuddiesOnLine[0].Caption());
  EXPECT_EQ(captions, (std::vector<std::string>{"&SysTray", "&Mute", "-", "Buddies", "&Restore",
                                                "&Exit", "OffLine"}));
}

class WindowTest : public testing::Test {
 protected:
  // How often the signal is given during the call.
  template <typename Call>
  int Given(Observers<>& signal, const Call& call) {
    int given = 0;
    const Subscription subscription = signal.Observe([&] { ++given; });
    call();
    return given;
  }

  Window window;
};

TEST_F(WindowTest, StartsHiddenAndNormal) {
  EXPECT_FALSE(window.Visible());
  EXPECT_TRUE(window.InTaskbar());
  EXPECT_EQ(window.State(), WindowState::Normal);
  EXPECT_EQ(window.Caption(), "");
}

TEST_F(WindowTest, TellsOfWhatDiffersOnce) {
  const auto twice = [](const auto& call) {
    return [call] {
      call();
      call();
    };
  };
  EXPECT_EQ(Given(window.CaptionChanged, twice([&] { window.SetCaption("a"); })), 1);
  EXPECT_EQ(Given(window.VisibilityChanged, twice([&] { window.Show(); })), 1);
  EXPECT_EQ(Given(window.VisibilityChanged, twice([&] { window.Hide(); })), 1);
  EXPECT_EQ(Given(window.StateChanged, twice([&] { window.UserMinimizes(); })), 1);
  EXPECT_EQ(Given(window.StateChanged, twice([&] { window.UserRestores(); })), 1);
  EXPECT_EQ(Given(window.TaskbarChanged, twice([&] { window.SetInTaskbar(false); })), 1);
  EXPECT_EQ(Given(window.PlaceChanged, twice([&] { window.Move(1, 2); })), 1);
  EXPECT_EQ(Given(window.PlaceChanged, twice([&] { window.SetSize(3, 4); })), 1);
  EXPECT_EQ(Given(window.ForegroundWanted, twice([&] { window.BringToForeground(); })), 2);
  EXPECT_EQ(window.Caption(), "a");
  EXPECT_FALSE(window.InTaskbar());
  EXPECT_EQ((std::vector<int>{window.Left(), window.Top(), window.Width(), window.Height()}),
            (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(WindowTest, IsVisibleWhenMinimizedUntilItIsHidden) {
  window.UserMinimizes();
  EXPECT_TRUE(window.Visible());
  window.Hide();
  EXPECT_FALSE(window.Visible());
  window.UserRestores();
  EXPECT_FALSE(window.Visible());
}

TEST_F(WindowTest, ResizesWhenItsStateChanges) {
  std::vector<WindowState> states;
  window.Resize = [&] { states.push_back(window.State()); };
  window.UserMinimizes();
  window.SetState(WindowState::Minimized);
  window.UserRestores();
  window.SetSize(3, 4);
  EXPECT_EQ(states, (std::vector<WindowState>{WindowState::Minimized, WindowState::Normal}));
}

TEST_F(WindowTest, IsMovedAndClosedByTheUser) {
  window.UserCloses();  // nobody is told
  int closed = 0;
  window.CloseWanted = [&] { ++closed; };
  window.Show();
  window.UserCloses();
  EXPECT_EQ(closed, 1);
  EXPECT_TRUE(window.Visible());
  window.UserMoves(-50, 7);
  EXPECT_EQ(window.Left(), -50);
  EXPECT_EQ(window.Top(), 7);
}

}  // namespace
}  // namespace brenwick
