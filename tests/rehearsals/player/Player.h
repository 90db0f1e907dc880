// Plays rehearsals of the tree, each with folders and a store of its own.
#pragma once

#include <filesystem>
#include <string>

#include "rehearsal/Spectator.h"
#include "rehearsals/player/Case.h"

namespace brenwick {

class Player {
 public:
  // program: the program folder, of which a case gets a copy where it puts files over it.
  // spectator: looks on at every rehearsal; may be nullptr.
  Player(std::filesystem::path root, std::filesystem::path program, Spectator* spectator)
      : root_(std::move(root)), program_(std::move(program)), spectator_(spectator) {}

  // What is not as the case expects it, as a text; empty when all is well.
  std::string Check(const std::string& name) const;
  // Writes the transcript of the case anew, with "..." for what happens during "start" unless the
  // script has a comment "# whole start". What prevents it, as a text; empty when it was written.
  std::string Update(const std::string& name) const;

 private:
  struct Run;

  Run Play(const RehearsalCase& played, const std::filesystem::path& folder) const;

  std::filesystem::path root_;
  std::filesystem::path program_;
  Spectator* spectator_;
};

}  // namespace brenwick
