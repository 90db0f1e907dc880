// The General page: the introduction, the start with the system, and the language.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "language/LanguageKey.h"
#include "language/Languages.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "pages/FormTexts.h"
#include "platform/Folders.h"
#include "platform/Screen.h"
#include "settings/Registry.h"

namespace brenwick {

// The page's lists of languages.
class LanguageLists : public Languages::Lists {
 public:
  explicit LanguageLists(frmMain& form) : form_(form) {}

  void ShowSources(const std::vector<std::string>& names) override {
    Fill(form_.cmbOrgLanguage, names);
    if (!names.empty()) form_.cmbOrgLanguage.SetListIndex(0);
  }
  void ShowInstalled(const std::vector<std::string>& names) override {
    Fill(form_.cmbLanguage, names);
  }
  void Choose(int position) override { form_.cmbLanguage.SetListIndex(position); }
  std::string Chosen() const override { return form_.cmbLanguage.Text(); }

 private:
  static void Fill(ComboBox& combo, const std::vector<std::string>& names) {
    combo.Clear();
    for (const std::string& name : names) combo.AddItem(name);
  }

  frmMain& form_;
};

class GeneralPage {
 public:
  // Takes over the page's check boxes and the buttons of the two lists of languages.
  // defaultTexts: resets the spoken texts, once another language is loaded.
  GeneralPage(Logs& log, frmMain& form, const TextTable& texts, Screen& screen, Folders& folders,
              Registry& registry, FormTexts& formTexts, LanguageKey& languageKey,
              std::function<void()> defaultTexts);
  GeneralPage(const GeneralPage&) = delete;
  GeneralPage& operator=(const GeneralPage&) = delete;

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
