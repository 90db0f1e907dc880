#include "rehearsal/PlayScript.h"

#include <stdexcept>

#include "rehearsal/Interruption.h"
#include "rehearsal/PlainText.h"

namespace brenwick {

ExitStatus PlayScript(Rehearsal& rehearsal, std::istream& script, const std::string& name,
                      std::ostream& transcript, std::ostream& errors) {
  const auto fail = [&](int line, const std::string& what, ExitStatus status) {
    transcript.flush();
    errors << name << ':' << line << ": " << PlainText(what) << '\n';
    return status;
  };
  std::string line;
  for (int number = 1; !Interrupted() && transcript && std::getline(script, line); ++number) {
    try {
      rehearsal.Play(line);
    } catch (const ScriptFailure& failure) {
      return fail(number, failure.what(), kWrong);
    } catch (const std::exception& exception) {
      return fail(number, std::string("the program let out an exception: ") + exception.what(),
                  kProgramFault);
    }
  }
  transcript.flush();
  if (Interrupted()) return kDone;
  if (script.bad()) throw std::runtime_error("cannot read " + name + " to its end");
  if (!transcript) throw std::runtime_error("cannot write the transcript");
  return kDone;
}

}  // namespace brenwick
