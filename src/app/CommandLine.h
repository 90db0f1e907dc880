// The command line of brenwick.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace brenwick {

// What a running Brenwick is asked to do.
enum class Verb { None, Show, Stop, Repeat, Mute, Quit };

struct CommandLineOptions {
  bool help = false;
  bool version = false;
  bool debug = false;
  Verb verb = Verb::None;
  int repeat = 1;  // with Verb::Repeat: 1, the newest sentence, to 4
};

// Raised for a command line that cannot be carried out; what() says why.
class WrongOption : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

CommandLineOptions ParseCommandLine(const std::vector<std::string>& arguments);

extern const char* const kCommandLineHelp;

}  // namespace brenwick
