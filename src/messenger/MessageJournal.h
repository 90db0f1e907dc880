// Tells what became of each message, for a user who wonders why one was not heard.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "language/TextTable.h"
#include "speech/Outcome.h"

namespace brenwick {

class MessageJournal {
 public:
  // Shows a line of the journal behind those of earlier messages.
  using ShowLine = std::function<void(const std::string&)>;

  MessageJournal(const TextTable& texts, ShowLine show) : texts_(texts), show_(std::move(show)) {}

  void Add(const std::string& name, const std::string& text, Outcome outcome);

 private:
  const TextTable& texts_;
  ShowLine show_;
};

}  // namespace brenwick
