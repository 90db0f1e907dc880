// Files of the settings store that are damaged or cannot be read.
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "files/IniFormat.h"
#include "support/IniStoreFixture.h"

namespace brenwick {
namespace {

using Names = std::vector<std::string>;

class IniStoreDamageTest : public IniStoreFixture {};

TEST_F(IniStoreDamageTest, SetsADamagedFileAsideAndTakesTheBackup) {
  for (const std::string& damaged : {std::string("[Software\\Bren"), std::string(512, '\0'),
                                     std::string("\x7F"
                                                 "ELF\x02\x01\n"),
                                     std::string()}) {
    told_.clear();
    for (const std::string& name : folder_.Names()) std::filesystem::remove(folder_.Inside(name));
    WriteTwoVersions();
    SetBytes(File(), damaged);
    IniStore store = Store();
    EXPECT_EQ(store.ReadValue(kKey, "Version"), Text("backup"));
    ASSERT_EQ(told_.size(), 1U);
    EXPECT_NE(told_[0].find(Damaged()), std::string::npos) << told_[0];
    EXPECT_EQ(BytesOf(Damaged()), damaged);
    EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
    EXPECT_EQ(Store().ReadValue(kKey, "Version"), Text("backup"));
    EXPECT_EQ(told_.size(), 1U);
    EXPECT_EQ(folder_.Names(), (Names{"store.ini", "store.ini.bak", "store.ini.damaged-2004-01-10",
                                      "store.ini.lock"}));
  }
}

TEST_F(IniStoreDamageTest, StartsEmptyWhereTheBackupIsDamagedToo) {
  WriteTwoVersions();
  SetBytes(File(), "garbage");
  SetBytes(Backup(), "more garbage");
  IniStore store = Store();
  EXPECT_TRUE(store.SubKeys("").empty());
  EXPECT_EQ(told_.size(), 1U);
  EXPECT_EQ(BytesOf(Damaged()), "garbage");
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_EQ(Store().ReadValue(kKey, "Mute"), Text("1"));
}

TEST_F(IniStoreDamageTest, NeverOverwritesWhatWasSetAsideBefore) {
  for (const std::string damaged : {"first", "second", "third"}) {
    SetBytes(File(), damaged);
    Store();
  }
  EXPECT_EQ(BytesOf(Damaged()), "first");
  EXPECT_EQ(BytesOf(Damaged() + "-2"), "second");
  EXPECT_EQ(BytesOf(Damaged() + "-3"), "third");
  EXPECT_EQ(told_.size(), 3U);
}

TEST_F(IniStoreDamageTest, KeepsADamagedFileThatCannotBeSetAside) {
  WriteTwoVersions();
  SetBytes(File(), "garbage");
  FailingFileCalls calls;
  calls.always = "Write";
  IniStore store = Store(calls);
  EXPECT_EQ(store.ReadValue(kKey, "Version"), Text("backup"));
  EXPECT_FALSE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_FALSE(store.WriteValue(kKey, "Mute", Text("2")));
  EXPECT_EQ(told_.size(), 1U);
  EXPECT_EQ(BytesOf(File()), "garbage");
  EXPECT_EQ(folder_.Names(), (Names{"store.ini", "store.ini.bak", "store.ini.lock"}));
  calls.always = "";
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_EQ(BytesOf(Damaged()), "garbage");
}

// Whichever call fails or is the last one, the damaged bytes lie in the file or in their copy.
TEST_F(IniStoreDamageTest, NeverLosesADamagedFileWhicheverCallFails) {
  const auto run = [](int number, bool dies) {
    const TemporaryFolder folder;
    const std::string file = folder.Inside("store.ini");
    SetBytes(file, "garbage");
    SetBytes(file + ".bak", "a = \"1\"\n");
    TestClock clock;
    const auto start = [&](FileCalls& calls) {
      IniStore(
          file, clock, [](const auto&) {}, calls);
    };
    FailingFileCalls calls;
    calls.failing = number;
    calls.dies = dies;
    const pid_t child = dies ? ::fork() : 0;
    if (child == 0) start(calls);
    if (child == 0 && dies) ::_exit(1);
    int status = 0;
    EXPECT_TRUE(!dies || ::waitpid(child, &status, 0) == child);
    const std::string copy = file + ".damaged-2004-01-10";
    const std::string bytes = BytesOf(file);
    EXPECT_TRUE(bytes == "garbage" || FromIni(bytes)) << number;
    EXPECT_TRUE(bytes == "garbage" || BytesOf(copy) == "garbage") << number;
    start(SystemCalls());
    EXPECT_EQ(FromIni(BytesOf(file))->Find("", "a"), Text("1")) << number;
    EXPECT_EQ(BytesOf(copy), "garbage") << number;
    return dies ? WEXITSTATUS(status) == 0 : !calls.Failed().empty();
  };
  for (const bool dies : {false, true}) {
    int number = 1;
    while (run(number, dies)) ++number;
    EXPECT_GT(number, 20);
  }
}

TEST_F(IniStoreDamageTest, TakesTheBackupWhereTheFileTurnsOutToBeDamagedLater) {
  WriteTwoVersions();
  SetBytes(File(), "garbage");
  FailingFileCalls calls;
  calls.always = "Open";
  IniStore store = Store(calls);
  calls.always = "";
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_EQ(store.ReadValue(kKey, "Version"), Text("backup"));
  EXPECT_EQ(BytesOf(Damaged()), "garbage");
}

TEST_F(IniStoreDamageTest, GoesOnWithWhatItHoldsWhereTheFileIsDamagedMeanwhile) {
  WriteTwoVersions();
  IniStore store = Store();
  SetBytes(File(), "garbage");
  EXPECT_EQ(store.ReadValue(kKey, "Version"), Text("file"));
  EXPECT_EQ(BytesOf(File()), "garbage");
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_EQ(BytesOf(Damaged()), "garbage");
  EXPECT_EQ(told_.size(), 1U);
  IniStore another = Store();
  EXPECT_EQ(another.ReadValue(kKey, "Version"), Text("file"));
  EXPECT_EQ(another.ReadValue(kKey, "Mute"), Text("1"));
}

TEST_F(IniStoreDamageTest, StoresNothingWhileTheFileCannotBeRead) {
  WriteTwoVersions();
  const std::string bytes = BytesOf(File());
  FailingFileCalls calls;
  calls.always = "Open";
  calls.error = EACCES;
  IniStore store = Store(calls);
  ASSERT_EQ(told_.size(), 1U);
  EXPECT_NE(told_[0].find("Permission denied"), std::string::npos) << told_[0];
  EXPECT_FALSE(store.ReadValue(kKey, "Version"));
  EXPECT_FALSE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_FALSE(store.CreateKey("Other"));
  EXPECT_EQ(told_.size(), 1U);
  EXPECT_EQ(BytesOf(File()), bytes);
  calls.always = "";
  EXPECT_EQ(store.ReadValue(kKey, "Version"), Text("file"));
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
}

TEST_F(IniStoreDamageTest, TakesAFolderInItsPlaceForAFileThatCannotBeRead) {
  std::filesystem::create_directory(File());
  IniStore store = Store();
  EXPECT_EQ(told_.size(), 1U);
  EXPECT_FALSE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_TRUE(std::filesystem::is_directory(File()));
}

TEST_F(IniStoreDamageTest, AnEmptyFileWithoutABackupIsAnEmptyStore) {
  SetBytes(File(), "");
  IniStore store = Store();
  EXPECT_TRUE(store.SubKeys("").empty());
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_TRUE(told_.empty());
}

}  // namespace
}  // namespace brenwick
