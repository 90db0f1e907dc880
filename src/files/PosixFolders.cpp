#include "files/PosixFolders.h"

#include <fcntl.h>
#include <sys/stat.h>

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

// Whether an errno says that there is nothing of that name.
bool SaysNothingThere(int error) {
  return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
}

}  // namespace

PosixFolders::PosixFolders(FolderPaths paths, FileCalls& calls)
    : paths_(std::move(paths)), calls_(calls) {
  RemoveSlashAtEnd(paths_.documents_folder);
  RemoveSlashAtEnd(paths_.program_folder);
}

std::string PosixFolders::DocumentsFolder() {
  Raise(MakeFolders(calls_, paths_.documents_folder), paths_.documents_folder);
  return paths_.documents_folder;
}

bool PosixFolders::FileExists(const std::string& path) { return IsOfKind(path, S_IFREG); }
bool PosixFolders::FolderExists(const std::string& path) { return IsOfKind(path, S_IFDIR); }

bool PosixFolders::IsOfKind(const std::string& path, unsigned kind) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) return (status.st_mode & S_IFMT) == kind;
  if (!SaysNothingThere(errno)) Raise(errno, path);
  return false;
}

void PosixFolders::CreateFolder(const std::string& path) {
  if (calls_.Mkdir(path, 0700) == 0) return;
  // What is missing for a folder is never a file.
  if (errno == ENOENT) throw Failure(kPathNotFound);
  Raise(errno, path);
}

std::vector<std::string> PosixFolders::FileNames(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    std::string name = entry->path().filename().string();
    std::error_code gone;
    if (entry->is_regular_file(gone) && IsValidUtf8(name)) names.push_back(std::move(name));
  }
  const bool missing =
      error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
  if (!missing) Raise(error.value(), folder);
  return names;
}

std::string PosixFolders::Read(const std::string& path) {
  OpenFile file(calls_, path, O_RDONLY);
  if (!file.IsOpen()) Raise(errno, path);
  std::string bytes;
  Raise(file.ReadAll(bytes), path);
  return bytes;
}

void PosixFolders::Append(const std::string& path, std::string_view bytes) {
  OpenFile file(calls_, path, O_WRONLY | O_APPEND | O_CREAT, 0600);
  if (!file.IsOpen()) Raise(errno, path);
  Raise(file.WriteAll(bytes), path);
  Raise(file.Close(), path);
}

void PosixFolders::Replace(const std::string& path, std::string_view bytes) {
  Raise(AtomicFile(path, calls_).Replace(bytes), path);
}

void PosixFolders::Delete(const std::string& path) {
  if (calls_.Unlink(path) != 0) Raise(errno, path);
}

void PosixFolders::Raise(int error, const std::string& path) {
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
