// The whole main window in the chosen language, and the controls that choose it.
#pragma once

#include <functional>
#include <string>

#include "forms/frmMain.h"
#include "language/Languages.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Progress.h"
#include "platform/Screen.h"

namespace brenwick {

class FormTexts {
 public:
  struct Steps {
    // Makes sure that the user has a file of abbreviations, and gives its path.
    std::function<std::string()> AbbreviationsFile;
    // The click of the button that resets the spoken texts.
    std::function<void()> DefaultTexts;
  };

  // Takes over the click of cmdLanguage.
  FormTexts(Logs& log, frmMain& form, const TextTable& texts, Languages& languages,
            Progress& progress, Screen& screen, Steps steps);

  // Loads the chosen language and sets every text of the window. silent: the status window is left
  // alone but for its text.
  void SetAlltext(bool silent);

 private:
  void SetCaptions();
  void SetPageTitles();
  std::string AboutText() const;
  void cmdLanguage_Click();

  Logs& log_;
  frmMain& form_;
  const TextTable& texts_;
  Languages& languages_;
  Progress& progress_;
  Screen& screen_;
  Steps steps_;
};

}  // namespace brenwick
