#include "files/AtomicFile.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <set>

#include "support/FailingFileCalls.h"
#include "support/TemporaryFolder.h"

namespace brenwick {
namespace {

using Names = std::vector<std::string>;

const std::string kOld(5'000, 'o');
const std::string kNew(7'000, 'n');

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 0777;
}

// The number of a process that has ended.
pid_t DeadProcess() {
  const pid_t process = ::fork();
  if (process == 0) ::_exit(0);
  ::waitpid(process, nullptr, 0);
  return process;
}

// Runs the work in a process of its own and returns when that has ended.
void InChild(const std::function<void()>& work) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    work();
    ::_exit(0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

// Makes one replacement for each call that it consists of, that call failing; each in a folder of
// its own, where the test has laid what it begins with. Returns the names of the calls that failed.
class EachCallFailing {
 public:
  // With no old bytes there is no file before.
  EachCallFailing(std::string old_bytes, bool backup)
      : old_bytes_(std::move(old_bytes)), backup_(backup) {}

  std::set<std::string> Run(
      const std::function<void(const TemporaryFolder&, const FailingFileCalls&, int)>& check) {
    std::set<std::string> failed;
    for (int number = 1;; ++number) {
      const TemporaryFolder folder;
      if (!old_bytes_.empty()) SetBytes(folder.Inside("list"), old_bytes_);
      FailingFileCalls calls;
      calls.failing = number;
      AtomicFile file(folder.Inside("list"), calls);
      const int result = backup_ ? file.ReplaceKeepingBackup(kNew) : file.Replace(kNew);
      if (calls.Failed().empty()) {
        EXPECT_EQ(result, 0);
        return failed;
      }
      SCOPED_TRACE(calls.Failed() + ", call " + std::to_string(number));
      failed.insert(calls.Failed());
      check(folder, calls, result);
    }
  }

 private:
  std::string old_bytes_;
  bool backup_;
};

const std::set<std::string> kCalls = {"Open",  "Write",  "Fchmod", "Fsync",
                                      "Close", "Rename", "Unlink"};

TEST(AtomicFile, MakesAPrivateFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(AtomicFile(folder.Inside("list")).Replace(kNew), 0);
  EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
  EXPECT_EQ(ModeOf(folder.Inside("list")), 0600U);
  EXPECT_EQ(folder.Names(), Names{"list"});
}

TEST(AtomicFile, ReplacesAFileAndMakesItPrivate) {
  const TemporaryFolder folder;
  SetBytes(folder.Inside("list"), kOld);
  ASSERT_EQ(::chmod(folder.Inside("list").c_str(), 0644), 0);
  EXPECT_EQ(AtomicFile(folder.Inside("list")).Replace(""), 0);
  EXPECT_EQ(BytesOf(folder.Inside("list")), "");
  EXPECT_EQ(ModeOf(folder.Inside("list")), 0600U);
  EXPECT_EQ(folder.Names(), Names{"list"});
}

TEST(AtomicFile, FlushesTheBytesBeforeTheyTakeTheirPlaceAndTheFolderAfterwards) {
  const TemporaryFolder folder;
  FailingFileCalls calls;
  EXPECT_EQ(AtomicFile(folder.Inside("list"), calls).Replace(kNew), 0);
  EXPECT_EQ(calls.CallNames(), (Names{"Open", "Open", "Fchmod", "Write", "Fsync", "Close", "Rename",
                                      "Fsync", "Unlink", "Close"}));
}

TEST(AtomicFile, KeepsTheVersionBefore) {
  const TemporaryFolder folder;
  for (const std::string bytes : {"one", "two", "three"}) {
    EXPECT_EQ(AtomicFile(folder.Inside("list")).ReplaceKeepingBackup(bytes), 0);
    EXPECT_EQ(BytesOf(folder.Inside("list")), bytes);
  }
  EXPECT_EQ(BytesOf(folder.Inside("list.bak")), "two");
  EXPECT_EQ(folder.Names(), (Names{"list", "list.bak"}));
}

TEST(AtomicFile, HasNoBackupOfNothing) {
  const TemporaryFolder folder;
  EXPECT_EQ(AtomicFile(folder.Inside("list")).ReplaceKeepingBackup("one"), 0);
  EXPECT_EQ(folder.Names(), Names{"list"});
}

TEST(AtomicFile, KeepsTheVersionBeforeWithoutHardLinks) {
  const TemporaryFolder folder;
  SetBytes(folder.Inside("list"), kOld);
  FailingFileCalls calls;
  calls.always = "Link";
  calls.error = EPERM;
  EXPECT_EQ(AtomicFile(folder.Inside("list"), calls).ReplaceKeepingBackup(kNew), 0);
  EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
  EXPECT_EQ(BytesOf(folder.Inside("list.bak")), kOld);
  EXPECT_EQ(folder.Names(), (Names{"list", "list.bak"}));
}

// As a stop between the two renamings leaves it.
TEST(AtomicFile, ReplacesAFileThatIsItsOwnBackup) {
  const TemporaryFolder folder;
  SetBytes(folder.Inside("list"), kOld);
  std::filesystem::create_hard_link(folder.Inside("list"), folder.Inside("list.bak"));
  EXPECT_EQ(AtomicFile(folder.Inside("list")).ReplaceKeepingBackup(kNew), 0);
  EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
  EXPECT_EQ(BytesOf(folder.Inside("list.bak")), kOld);
  EXPECT_EQ(folder.Names(), (Names{"list", "list.bak"}));
}

TEST(AtomicFile, ReplacesTheFileBehindALink) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Inside("elsewhere"));
  SetBytes(folder.Inside("elsewhere/list"), kOld);
  std::filesystem::create_symlink("elsewhere/list", folder.Inside("list"));
  EXPECT_EQ(AtomicFile(folder.Inside("list")).Replace(kNew), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Inside("list")));
  EXPECT_EQ(BytesOf(folder.Inside("elsewhere/list")), kNew);
}

TEST(AtomicFile, WritesOnAfterShortWrites) {
  const TemporaryFolder folder;
  FailingFileCalls calls;
  calls.short_write = 999;
  EXPECT_EQ(AtomicFile(folder.Inside("list"), calls).Replace(kNew), 0);
  EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
}

TEST(AtomicFile, RepeatsCallsThatASignalInterrupts) {
  for (int number = 1; number <= 20; ++number) {
    const TemporaryFolder folder;
    FailingFileCalls calls;
    calls.failing = number;
    calls.error = EINTR;
    const int result = AtomicFile(folder.Inside("list"), calls).Replace(kNew);
    // These two are never interrupted.
    if (calls.Failed() == "Rename" || calls.Failed() == "Unlink") continue;
    EXPECT_EQ(result, 0) << calls.Failed();
    EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
  }
}

TEST(AtomicFile, DoesWithoutAFolderFlushWhereTheFileSystemHasNone) {
  const TemporaryFolder folder;
  FailingFileCalls probe;
  ASSERT_EQ(AtomicFile(folder.Inside("list"), probe).Replace(kOld), 0);
  // The folder's flush is the last but two: its closing and the removal of the temporary name
  // follow.
  FailingFileCalls calls;
  calls.failing = probe.Count() - 2;
  calls.error = EINVAL;
  EXPECT_EQ(AtomicFile(folder.Inside("list"), calls).Replace(kNew), 0);
  EXPECT_EQ(calls.Failed(), "Fsync");
  EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
}

TEST(AtomicFile, HoldsTheOldBytesOrTheNewOnesWhicheverCallFails) {
  EachCallFailing each(kOld, false);
  const auto failed = each.Run([](const auto& folder, const auto&, int result) {
    const std::string bytes = BytesOf(folder.Inside("list"));
    EXPECT_TRUE(bytes == kNew || (result != 0 && bytes == kOld));
    EXPECT_EQ(folder.Names(), Names{"list"});
  });
  EXPECT_EQ(failed, kCalls);
}

TEST(AtomicFile, HoldsNothingOrTheNewBytesWhicheverCallOfTheFirstWriteFails) {
  EachCallFailing each("", false);
  const auto failed = each.Run([](const auto& folder, const auto&, int result) {
    if (result != 0 && folder.Names().empty()) return;
    EXPECT_EQ(folder.Names(), Names{"list"});
    EXPECT_EQ(BytesOf(folder.Inside("list")), kNew);
  });
  EXPECT_EQ(failed, kCalls);
}

TEST(AtomicFile, HoldsTheOldBytesAfterAFailureWhereItKeepsABackup) {
  EachCallFailing each(kOld, true);
  const auto failed = each.Run([](const auto& folder, const auto&, int result) {
    EXPECT_EQ(BytesOf(folder.Inside("list")), result == 0 ? kNew : kOld);
    Names names = folder.Names();
    // After an early failure there is no backup yet.
    if (names.back() == "list.bak") {
      EXPECT_EQ(BytesOf(folder.Inside("list.bak")), kOld);
      names.pop_back();
    }
    EXPECT_EQ(names, Names{"list"});
    EXPECT_TRUE(result != 0 || std::filesystem::exists(folder.Inside("list.bak")));
  });
  EXPECT_TRUE(failed.contains("Link"));
  EXPECT_TRUE(failed.contains("Fsync"));
}

TEST(AtomicFile, DoesNotExistAfterAFailureOfTheFirstWriteWhereItKeepsABackup) {
  EachCallFailing each("", true);
  each.Run([](const auto& folder, const auto&, int result) {
    EXPECT_EQ(folder.Names(), result == 0 ? Names{"list"} : Names{});
  });
}

TEST(AtomicFile, SaysWhichErrorStoppedIt) {
  const TemporaryFolder folder;
  FailingFileCalls calls;
  calls.always = "Write";
  calls.error = ENOSPC;
  EXPECT_EQ(AtomicFile(folder.Inside("list"), calls).Replace(kNew), ENOSPC);
  EXPECT_EQ(AtomicFile(folder.Inside("list"), calls).ReplaceKeepingBackup(kNew), ENOSPC);
  EXPECT_EQ(AtomicFile(folder.Inside("none/list")).Replace(kNew), ENOENT);
  EXPECT_EQ(AtomicFile(folder.Inside("")).Replace(kNew), EISDIR);
  EXPECT_EQ(folder.Names(), Names{});
}

// After a stop at each call the file is whole, the backup holds the version before it or the same,
// and the next replacement leaves nothing lying about.
TEST(AtomicFile, IsWholeAtWhicheverCallTheProgramStops) {
  FailingFileCalls probe;
  const TemporaryFolder first;
  SetBytes(first.Inside("list"), kOld);
  ASSERT_EQ(AtomicFile(first.Inside("list"), probe).ReplaceKeepingBackup(kNew), 0);
  for (int number = 1; number <= probe.Count(); ++number) {
    SCOPED_TRACE(number);
    const TemporaryFolder folder;
    SetBytes(folder.Inside("list"), kOld);
    SetBytes(folder.Inside("list.bak"), "older");
    InChild([&] {
      FailingFileCalls calls;
      calls.failing = number;
      calls.dies = true;
      AtomicFile(folder.Inside("list"), calls).ReplaceKeepingBackup(kNew);
    });
    const std::string bytes = BytesOf(folder.Inside("list"));
    const std::string backup = BytesOf(folder.Inside("list.bak"));
    EXPECT_TRUE(bytes == kOld || (bytes == kNew && backup == kOld));
    EXPECT_TRUE(backup == "older" || backup == kOld);
    EXPECT_EQ(AtomicFile(folder.Inside("list")).ReplaceKeepingBackup("newest"), 0);
    EXPECT_EQ(BytesOf(folder.Inside("list.bak")), bytes);
    EXPECT_EQ(folder.Names(), (Names{"list", "list.bak"}));
  }
}

TEST(AtomicFile, RemovesOnlyItsOwnLeftovers) {
  const TemporaryFolder folder;
  const std::string dead = std::to_string(DeadProcess());
  const std::string own = std::to_string(::getpid());
  const std::string alive = std::to_string(::getppid());
  const Names others = {"alist.new-" + dead + "-1",
                        "list.new-" + alive + "-1",
                        "list.new-" + dead,
                        "list.new-" + dead + "-1x",
                        "list.new-x-1",
                        "list.new-"};
  for (const std::string& name : others) SetBytes(folder.Inside(name), "theirs");
  SetBytes(folder.Inside("list.new-" + dead + "-17"), "left");
  SetBytes(folder.Inside("list.new-" + own + "-4000000000"), "left");
  EXPECT_EQ(AtomicFile(folder.Inside("list")).Replace(kNew), 0);
  Names expected = others;
  expected.push_back("list");
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(folder.Names(), expected);
}

}  // namespace
}  // namespace brenwick
