#include "app/CommandLine.h"

#include <map>

#include "base/Text.h"

namespace brenwick {
namespace {

const std::map<std::string, Verb> kVerbs = {{"--show", Verb::Show},
                                            {"--stop", Verb::Stop},
                                            {"--repeat", Verb::Repeat},
                                            {"--mute", Verb::Mute},
                                            {"--quit", Verb::Quit}};

int SentenceNumber(const std::string& text) {
  if (text.size() == 1 && text[0] >= '1' && text[0] <= '4') return text[0] - '0';
  throw WrongOption("--repeat takes a number from 1 to 4, not \"" + text + "\"");
}

}  // namespace

const char* const kCommandLineHelp =
    R"(usage: brenwick [--debug] [--show | --stop | --repeat [N] | --mute | --quit]

Brenwick sits in the tray and reads aloud what happens in your instant messenger.
A second start shows the window of the one that runs.

  --show         show the window
  --stop         be silent now
  --repeat [N]   say the Nth newest sentence again: 1, the newest, to 4
  --mute         mute, or speak again
  --quit         end
  --debug        start with the debug log, as /DEBUG does
  --version      tell the version
  --help         tell this

These verbs reach the Brenwick that runs, so that the desktop's own keyboard shortcuts can call them.
The exit status is 0 when it was done, 1 when no Brenwick runs, 2 when the command line is wrong.
)";

CommandLineOptions ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLineOptions options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    const auto verb = kVerbs.find(argument);
    if (argument == "--help" || argument == "-h") {
      options.help = true;
    } else if (argument == "--version") {
      options.version = true;
    } else if (argument == "--debug" || UpperCase(argument) == "/DEBUG") {
      options.debug = true;
    } else if (verb == kVerbs.end()) {
      throw WrongOption("\"" + argument + "\" is not known");
    } else if (options.verb != Verb::None) {
      throw WrongOption("\"" + argument + "\" cannot go with another verb");
    } else {
      options.verb = verb->second;
      const bool numbered = i + 1 < arguments.size() && !arguments[i + 1].starts_with('-');
      if (options.verb == Verb::Repeat && numbered) options.repeat = SentenceNumber(arguments[++i]);
    }
  }
  return options;
}

}  // namespace brenwick
