// The page that tells what the program is connected to, and tries it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Connections.h"
#include "speech/Speech.h"

namespace brenwick {

class ConnectionsPage {
 public:
  // Takes over the page's controls. The connections outlive it.
  ConnectionsPage(Logs& log, frmMain& form, TextTable& texts, Connections& connections,
                  Speech& speech);
  ~ConnectionsPage();

  // Whether there is anything to show. If not, the page list leaves the page out.
  bool Offered() const;

  // Shows everything as it is now; from then on it keeps itself up to date.
  void Show();

  // Shows a line of the journal and selects it; the oldest goes where there would be too many.
  void AddToJournal(const std::string& line);

 private:
  void WireControls();
  void ShowConnections(std::span<ConnectionControls> rows, const std::vector<Connection>& shown);
  void ShowApplications();
  // The name of the selected application; empty where none is selected.
  std::string ChosenApplication() const;
  std::string StateText(const Connection& connection) const;
  void SwitchApplication();
  void TestSource(std::size_t index);

  Logs& log_;
  frmMain& form_;
  TextTable& texts_;
  Connections& connections_;
  Speech& speech_;
  std::vector<SeenApplication> applications_;
  bool shown_ = false;
  Subscription language_;
  Subscription opened_;
};

}  // namespace brenwick
