// A settings store that other processes write to, and one whose process is killed.
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>

#include "files/AtomicFile.h"
#include "files/IniFormat.h"
#include "support/IniStoreFixture.h"

namespace brenwick {
namespace {

using Names = std::vector<std::string>;

class IniStoreProcessesTest : public IniStoreFixture {};

TEST_F(IniStoreProcessesTest, LosesNothingWhereTwoProcessesWriteAtOnce) {
  constexpr int kEach = 60;
  const auto write = [this](const std::string& name) {
    IniStore store = Store();
    for (int i = 0; i < kEach; ++i) store.WriteValue(kKey, name + std::to_string(i), Text("1"));
  };
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    write("child");
    ::_exit(0);
  }
  write("parent");
  ASSERT_EQ(::waitpid(child, nullptr, 0), child);
  EXPECT_EQ(Store().ValueNames(kKey).size(), 2U * kEach);
  EXPECT_TRUE(told_.empty());
}

// Another process that keeps the store's lock for as long as the object lives.
class LockHolder {
 public:
  explicit LockHolder(const std::string& store) {
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) ADD_FAILURE() << "no pipe";
    process_ = ::fork();
    if (process_ == 0) {
      const int lock = ::open((store + ".lock").c_str(), O_RDWR | O_CREAT, 0600);
      if (lock < 0 || ::flock(lock, LOCK_EX) != 0 || ::write(ends[1], "x", 1) != 1) ::_exit(1);
      for (;;) ::pause();
    }
    ::close(ends[1]);
    char locked = 0;
    EXPECT_EQ(::read(ends[0], &locked, 1), 1);
    ::close(ends[0]);
  }
  LockHolder(const LockHolder&) = delete;
  LockHolder& operator=(const LockHolder&) = delete;
  ~LockHolder() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }

 private:
  pid_t process_ = -1;
};

TEST_F(IniStoreProcessesTest, KeepsChangesInMemoryWhileAnotherProgramHasTheLock) {
  IniStore store = Store();
  ASSERT_TRUE(store.WriteValue(kKey, "Former", Text("0")));
  {
    const LockHolder holder(File());
    EXPECT_TRUE(store.WriteValue(kKey, "First", Text("1")));
    EXPECT_TRUE(store.WriteValue(kKey, "First", Text("2")));
    EXPECT_TRUE(store.DeleteValue(kKey, "Former"));
    EXPECT_EQ(store.ValueNames(kKey), Names{"First"});
    EXPECT_EQ(store.ReadValue(kKey, "First"), Text("2"));
    EXPECT_EQ(Store().ValueNames(kKey), Names{"Former"});
    ASSERT_EQ(told_.size(), 1U);
    EXPECT_NE(told_[0].find("Another program keeps the settings file"), std::string::npos);
  }
  EXPECT_TRUE(store.WriteValue(kKey, "Second", Text("3")));
  EXPECT_EQ(Store().ValueNames(kKey), (Names{"First", "Second"}));
  EXPECT_EQ(Store().ReadValue(kKey, "First"), Text("2"));
  EXPECT_EQ(told_.size(), 1U);
}

TEST_F(IniStoreProcessesTest, StoresWhatItKeptAtItsEndWhoeverHasTheLock) {
  ASSERT_TRUE(Store().WriteValue(kKey, "Former", Text("0")));
  const LockHolder holder(File());
  {
    IniStore store = Store();
    EXPECT_TRUE(store.WriteValue(kKey, "First", Text("1")));
    store.Hold();
    store.WriteValue(kKey, "Never", Text("flushed"));
  }
  EXPECT_EQ(Store().ValueNames(kKey), (Names{"First", "Former"}));
}

TEST_F(IniStoreProcessesTest, StoresWhatItKeptWhenItIsFinishedWhoeverHasTheLock) {
  IniStore store = Store();
  ASSERT_TRUE(store.WriteValue(kKey, "Former", Text("0")));
  const LockHolder holder(File());
  EXPECT_TRUE(store.WriteValue(kKey, "First", Text("1")));
  store.Finish();
  EXPECT_EQ(Store().ValueNames(kKey), (Names{"First", "Former"}));
  EXPECT_EQ(store.ValueNames(kKey), (Names{"First", "Former"}));
}

TEST_F(IniStoreProcessesTest, TellsOnceThatItCannotStoreWhatItKept) {
  FailingFileCalls calls;
  {
    IniStore store = Store(calls);
    ASSERT_TRUE(store.WriteValue(kKey, "Former", Text("0")));
    const LockHolder holder(File());
    EXPECT_TRUE(store.WriteValue(kKey, "First", Text("1")));
    told_.clear();
    calls.always = "Rename";
    store.Finish();
    EXPECT_EQ(store.ValueNames(kKey), Names{"Former"});
  }
  EXPECT_EQ(told_,
            Names{"The settings that were changed last could not be stored in " + File() + "."});
}

