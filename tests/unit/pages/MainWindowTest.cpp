// The main window in the whole program: its pages, its size, its place in the task bar.
#include <string>
#include <vector>

#include "support/ProgramFixture.h"

namespace brenwick {
namespace {

class MainWindowTest : public ProgramFixture {
 protected:
  std::vector<int> PagesThatShow() {
    std::vector<int> pages;
    for (const Frame& page : Form().fraPage) {
      if (page.Visible()) pages.push_back(page.Index());
    }
    return pages;
  }
};

TEST_F(MainWindowTest, PlacesAllPagesAlike) {
  Start();
  ASSERT_EQ(Form().fraPage.size(), 16U);
  for (const Frame& page : Form().fraPage) {
    EXPECT_EQ(page.Left(), 1800) << page.Caption();
    EXPECT_EQ(page.Top(), 120) << page.Caption();
  }
}

TEST_F(MainWindowTest, EachEntryOfThePageListShowsItsPageAlone) {
  Start();
  const std::vector<int> pages = {0, 1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 14};
  ASSERT_EQ(Form().lstMenu.ListCount(), 13);
  for (int entry = 12; entry >= 0; --entry) {
    // Contact info has no entry and goes like the others.
    Form().fraPage[15].SetVisible(true);
    Form().lstMenu.UserSelect(entry);
    EXPECT_EQ(PagesThatShow(), std::vector<int>{pages[static_cast<std::size_t>(entry)]});
  }
}

TEST_F(MainWindowTest, HasItsSizeAgainWhenItIsRestored) {
  Start();
  Form().UserRestores();
  Form().SetSize(100, 20000);
  Form().UserMinimizes();
  EXPECT_EQ(Form().Width(), 100);
  EXPECT_EQ(Form().Height(), 20000);
  Form().UserRestores();
  EXPECT_EQ(Form().Width(), 5829);
  EXPECT_EQ(Form().Height(), 4200);
}

TEST_F(MainWindowTest, HasAButtonInTheTaskBarWhileItIsNotInTheTray) {
  Start();
  EXPECT_FALSE(Form().InTaskbar());
  tray_->MouseMessage(kLeftButtonUp);
  EXPECT_TRUE(Form().InTaskbar());
  Form().UserMinimizes();
  EXPECT_FALSE(Form().InTaskbar());
  Form().mPopRestore.UserClick();
  EXPECT_TRUE(Form().InTaskbar());
}

// A store that takes everything but the window's place.
class StoreWithoutPlace : public IniStore {
 public:
  using IniStore::IniStore;

  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override {
    return name != "Top" && IniStore::WriteValue(key, name, value);
  }
};

TEST_F(MainWindowTest, HotKeyCountsAsPressedAgainUntilTheThirdTick) {
  VoiceRecorder recorder(scripted_voice_, transcript_);
  voice_ = &recorder;
  Start();
  const auto saysAgain = [this] {
    const std::size_t before = Effects("speak").size();
    Form().ocxHotKeyActivateBW.UserPress();
    return Effects("speak").size() > before;
  };
  EXPECT_FALSE(saysAgain());
  EXPECT_TRUE(saysAgain());
  Form().tmrSayStateAgain.Tick();
  Form().tmrSayStateAgain.Tick();
  EXPECT_TRUE(saysAgain());
  Form().tmrSayStateAgain.Tick();
  EXPECT_FALSE(Form().tmrSayStateAgain.Enabled());
  EXPECT_FALSE(saysAgain());
  EndProcess();
}

TEST_F(MainWindowTest, ReportsAPlaceThatCannotBeStored) {
  StoreWithoutPlace store((folder_.Path() / "other.ini").string(), clock_,
                          [](const std::string&) {});
  store_ = &store;
  Start();
  Form().UserMoves(300, 450);
  EXPECT_THROW(tray_->MouseMessage(kLeftButtonUp), ProgramEnd);
  EXPECT_EQ(OnlyBox()["box"], Report(26001,
                                     "Failed to set registry value Key: '-2147483647',Section: "
                                     "'Software\\Brenwick',Key: 'Top' to value: '450'",
                                     "FormSave"));
  EndProcess();
}

}  // namespace
}  // namespace brenwick
