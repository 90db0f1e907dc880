// brenwick-rehearse with the windows of the desktop attached; it takes the same command line.
#include <iostream>

#include "rehearsal/Interruption.h"
#include "rehearsal/Rehearse.h"
#include "rehearsals/view/Audience.h"

namespace {

int Play(const std::vector<std::string>& arguments, brenwick::Audience& audience) {
  brenwick::NoteInterruptions();
  try {
    return brenwick::Rehearse(brenwick::ParseOptions(arguments), std::cout, std::cerr, &audience);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return brenwick::kMissing;
  }
}

}  // namespace

int main(int count, char** values) {
  const int status = brenwick::WithWindows(count, values, Play);
  brenwick::EndAsInterrupted();
  return status;
}
