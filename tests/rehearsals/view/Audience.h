// The windows of the desktop attached to a rehearsal. They change nothing of what the program does,
// and show after each step what the program holds.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "rehearsal/Spectator.h"

namespace brenwick {

// A difference between a window and the program, an exception that a window let out, and a warning
// of the toolkit end the rehearsal with a std::runtime_error that tells it.
class Audience : public Spectator {
 public:
  Audience();
  ~Audience() override;

  void Meet(Program& program) override;
  void Leave() override;
  void EventsRun() override;
  void StepDone() override;

 private:
  struct Windows;

  void LetWindowsWork();

  std::unique_ptr<Windows> windows_;
};

// Prepares the process for windows without a screen, away from the user's own desktop, in which
// every warning of Qt is told on standard error, and runs `play` in it; what that returns is the
// exit status.
int WithWindows(int count, char** values,
                int (*play)(const std::vector<std::string>& arguments, Audience& audience));

}  // namespace brenwick
