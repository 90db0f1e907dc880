#include "files/IniStore.h"

#include <filesystem>

#include "files/IniFormat.h"
#include "support/IniStoreFixture.h"

namespace brenwick {
namespace {

class IniStoreTest : public IniStoreFixture {};

TEST_F(IniStoreTest, WritesAFileThatAPersonCanRead) {
  IniStore store = Store();
  store.WriteValue(kKey, "Introduce", Text("1"));
  store.WriteValue(kKey, "Path", {ValueKind::ExpandableText, "%HOME%/x", 0});
  store.WriteValue("Software\\Brenwick", "Left", {ValueKind::Number, {}, 300});
  store.WriteValue("Software\\Brenwick\\Voices", "Male Voice", Text("\"Mike\"\n"));
  store.WriteValue("Odd]", "=", {ValueKind::Bytes, std::string("\0\xFF", 2), 0});
  store.WriteValue("", "root", {ValueKind::TextList, std::string("a\0", 2), 0});
  store.WriteValue("Odd]", "b", {ValueKind::BigEndianNumber, "\1", 0});
  store.CreateKey("Empty");
  EXPECT_EQ(BytesOf(File()),
            "# The settings of Brenwick. Change them only while it does not run.\n"
            "root = multi:\"a\\x00\"\n"
            "\n[Empty]\n"
            "\n[\"Odd]\"]\n"
            "\"=\" = hex:00 ff\n"
            "b = hex(5):01\n"
            "\n[Software\\Brenwick]\n"
            "Left = dword:300\n"
            "\n[Software\\Brenwick\\General]\n"
            "Introduce = \"1\"\n"
            "Path = expand:\"%HOME%/x\"\n"
            "\n[Software\\Brenwick\\Voices]\n"
            "Male Voice = \"\\\"Mike\\\"\\n\"\n");
  EXPECT_TRUE(told_.empty());
}

TEST_F(IniStoreTest, ReadsAFileThatAPersonHasChanged) {
  SetBytes(File(),
           "\xEF\xBB\xBF; mine\r\n"
           "\r\n"
           "[ software\\brenwick\\GENERAL ] # the first page\r\n"
           "  Introduce=\"0\"   # off\r\n"
           "ShowStartupScreen = 1\n"
           "\t\"Debug\"\t=\t\"a # b\" ; c\n"
           "Says = \"C:\\Dir \\x41\\xe9 \\q\\\\n\"\n"
           "[Software\\Brenwick]\n"
           "Left = dword:-300\n"
           "Blob = hex: 00FF 0a # bytes\n"
           "[Software\\Brenwick\\General]\n"
           "Introduce = \"2\"\n"
           "Latin = \"Gr\xFC\xDF"
           "e\"");
  IniStore store = Store();
  EXPECT_EQ(store.ReadValue(kKey, "Introduce"), Text("2"));
  EXPECT_EQ(store.ReadValue(kKey, "ShowStartupScreen"), Text("1"));
  EXPECT_EQ(store.ReadValue(kKey, "Debug"), Text("a # b"));
  EXPECT_EQ(store.ReadValue(kKey, "Says"), Text("C:\\Dir Aé \\q\\n"));
  EXPECT_EQ(store.ReadValue(kKey, "Latin"), Text("Grüße"));
  EXPECT_EQ(store.ReadValue("Software\\Brenwick", "Left"),
            (RegistryValue{ValueKind::Number, {}, -300}));
  EXPECT_EQ(store.ReadValue("Software\\Brenwick", "Blob"),
            (RegistryValue{ValueKind::Bytes, std::string("\0\xFF\n", 3), 0}));
  EXPECT_TRUE(told_.empty());
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_EQ(Store().ReadValue(kKey, "Latin"), Text("Grüße"));
}

TEST_F(IniStoreTest, MakesItsFolderAndKeepsAllPrivate) {
  const std::string file = folder_.Inside("config/brenwick/store.ini");
  IniStore store(file, clock_, [](const std::string&) {});
  EXPECT_TRUE(folder_.Names().empty());
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("1")));
  EXPECT_TRUE(store.WriteValue(kKey, "Mute", Text("0")));
  const auto mode = [](const std::string& path) {
    return static_cast<unsigned>(std::filesystem::status(path).permissions());
  };
  EXPECT_EQ(mode(folder_.Inside("config")), 0700U);
  EXPECT_EQ(mode(folder_.Inside("config/brenwick")), 0700U);
  for (const char* end : {"", ".bak", ".lock"}) EXPECT_EQ(mode(file + end), 0600U) << end;
}

