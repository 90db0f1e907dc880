// The command line of brenwick-rehearse.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace brenwick {

struct RehearsalOptions {
  std::string program;    // empty: the one of the build
  std::string documents;  // empty: a fresh temporary folder
  std::string store;      // empty: a fresh temporary file
  std::string script = "-";
  bool real_voice = false;
  std::string wav;  // empty: the sound device
  bool realtime = false;
  bool readable = false;
  bool terminal = false;  // what is printed is read in a terminal; no option tells that
  bool help = false;
  bool version = false;
  bool sound_device = false;
};

class OptionFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Raises OptionFailure for what cannot be understood.
RehearsalOptions ParseOptions(const std::vector<std::string>& arguments);

extern const char* const kRehearsalHelp;

}  // namespace brenwick
