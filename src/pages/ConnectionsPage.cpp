#include "pages/ConnectionsPage.h"

#include <cstddef>

namespace brenwick {
namespace {

constexpr const char* kModule = "frmMain";
constexpr int kSpace = 32;
constexpr int kJournalLength = 50;

constexpr LaterText kOff{190, "off"};
constexpr LaterText kWaiting{191, "waiting"};
constexpr LaterText kAttached{192, "attached"};
constexpr LaterText kAttachedAs{193, "attached as %a"};
constexpr LaterText kFailed{194, "does not work: %a"};
constexpr LaterText kReadAloud{195, "%a (is read aloud)"};
constexpr LaterText kTrial{204, "This is a test."};

}  // namespace

ConnectionsPage::ConnectionsPage(Logs& log, frmMain& form, TextTable& texts,
                                 Connections& connections, Speech& speech)
    : log_(log), form_(form), texts_(texts), connections_(connections), speech_(speech) {
  WireControls();
  connections_.Changed = [this] {
    if (shown_) Show();
  };
  language_ = texts_.Replaced.Observe([this] {
    if (shown_) Show();
  });
  // Some changes are not announced, so the page is brought up to date whenever it is opened.
  Frame& page = form_.fraPage[kConnectionsPage];
  opened_ = page.Changed.Observe([this, &page] {
    if (shown_ && page.Visible()) Show();
  });
}

ConnectionsPage::~ConnectionsPage() { connections_.Changed = nullptr; }

void ConnectionsPage::WireControls() {
  for (std::size_t i = 0; i < form_.Sources.size(); ++i) {
    form_.Sources[i].cmdTest.Click = [this, i] {
      log_.Trap(kModule, "cmdTestSource_Click", [&] { TestSource(i); });
    };
  }
  for (std::size_t i = 0; i < form_.Engines.size(); ++i) {
    form_.Engines[i].cmdTest.Click = [this, i] {
      log_.Trap(kModule, "cmdTestEngine_Click",
                [&] { connections_.TestEngine(i, texts_.LoadText(kTrial)); });
    };
  }
  form_.lstApplications.DblClick = [this] { SwitchApplication(); };
  form_.lstApplications.KeyPress = [this](int character) {
    if (character == kSpace) SwitchApplication();
  };
  form_.chkGroupChats.Click = [this] { connections_.SetGroupChats(form_.chkGroupChats.Ticked()); };
}

bool ConnectionsPage::Offered() const {
  return !connections_.Sources().empty() || !connections_.Engines().empty();
}

void ConnectionsPage::Show() {
  shown_ = true;
  ShowConnections(form_.Sources, connections_.Sources());
  ShowConnections(form_.Engines, connections_.Engines());
  form_.chkGroupChats.SetTicked(connections_.GroupChats());
  ShowApplications();
}

void ConnectionsPage::ShowConnections(std::span<ConnectionControls> rows,
                                      const std::vector<Connection>& shown) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ConnectionControls& row = rows[i];
    const bool there = i < shown.size();
    row.lblName.SetCaption(there ? shown[i].Name : "");
    row.txtState.SetText(there ? StateText(shown[i]) : "");
    row.lblName.SetVisible(there);
    row.txtState.SetVisible(there);
    row.cmdTest.SetVisible(there);
  }
}

std::string ConnectionsPage::StateText(const Connection& connection) const {
  const std::string& detail = connection.Detail;
  switch (connection.State) {
    case ConnectionState::Off:
      return texts_.LoadText(kOff);
    case ConnectionState::Waiting:
      return texts_.LoadText(kWaiting) + (detail.empty() ? "" : ", " + detail);
    case ConnectionState::Attached:
      if (detail.empty()) return texts_.LoadText(kAttached);
      return texts_.GetText(texts_.LoadText(kAttachedAs), detail);
    case ConnectionState::Failed:
      return texts_.GetText(texts_.LoadText(kFailed), detail);
  }
  return {};
}

// The list is in the order of the names: the selected application stays selected when another comes
// in front of it.
void ConnectionsPage::ShowApplications() {
  ListBox& list = form_.lstApplications;
  const std::string chosen = ChosenApplication();
  applications_ = connections_.Applications();
  const int count = static_cast<int>(applications_.size());
  while (list.ListCount() > count) list.RemoveItem(list.ListCount() - 1);
  int place = -1;
  for (int i = 0; i < count; ++i) {
    const SeenApplication& seen = applications_[static_cast<std::size_t>(i)];
    if (seen.Name == chosen) place = i;
    const std::string line =
        seen.On ? texts_.GetText(texts_.LoadText(kReadAloud), seen.Name) : seen.Name;
    if (i == list.ListCount()) {
      list.AddItem(line);
    } else if (list.List(i) != line) {
      list.SetList(i, line);
    }
  }
  list.SetListIndex(place);
}

std::string ConnectionsPage::ChosenApplication() const {
  const auto chosen = static_cast<std::size_t>(form_.lstApplications.ListIndex());
  return chosen < applications_.size() ? applications_[chosen].Name : "";
}

void ConnectionsPage::SwitchApplication() {
  log_.Trap(kModule, "lstApplications_DblClick", [&] {
    const std::string chosen = ChosenApplication();
    for (const SeenApplication& seen : connections_.Applications()) {
      if (seen.Name == chosen) connections_.SwitchApplication(seen.Name, !seen.On);
    }
    Show();
  });
}

void ConnectionsPage::AddToJournal(const std::string& line) {
  ListBox& list = form_.lstJournal;
  if (list.ListCount() == kJournalLength) list.RemoveItem(0);
  list.AddItem(line);
  list.SetListIndex(list.ListCount() - 1);
}

// A source that is not attached cannot bring the trial message: its state is spoken as well. Both
// sentences are heard while mute is on, too.
void ConnectionsPage::TestSource(std::size_t index) {
  const Connection source = connections_.Sources().at(index);
  if (source.State != ConnectionState::Attached) {
    speech_.Speak(source.Name + ": " + StateText(source), true, kDefaultVoice, false);
  }
  connections_.TestSource(index, "/talk " + texts_.LoadText(kTrial));
}

}  // namespace brenwick
