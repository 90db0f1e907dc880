// The process and the system that it runs on.
#pragma once

#include <string>
#include <utility>

namespace brenwick {

// The program calls each operation on its own thread. Each answers at once and throws nothing.
class System {
 public:
  System() = default;
  System(const System&) = delete;
  System& operator=(const System&) = delete;
  virtual ~System() = default;

  // What stood behind the program's name when it was started.
  virtual std::string CommandLine() = 0;
  // True while another process of this user already runs the program.
  virtual bool PreviousInstance() = 0;
  // True inside the developers' environment, where the language tools show.
  virtual bool DevelopmentEnvironment() = 0;
  // Two lines that describe the operating system: its name, and its build.
  virtual std::pair<std::string, std::string> OSVersion() = 0;
};

}  // namespace brenwick
