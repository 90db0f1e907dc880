#include "pages/MainWindow.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "base/Text.h"
#include "settings/SettingsKeys.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";

// Twips.
constexpr int kWidth = 5829;
constexpr int kHeight = 4200;

// A place farther away is on no screen.
constexpr int kFarthest = 1'000'000;

constexpr std::size_t kTipLength = 64;

std::string Tip(const std::string& caption) {
  return std::string(FirstCharacters(caption, kTipLength));
}

}  // namespace

MainWindow::MainWindow(Logs& log, const ProgramState& state, frmMain& form, const TextTable& texts,
                       TrayIcon& tray, Registry& registry, ContactPages& contactPages,
                       BuddiesMenu& buddies, ContactStates& states)
    : log_(log),
      state_(state),
      form_(form),
      texts_(texts),
      tray_(tray),
      registry_(registry),
      contact_pages_(contactPages),
      buddies_(buddies),
      states_(states) {
  form_.Resize = [this] { Form_Resize(); };
  form_.lstMenu.Click = [this] { lstMenu_Click(); };
  form_.mPopRestore.Click = [this] { mPopRestore_Click(); };
  form_.cmdOK.Click = [this] { cmdOK_Click(); };
  form_.ocxHotKeyActivateBW.HotkeyPressed = [this] { ocxHotKeyActivateBW_HotkeyPressed(); };
  form_.tmrSayStateAgain.Tick = [this] { tmrSayStateAgain_Timer(); };
  tray_.MouseMessage = [this](int message) { Form_MouseMove(message); };
}

std::string MainWindow::CaptionText() const {
  return VersionText() + texts_.LoadText(state_.MessengerOnline ? 1 : 2);
}

void MainWindow::BuildMenu(bool connections) {
  log_.Trap(kModule, "BuildMenu", [&] {
    form_.lstMenu.Clear();
    for (const PageTitle& title : kPageTitles) {
      if (title.page == kConnectionsPage && !connections) continue;
      form_.lstMenu.AddItem(texts_.LoadText(LaterText{title.text, title.english}));
    }
  });
}

void MainWindow::SelectPage(Page page) {
  const auto* found = std::find_if(std::begin(kPageTitles), std::end(kPageTitles),
                                   [page](const PageTitle& title) { return title.page == page; });
  form_.lstMenu.SetListIndex(static_cast<int>(found - std::begin(kPageTitles)));
}

void MainWindow::PlacePages() {
  for (Frame& page : form_.fraPage) page.Move(kPageLeft, kPageTop);
}

void MainWindow::lstMenu_Click() {
  log_.Trap(kModule, "lstMenu_Click", [&] {
    const int selected = form_.lstMenu.ListIndex();
    if (selected < 0) return;
    const int shown = kPageTitles[static_cast<std::size_t>(selected)].page;
    for (Frame& page : form_.fraPage) page.SetVisible(page.Index() == shown);
    if (shown == kGenderPage) {
      contact_pages_.FillContactList("G", 0);
    } else if (shown == kIgnorePage) {
      contact_pages_.FillContactList("I", 0);
    } else if (shown == kBuddyNamesPage) {
      contact_pages_.FillContactList("A", 0);
    }
  });
}

void MainWindow::AddTrayIcon() { tray_.Add(Tip(form_.Caption())); }
void MainWindow::RefreshTrayTip() { tray_.Modify(Tip(form_.Caption())); }

void MainWindow::ShowAtStart() {
  form_.Show();
  Form_Resize();
}

void MainWindow::ShowTitle(const std::string& title) {
  form_.SetCaption(title);
  RefreshTrayTip();
}

void MainWindow::Form_Resize() {
  log_.Trap(kModule, "Form_Resize", [&] {
    if (form_.State() == WindowState::Normal) {
      log_.DebugWrite("FormResize", "Form is visible");
      form_.SetInTaskbar(true);
      form_.SetSize(kWidth, kHeight);
      FormSave();
    } else {
      log_.DebugWrite("FormResize", "Form is minimized");
      log_.DebugWrite("Form_Resize", "MinimizedForm Left = " + std::to_string(form_.Left()));
      log_.DebugWrite("Form_Resize", "MinimizedForm Top = " + std::to_string(form_.Top()));
      form_.Hide();
      form_.SetInTaskbar(false);
    }
    form_.SetCaption(CaptionText());
  });
}

void MainWindow::FormSave() {
  log_.Trap(kModule, "FormSave", [&] {
    if (form_.State() != WindowState::Normal) return;
    cRegistry key = registry_.OpenRegistryKey(kBrenwickKey);
    log_.DebugWrite("Form_Resize", "VisibleForm Left = " + std::to_string(form_.Left()));
    log_.DebugWrite("Form_Resize", "VisibleForm Top = " + std::to_string(form_.Top()));
    form_.Move(std::clamp(form_.Left(), 0, kFarthest), std::clamp(form_.Top(), 0, kFarthest));
    Registry::SetRegistryValue(static_cast<float>(form_.Left()), key, "Left", ValueKind::Number);
    Registry::SetRegistryValue(static_cast<float>(form_.Top()), key, "Top", ValueKind::Number);
  });
}

void MainWindow::RestorePlace() { form_.Move(StoredEdge("Left"), StoredEdge("Top")); }

// 0 for what is no place on any screen, such as a word that somebody wrote into the store.
int MainWindow::StoredEdge(const char* name) {
  float stored = 0;
  IgnoringFailures([&] {
    cRegistry key = registry_.OpenRegistryKey(kBrenwickKey);
    stored = std::get<float>(
        Registry::GetRegistryValue(key, name, RegistryConversion::Single, ValueKind::Number));
  });
  return stored > 0 && stored <= kFarthest ? static_cast<int>(stored) : 0;
}

void MainWindow::Form_MouseMove(int message) {
  log_.Trap(kModule, "Form_MouseMove", [&] {
    if (message == kLeftButtonUp || message == kLeftDoubleClick) {
      mPopRestore_Click();
    } else if (message == kRightButtonUp) {
      // The window comes to the front first: the menu then closes on a click elsewhere.
      form_.BringToForeground();
      buddies_.ShowBuddies();
      form_.PopupMenuWanted();
    }
  });
}

void MainWindow::mPopRestore_Click() {
  log_.Trap(kModule, "mPopRestore_Click", [&] {
    form_.SetState(WindowState::Normal);
    form_.BringToForeground();
    form_.Show();
  });
}

// The settings take effect as they are made; all that is left to do is to put the window away.
void MainWindow::cmdOK_Click() {
  log_.Trap(kModule, "cmdOK_Click", [&] { form_.SetState(WindowState::Minimized); });
}

// Pressed once it brings the window back, pressed again soon after it says who is online.
void MainWindow::ocxHotKeyActivateBW_HotkeyPressed() {
  log_.Trap(kModule, "ocxHotKeyActivateBW_HotkeyPressed", [&] {
    constexpr int kTooLate = 5;
    if (!form_.tmrSayStateAgain.Enabled()) {
      form_.tmrSayStateAgain.SetEnabled(true);
      mPopRestore_Click();
    } else if (ticks_ < kTooLate) {
      states_.SayStateAgain();
    }
  });
}

// The third tick ends the time in which a second press counts.
void MainWindow::tmrSayStateAgain_Timer() {
  log_.Trap(kModule, "tmrSayStateAgain_Timer", [&] {
    ++ticks_;
    if (ticks_ <= 2) return;
    form_.tmrSayStateAgain.SetEnabled(false);
    ticks_ = 0;
  });
}

}  // namespace brenwick
