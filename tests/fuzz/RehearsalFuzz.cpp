// The whole program under a script of any lines. A line that says nothing ends with ScriptFailure,
// and the script goes on; nothing else comes out.
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/Lines.h"
#include "base/Text.h"
#include "files/IniData.h"
#include "fuzz/FuzzWorld.h"
#include "language/Coding.h"
#include "rehearsal/ReadableTranscript.h"
#include "rehearsal/Rehearsal.h"

namespace brenwick {
namespace {

// So that a run stays short.
constexpr std::size_t kMostLines = 40;
constexpr int kMostStarts = 5;
constexpr int kLongestWait = 5000;  // milliseconds

std::string Source(const char* name) {
  std::ifstream file(std::string(BRENWICK_SOURCE_DIR "/languages/") + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class MemoryStore : public RegistryStore {
 public:
  bool KeyExists(const std::string& key) override { return data_.HasKey(key); }
  bool CreateKey(const std::string& key) override { return data_.CreateKey(key); }
  bool DeleteKey(const std::string& key) override { return data_.DeleteKey(key); }
  std::optional<RegistryValue> ReadValue(const std::string& key, const std::string& name) override {
    return data_.Find(key, name);
  }
  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override {
    return data_.Write(key, name, value);
  }
  bool DeleteValue(const std::string& key, const std::string& name) override {
    return data_.Erase(key, name);
  }
  std::vector<std::string> ValueNames(const std::string& key) override {
    return data_.ValueNames(key);
  }
  std::vector<std::string> SubKeys(const std::string& key) override { return data_.SubKeys(key); }
  std::string ExpandEnvironment(const std::string& text) override { return text; }

 private:
  IniData data_;
};

// Both transcripts at once.
class BothTranscripts : public Transcript {
 public:
  explicit BothTranscripts(Clock& clock) : readable_(people_, clock, true) {}

  void Watch(const frmMain& form) override { readable_.Watch(form); }
  void BeginStep(int number, const nlohmann::json& step) override {
    json_.BeginStep(number, step);
    readable_.BeginStep(number, step);
  }
  void Write(const Effect& effect) override {
    json_.Write(effect);
    readable_.Write(effect);
  }

  bool IsReadable() const { return IsValidUtf8(people_.str()) && IsValidUtf8(programs_.str()); }

 private:
  std::ostringstream people_;
  std::ostringstream programs_;
  JsonTranscript json_{programs_, false};
  ReadableTranscript readable_;
};

class World {
 public:
  World() {
    static const std::string english = CodeLanguage(Source("English.txt"));
    static const std::string dutch = CodeLanguage(Source("Nederlands.txt"));
    static const std::string abbreviations = Source("Abbreviations.Txt");
    folders_.files = {{"/program/Languages/English.TML", english},
                      {"/program/Languages/Nederlands.TML", dutch},
                      {"/program/Abbreviations.Txt", abbreviations}};
    ParseMoment("2004-01-10T12:00:00", clock_.now);
  }

  void Play(const std::string& line) {
    try {
      if (IsShort(line)) rehearsal_.Play(line);
    } catch (const ScriptFailure&) {
    }
  }
  bool IsReadable() const { return transcript_.IsReadable(); }

 private:
  bool IsShort(const std::string& line) {
    const std::optional<Step> step = ParseStep(line);
    if (!step) return true;
    if (step->verb == "start") return ++starts_ <= kMostStarts;
    return step->verb != "wait" || NumberOf(step->object, "wait") <= kLongestWait;
  }

  ScriptedClock clock_;
  BothTranscripts transcript_{clock_};
  FakeFolders folders_;
  MemoryStore store_;
  Rehearsal rehearsal_{{transcript_, clock_, folders_, store_, nullptr, {}}};
  int starts_ = 0;
};

void PlayScript(std::string_view script) {
  World world;
  std::size_t count = 0;
  for (const std::string_view line : Lines(script)) {
    if (++count > kMostLines) break;
    world.Play(std::string(line));
  }
  Expect(world.IsReadable(), "the transcript is valid UTF-8");
}

const FuzzTarget kTarget("rehearsal", PlayScript);

}  // namespace
}  // namespace brenwick
