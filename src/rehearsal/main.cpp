#include <unistd.h>

#include <iostream>

#include "rehearsal/Interruption.h"
#include "rehearsal/PlainText.h"
#include "rehearsal/Rehearse.h"
#include "rehearsal/voice/RealVoice.h"

namespace brenwick {
namespace {

void Tell(const std::string& message) {
  std::cerr << "brenwick-rehearse: " << PlainText(message) << '\n';
}

ExitStatus Main(const std::vector<std::string>& arguments) {
  RehearsalOptions options = ParseOptions(arguments);
  options.terminal = isatty(STDOUT_FILENO) == 1;
  if (options.help) {
    std::cout << kRehearsalHelp;
    return kDone;
  }
  if (options.version) {
    std::cout << "brenwick-rehearse " << ProgramVersion{}.Plain() << '\n';
    return kDone;
  }
  if (options.sound_device) {
    return MakeRealVoice({Locale()})->HasSound() ? kDone : kMissing;
  }
  NoteInterruptions();
  return Rehearse(options, std::cout, std::cerr);
}

}  // namespace
}  // namespace brenwick

int main(int count, char** values) {
  int status = brenwick::kMissing;
  try {
    status = brenwick::Main({values + 1, values + count});
  } catch (const brenwick::OptionFailure& failure) {
    brenwick::Tell(failure.what());
    std::cerr << "try brenwick-rehearse --help\n";
    status = brenwick::kWrong;
  } catch (const std::exception& failure) {
    brenwick::Tell(failure.what());
  }
  brenwick::EndAsInterrupted();
  return status;
}
