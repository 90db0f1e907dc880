// The whole program in a scripted world with the real engine, which speaks into a file.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>

#include "files/IniStore.h"
#include "files/SystemFolders.h"
#include "rehearsal/Rehearsal.h"
#include "support/SpeakingToFile.h"

namespace brenwick {

class SpokenProgram {
 public:
  // as_heard: the file is written only as fast as it would be heard.
  explicit SpokenProgram(bool as_heard = false)
      : voice_(as_heard ? WavFile::Pace::kAsHeard : WavFile::Pace::kAtOnce),
        folders_({(voice_.Folder() / "documents").string(), BRENWICK_PROGRAM_FOLDER, ""}),
        store_((voice_.Folder() / "store.ini").string(), clock_, [](const std::string&) {}),
        rehearsal_({transcript_, clock_, folders_, store_, &voice_, {}}) {
    ParseMoment("2004-01-10T12:00:00", clock_.now);
    Play({R"({"start":""})", R"({"select":"cmbVoiceMale","index":0})",
          R"({"select":"cmbVoiceFemale","index":1})"});
  }

  void Play(std::initializer_list<std::string> lines) {
    for (const std::string& line : lines) rehearsal_.Play(line);
  }

  // A message from somebody, as a line of a script. The text may be anything, invalid UTF-8 too.
  static std::string Message(const std::string& text) {
    return R"({"raise":"OnTextReceived","email":"anna@example.org","name":"Anna","text":")" +
           Escaped(text) + "\"}";
  }

  // What these lines sound like, without the silence around it.
  Sound Hear(std::initializer_list<std::string> lines) {
    const std::size_t before = voice_.Recorded().samples.size();
    Play(lines);
    Sound sound = voice_.Recorded();
    sound.samples.erase(sound.samples.begin(),
                        sound.samples.begin() + static_cast<std::ptrdiff_t>(before));
    return Trimmed(sound);
  }

  SpeakingToFile& Voice() { return voice_; }

 private:
  static std::string Escaped(const std::string& text) {
    std::string result;
    for (const char byte : text) {
      if (byte == '"' || byte == '\\' || static_cast<unsigned char>(byte) < ' ') {
        constexpr const char* kDigits = "0123456789abcdef";
        result += "\\u00";
        result += kDigits[static_cast<unsigned char>(byte) >> 4];
        result += kDigits[static_cast<unsigned char>(byte) & 15];
      } else {
        result += byte;
      }
    }
    return result;
  }

  class NoTranscript : public Transcript {
   public:
    void BeginStep(int, const nlohmann::json&) override {}
    void Write(const Effect&) override {}
  };

  SpeakingToFile voice_;
  NoTranscript transcript_;
  ScriptedClock clock_;
  SystemFolders folders_;
  IniStore store_;
  Rehearsal rehearsal_;
};

}  // namespace brenwick
