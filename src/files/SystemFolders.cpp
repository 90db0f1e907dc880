#include "files/SystemFolders.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/Failure.h"
#include "base/Text.h"
#include "files/AtomicFile.h"

namespace brenwick {
namespace {

void RemoveSlashAtEnd(std::string& path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
}

int Errno(const std::error_code& error) { return error.default_error_condition().value(); }

// Whether an errno says that there is nothing of that name.
bool SaysNothingThere(int error) {
  return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
}

}  // namespace

SystemFolders::SystemFolders(FolderPaths paths, FileCalls& calls)
    : paths_(std::move(paths)), calls_(calls) {
  RemoveSlashAtEnd(paths_.documents_folder);
  RemoveSlashAtEnd(paths_.program_folder);
}

std::string SystemFolders::DocumentsFolder() {
  Raise(MakeFolders(calls_, paths_.documents_folder), paths_.documents_folder);
  return paths_.documents_folder;
}

bool SystemFolders::FileExists(const std::string& path) {
  return IsOfKind(path, std::filesystem::file_type::regular);
}

bool SystemFolders::FolderExists(const std::string& path) {
  return IsOfKind(path, std::filesystem::file_type::directory);
}

bool SystemFolders::IsOfKind(const std::string& path, std::filesystem::file_type kind) {
  std::error_code error;
  const std::filesystem::file_type found = std::filesystem::status(NativePath(path), error).type();
  if (found != std::filesystem::file_type::none) return found == kind;
  if (!SaysNothingThere(Errno(error))) Raise(Errno(error), path);
  return false;
}

void SystemFolders::CreateFolder(const std::string& path) {
  if (calls_.Mkdir(path) == 0) return;
  // What is missing for a folder is never a file.
  if (errno == ENOENT) throw Failure(kPathNotFound);
  Raise(errno, path);
}

std::vector<std::string> SystemFolders::FileNames(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(NativePath(folder), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    std::string name = PathText(entry->path().filename());
    std::error_code gone;
    if (entry->is_regular_file(gone) && IsValidUtf8(name)) names.push_back(std::move(name));
  }
  const bool missing =
      error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
  if (!missing) Raise(Errno(error), folder);
  return names;
}

std::string SystemFolders::Read(const std::string& path) {
  OpenFile file(calls_, path, OpenMode::Read);
  if (!file.IsOpen()) Raise(errno, path);
  std::string bytes;
  Raise(file.ReadAll(bytes), path);
  return bytes;
}

void SystemFolders::Append(const std::string& path, std::string_view bytes) {
  OpenFile file(calls_, path, OpenMode::Append);
  if (!file.IsOpen()) Raise(errno, path);
  Raise(file.WriteAll(bytes), path);
  Raise(file.Close(), path);
}

void SystemFolders::Replace(const std::string& path, std::string_view bytes) {
  Raise(AtomicFile(path, calls_).Replace(bytes), path);
}

void SystemFolders::Delete(const std::string& path) {
  if (calls_.Unlink(path) != 0) Raise(errno, path);
}

void SystemFolders::Raise(int error, const std::string& path) {
  switch (error) {
    case 0:
      return;
    case ENOENT:
      throw Failure(FolderExists(FolderOf(path)) ? kFileNotFound : kPathNotFound);
    case ENOTDIR:
      throw Failure(kPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Failure(kPermissionDenied);
    default:
      throw Failure(kPathFileAccess);
  }
}

}  // namespace brenwick
