// The whole program is killed while it saves: there is one version or the next, whole, and the next
// start finds it.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>
#include <utility>

#include "crash/WholeProgram.h"
#include "support/FailingFileCalls.h"

namespace brenwick {
namespace {

using Names = std::vector<std::string>;

constexpr int kKills = 200;
// Fixed, so that the moments are spread alike in every run.
constexpr unsigned kSeed = 2004;

class KilledProgramTest : public UsedProgram {
 protected:
  void SetUp() override {
    UsedProgram::SetUp();
    data_ = NamesIn(DataFolder());
  }
  void ExpectNothingLeft() const {
    const Names store = {"documents", "store.ini", "store.ini.bak", "store.ini.lock"};
    EXPECT_EQ(folder_.Names(), store);
    EXPECT_EQ(NamesIn(DataFolder()), data_);
  }

  Names data_;
};

// A process of the program that saves version after version. It reports its start, and each version
// once it is saved, through a pipe.
class SavingProcess {
 public:
  SavingProcess(const std::string& folder, int version) {
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) ADD_FAILURE() << "no pipe";
    process_ = ::fork();
    if (process_ == 0) SaveForEver(folder, version, ends[1]);
    ::close(ends[1]);
    reports_ = ends[0];
  }
  SavingProcess(const SavingProcess&) = delete;
  SavingProcess& operator=(const SavingProcess&) = delete;
  ~SavingProcess() {
    if (process_ > 0) Kill();
    ::close(reports_);
  }

  // False: the process is gone, and all that it reported was read.
  bool AwaitReport() { return ::read(reports_, &reported_, sizeof reported_) == sizeof reported_; }
  // True when it lived until then.
  bool Kill() {
    int status = 0;
    ::kill(process_, SIGKILL);
    ::waitpid(std::exchange(process_, 0), &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }
  int Reported() const { return reported_; }

 private:
  [[noreturn]] static void SaveForEver(const std::string& folder, int version, int reports) {
    CallsWithoutFlush calls;
    WholeProgram program(folder, calls);
    program.Start();
    for (int reported = version - 1;; reported = version++) {
      if (program.Ended() || !program.Boxes().empty()) ::_exit(1);
      if (::write(reports, &reported, sizeof reported) != sizeof reported) ::_exit(1);
      program.Change(version);
      program.Save();
    }
  }

  pid_t process_ = 0;
  int reports_ = -1;
  int reported_ = 0;
};

TEST_F(KilledProgramTest, IsWholeAtWhateverMomentItIsKilled) {
  using Time = std::chrono::steady_clock;
  std::mt19937 random(kSeed);
  Time::duration save{};
  int stored = 0;
  int listed = 0;
  for (int kill = 0; kill < kKills; ++kill) {
    SavingProcess process(folder_.Path(), stored + 1);
    // What it finds after the kill before, it starts from without a word.
    ASSERT_TRUE(process.AwaitReport()) << "no clean start after kill " << kill;
    if (kill % 50 == 0) {
      const auto begin = Time::now();
      ASSERT_TRUE(process.AwaitReport());
      save = Time::now() - begin;
    }
    std::this_thread::sleep_for(
        std::uniform_int_distribution<Time::rep>(0, 2 * save.count())(random) * Time::duration(1));
    ASSERT_TRUE(process.Kill());
    while (process.AwaitReport()) continue;
    const int saved = process.Reported();
    const bool any = saved > stored;
    const auto stored_now = StoredVersion(saved, saved + 1);
    ASSERT_TRUE(stored_now) << BytesOf(StoreFile());
    // The settings are saved first, then the contacts.
    const auto listed_now = ContactsVersion(any ? saved : listed, *stored_now);
    ASSERT_TRUE(listed_now);
    stored = *stored_now;
    listed = *listed_now;
  }
  ExpectCleanStart();
  ExpectNothingLeft();
}

// Every system call of a save in turn is the one that the process does not live to make.
TEST_F(KilledProgramTest, IsWholeWhicheverFileCallIsItsLast) {
  FailingFileCalls calls;
  WholeProgram program(folder_.Path(), calls);
  program.Start();
  program.Change(1);
  bool died = true;
  for (int call = 1; died; ++call) {
    PutBack();
    const pid_t process = ::fork();
    ASSERT_GE(process, 0);
    if (process == 0) {
      calls.dies = true;
      calls.failing = calls.Count() + call;
      program.Save();
      ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(process, &status, 0), process);
    ASSERT_TRUE(WIFEXITED(status));
    died = WEXITSTATUS(status) == 0;
    const auto stored = StoredVersion(0, 1);
    ASSERT_TRUE(stored) << "call " << call;
    ASSERT_TRUE(ContactsVersion(0, *stored)) << "call " << call;
    if (!died) {
      EXPECT_EQ(ContactsVersion(0, 1), 1);
    }
    ExpectCleanStart();
  }
  EXPECT_EQ(program.Boxes(), Names());
  ExpectNothingLeft();
}

}  // namespace
}  // namespace brenwick
