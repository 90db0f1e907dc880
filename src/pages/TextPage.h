// The Text page: the abbreviations are read anew.
#pragma once

#include "base/ProgramState.h"
#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "logging/Logs.h"
#include "platform/Screen.h"
#include "speech/Abbreviations.h"

namespace brenwick {

class TextPage {
 public:
  // Takes over the click of cmdEmoticons.
  TextPage(Logs& log, frmMain& form, const TextTable& texts, Screen& screen,
           Abbreviations& abbreviations)
      : log_(log), texts_(texts), screen_(screen), abbreviations_(abbreviations) {
    form.cmdEmoticons.Click = [this] { cmdEmoticons_Click(); };
  }
  TextPage(const TextPage&) = delete;
  TextPage& operator=(const TextPage&) = delete;

 private:
  void cmdEmoticons_Click() {
    log_.Trap("frmMain", "cmdEmoticons_Click", [&] {
      const BoxAnswer answer =
          screen_.MessageBox(texts_.LoadText(97), kTitle, BoxIcon::Question, BoxButtons::YesNo);
      if (answer == BoxAnswer::Yes) abbreviations_.EmoticonRead(false);
    });
  }

  Logs& log_;
  const TextTable& texts_;
  Screen& screen_;
  Abbreviations& abbreviations_;
};

}  // namespace brenwick
