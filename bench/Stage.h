// The whole program with nothing behind it, for measuring.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "People.h"
#include "app/Program.h"
#include "contacts/ContactFile.h"
#include "files/IniStore.h"
#include "files/SystemFolders.h"
#include "rehearsal/ScriptedConnections.h"
#include "rehearsal/ScriptedWorld.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class SilentTranscript : public Transcript {
 public:
  void BeginStep(int, const nlohmann::json&) override {}
  void Write(const Effect&) override {}
};

// An engine that says nothing and costs nothing.
class EmptyVoice : public SpVoice {
 public:
  const std::vector<std::string>& GetVoices() override { return voices_; }
  void SetVoice(std::size_t) override {}
  void SetRate(int) override {}
  void SetVolume(int) override {}
  std::size_t Voice() const override { return 0; }
  int Rate() const override { return 0; }
  int Volume() const override { return 100; }
  void Speak(const std::string& text, int) override { spoken += text.size(); }

  std::size_t spoken = 0;

 private:
  std::vector<std::string> voices_ = {"female", "male"};
};

// A started program in a folder of its own, which goes away with it. Where it has contacts, they
// were there before its start.
class Stage {
 public:
  explicit Stage(SpVoice& voice, std::int64_t contacts = 0)
      : folder_(std::filesystem::temp_directory_path() /
                ("brenwick-bench-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)))),
        folders_({folder_.string(), BRENWICK_PROGRAM_FOLDER, ""}),
        store_((folder_ / "store.ini").string(), clock_, [](const std::string&) {}),
        voice_(voice) {
    ParseMoment("2004-01-10T12:00:00", clock_.now);
    if (contacts > 0) WriteContacts(contacts);
    Start();
  }
  ~Stage() { std::filesystem::remove_all(folder_); }
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  MessengerListener& Messenger() { return *messenger_.Listener(); }
  frmMain& Form() { return program_->Form(); }

  void ClickTray(int message) { tray_.MouseMessage(message); }

  // As on the next day: what was shown and remembered is gone, what was stored is there.
  void Start() {
    program_.emplace(messenger_, voice_, connections_, store_, screen_, tray_, loop_, clock_,
                     folders_, system_);
    program_->Start();
  }

 private:
  void WriteContacts(std::int64_t count) {
    std::string lines;
    for (const ContactRecord& record : Records(count)) {
      for (const std::string* field :
           {&record.Email, &record.Name, &record.FriendlyName, &record.Gender, &record.Ignore,
            &record.Status, &record.HasFriendlyName}) {
        lines += *field + "\r\n";
      }
    }
    std::filesystem::create_directories(folder_ / kTitle);
    folders_.Replace((folder_ / kTitle / (std::string(kTitle) + ".Lst")).string(), lines);
  }

  std::filesystem::path folder_;
  SilentTranscript transcript_;
  ScriptedMessenger messenger_{transcript_};
  ScriptedConnections connections_{transcript_};
  ScriptedScreen screen_{transcript_};
  ScriptedTray tray_{transcript_};
  ScriptedLoop loop_;
  ScriptedClock clock_;
  ScriptedSystem system_;
  SystemFolders folders_;
  IniStore store_;
  SpVoice& voice_;
  std::optional<Program> program_;
};

}  // namespace brenwick
