#include "language/Languages.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "base/CodePage.h"
#include "base/Lines.h"
#include "base/ProgramState.h"
#include "base/Text.h"
#include "language/Coding.h"
#include "language/FindFile.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "modFunctions";
constexpr const char* kFallbackLanguage = "English";

bool HasExtension(const std::string& name, std::string_view extension) {
  return name.size() >= extension.size() &&
         LowerCase(std::string_view(name).substr(name.size() - extension.size())) == extension;
}

std::string NameOfFile(const std::string& file) { return file.substr(0, file.find('.')); }

std::int32_t ReadChecksum(std::string_view line) {
  const std::string_view digits = Trimmed(line);
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range) throw Failure(kOverflow);
  if (error != std::errc{} || end != digits.data() + digits.size()) throw Failure(kTypeMismatch);
  return value;
}

}  // namespace

void Languages::LanguageRead() {
  constexpr const char* kProcedure = "LanguageRead";
  log_.Trap(kModule, kProcedure, [&] {
    progress_.SetText("Reading language settings");
    ListSources();
    const std::vector<std::string> names = ListInstalled();
    log_.DebugWrite(kProcedure, "Total languages : " + std::to_string(names.size()) + " files");
    if (names.empty()) {
      progress_.StatusForm(false);
      screen_.MessageBox(
          "No language files available in " + Folder("Languages") + ".\r\n\r\nPlease reinstall",
          kTitle, BoxIcon::Critical, BoxButtons::Ok);
      throw ProgramEnd{};
    }
    SelectStored(names);
    log_.DebugWrite(kProcedure, "Reading language strings");
    ReadLanguage(true);
  });
}

// The readable sources belong to the developers' tools.
void Languages::ListSources() {
  std::vector<std::string> names;
  if (system_.DevelopmentEnvironment()) {
    for (const std::string& file : folders_.FileNames(Folder("OrgLanguages"))) {
      if (HasExtension(file, ".txt")) names.push_back(NameOfFile(file));
    }
  }
  lists_.ShowSources(names);
}

std::vector<std::string> Languages::ListInstalled() {
  std::vector<std::string> names;
  for (const std::string& file : folders_.FileNames(Folder("Languages"))) {
    if (!HasExtension(file, ".tml")) continue;
    names.push_back(NameOfFile(file));
    log_.DebugWrite("LanguageRead", "Found language : " + file);
  }
  lists_.ShowInstalled(names);
  return names;
}

void Languages::SelectStored(const std::vector<std::string>& names) {
  lists_.Choose(0);
  log_.DebugWrite("LanguageRead", "Reading users language from registry");
  std::string stored = stored_name_();
  if (stored.empty()) stored = kFallbackLanguage;
  const auto found = std::find(names.begin(), names.end(), stored);
  if (found != names.end()) lists_.Choose(static_cast<int>(found - names.begin()));
}

void Languages::ReadLanguage(bool quiet) {
  constexpr const char* kProcedure = "ReadLanguage";
  log_.Trap(kModule, kProcedure, [&] {
    progress_.SetHourglass(true);
    if (quiet) {
      progress_.SetText("Reading language file");
    } else {
      progress_.StatusForm(true, texts_.LoadText(100));
    }
    const std::string path = Folder("Languages") + ChosenName() + ".TML";
    log_.DebugWrite(kProcedure, "Opening languagefile : " + path);
    const std::string file = FindFile(folders_, path);
    if (file.empty()) {
      throw Failure(65534, "Languagefile (" + path + ") does not exist", kProcedure);
    }
    Load(file);
    progress_.SetHourglass(false);
    if (!quiet) progress_.StatusForm(false);
  });
}

std::string Languages::ChosenName() const {
  const std::string text = lists_.Chosen();
  return text.empty() ? kFallbackLanguage : std::string(Trimmed(text));
}

// The last line that is not blank is the checksum of the others.
void Languages::Load(const std::string& path) {
  const std::string content = folders_.Read(path);
  std::vector<std::string_view> lines = Lines(content);
  std::erase_if(lines, [](std::string_view line) { return IsBlank(line); });
  log_.DebugWrite("ReadLanguage", "Found " + std::to_string(lines.size()) + " strings");
  if (lines.empty()) throw Failure(kTypeMismatch);
  std::vector<std::string> entries(lines.size() + 1);
  LanguageChecksum sum;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    const std::string plain =
        log_.Trap(kModule, "GetDeCodedString", [&] { return GetDeCodedString(lines[i]); });
    sum.Add(plain);
    entries[i + 1] = FromWindows1252(plain);
  }
  texts_.Replace(std::move(entries));
  if (sum.Value() != ReadChecksum(lines.back())) TellDamaged();
}

void Languages::TellDamaged() {
  log_.DebugWrite("ReadLanguage", "Checksum wrong");
  progress_.StatusForm(false);
  screen_.MessageBox("Languagefile for " + std::string(Trimmed(lists_.Chosen())) +
                         " is damaged.\r\n\r\nPlease reinstall this product.",
                     kTitle, BoxIcon::Critical, BoxButtons::Ok);
  if (!system_.DevelopmentEnvironment()) throw ProgramEnd{};
}

std::string Languages::Folder(const char* name) const {
  return folders_.ProgramFolder() + folders_.Separator() + name + folders_.Separator();
}

}  // namespace brenwick
