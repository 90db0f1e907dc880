// The common error report, which ends the program.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/ProgramState.h"
#include "logging/LogFiles.h"
#include "platform/Progress.h"
#include "platform/Screen.h"

namespace brenwick {

class ErrorReport {
 public:
  ErrorReport(const ProgramState& state, LogFiles& files, Progress& progress, Screen& screen)
      : state_(state), files_(files), progress_(progress), screen_(screen) {}

  // Hides the status window, shows the failure in a message box, notes it in the debug log, unloads
  // the windows, and ends the program: it throws ProgramEnd. A failure inside the report itself,
  // the unloading included, ends in a shorter box.
  [[noreturn]] void ErrorHandler(const std::string& module, const std::string& procedure,
                                 std::int32_t number, const std::string& description,
                                 const std::string& source);

  // Unloads the program's open windows before the end.
  std::function<void()> UnloadWindows;

 private:
  void Show(const std::string& module, const std::string& procedure, std::int32_t number,
            const std::string& description, const std::string& source);
  [[noreturn]] void ReportItselfFailed(std::int32_t number);

  const ProgramState& state_;
  LogFiles& files_;
  Progress& progress_;
  Screen& screen_;
  bool reporting_ = false;
};

}  // namespace brenwick