TEST_F(IniStoreTest, LeavesTheFileAloneWhereNothingChanges) {
  WriteTwoVersions();
  const std::string by_hand = "# my own line\n" + BytesOf(File());
  SetBytes(File(), by_hand);
  FailingFileCalls calls;
  calls.always = "Write";
  IniStore store = Store(calls);
  EXPECT_TRUE(store.WriteValue(kKey, "VERSION", Text("file")));
  EXPECT_TRUE(store.CreateKey("software"));
  EXPECT_FALSE(store.DeleteValue(kKey, "Mute"));
  {
    Batch batch(store);
    EXPECT_TRUE(store.WriteValue(kKey, "Version", Text("other")));
    EXPECT_TRUE(store.WriteValue(kKey, "Version", Text("file")));
    EXPECT_TRUE(batch.Flush());
  }
  EXPECT_EQ(BytesOf(File()), by_hand);
}

TEST_F(IniStoreTest, KeepsTheVersionBeforeAsBackup) {
  WriteTwoVersions();
  EXPECT_EQ(FromIni(BytesOf(Backup()))->Find(kKey, "Version"), Text("backup"));
  EXPECT_EQ(FromIni(BytesOf(File()))->Find(kKey, "Version"), Text("file"));
}

TEST_F(IniStoreTest, StoresABatchWithOneReplacement) {
  FailingFileCalls calls;
  IniStore store = Store(calls);
  store.WriteValue(kKey, "first", Text("1"));
  const int before_one = calls.Count();
  store.WriteValue(kKey, "second", Text("1"));
  const int one = calls.Count() - before_one;
  const int before_batch = calls.Count();
  Batch batch(store);
  for (int i = 0; i < 40; ++i) store.WriteValue(kKey, std::to_string(i), Text("1"));
  EXPECT_EQ(calls.Count(), before_batch);
  EXPECT_TRUE(batch.Flush());
  EXPECT_EQ(calls.Count() - before_batch, one);
}

// Whichever call fails, the change is stored and reported so, or the store holds what it held.
TEST_F(IniStoreTest, HoldsAllOfABatchOrNothingWhicheverCallFails) {
  for (int number = 1;; ++number) {
    const TemporaryFolder folder;
    const std::string file = folder.Inside("store.ini");
    const auto tell = [](const std::string&) {};
    IniStore(file, clock_, tell).WriteValue(kKey, "a", Text("old"));
    FailingFileCalls calls;
    IniStore store(file, clock_, tell, calls);
    calls.failing = calls.Count() + number;
    store.Hold();
    EXPECT_TRUE(store.WriteValue(kKey, "a", Text("new")));
    EXPECT_TRUE(store.WriteValue(kKey, "b", Text("new")));
    const bool stored = store.Flush();
    SCOPED_TRACE(calls.Failed());
    IniStore another(file, clock_, tell);
    for (IniStore* each : {&store, &another}) {
      EXPECT_EQ(each->ReadValue(kKey, "a"), Text(stored ? "new" : "old"));
      EXPECT_EQ(each->ReadValue(kKey, "b").has_value(), stored);
    }
    if (calls.Failed().empty()) {
      EXPECT_TRUE(stored);
      EXPECT_GT(number, 12);
      return;
    }
    calls.failing = 0;
    EXPECT_TRUE(store.WriteValue(kKey, "c", Text("later")));
  }
}

TEST_F(IniStoreTest, KeepsWhatAnotherStoreWrote) {
  IniStore one = Store();
  IniStore two = Store();
  EXPECT_TRUE(one.WriteValue(kKey, "one", Text("1")));
  EXPECT_TRUE(two.WriteValue(kKey, "two", Text("2")));
  EXPECT_EQ(one.ReadValue(kKey, "two"), Text("2"));
  EXPECT_EQ(two.ReadValue(kKey, "one"), Text("1"));
  {
    const Batch batch(one);
    one.WriteValue(kKey, "one", Text("held"));
    two.WriteValue(kKey, "two", Text("meanwhile"));
    EXPECT_EQ(one.ReadValue(kKey, "two"), Text("2"));
  }
  IniStore three = Store();
  for (IniStore* store : {&one, &two, &three}) {
    EXPECT_EQ(store->ReadValue(kKey, "one"), Text("held"));
    EXPECT_EQ(store->ReadValue(kKey, "two"), Text("meanwhile"));
  }
}

TEST_F(IniStoreTest, FollowsALinkToItsFile) {
  std::filesystem::create_directory(folder_.Inside("dotfiles"));
  SetBytes(folder_.Inside("dotfiles/mine.ini"), "[a]\nb = \"1\"\n");
  std::filesystem::create_symlink("dotfiles/mine.ini", File());
  IniStore store = Store();
  EXPECT_TRUE(store.WriteValue("a", "b", Text("2")));
  EXPECT_TRUE(std::filesystem::is_symlink(File()));
  SetBytes(folder_.Inside("dotfiles/mine.ini"), "garbage");
  EXPECT_EQ(Store().ReadValue("a", "b"), Text("1"));
}

}  // namespace
}  // namespace brenwick
