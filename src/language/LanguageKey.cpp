#include "language/LanguageKey.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/Text.h"
#include "language/Coding.h"
#include "language/FindFile.h"

namespace brenwick {
namespace {

constexpr const char* kProcedure = "GenerateLaguageKey";

}  // namespace

void LanguageKey::GenerateLaguageKey(const std::function<std::string()>& name) {
  log_.Trap("modFunctions", kProcedure, [&] {
    progress_.StatusForm(true, "Writing language");
    const std::string chosen = name();
    const std::string target = PathIn("Languages", chosen + ".TML");
    const std::string source = ReadSource(chosen);
    if (const std::string old = FindFile(folders_, target); !old.empty()) {
      folders_.Delete(old);
      loop_.DoEvents();
    }
    folders_.Replace(target, Code(source));
    progress_.StatusForm(false);
  });
}

std::string LanguageKey::ReadSource(const std::string& name) {
  const std::string path = PathIn("OrgLanguages", name + ".Txt");
  const std::string found = FindFile(folders_, path);
  return folders_.Read(found.empty() ? path : found);
}

std::string LanguageKey::Code(const std::string& source) {
  std::string file;
  LanguageChecksum sum;
  for (const std::string_view line : Lines(source)) {
    if (IsBlank(line)) continue;
    progress_.SetText(FromWindows1252(line));
    loop_.DoEvents();
    file.append(log_.Trap("modFunctions", "GetCodedString", [&] { return GetCodedString(line); }));
    file.append("\r\n");
    sum.Add(line);
  }
  return file + std::to_string(sum.Value()) + "\r\n";
}

std::string LanguageKey::PathIn(const char* folder, const std::string& file) const {
  const char separator = folders_.Separator();
  return folders_.ProgramFolder() + separator + folder + separator + file;
}

}  // namespace brenwick
