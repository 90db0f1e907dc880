// The process and the system that it runs on.
#pragma once

#include <QtGlobal>
#include <string>
#include <utility>

#include "linux/LinuxVersion.h"
#include "platform/System.h"

namespace brenwick {

class DesktopSystem : public System {
 public:
  DesktopSystem(std::string commandLine, bool first)
      : command_line_(std::move(commandLine)), first_(first) {}

  std::string CommandLine() override { return command_line_; }
  bool PreviousInstance() override { return !first_; }
  // Developers and translators set BRENWICK_DEVELOPMENT in the environment.
  bool DevelopmentEnvironment() override {
    return qEnvironmentVariableIsSet("BRENWICK_DEVELOPMENT");
  }
  std::pair<std::string, std::string> OSVersion() override { return LinuxVersion(); }

 private:
  std::string command_line_;
  bool first_;
};

}  // namespace brenwick
