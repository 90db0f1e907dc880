// The Spoken words page: every sentence that was said, or would have been.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "speech/Speech.h"

namespace brenwick {

class SpokenWordsPage {
 public:
  // From then on each sentence is listed, and the newest is selected.
  SpokenWordsPage(frmMain& form, Speech& speech) : form_(form) {
    speech.ListSentence = [this](const std::string& line) { Add(line); };
  }
  SpokenWordsPage(const SpokenWordsPage&) = delete;
  SpokenWordsPage& operator=(const SpokenWordsPage&) = delete;

 private:
  void Add(const std::string& line) {
    form_.lstMessages.AddItem(line);
    form_.lstMessages.SetListIndex(form_.lstMessages.ListCount() - 1);
  }

  frmMain& form_;
};

}  // namespace brenwick
