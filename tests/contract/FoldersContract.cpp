#include "contract/FoldersContract.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/Failure.h"
#include "files/SystemFolders.h"

namespace brenwick {
namespace {

std::vector<FoldersImplementation> Implementations() {
  return {
      {"Posix",
       [](const std::string& root) {
         return std::make_unique<SystemFolders>(
             FolderPaths{root + "/Docs", root + "/program", root + "/program/brenwick"});
       }},
  };
}

template <typename Call>
std::int32_t FailureOf(const Call& call) {
  try {
    call();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

TEST_P(FoldersContract, MakesTheDocumentsFolder) {
  const std::string folder = folders_->DocumentsFolder();
  EXPECT_EQ(folder, At("Docs"));
  EXPECT_TRUE(folders_->FolderExists(folder));
  EXPECT_EQ(folders_->DocumentsFolder(), folder);
}

TEST_P(FoldersContract, NamesTheProgram) {
  EXPECT_EQ(folders_->ProgramFolder(), At("program"));
  EXPECT_EQ(folders_->ProgramFile(),
            folders_->ProgramFolder() + folders_->Separator() + "brenwick");
}

TEST_P(FoldersContract, TellsFilesFromFolders) {
  folders_->CreateFolder(At("folder"));
  folders_->Append(At("file"), "x");
  EXPECT_TRUE(folders_->FolderExists(At("folder")));
  EXPECT_FALSE(folders_->FileExists(At("folder")));
  EXPECT_TRUE(folders_->FileExists(At("file")));
  EXPECT_FALSE(folders_->FolderExists(At("file")));
  for (const std::string& missing : {At("none"), At("none/none"), At("file/none"), std::string()}) {
    EXPECT_FALSE(folders_->FileExists(missing)) << missing;
    EXPECT_FALSE(folders_->FolderExists(missing)) << missing;
  }
}

TEST_P(FoldersContract, AppendsAndReadsEveryByte) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  folders_->Append(At("log"), bytes);
  folders_->Append(At("log"), "");
  folders_->Append(At("log"), "\r\n");
  EXPECT_EQ(folders_->Read(At("log")), bytes + "\r\n");
  const std::string much(300'000, 'x');
  folders_->Append(At("much"), much);
  EXPECT_EQ(folders_->Read(At("much")), much);
}

TEST_P(FoldersContract, AppendingNothingMakesAnEmptyFile) {
  folders_->Append(At("log"), "");
  EXPECT_TRUE(folders_->FileExists(At("log")));
  EXPECT_EQ(folders_->Read(At("log")), "");
}

TEST_P(FoldersContract, ReplacesAWholeFile) {
  folders_->Replace(At("list"), "a longer content");
  EXPECT_EQ(folders_->Read(At("list")), "a longer content");
  folders_->Replace(At("list"), std::string_view("a\0b", 3));
  EXPECT_EQ(folders_->Read(At("list")), std::string("a\0b", 3));
  folders_->Replace(At("list"), "");
  EXPECT_EQ(folders_->Read(At("list")), "");
  EXPECT_EQ(folders_->FileNames(root_.Path()), std::vector<std::string>{"list"});
}

TEST_P(FoldersContract, DeletesAFile) {
  folders_->Append(At("log"), "x");
  folders_->Delete(At("log"));
  EXPECT_FALSE(folders_->FileExists(At("log")));
}

TEST_P(FoldersContract, ListsFilesAndNoFolders) {
  EXPECT_TRUE(folders_->FileNames(root_.Path()).empty());
  EXPECT_TRUE(folders_->FileNames(At("none")).empty());
  folders_->CreateFolder(At("folder"));
  for (const std::string name : {"b.TML", "a.tml", ".hidden", "Ελληνικά.TML", "no dot"}) {
    folders_->Append(At(name), name);
  }
  std::vector<std::string> names = folders_->FileNames(root_.Path());
  EXPECT_EQ(folders_->FileNames(root_.Path()), names);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names,
            (std::vector<std::string>{".hidden", "a.tml", "b.TML", "no dot", "Ελληνικά.TML"}));
  for (const std::string& name : names) EXPECT_EQ(folders_->Read(At(name)), name);
}

TEST_P(FoldersContract, MakesOneFolderAtATime) {
  EXPECT_EQ(FailureOf([&] { folders_->CreateFolder(At("none/folder")); }), kPathNotFound);
  EXPECT_FALSE(folders_->FolderExists(At("none")));
  EXPECT_EQ(FailureOf([&] { folders_->CreateFolder(""); }), kPathNotFound);
  folders_->CreateFolder(At("folder"));
  EXPECT_EQ(FailureOf([&] { folders_->CreateFolder(At("folder")); }), kPathFileAccess);
  folders_->Append(At("file"), "x");
  EXPECT_EQ(FailureOf([&] { folders_->CreateFolder(At("file")); }), kPathFileAccess);
  EXPECT_EQ(FailureOf([&] { folders_->CreateFolder(At("file/folder")); }), kPathNotFound);
}

TEST_P(FoldersContract, RaisesFileNotFoundInAFolderThatExists) {
  EXPECT_EQ(FailureOf([&] { folders_->Read(At("none")); }), kFileNotFound);
  EXPECT_EQ(FailureOf([&] { folders_->Delete(At("none")); }), kFileNotFound);
}

TEST_P(FoldersContract, RaisesPathNotFoundWhereTheFolderIsMissing) {
  folders_->Append(At("file"), "x");
  for (const std::string& path : {At("none/file"), At("file/file")}) {
    EXPECT_EQ(FailureOf([&] { folders_->Read(path); }), kPathNotFound);
    EXPECT_EQ(FailureOf([&] { folders_->Append(path, "x"); }), kPathNotFound);
    EXPECT_EQ(FailureOf([&] { folders_->Replace(path, "x"); }), kPathNotFound);
    EXPECT_EQ(FailureOf([&] { folders_->Delete(path); }), kPathNotFound);
  }
  EXPECT_EQ(folders_->Read(At("file")), "x");
}

TEST_P(FoldersContract, RaisesPathFileAccessForAFolderInPlaceOfAFile) {
  folders_->CreateFolder(At("folder"));
  EXPECT_EQ(FailureOf([&] { folders_->Read(At("folder")); }), kPathFileAccess);
  EXPECT_EQ(FailureOf([&] { folders_->Append(At("folder"), "x"); }), kPathFileAccess);
  EXPECT_EQ(FailureOf([&] { folders_->Replace(At("folder"), "x"); }), kPathFileAccess);
  EXPECT_EQ(FailureOf([&] { folders_->Delete(At("folder")); }), kPathFileAccess);
  EXPECT_TRUE(folders_->FolderExists(At("folder")));
  EXPECT_TRUE(folders_->FileNames(root_.Path()).empty());
}

INSTANTIATE_TEST_SUITE_P(Each, FoldersContract, testing::ValuesIn(Implementations()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brenwick
