// The installed languages: finding them, and loading the texts of one.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Folders.h"
#include "platform/Progress.h"
#include "platform/Screen.h"
#include "platform/System.h"

namespace brenwick {

class Languages {
 public:
  // storedName: the name of the language that the user chose, "" when none is stored.
  Languages(Logs& log, frmMain& form, TextTable& texts, Progress& progress, Folders& folders,
            Screen& screen, System& system, std::function<std::string()> storedName)
      : log_(log),
        form_(form),
        texts_(texts),
        progress_(progress),
        folders_(folders),
        screen_(screen),
        system_(system),
        stored_name_(std::move(storedName)) {}

  // Lists the languages of the program folder, selects the stored one ("English" when none is
  // stored; the first when it is not installed), and loads it. Without any language the program
  // tells the user and ends.
  void LanguageRead();

  // Loads the texts of the language chosen in the list. quiet: only the status window's text is
  // set, and the window stays. A missing file ends in the error report; a damaged one is told to
  // the user and ends the program, outside the developers' environment.
  void ReadLanguage(bool quiet);

 private:
  void ListSources();
  void ListInstalled();
  void SelectStored();
  std::string ChosenName() const;
  void Load(const std::string& path);
  void TellDamaged();
  std::string Folder(const char* name) const;

  Logs& log_;
  frmMain& form_;
  TextTable& texts_;
  Progress& progress_;
  Folders& folders_;
  Screen& screen_;
  System& system_;
  std::function<std::string()> stored_name_;
};

}  // namespace brenwick
