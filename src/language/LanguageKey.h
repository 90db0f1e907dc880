// The developers' command that codes a readable language into the file that is shipped.
#pragma once

#include <functional>
#include <string>

#include "logging/Logs.h"
#include "platform/EventLoop.h"
#include "platform/Folders.h"
#include "platform/Progress.h"

namespace brenwick {

class LanguageKey {
 public:
  LanguageKey(Logs& log, Progress& progress, Folders& folders, EventLoop& loop)
      : log_(log), progress_(progress), folders_(folders), loop_(loop) {}

  // Codes the source that `name` returns, line by line, telling each in the status window. `name`
  // is called once the window shows, so a choice made while the window painted counts.
  void GenerateLaguageKey(const std::function<std::string()>& name);

 private:
  std::string ReadSource(const std::string& name);
  std::string Code(const std::string& source);
  std::string PathIn(const char* folder, const std::string& file) const;

  Logs& log_;
  Progress& progress_;
  Folders& folders_;
  EventLoop& loop_;
};

}  // namespace brenwick
