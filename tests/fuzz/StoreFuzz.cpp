// A settings file of any bytes: a store that starts on it never loses it.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "base/Text.h"
#include "files/IniFormat.h"
#include "files/IniStore.h"
#include "fuzz/FuzzWorld.h"
#include "fuzz/TemporaryFolder.h"

namespace brenwick {
namespace {

namespace fs = std::filesystem;

constexpr const char* kKey = "Software\\Brenwick\\Fuzz";
constexpr const char* kDamage = "[";

// Nothing that is written here need outlive the machine.
class UnflushedCalls : public FileCalls {
 public:
  int Fsync(int /*descriptor*/) override { return 0; }
};

std::optional<std::string> Content(const std::string& path) {
  if (!fs::exists(path)) return {};
  std::ifstream file(path, std::ios::binary);
  return std::string{std::istreambuf_iterator<char>(file), {}};
}

void SetContent(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

class Checker {
 public:
  void Check(std::string_view bytes) {
    const std::optional<IniData> data = FromIni(bytes);
    CheckFile(bytes, data);
    CheckBackup(bytes, data);
    CheckValues(bytes);
  }

 private:
  std::string File() const { return folder_.Path() + "/store.ini"; }
  std::string Backup() const { return File() + ".bak"; }
  std::string Aside() const { return File() + ".damaged-2003-03-15"; }

  IniStore Start() {
    told_ = 0;
    return IniStore(
        File(), clock_, [this](const std::string&) { ++told_; }, calls_);
  }
  static void Write(IniStore& store) {
    Expect(store.WriteValue(kKey, "Written", {ValueKind::Text, "by the target", 0}),
           "a value is stored");
  }

  void CheckFile(std::string_view bytes, const std::optional<IniData>& data) {
    folder_.Empty();
    SetContent(File(), bytes);
    IniStore store = Start();
    Expect(told_ == (data ? 0 : 1), "the user is told of a damaged file, once");
    const std::string kept = data ? File() : Aside();
    Expect(Content(kept) == bytes, "a start loses nothing of the file");
    Write(store);
    const std::string behind = data ? Backup() : Aside();
    const bool same = data && data->Find(kKey, "Written") && Content(File()) == bytes;
    Expect(same || Content(behind) == bytes, "a change loses nothing of the file before it");
    IniData expected = data.value_or(IniData());
    expected.Write(kKey, "Written", {ValueKind::Text, "by the target", 0});
    Expect(FromIni(Content(File()).value_or(kDamage)) == expected, "a change adds itself only");
  }

  // The bytes as the backup of a damaged file.
  void CheckBackup(std::string_view bytes, const std::optional<IniData>& data) {
    folder_.Empty();
    SetContent(File(), kDamage);
    SetContent(Backup(), bytes);
    IniStore store = Start();
    Expect(told_ == 1, "the user is told of the damage");
    Expect(Content(Aside()) == kDamage, "the damaged file is kept");
    Expect(FromIni(Content(File()).value_or(kDamage)) == data.value_or(IniData()),
           "the backup takes the place of a damaged file, if it is whole");
  }

  // The bytes as a key, a name, a text and raw bytes of a program.
  void CheckValues(std::string_view bytes) {
    folder_.Empty();
    const std::string text(bytes);
    const RegistryValue value = {ValueKind::Text, text, 0};
    const RegistryValue raw = {ValueKind::Bytes, text, 0};
    IniStore store = Start();
    Expect(store.WriteValue(kKey, text, value), "any name and any text can be stored");
    Expect(store.WriteValue("raw", "raw", raw), "any bytes can be stored");
    const bool key = store.WriteValue(text, "in a key", value);
    IniStore other = Start();
    Expect(told_ == 0, "what a store writes is whole");
    const RegistryValue repaired = {ValueKind::Text, Repaired(text), 0};
    Expect(other.ReadValue(kKey, text) == repaired, "a text is read as it was stored");
    Expect(other.ReadValue("raw", "raw") == raw, "bytes are read as they were stored");
    Expect(other.KeyExists(text) == (key || text.empty()), "a key is there if it could be made");
    if (key) Expect(other.ReadValue(text, "in a key") == repaired, "a key holds its value");
    Expect(other.ValueNames(kKey) == std::vector<std::string>{Repaired(text)},
           "a name is kept as it was first written");
  }

  const TemporaryFolder folder_;
  FakeClock clock_;
  UnflushedCalls calls_;
  int told_ = 0;
};

const FuzzTarget kTarget("store", [](std::string_view bytes) {
  static Checker checker;
  checker.Check(bytes);
});

}  // namespace
}  // namespace brenwick
