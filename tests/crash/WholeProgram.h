// The whole program on real files, and what a version of these files looks like.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileCalls.h"
#include "files/IniData.h"
#include "files/IniFormat.h"
#include "files/IniStore.h"
#include "files/SystemFolders.h"
#include "rehearsal/Rehearsal.h"
#include "settings/SettingsKeys.h"
#include "support/TemporaryFolder.h"

namespace brenwick {

inline constexpr int kContacts = 5'000;

inline std::string EmailOf(int contact) {
  return "contact" + std::to_string(contact) + "@example.org";
}

// The contacts that are called otherwise in each version: the first, the last, and some between.
inline bool IsRenamed(int contact) { return contact == 1 || contact % 1'000 == 0; }

// The contact list of a version.
inline std::string ContactsOf(int version) {
  std::string content;
  for (int i = 1; i <= kContacts; ++i) {
    const std::string number = std::to_string(i);
    const std::string name =
        IsRenamed(i) ? "Version " + std::to_string(version) : "Contact " + number;
    content +=
        EmailOf(i) + "\r\n" + name + "\r\nOwn " + number + "\r\nF\r\nFalse\r\n10\r\nTrue\r\n";
  }
  return content;
}

// A flush takes most of the time of a save. A process that dies loses nothing that it has handed to
// the system, so where only that happens it is left out.
class CallsWithoutFlush : public FileCalls {
 public:
  int Fsync(int /*descriptor*/) override { return 0; }
};

class WholeProgram {
 public:
  WholeProgram(const std::string& folder, FileCalls& calls)
      : folders_({folder + "/documents", BRENWICK_PROGRAM_FOLDER, ""}, calls),
        store_(
            folder + "/store.ini", clock_,
            [this](const std::string& message) { transcript_.boxes.push_back(message); }, calls),
        rehearsal_({transcript_, clock_, folders_, store_, nullptr, {}}) {}

  void Start() { rehearsal_.Play(R"({"start":""})"); }
  // From here on both files have another version to save.
  void Change(int version) {
    const std::string text = "Version " + std::to_string(version);
    for (const char* box : {"txtIntroductionText", "txtBusy"}) {
      rehearsal_.Play(R"({"type":")" + std::string(box) + R"(","text":")" + text + "\"}");
    }
    for (int contact = 1; contact <= kContacts; ++contact) {
      if (!IsRenamed(contact)) continue;
      rehearsal_.Play(R"({"raise":"OnUserStateChanged","email":")" + EmailOf(contact) +
                      R"(","name":")" + text + R"(","state":2})");
    }
  }
  void Save() { rehearsal_.Play(R"({"click":"cmdSaveSettings"})"); }
  void Close() { rehearsal_.Play(R"({"close":true})"); }

  // What the user was told: the texts of all boxes.
  const std::vector<std::string>& Boxes() const { return transcript_.boxes; }
  bool Ended() const { return transcript_.ended; }

 private:
  class Effects : public Transcript {
   public:
    void BeginStep(int, const nlohmann::json&) override {}
    void Write(const Effect& effect) override {
      if (effect.contains("box")) boxes.push_back(effect["box"]);
      ended = ended || effect.contains("ended");
    }

    std::vector<std::string> boxes;
    bool ended = false;
  };

  class StandingClock : public ScriptedClock {
   public:
    StandingClock() { ParseMoment("2004-01-10T12:00:00", now); }
  };

  Effects transcript_;
  StandingClock clock_;
  SystemFolders folders_;
  IniStore store_;
  Rehearsal rehearsal_;
};

// The names of all that lies in a folder, sorted.
inline std::vector<std::string> NamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// The files of a program that has been used: version 0 of both.
class UsedProgram : public testing::Test {
 protected:
  void SetUp() override {
    {
      WholeProgram program(folder_.Path(), without_flush_);
      program.Start();
      program.Change(0);
      program.Save();
      program.Close();
      ASSERT_EQ(program.Boxes(), std::vector<std::string>());
    }
    store_bytes_ = BytesOf(StoreFile());
    const auto data = FromIni(store_bytes_);
    ASSERT_TRUE(data);
    store_ = *data;
    ASSERT_EQ(StoreOf(0), store_);
    PutBack();
  }

  std::string StoreFile() const { return folder_.Inside("store.ini"); }
  std::string DataFolder() const { return folder_.Inside("documents/Brenwick"); }
  std::string ContactFile() const { return DataFolder() + "/Brenwick.Lst"; }

  void PutBack() const {
    SetBytes(StoreFile(), store_bytes_);
    SetBytes(ContactFile(), ContactsOf(0));
  }

  // Everything that a settings file of that version holds.
  IniData StoreOf(int version) const {
    IniData data = store_;
    const std::string text = "Version " + std::to_string(version);
    data.Write(kGeneralKey, "IntroductionText", {ValueKind::Text, text, 0});
    data.Write(kTextKey, "Busy", {ValueKind::Text, text, 0});
    return data;
  }

  // The version that a file is in, whole; nothing where it is in none.
  std::optional<int> StoredVersion(int from, int to) const {
    const auto data = FromIni(BytesOf(StoreFile()));
    for (int version = from; data && version <= to; ++version) {
      if (*data == StoreOf(version)) return version;
    }
    return {};
  }
  std::optional<int> ContactsVersion(int from, int to) const {
    const std::string content = BytesOf(ContactFile());
    for (int version = from; version <= to; ++version) {
      if (content == ContactsOf(version)) return version;
    }
    return {};
  }

  void ExpectNoLeftovers() const {
    for (const std::string& folder : {folder_.Path(), DataFolder()}) {
      for (const std::string& name : NamesIn(folder)) {
        EXPECT_EQ(name.find(".new-"), std::string::npos) << name;
      }
    }
  }

  // The next start tells the user nothing, and knows all contacts: it saves them as they were.
  void ExpectCleanStart() {
    const std::string contacts = BytesOf(ContactFile());
    const auto stored = FromIni(BytesOf(StoreFile()));
    {
      WholeProgram program(folder_.Path(), without_flush_);
      program.Start();
      EXPECT_FALSE(program.Ended());
      program.Close();
      EXPECT_TRUE(program.Ended());
      EXPECT_EQ(program.Boxes(), std::vector<std::string>());
    }
    EXPECT_TRUE(BytesOf(ContactFile()) == contacts);
    EXPECT_TRUE(FromIni(BytesOf(StoreFile())) == stored);
  }

  TemporaryFolder folder_;
  CallsWithoutFlush without_flush_;
  std::string store_bytes_;
  IniData store_;
};

}  // namespace brenwick
