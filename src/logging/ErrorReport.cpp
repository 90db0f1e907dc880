#include "logging/ErrorReport.h"

#include "base/Failure.h"

namespace brenwick {

void ErrorReport::ErrorHandler(const std::string& module, const std::string& procedure,
                               std::int32_t number, const std::string& description,
                               const std::string& source) {
  if (reporting_) ReportItselfFailed(number);
  reporting_ = true;
  try {
    Show(module, procedure, number, description, source);
    if (UnloadWindows) UnloadWindows();
  } catch (const Failure& failure) {
    ReportItselfFailed(failure.Number());
  } catch (const std::exception&) {
    ReportItselfFailed(kInvalidCall);
  }
  throw ProgramEnd{};
}

void ErrorReport::Show(const std::string& module, const std::string& procedure, std::int32_t number,
                       const std::string& description, const std::string& source) {
  progress_.StatusForm(false);
  const std::string digits = std::to_string(number);
  const std::string message = "Error (" + digits + ") : " + description +
                              "\r\n\r\nModule: " + module + "\r\nProcedure: " + procedure +
                              "\r\n\r\n";
  const std::string title = "Unexpected Error! Version: " + ProgramVersion{}.Padded();
  if (state_.Debug) {
    // "Line" is the label that readers of the logs know; what it shows is the number.
    files_.WriteDebugLine("ERROR in " + module + ", " + procedure,
                          "Line : " + digits + ", Error : " + description + ", Source: " + source);
  }
  progress_.StatusForm(false);
  screen_.MessageBox(message, title, BoxIcon::Critical, BoxButtons::Ok);
}

void ErrorReport::ReportItselfFailed(std::int32_t number) {
  try {
    progress_.StatusForm(false);
    screen_.MessageBox("Error in ErrorHandler", kTitle, BoxIcon::Critical, BoxButtons::Ok);
    if (state_.Debug) {
      files_.WriteDebugLine("Errorhandler", "Error in errorhandler " + std::to_string(number));
    }
  } catch (const std::exception&) {
    // The log itself may be what failed; there is nowhere left to tell it.
  }
  throw ProgramEnd{};
}

}  // namespace brenwick
