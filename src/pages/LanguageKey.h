// The developers' command that codes a readable language into the file that is shipped.
#pragma once

#include "forms/frmMain.h"
#include "logging/Logs.h"
#include "platform/EventLoop.h"
#include "platform/Folders.h"
#include "platform/Progress.h"

namespace brenwick {

class LanguageKey {
 public:
  // Takes over the click of cmdOrgLanguage.
  LanguageKey(Logs& log, frmMain& form, Progress& progress, Folders& folders, EventLoop& loop);

  // Codes the source chosen in cmbOrgLanguage, line by line, telling each in the status window.
  void GenerateLaguageKey();

 private:
  std::string ReadSource();
  std::string Code(const std::string& source);
  std::string PathIn(const char* folder, const char* extension) const;

  Logs& log_;
  frmMain& form_;
  Progress& progress_;
  Folders& folders_;
  EventLoop& loop_;
};

}  // namespace brenwick
