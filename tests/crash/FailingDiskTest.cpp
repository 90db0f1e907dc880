// A disk that fails while the whole program saves or starts: the user is told, and nothing that was
// there is lost.

#include <cerrno>
#include <filesystem>
#include <tuple>

#include "crash/WholeProgram.h"
#include "support/FailingFileCalls.h"

namespace brenwick {
namespace {

using Names = std::vector<std::string>;

void ExpectErrorReport(const WholeProgram& program) {
  ASSERT_FALSE(program.Boxes().empty());
  EXPECT_EQ(program.Boxes().front().find("Error ("), 0U) << program.Boxes().front();
  EXPECT_TRUE(program.Ended());
}

class FailingSaveTest : public UsedProgram, public testing::WithParamInterface<int> {
 protected:
  // The numbers of a save's calls that bring bytes to the disk, counted from its first call.
  std::vector<int> CallsOfSave() {
    FailingFileCalls calls;
    WholeProgram program(folder_.Path(), calls);
    program.Start();
    program.Change(1);
    const int before = calls.Count();
    program.Save();
    std::vector<int> numbers;
    for (int number = before; number < calls.Count(); ++number) {
      const std::string& name = calls.CallNames()[static_cast<std::size_t>(number)];
      if (name == "Write" || name == "Fsync" || name == "Rename") {
        numbers.push_back(number - before + 1);
      }
    }
    return numbers;
  }

  void ExpectWholeFiles() const {
    EXPECT_TRUE(StoredVersion(0, 1)) << BytesOf(StoreFile());
    EXPECT_TRUE(ContactsVersion(0, 1));
    ExpectNoLeftovers();
  }
};

TEST_P(FailingSaveTest, IsToldAndLosesNothing) {
  const std::vector<int> numbers = CallsOfSave();
  ASSERT_GE(numbers.size(), 10U);
  for (const int number : numbers) {
    PutBack();
    FailingFileCalls calls;
    calls.error = GetParam();
    {
      WholeProgram program(folder_.Path(), calls);
      program.Start();
      program.Change(1);
      calls.failing = calls.Count() + number;
      program.Save();
      SCOPED_TRACE(calls.Failed() + ", call " + std::to_string(number));
      ExpectErrorReport(program);
      ExpectWholeFiles();
    }
    ExpectCleanStart();
  }
}

// The save that the error report makes on its way out fails as well.
TEST_P(FailingSaveTest, KeepsTheOldFilesWhereEachTryFails) {
  for (const char* name : {"Write", "Fsync", "Rename"}) {
    SCOPED_TRACE(name);
    PutBack();
    FailingFileCalls calls;
    calls.error = GetParam();
    {
      WholeProgram program(folder_.Path(), calls);
      program.Start();
      program.Change(1);
      calls.always = name;
      program.Save();
      ASSERT_FALSE(program.Boxes().empty());
      EXPECT_TRUE(program.Ended());
    }
    EXPECT_EQ(StoredVersion(0, 1), 0);
    EXPECT_EQ(ContactsVersion(0, 1), 0);
    ExpectWholeFiles();
    ExpectCleanStart();
  }
}

std::string NameOfError(const testing::TestParamInfo<int>& tested) {
  return tested.param == ENOSPC ? "ENOSPC" : tested.param == EACCES ? "EACCES" : "EIO";
}

INSTANTIATE_TEST_SUITE_P(, FailingSaveTest, testing::Values(ENOSPC, EACCES, EIO), NameOfError);

// The calls of one file fail: opening it to read, or reading it from the given time on.
class UnreadableFile : public FileCalls {
 public:
  UnreadableFile(std::string path, int reads, int error)
      : path_(std::move(path)), reads_(reads), error_(error) {}

  int Open(const std::string& path, OpenMode mode) override {
    const bool meant = path == path_ && mode == OpenMode::Read;
    if (meant && reads_ == 0) return Fail();
    const int descriptor = FileCalls::Open(path, mode);
    if (meant) descriptor_ = descriptor;
    return descriptor;
  }
  std::ptrdiff_t Read(int descriptor, void* bytes, std::size_t count) override {
    if (descriptor == descriptor_ && --reads_ == 0) return Fail();
    return FileCalls::Read(descriptor, bytes, count);
  }
  int Close(int descriptor) override {
    if (descriptor == descriptor_) descriptor_ = -1;
    return FileCalls::Close(descriptor);
  }

