#include "files/SystemFolders.h"

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>

#include "base/Failure.h"
#include "linux/XdgFolders.h"
#include "support/FailingFileCalls.h"
#include "support/TemporaryFolder.h"

namespace brenwick {
namespace {

mode_t ModeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 0777;
}

// What the work raises when every call of that name fails with that error.
template <typename Work>
std::int32_t FailureAfter(const std::string& call, int error, const Work& work) {
  const TemporaryFolder root;
  FailingFileCalls calls;
  calls.always = call;
  calls.error = error;
  SystemFolders folders({root.Inside("Docs"), "", ""}, calls);
  try {
    work(folders, root.Inside("file"));
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

const auto kReads = [](Folders& folders, const std::string& path) { folders.Read(path); };
const auto kAppends = [](Folders& folders, const std::string& path) { folders.Append(path, "x"); };
const auto kReplaces = [](Folders& folders, const std::string& path) {
  folders.Replace(path, "x");
};
const auto kDeletes = [](Folders& folders, const std::string& path) { folders.Delete(path); };
const auto kCreates = [](Folders& folders, const std::string& path) { folders.CreateFolder(path); };
const auto kAsks = [](Folders& folders, const std::string&) { folders.DocumentsFolder(); };

TEST(SystemFolders, RaisesPermissionDenied) {
  for (const int error : {EACCES, EPERM, EROFS}) {
    EXPECT_EQ(FailureAfter("Open", error, kReads), kPermissionDenied);
    EXPECT_EQ(FailureAfter("Open", error, kAppends), kPermissionDenied);
    EXPECT_EQ(FailureAfter("Open", error, kReplaces), kPermissionDenied);
    EXPECT_EQ(FailureAfter("Rename", error, kReplaces), kPermissionDenied);
    EXPECT_EQ(FailureAfter("Unlink", error, kDeletes), kPermissionDenied);
    EXPECT_EQ(FailureAfter("Mkdir", error, kCreates), kPermissionDenied);
    EXPECT_EQ(FailureAfter("Mkdir", error, kAsks), kPermissionDenied);
  }
}

TEST(SystemFolders, RaisesPathFileAccessForEveryOtherError) {
  for (const int error : {EEXIST, EISDIR, ENOSPC, EMFILE, EIO, ELOOP, ENAMETOOLONG, EDQUOT}) {
    EXPECT_EQ(FailureAfter("Open", error, kReads), kPathFileAccess);
    EXPECT_EQ(FailureAfter("Open", error, kAppends), kPathFileAccess);
    EXPECT_EQ(FailureAfter("Write", error, kAppends), kPathFileAccess);
    EXPECT_EQ(FailureAfter("Close", error, kAppends), kPathFileAccess);
    EXPECT_EQ(FailureAfter("Fsync", error, kReplaces), kPathFileAccess);
    EXPECT_EQ(FailureAfter("Unlink", error, kDeletes), kPathFileAccess);
    EXPECT_EQ(FailureAfter("Mkdir", error, kCreates), kPathFileAccess);
  }
}

TEST(SystemFolders, RaisesAFailedReadOfAFileThatOpens) {
  const TemporaryFolder root;
  SetBytes(root.Inside("file"), "x");
  FailingFileCalls calls;
  calls.always = "Read";
  SystemFolders folders({root.Path(), "", ""}, calls);
  EXPECT_THROW(folders.Read(root.Inside("file")), Failure);
}

TEST(SystemFolders, AppendsWithThreeCalls) {
  const TemporaryFolder root;
  FailingFileCalls calls;
  SystemFolders folders({root.Path(), "", ""}, calls);
  folders.Append(root.Inside("log"), std::string(20'000, 'x'));
  EXPECT_EQ(calls.Count(), 3);
}

TEST(SystemFolders, KeepsEverythingPrivate) {
  const TemporaryFolder root;
  SystemFolders folders({root.Inside("a/b/Docs/"), "", ""});
  EXPECT_EQ(folders.DocumentsFolder(), root.Inside("a/b/Docs"));
  folders.CreateFolder(root.Inside("folder"));
  folders.Append(root.Inside("log"), "x");
  folders.Replace(root.Inside("list"), "x");
  for (const char* name : {"a", "a/b", "a/b/Docs", "folder"}) {
    EXPECT_EQ(ModeOf(root.Inside(name)), 0700U) << name;
  }
  for (const char* name : {"log", "list"}) EXPECT_EQ(ModeOf(root.Inside(name)), 0600U) << name;
}

TEST(SystemFolders, ListsLinksToFilesAndLeavesOutWhatHasNoName) {
  const TemporaryFolder root;
  SystemFolders folders({root.Path(), "", ""});
  SetBytes(root.Inside("\xFF.tml"), "x");
  std::filesystem::create_directory(root.Inside("folder"));
  std::filesystem::create_symlink("\xFF.tml", root.Inside("link"));
  std::filesystem::create_symlink("folder", root.Inside("to folder"));
  std::filesystem::create_symlink("none", root.Inside("to nothing"));
  ASSERT_EQ(::mkfifo(root.Inside("pipe").c_str(), 0600), 0);
  EXPECT_EQ(folders.FileNames(root.Path()), std::vector<std::string>{"link"});
}

TEST(SystemFolders, RaisesWhereTheDocumentsFolderIsAFile) {
  const TemporaryFolder root;
  SetBytes(root.Inside("Docs"), "x");
  EXPECT_THROW(SystemFolders({root.Inside("Docs"), "", ""}).DocumentsFolder(), Failure);
  EXPECT_THROW(SystemFolders({root.Inside("Docs/below"), "", ""}).DocumentsFolder(), Failure);
}

// The variables that the desktop's folders come from, as the test sets them; at its end they are as
// they were.
class Environment {
 public:
  explicit Environment(const std::string& home) {
    Set("HOME", home);
    Set("XDG_CONFIG_HOME", "");
    Set("XDG_DOCUMENTS_DIR", "");
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() {
    for (const auto& [name, value] : before_) Put(name, value);
  }
  // An empty text removes the variable.
  void Set(const std::string& name, const std::string& value) {
    const char* const old = std::getenv(name.c_str());
    before_.insert(before_.begin(), {name, old == nullptr ? "" : old});
    Put(name, value);
  }

 private:
  static void Put(const std::string& name, const std::string& value) {
    if (value.empty()) {
      ::unsetenv(name.c_str());
    } else {
      ::setenv(name.c_str(), value.c_str(), 1);
    }
  }
  std::vector<std::pair<std::string, std::string>> before_;
};

TEST(XdgFolders, StandInTheHomeByDefault) {
  const Environment environment("/home/jane/");
  EXPECT_EQ(HomeFolder(), "/home/jane");
  EXPECT_EQ(XdgConfigHome(), "/home/jane/.config");
  EXPECT_EQ(XdgDocumentsFolder(), "/home/jane/Documents");
}

TEST(XdgFolders, FollowTheEnvironment) {
  Environment environment("/home/jane");
  environment.Set("XDG_CONFIG_HOME", "/etc/jane/");
  environment.Set("XDG_DOCUMENTS_DIR", "/srv/Documents/");
  EXPECT_EQ(XdgConfigHome(), "/etc/jane");
  EXPECT_EQ(XdgDocumentsFolder(), "/srv/Documents");
}

TEST(XdgFolders, IgnoreRelativePaths) {
  Environment environment("/home/jane");
  environment.Set("XDG_CONFIG_HOME", "config");
  environment.Set("XDG_DOCUMENTS_DIR", "Documents");
  EXPECT_EQ(XdgConfigHome(), "/home/jane/.config");
  EXPECT_EQ(XdgDocumentsFolder(), "/home/jane/Documents");
}

TEST(XdgFolders, AskTheSystemForAHomeThatIsMissing) {
  Environment environment("/home/jane");
  environment.Set("HOME", "");
  EXPECT_TRUE(HomeFolder().starts_with('/'));
  EXPECT_NE(HomeFolder(), "/home/jane");
}

TEST(XdgFolders, ReadTheDesktopsOwnFile) {
  const TemporaryFolder config;
  Environment environment("/home/jane");
  environment.Set("XDG_CONFIG_HOME", config.Path());
  SetBytes(config.Inside("user-dirs.dirs"),
           "# written by the desktop\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
  EXPECT_EQ(XdgDocumentsFolder(), "/home/jane/Dokumente");
}

TEST(XdgFolders, UnderstandTheDesktopsOwnFile) {
  const auto in = [](const char* line) { return DocumentsFolderIn(line, "/home/jane"); };
  EXPECT_EQ(in("XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Docs\\\" \\$1\""), "/home/jane/My \"Docs\" $1");
  EXPECT_EQ(in("  XDG_DOCUMENTS_DIR=\"/srv/Docs/\"  "), "/srv/Docs");
  EXPECT_EQ(in("XDG_DOCUMENTS_DIR=\"$HOME\""), "/home/jane");
  EXPECT_EQ(in("XDG_DOCUMENTS_DIR=\"$HOME/\""), "/home/jane");
  EXPECT_EQ(in("XDG_DOCUMENTS_DIR=\"/a\"\r\nXDG_DOCUMENTS_DIR=\"/b\"\r\n"), "/b");
  for (const char* none :
       {"", "#XDG_DOCUMENTS_DIR=\"/a\"", "XDG_MUSIC_DIR=\"/a\"", "XDG_DOCUMENTS_DIR=/a",
        "XDG_DOCUMENTS_DIR=\"a\"", "XDG_DOCUMENTS_DIR=\"$HOMES/a\"", "XDG_DOCUMENTS_DIR=\"\\"}) {
    EXPECT_FALSE(in(none)) << none;
  }
}

}  // namespace
}  // namespace brenwick
