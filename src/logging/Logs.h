// Writes what a room is doing to the logs, and traps the failures of its procedures.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "base/Failure.h"
#include "base/ProgramState.h"
#include "logging/ErrorReport.h"
#include "logging/LogFiles.h"

namespace brenwick {

class Logs {
 public:
  Logs(const ProgramState& state, LogFiles& files, ErrorReport& report)
      : state_(state), files_(files), report_(report) {}

  // A line in today's debug log, while debugging is on. Lines of the procedure "P_MessengerObject"
  // are never kept. A log that cannot be written ends in the error report.
  void DebugWrite(std::string_view procedure, std::string_view text);
  // A line in today's conversation log, whatever the switch says: the caller has looked at it.
  void ConversationWrite(std::string_view text);

  // Runs the body of a procedure that traps its failures: any exception becomes the error report,
  // which ends the program.
  template <typename Body>
  auto Trap(const char* module, const char* procedure, Body body) -> decltype(body()) {
    try {
      return body();
    } catch (const Failure& failure) {
      report_.ErrorHandler(module, procedure, failure.Number(), failure.Description(),
                           failure.Source());
    } catch (const std::exception& exception) {
      report_.ErrorHandler(module, procedure, kInvalidCall, exception.what(), kTitle);
    }
  }

 private:
  const ProgramState& state_;
  LogFiles& files_;
  ErrorReport& report_;
};

// Runs a step whose failure does not matter.
template <typename Step>
void IgnoringFailures(Step step) {
  try {
    step();
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace brenwick