TEST_F(IniStoreProcessesTest, AddsWhatItKeptToWhatTheOtherProgramHasWritten) {
  IniStore store = Store();
  ASSERT_TRUE(store.WriteValue(kKey, "Former", Text("0")));
  {
    const LockHolder holder(File());
    EXPECT_TRUE(store.WriteValue(kKey, "First", Text("1")));
    IniData data;
    data.Write(kKey, "Other", Text("2"));
    ASSERT_EQ(AtomicFile(File()).Replace(ToIni(data)), 0);
    EXPECT_EQ(store.ValueNames(kKey), (Names{"First", "Other"}));
  }
  EXPECT_TRUE(store.WriteValue(kKey, "First", Text("3")));
  EXPECT_EQ(Store().ValueNames(kKey), (Names{"First", "Other"}));
  EXPECT_EQ(Store().ReadValue(kKey, "First"), Text("3"));
}

TEST_F(IniStoreProcessesTest, KeepsWhatCountsAsStoredWhereTheNextChangeFails) {
  FailingFileCalls calls;
  IniStore store = Store(calls);
  {
    const LockHolder holder(File());
    EXPECT_TRUE(store.WriteValue(kKey, "First", Text("1")));
  }
  calls.always = "Rename";
  EXPECT_FALSE(store.WriteValue(kKey, "Second", Text("2")));
  EXPECT_EQ(store.ValueNames(kKey), Names{"First"});
  calls.always.clear();
  EXPECT_TRUE(store.WriteValue(kKey, "Third", Text("3")));
  EXPECT_EQ(Store().ValueNames(kKey), (Names{"First", "Third"}));
}

// A killed process loses nothing that it has handed to the system, so the flush would only take
// most of the moments away from the other calls.
class CallsWithoutFlush : public FileCalls {
 public:
  int Fsync(int /*descriptor*/) override { return 0; }
};

// A process that writes versions for ever, each of two equal values, and after each a byte into a
// pipe. It is killed by a signal that no program can handle.
class Writer {
 public:
  Writer(const std::string& file, int start) {
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) ADD_FAILURE() << "no pipe";
    process_ = ::fork();
    if (process_ == 0) WriteForEver(file, start, ends[1]);
    ::close(ends[1]);
    written_ = ends[0];
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() {
    Kill();
    ::close(written_);
  }

  void AwaitVersions(unsigned long count) const {
    char byte = 0;
    while (count-- > 0) ASSERT_EQ(::read(written_, &byte, 1), 1);
  }
  void Kill() {
    if (process_ <= 0) return;
    ::kill(process_, SIGKILL);
    ::waitpid(std::exchange(process_, 0), nullptr, 0);
  }

 private:
  [[noreturn]] static void WriteForEver(const std::string& file, int start, int written) {
    TestClock clock;
    CallsWithoutFlush calls;
    IniStore store(
        file, clock, [](const std::string&) { ::_exit(1); }, calls);
    for (int version = start;; ++version) {
      const RegistryValue value = Text(std::to_string(version) + std::string(2'000, 'x'));
      Batch batch(store);
      store.WriteValue(kKey, "first", value);
      store.WriteValue("Other", "second", value);
      if (!batch.Flush() || ::write(written, "", 1) != 1) ::_exit(1);
    }
  }

  pid_t process_ = 0;
  int written_ = -1;
};

void ExpectWholeVersion(const std::string& file) {
  const auto data = FromIni(BytesOf(file));
  ASSERT_TRUE(data) << file;
  ASSERT_TRUE(data->Find(kKey, "first")) << file;
  EXPECT_EQ(data->Find(kKey, "first"), data->Find("Other", "second")) << file;
}

TEST_F(IniStoreProcessesTest, IsWholeAtWhateverMomentTheProgramIsKilled) {
  std::mt19937 random(std::random_device{}());
  for (int kill = 0; kill < 200; ++kill) {
    {
      Writer writer(File(), kill * 1'000);
      // The first version is awaited, so that there is a file; then a random stretch of the
      // writing.
      writer.AwaitVersions(1 + random() % 3);
      volatile unsigned long moment = 0;
      for (auto stop = random() % 400'000; moment < stop;) moment = moment + 1;
      writer.Kill();
    }
    ExpectWholeVersion(File());
    if (std::filesystem::exists(Backup())) ExpectWholeVersion(Backup());
  }
  IniStore store = Store();
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_EQ(folder_.Names(), (Names{"store.ini", "store.ini.bak", "store.ini.lock"}));
  EXPECT_TRUE(told_.empty());
}

}  // namespace
}  // namespace brenwick
