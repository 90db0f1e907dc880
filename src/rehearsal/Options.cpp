#include "rehearsal/Options.h"

#include <map>

namespace brenwick {
namespace {

const std::map<std::string, bool RehearsalOptions::*>& Switches() {
  static const std::map<std::string, bool RehearsalOptions::*> switches = {
      {"--realtime", &RehearsalOptions::realtime},
      {"--help", &RehearsalOptions::help},
      {"-h", &RehearsalOptions::help},
      {"--version", &RehearsalOptions::version},
      {"--sound-device", &RehearsalOptions::sound_device},
  };
  return switches;
}

const std::map<std::string, std::string RehearsalOptions::*>& Values() {
  static const std::map<std::string, std::string RehearsalOptions::*> values = {
      {"--program", &RehearsalOptions::program},
      {"--documents", &RehearsalOptions::documents},
      {"--store", &RehearsalOptions::store},
      {"--wav", &RehearsalOptions::wav},
  };
  return values;
}

void SetChoice(RehearsalOptions& options, const std::string& name, const std::string& value) {
  if (name == "--voice" && (value == "espeak-ng" || value == "scripted")) {
    options.real_voice = value == "espeak-ng";
  } else if (name == "--transcript" && (value == "readable" || value == "json")) {
    options.readable = value == "readable";
  } else if (name == "--voice") {
    throw OptionFailure("--voice takes espeak-ng or scripted, not \"" + value + "\"");
  } else {
    throw OptionFailure("--transcript takes readable or json, not \"" + value + "\"");
  }
}

}  // namespace

const char* const kRehearsalHelp =
    R"(usage: brenwick-rehearse [OPTION...] [SCRIPT | -]

Runs the whole program in a scripted world and writes everything it does there.
Script and transcript are JSON Lines; docs/rehearsal.md tells their words.

  --program DIR          the program folder (default: the installed one, or the build's)
  --documents DIR        the documents folder (default: a temporary one)
  --store FILE           the file behind the settings (default: a temporary one)
  --voice espeak-ng      speak with the real engine (default: scripted)
  --wav FILE             what the real engine says goes into this file
  --realtime             "wait" takes its time
  --transcript readable  for people instead of JSON
  --sound-device         only tell by the exit status whether there is a sound
                         device: 0 yes, 1 no
  --version, --help

Exit status: 0 the script was carried out, 1 a file, a folder or the engine is
missing or cannot be written, 2 the script or the command line is wrong, 3 the
program let out an exception that it should have trapped.
)";

RehearsalOptions ParseOptions(const std::vector<std::string>& arguments) {
  RehearsalOptions options;
  bool script_seen = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    const bool choice = argument == "--voice" || argument == "--transcript";
    if (Switches().contains(argument)) {
      options.*Switches().at(argument) = true;
    } else if (choice || Values().contains(argument)) {
      if (++i == arguments.size()) throw OptionFailure(argument + " needs a value");
      if (choice) {
        SetChoice(options, argument, arguments[i]);
      } else {
        options.*Values().at(argument) = arguments[i];
      }
    } else if (argument.size() > 1 && argument[0] == '-') {
      throw OptionFailure("unknown option " + argument);
    } else if (script_seen) {
      throw OptionFailure("more than one script: " + argument);
    } else {
      options.script = argument;
      script_seen = true;
    }
  }
  if (!options.wav.empty()) options.real_voice = true;
  return options;
}

}  // namespace brenwick
