// The settings store in one file that a person can read (IniFormat.h).
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/FileCalls.h"
#include "files/IniData.h"
#include "files/IniFile.h"
#include "platform/Clock.h"
#include "platform/RegistryStore.h"

namespace brenwick {

// Each change is on the disk when its call returns; the version before it is in the file's name +
// ".bak". A change that changes nothing leaves the file alone. Keys, names and texts are repaired
// to valid UTF-8 on their way in.
//
// Other programs may use the same file: a change waits for their lock (the file's name + ".lock"),
// reads what they wrote, and keeps it. Reads see what they wrote as well, except within a Hold.
//
// No change waits longer than kPatience. Where another program still has the lock then, the change
// is made in memory, counts as stored, and the user is told. It goes into the file with the next
// change that finds the lock free, at the latest with Finish, which ignores the lock. The
// destructor calls Finish.
//
// A file that is damaged (it does not parse, or it is empty beside a backup that is not) is never
// lost. It is copied to the file's name + ".damaged-YYYY-MM-DD", and the last whole version takes
// its place: what this store holds already, at the start the backup, without one an empty store. A
// file that cannot be read is no damaged one: it stays, and no change is stored while it is so.
class IniStore : public RegistryStore {
 public:
  // Tells the user, in English, that the file is damaged or cannot be read; once for each file set
  // aside, once for all that could not be; that another program keeps the lock; and that Finish
  // could not store the last changes. It is called within the constructor, the destructor, Finish
  // or a changing call, with no lock held, and must not throw.
  using Tell = std::function<void(const std::string& message)>;

  // How long a change waits for another program that changes the file.
  static constexpr std::chrono::milliseconds kPatience{500};

  // Neither file nor folder need exist; the first change makes them.
  IniStore(const std::string& file, Clock& clock, Tell tell, FileCalls& calls = SystemCalls());
  ~IniStore() override;

  // Stores the changes that were kept in memory, whoever has the lock, and drops those of a Hold
  // that was not flushed. Call this before the process ends without destructors.
  void Finish();

  bool KeyExists(const std::string& key) override;
  bool CreateKey(const std::string& key) override;
  bool DeleteKey(const std::string& key) override;
  std::optional<RegistryValue> ReadValue(const std::string& key, const std::string& name) override;
  bool WriteValue(const std::string& key, const std::string& name,
                  const RegistryValue& value) override;
  bool DeleteValue(const std::string& key, const std::string& name) override;
  std::vector<std::string> ValueNames(const std::string& key) override;
  std::vector<std::string> SubKeys(const std::string& key) override;
  std::string ExpandEnvironment(const std::string& text) override;
  void Hold() override;
  bool Flush() override;

 private:
  // False: it is impossible, and has changed nothing.
  using Change = std::function<bool(IniData&)>;
  enum class Result { Stored, Busy, Failed };

  void Start();
  void Refresh();
  bool Apply(Change change);
  bool Store();
  Result StoreLocked();
  bool ReplaceFile();
  void MakeChangesAgain();
  bool LoadLocked();
  void FallBackOnBackup();
  bool SetAside(const std::string& damaged);
  std::string NameForDamaged() const;
  void ReportFailure(const std::string& message);
  void ReportBusy();
  void ReportLoss();
  void ReportDamage();
  void TellUser();

  std::string file_;
  Clock& clock_;
  Tell tell_;
  FileCalls& calls_;
  FileIdentity seen_;  // the file when it was last looked at
  IniData stored_;     // what it held then
  IniData data_;       // the same with the changes that are not in the file yet
  std::vector<Change> changes_;
  std::size_t promised_ = 0;  // so many of these, the first, count as stored
  int holds_ = 0;
  std::vector<std::string> messages_;
  bool reported_failure_ = false;
  bool busy_ = false;  // another program had the lock at the last change
};

}  // namespace brenwick
