#include "rehearsals/player/PlayAll.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include "rehearsals/player/Case.h"

namespace brenwick {
namespace {

constexpr const char* kHelp =
    R"(usage: play-rehearsals [--update] [--reverse] [CASE...]

Plays the rehearsals below tests/rehearsals, all in one process, and compares what the program did
with the files in their folders. CASE is a part of a name, such as messages/plain or messages/.

  --update    writes the transcripts anew instead
  --reverse   plays the last one first
)";

// Ample, also on a machine that is busy with something else: no rehearsal takes a second.
constexpr unsigned kHangsAfterSeconds = 300;

constexpr const char* kMemory = "/dev/shm";

// The rehearsal that is being played, for what a signal leaves time to say.
std::string playing;

extern "C" void TellWhatWasPlaying(int number) {
  const std::string_view text = "\nended by a signal while this was playing: ";
  for (const std::string_view part : {text, std::string_view(playing), std::string_view("\n")}) {
    if (write(STDERR_FILENO, part.data(), part.size()) < 0) break;
  }
  std::signal(number, SIG_DFL);
  std::raise(number);
}

struct Choice {
  bool help = false;
  bool update = false;
  bool reverse = false;
  std::string unknown;
  std::vector<std::string> parts;
};

Choice Understand(const std::vector<std::string>& arguments) {
  Choice choice;
  for (const std::string& argument : arguments) {
    if (argument == "--help") {
      choice.help = true;
    } else if (argument == "--update") {
      choice.update = true;
    } else if (argument == "--reverse") {
      choice.reverse = true;
    } else if (argument.starts_with("-")) {
      choice.unknown = argument;
    } else {
      choice.parts.push_back(argument);
    }
  }
  return choice;
}

bool Wanted(const Choice& choice, const std::string& name) {
  return choice.parts.empty() ||
         std::any_of(choice.parts.begin(), choice.parts.end(),
                     [&](const std::string& part) { return name.find(part) != std::string::npos; });
}

int Play(const Choice& choice, const std::vector<std::string>& names, const Player& player) {
  std::size_t failed = 0;
  for (const std::string& name : names) {
    playing = name;
    alarm(kHangsAfterSeconds);
    const std::string wrong = choice.update ? player.Update(name) : player.Check(name);
    if (wrong.empty()) continue;
    ++failed;
    std::cout << "FAILED " << name << "\n" << wrong << "\n\n" << std::flush;
  }
  alarm(0);
  std::cout << names.size() - failed << " rehearsals passed, " << failed << " failed\n";
  return failed == 0 && !names.empty() ? 0 : 1;
}

}  // namespace

int PlayAll(const std::vector<std::string>& arguments, Spectator* spectator) {
  const Choice choice = Understand(arguments);
  if (!choice.unknown.empty()) {
    std::cerr << "nobody knows " << choice.unknown << '\n' << kHelp;
    return 2;
  }
  if (choice.help) {
    std::cout << kHelp;
    return 0;
  }
  setenv("TZ", "UTC", 1);
  // There, flushing a file costs nothing; the program flushes what it saves.
  if (access(kMemory, W_OK) == 0) setenv("TMPDIR", kMemory, 0);
  for (const int number : {SIGALRM, SIGSEGV, SIGABRT}) std::signal(number, TellWhatWasPlaying);
  const std::filesystem::path root = BRENWICK_REHEARSALS;
  std::vector<std::string> names = CaseNames(root);
  std::erase_if(names, [&](const std::string& name) { return !Wanted(choice, name); });
  if (choice.reverse) std::reverse(names.begin(), names.end());
  return Play(choice, names, Player(root, BRENWICK_PROGRAM_FOLDER, spectator));
}

}  // namespace brenwick
