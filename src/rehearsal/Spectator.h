// Who looks on while the program is rehearsed: its windows, for example.
#pragma once

#include "app/Program.h"

namespace brenwick {

// Whatever a spectator does, the transcript stays the same.
class Spectator {
 public:
  Spectator() = default;
  Spectator(const Spectator&) = delete;
  Spectator& operator=(const Spectator&) = delete;
  virtual ~Spectator() = default;

  // A program has been made, which is not started yet.
  virtual void Meet(Program& program) = 0;
  // That program is about to go.
  virtual void Leave() = 0;
  // The program lets pending events run.
  virtual void EventsRun() = 0;
  // A step has been carried out.
  virtual void StepDone() = 0;
};

}  // namespace brenwick
