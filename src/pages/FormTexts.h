// The whole main window in the chosen language.
#pragma once

#include <functional>
#include <string>

#include "forms/frmMain.h"
#include "language/Languages.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Progress.h"

namespace brenwick {

class FormTexts {
 public:
  // abbreviationsFile: makes sure that the user has a file of abbreviations, and gives its path.
  FormTexts(Logs& log, frmMain& form, const TextTable& texts, Languages& languages,
            Progress& progress, std::function<std::string()> abbreviationsFile);

  // Loads the chosen language and sets every text of the window. silent: the status window is left
  // alone but for its text.
  void SetAlltext(bool silent);

 private:
  void SetCaptions();
  void SetPageTitles();
  std::string AboutText() const;

  Logs& log_;
  frmMain& form_;
  const TextTable& texts_;
  Languages& languages_;
  Progress& progress_;
  std::function<std::string()> abbreviations_file_;
};

}  // namespace brenwick
