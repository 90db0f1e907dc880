// The whole program in a scripted world, any part of which a test may put one of its own in the
// place of.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/Program.h"
#include "base/Lines.h"
#include "files/IniStore.h"
#include "rehearsal/FormObserver.h"
#include "rehearsal/RehearsalFolders.h"
#include "rehearsal/ScratchFolder.h"
#include "rehearsal/ScriptedConnections.h"
#include "rehearsal/ScriptedVoice.h"
#include "rehearsal/ScriptedWorld.h"
#include "unit/rehearsal/RecordingTranscript.h"

namespace brenwick {

class ProgramFixture : public testing::Test {
 protected:
  ProgramFixture() { ParseMoment("2004-01-10T12:00:00", clock_.now); }

  // A process of its own each time, with the files that are there by then.
  void Start() {
    EndProcess();
    program_ = std::make_unique<Program>(*messenger_, *voice_, connections_, *store_, *screen_,
                                         *tray_, loop_, clock_, *program_folders_, *system_);
    observer_ = std::make_unique<FormObserver>(program_->Form(), program_->Status(), transcript_);
    program_->Start();
  }
  // Before anything that the program stands on goes.
  void EndProcess() {
    observer_.reset();
    program_.reset();
  }
  void TearDown() override { EndProcess(); }
  // Leaves behind what a user has who starts the program for the second time.
  void StartAndEndOnce() {
    Start();
    EXPECT_THROW(program_->Close(), ProgramEnd);
    transcript_.lines.clear();
    folders_.Delete(DebugLogFile());
  }
  frmMain& Form() { return program_->Form(); }

  // What happened that has this member: "box", "status", …
  std::vector<Effect> Effects(const char* member) const {
    std::vector<Effect> found;
    for (const std::string& line : transcript_.lines) {
      Effect effect = Effect::parse(line);
      if (effect.contains(member)) found.push_back(std::move(effect));
    }
    return found;
  }
  // The only box that was shown.
  Effect OnlyBox() const {
    const std::vector<Effect> boxes = Effects("box");
    EXPECT_EQ(boxes.size(), 1U);
    return boxes.empty() ? Effect() : boxes.front();
  }
  static std::string Report(int number, const std::string& description,
                            const std::string& procedure) {
    return "Error (" + std::to_string(number) + ") : " + description +
           "\r\n\r\nModule: frmMain\r\nProcedure: " + procedure + "\r\n\r\n";
  }

  std::string DebugLogFile() const {
    return (folder_.Path() / "documents/Brenwick/DebugLogs/20040110.log").string();
  }
  // The lines of the debug log, without date and time.
  std::vector<std::string> Log() {
    constexpr std::size_t kMoment = sizeof("2004-01-10 12:00:00 ") - 1;
    std::vector<std::string> lines;
    const std::string content = folders_.Read(DebugLogFile());
    for (const std::string_view line : Lines(content)) lines.emplace_back(line.substr(kMoment));
    return lines;
  }
  // How many lines of the debug log are this one.
  std::ptrdiff_t Logged(const std::string& line) {
    const std::vector<std::string> lines = Log();
    return std::count(lines.begin(), lines.end(), line);
  }

  ScratchFolder folder_;
  RecordingTranscript transcript_;
  ScriptedClock clock_;
  ScriptedLoop loop_;
  ScriptedMessenger scripted_messenger_{transcript_};
  ScriptedConnections connections_{transcript_};
  ScriptedVoice scripted_voice_;
  ScriptedScreen scripted_screen_{transcript_};
  ScriptedTray scripted_tray_{transcript_};
  ScriptedSystem scripted_system_;
  RehearsalFolders folders_{{(folder_.Path() / "documents").string(), BRENWICK_PROGRAM_FOLDER, ""}};
  IniStore ini_store_{(folder_.Path() / "store.ini").string(), clock_, [](const std::string&) {}};

  MessengerClient* messenger_ = &scripted_messenger_;
  SpVoice* voice_ = &scripted_voice_;
  RegistryStore* store_ = &ini_store_;
  Screen* screen_ = &scripted_screen_;
  TrayIcon* tray_ = &scripted_tray_;
  Folders* program_folders_ = &folders_;
  System* system_ = &scripted_system_;

  std::unique_ptr<Program> program_;
  std::unique_ptr<FormObserver> observer_;
};

}  // namespace brenwick
