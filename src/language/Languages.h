// The installed languages: finding them, and loading the texts of one.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Folders.h"
#include "platform/Progress.h"
#include "platform/Screen.h"
#include "platform/System.h"

namespace brenwick {

class Languages {
 public:
  // Lists the languages for the user and takes the choice.
  class Lists {
   public:
    Lists() = default;
    Lists(const Lists&) = delete;
    Lists& operator=(const Lists&) = delete;
    virtual ~Lists() = default;
    // The readable sources, for the developers' tools; the first is chosen.
    virtual void ShowSources(const std::vector<std::string>& names) = 0;
    // The languages that can be loaded; none is chosen.
    virtual void ShowInstalled(const std::vector<std::string>& names) = 0;
    virtual void Choose(int position) = 0;
    // The text of the choice; the user may have typed it.
    virtual std::string Chosen() const = 0;
  };

  // storedName: the name of the language that the user chose, "" when none is stored.
  Languages(Logs& log, Lists& lists, TextTable& texts, Progress& progress, Folders& folders,
            Screen& screen, System& system, std::function<std::string()> storedName)
      : log_(log),
        lists_(lists),
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
  std::vector<std::string> ListInstalled();
  void SelectStored(const std::vector<std::string>& names);
  std::string ChosenName() const;
  void Load(const std::string& path);
  void TellDamaged();
  std::string Folder(const char* name) const;

  Logs& log_;
  Lists& lists_;
  TextTable& texts_;
  Progress& progress_;
  Folders& folders_;
  Screen& screen_;
  System& system_;
  std::function<std::string()> stored_name_;
};

}  // namespace brenwick
