#include "files/IniStore.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/Text.h"
#include "files/AtomicFile.h"
#include "files/FileLock.h"
#include "files/IniFormat.h"

namespace brenwick {
namespace {

std::string TwoDigits(unsigned number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string DateForName(LocalTime time) {
  const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(time));
  return std::to_string(static_cast<int>(date.year())) + "-" +
         TwoDigits(static_cast<unsigned>(date.month())) + "-" +
         TwoDigits(static_cast<unsigned>(date.day()));
}

RegistryValue RepairedValue(const RegistryValue& value) {
  const bool text = value.type == ValueKind::Text || value.type == ValueKind::ExpandableText ||
                    value.type == ValueKind::TextList;
  return {value.type, text ? Repaired(value.text) : value.text, value.number};
}

}  // namespace

// The links on the way are followed once, so that backup and lock lie beside the file itself.
IniStore::IniStore(const std::string& file, Clock& clock, Tell tell, FileCalls& calls)
    : file_(ResolvedPath(file)), clock_(clock), tell_(std::move(tell)), calls_(calls) {
  Start();
  data_ = stored_;
  TellUser();
}

IniStore::~IniStore() { Finish(); }

// The lock may be ignored because the file is replaced as a whole. A Hold that was never flushed
// has promised nothing.
void IniStore::Finish() {
  changes_.resize(promised_);
  if (changes_.empty()) return;
  const Result result = StoreLocked();
  const bool stored = result == Result::Stored || (result == Result::Busy && ReplaceFile());
  if (!stored) ReportLoss();
  changes_.clear();
  promised_ = 0;
  MakeChangesAgain();
  TellUser();
}

bool IniStore::KeyExists(const std::string& key) {
  Refresh();
  return data_.HasKey(Repaired(key));
}

bool IniStore::CreateKey(const std::string& key) {
  return Apply([key = Repaired(key)](IniData& data) { return data.CreateKey(key); });
}

bool IniStore::DeleteKey(const std::string& key) {
  return Apply([key = Repaired(key)](IniData& data) { return data.DeleteKey(key); });
}

std::optional<RegistryValue> IniStore::ReadValue(const std::string& key, const std::string& name) {
  Refresh();
  return data_.Find(Repaired(key), Repaired(name));
}

bool IniStore::WriteValue(const std::string& key, const std::string& name,
                          const RegistryValue& value) {
  return Apply([key = Repaired(key), name = Repaired(name), value = RepairedValue(value)](
                   IniData& data) { return data.Write(key, name, value); });
}

bool IniStore::DeleteValue(const std::string& key, const std::string& name) {
  return Apply([key = Repaired(key), name = Repaired(name)](IniData& data) {
    return data.Erase(key, name);
  });
}

std::vector<std::string> IniStore::ValueNames(const std::string& key) {
  Refresh();
  return data_.ValueNames(Repaired(key));
}

std::vector<std::string> IniStore::SubKeys(const std::string& key) {
  Refresh();
  return data_.SubKeys(Repaired(key));
}

std::string IniStore::ExpandEnvironment(const std::string& text) {
  std::string expanded;
  std::size_t done = 0;
  std::size_t start = text.find('%');
  while (start != std::string::npos) {
    const std::size_t end = text.find('%', start + 1);
    if (end == std::string::npos) break;
    const std::string name = text.substr(start + 1, end - start - 1);
    const char* const value = std::getenv(name.c_str());
    if (value == nullptr) {
      // The sign at the end of an unknown name may begin a known one.
      start = end;
      continue;
    }
    expanded += text.substr(done, start - done) + Repaired(value);
    done = end + 1;
    start = text.find('%', done);
  }
  return expanded + text.substr(done);
}

void IniStore::Hold() {
  Refresh();
  ++holds_;
}

bool IniStore::Flush() {
  if (holds_ == 0 || --holds_ > 0) return true;
  return Store();
}

void IniStore::Start() {
  IniLook look = LookAtIni(calls_, file_);
  seen_ = look.identity;
  if (look.data) {
    stored_ = std::move(*look.data);
  } else if (look.error == 0) {
    FallBackOnBackup();
    if (StoreLocked() == Result::Failed) ReportDamage();
  } else {
    LoadLocked();
  }
}

// What others made of the file counts where it can be read; a damaged one waits for the next
// change.
void IniStore::Refresh() {
  if (holds_ > 0 || IdentityOf(file_) == seen_) return;
  IniLook look = LookAtIni(calls_, file_);
  seen_ = look.identity;
  if (!look.data) return;
  stored_ = std::move(*look.data);
  MakeChangesAgain();
}

bool IniStore::Apply(Change change) {
  Refresh();
  if (!change(data_)) return false;
  if (holds_ == 0 && changes_.empty() && data_ == stored_) return true;
  changes_.push_back(std::move(change));
  return holds_ > 0 || Store();
}

bool IniStore::Store() {
  if (changes_.empty()) return true;
  const Result result = StoreLocked();
  if (result == Result::Stored) changes_.clear();
  if (result == Result::Failed) changes_.resize(promised_);
  promised_ = changes_.size();
  MakeChangesAgain();
  TellUser();
  return result != Result::Failed;
}

// Whoever keeps the lock for that long may keep it for ever: no change waits again until the lock
// has been free once.
IniStore::Result IniStore::StoreLocked() {
  if (MakeFolders(calls_, FolderOf(file_)) != 0) return Result::Failed;
  const FileLock lock(calls_, file_ + ".lock", busy_ ? std::chrono::milliseconds(0) : kPatience);
  if (lock.IsBusy()) {
    if (!std::exchange(busy_, true)) ReportBusy();
    return Result::Busy;
  }
  if (!lock.IsHeld()) return Result::Failed;
  busy_ = false;
  return ReplaceFile() ? Result::Stored : Result::Failed;
}

bool IniStore::ReplaceFile() {
  if (!LoadLocked()) return false;
  IniData next = stored_;
  for (const Change& change : changes_) change(next);
  if (next == stored_) return true;
  if (AtomicFile(file_, calls_).ReplaceKeepingBackup(ToIni(next)) != 0) return false;
  stored_ = std::move(next);
  seen_ = IdentityOf(file_);
  return true;
}

void IniStore::MakeChangesAgain() {
  data_ = stored_;
  for (const Change& change : changes_) change(data_);
}

// True when the store holds what the file holds, and the file may be replaced.
bool IniStore::LoadLocked() {
  IniLook look = LookAtIni(calls_, file_);
  seen_ = look.identity;
  if (look.error != 0) {
    ReportFailure("The settings file " + file_ + " cannot be read (" + std::strerror(look.error) +
                  "). Changed settings are not stored.");
    return false;
  }
  if (!look.data) return SetAside(look.bytes);
  stored_ = std::move(*look.data);
  return true;
}

void IniStore::FallBackOnBackup() {
  if (stored_ == IniData()) stored_ = BackupOfIni(calls_, file_).value_or(IniData());
}

// Copies the file and replaces it, rather than renaming it, so that there is a file at every
// moment.
bool IniStore::SetAside(const std::string& damaged) {
  FallBackOnBackup();
  const std::string kept = NameForDamaged();
  // Where only the flush of the folder failed, the file is replaced, and its copy must stay.
  const bool done =
      AtomicFile(kept, calls_).Replace(damaged) == 0 &&
      (AtomicFile(file_, calls_).Replace(ToIni(stored_)) == 0 || IdentityOf(file_) != seen_);
  if (!done) {
    calls_.Unlink(kept);
    ReportDamage();
    return false;
  }
  seen_ = IdentityOf(file_);
  messages_.push_back("The settings file " + file_ + " is damaged. It was kept as " + kept + ". " +
                      (stored_ == IniData() ? "There is no backup: all settings start afresh."
                                            : "The last whole version of it is used."));
  return true;
}

std::string IniStore::NameForDamaged() const {
  const std::string name = file_ + ".damaged-" + DateForName(clock_.Now());
  std::string free = name;
  const auto is_taken = [](const std::string& path) {
    std::error_code unknown;
    return std::filesystem::exists(std::filesystem::symlink_status(NativePath(path), unknown));
  };
  for (int number = 2; is_taken(free); ++number) {
    free = name + "-" + std::to_string(number);
  }
  return free;
}

void IniStore::ReportFailure(const std::string& message) {
  if (std::exchange(reported_failure_, true)) return;
  messages_.push_back(message);
}

void IniStore::ReportBusy() {
  messages_.push_back("Another program keeps the settings file " + file_ +
                      " to itself. Changed settings are stored when it is free again, at the "
                      "latest when Brenwick ends.");
}

void IniStore::ReportLoss() {
  messages_.push_back("The settings that were changed last could not be stored in " + file_ + ".");
}

void IniStore::ReportDamage() {
  ReportFailure("The settings file " + file_ +
                " is damaged and cannot be replaced. Changed settings are not stored.");
}

void IniStore::TellUser() {
  for (const std::string& message : std::exchange(messages_, {})) tell_(message);
}

}  // namespace brenwick
