// The General page: the introduction, the start with the system, and the language.
#pragma once

#include <functional>
#include <string>

#include "forms/frmMain.h"
#include "language/LanguageKey.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "pages/FormTexts.h"
#include "platform/Folders.h"
#include "platform/Screen.h"
#include "settings/Registry.h"

namespace brenwick {

class GeneralPage {
 public:
  // Takes over the page's check boxes and the buttons of the two lists of languages.
  // defaultTexts: resets the spoken texts, once another language is loaded.
  GeneralPage(Logs& log, frmMain& form, const TextTable& texts, Screen& screen, Folders& folders,
              Registry& registry, FormTexts& formTexts, LanguageKey& languageKey,
              std::function<void()> defaultTexts);

  // Gives the list of languages and its button their names in the language of the start.
  void NameLanguageList();

 private:
  void chkIntroduce_Click();
  void chkStartWithWindows_Click();
  void cmdLanguage_Click();
  void cmdOrgLanguage_Click();
  std::string StartEntry();

  Logs& log_;
  frmMain& form_;
  const TextTable& texts_;
  Screen& screen_;
  Folders& folders_;
  Registry& registry_;
  FormTexts& form_texts_;
  LanguageKey& language_key_;
  std::function<void()> default_texts_;
};

}  // namespace brenwick
