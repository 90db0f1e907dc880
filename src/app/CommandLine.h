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

// A command line that says nothing that can be done; what() tells what is wrong with it.
class WrongOption : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

CommandLineOptions ParseCommandLine(const std::vector<std::string>& arguments);

extern const char* const kCommandLineHelp;

}  // namespace brenwick
