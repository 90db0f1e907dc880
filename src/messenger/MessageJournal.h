// What became of the last messages, for a user who wonders why one was not heard.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "language/TextTable.h"
#include "speech/Outcome.h"

namespace brenwick {

class MessageJournal {
 public:
  static constexpr int kLength = 50;  // messages

  MessageJournal(frmMain& form, const TextTable& texts) : form_(form), texts_(texts) {}

  // Lists a message at the end, in the place of the oldest.
  void Add(const std::string& name, const std::string& text, Outcome outcome);

 private:
  frmMain& form_;
  const TextTable& texts_;
};

}  // namespace brenwick
