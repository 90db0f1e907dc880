// The lists of languages on the General page.
#pragma once

#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "language/Languages.h"

namespace brenwick {

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

}  // namespace brenwick