 private:
  int Fail() const {
    errno = error_;
    return -1;
  }

  std::string path_;
  int reads_;
  int error_;
  int descriptor_ = -1;
};

// The number of the read that fails (0: the opening), and what it fails with.
class UnreadableContactsTest : public UsedProgram,
                               public testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(UnreadableContactsTest, AreToldAndStayUntouched) {
  const Names before = NamesIn(DataFolder());
  {
    UnreadableFile calls(ContactFile(), std::get<0>(GetParam()), std::get<1>(GetParam()));
    WholeProgram program(folder_.Path(), calls);
    program.Start();
    ExpectErrorReport(program);
  }
  EXPECT_EQ(ContactsVersion(0, 0), 0);
  EXPECT_EQ(StoredVersion(0, 0), 0);
  EXPECT_EQ(NamesIn(DataFolder()), before);
  ExpectCleanStart();
}

INSTANTIATE_TEST_SUITE_P(, UnreadableContactsTest,
                         testing::Combine(testing::Values(0, 1, 5), testing::Values(EACCES, EIO)));

class DamagedFilesTest : public UsedProgram {
 protected:
  std::string Kept() const { return ContactFile() + ".damaged-2004-01-10"; }
  // The list up to the middle of its last contact but one.
  static std::string Truncated() {
    const std::string content = ContactsOf(0);
    return content.substr(0, content.find("Own " + std::to_string(kContacts - 1)));
  }
  static std::string BeforeTheCut() {
    const std::string content = ContactsOf(0);
    return content.substr(0, content.find(EmailOf(kContacts - 1)));
  }
};

TEST_F(DamagedFilesTest, ATruncatedContactListIsKeptUnderANameWithTheDate) {
  for (const std::string& kept : {Kept(), Kept() + "-2"}) {
    SetBytes(ContactFile(), Truncated());
    CallsWithoutFlush calls;
    {
      WholeProgram program(folder_.Path(), calls);
      program.Start();
      ExpectErrorReport(program);
      EXPECT_NE(program.Boxes().front().find("Input past end of file"), std::string::npos);
    }
    EXPECT_TRUE(BytesOf(kept) == Truncated());
    EXPECT_TRUE(BytesOf(ContactFile()) == BeforeTheCut());
    ExpectCleanStart();
  }
  EXPECT_TRUE(BytesOf(Kept()) == Truncated());
}

// Where it cannot be kept, it stays what it is.
TEST_F(DamagedFilesTest, ATruncatedContactListThatCannotBeKeptStaysUntouched) {
  for (const int error : {ENOSPC, EACCES, EIO}) {
    for (const char* name : {"Fsync", "Rename"}) {
      SCOPED_TRACE(std::string(name) + " " + std::to_string(error));
      SetBytes(ContactFile(), Truncated());
      FailingFileCalls calls;
      calls.error = error;
      calls.always = name;
      {
        WholeProgram program(folder_.Path(), calls);
        program.Start();
        ExpectErrorReport(program);
      }
      EXPECT_TRUE(BytesOf(ContactFile()) == Truncated());
      EXPECT_FALSE(std::filesystem::exists(Kept()));
      ExpectNoLeftovers();
    }
  }
}

// The first start with an empty store fills it, and saves on the way.
TEST_F(DamagedFilesTest, ALostSettingsFileCostsNoContact) {
  std::filesystem::remove(StoreFile());
  std::filesystem::remove(StoreFile() + ".bak");
  CallsWithoutFlush calls;
  {
    WholeProgram program(folder_.Path(), calls);
    program.Start();
    EXPECT_EQ(program.Boxes(), Names());
    EXPECT_EQ(ContactsVersion(0, 0), 0);
    program.Close();
  }
  EXPECT_EQ(ContactsVersion(0, 0), 0);
}

TEST_F(DamagedFilesTest, ADamagedSettingsFileCostsNoContact) {
  std::filesystem::remove(StoreFile() + ".bak");
  SetBytes(StoreFile(), "[General\n");
  CallsWithoutFlush calls;
  {
    WholeProgram program(folder_.Path(), calls);
    program.Start();
    program.Close();
  }
  EXPECT_EQ(BytesOf(StoreFile() + ".damaged-2004-01-10"), "[General\n");
  EXPECT_EQ(ContactsVersion(0, 0), 0);
}

}  // namespace
}  // namespace brenwick
