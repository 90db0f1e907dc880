#include "files/AtomicFile.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <optional>
#include <system_error>

#include "files/ProcessId.h"

namespace brenwick {
namespace {

// Between a file's name and the numbers that make a temporary name of it.
constexpr std::string_view kMark = ".new-";

// A folder's own flush fails with EINVAL where the file system has none and needs none.
int FlushFolder(OpenFile& folder) {
  const int failure = folder.Flush();
  return failure == EINVAL ? 0 : failure;
}

// The process in a temporary name's tail, "PROCESS-COUNT".
std::optional<ProcessId> ProcessIn(std::string_view tail) {
  ProcessId process = 0;
  unsigned count = 0;
  const char* const end = tail.data() + tail.size();
  const auto [dash, first_error] = std::from_chars(tail.data(), end, process);
  if (first_error != std::errc() || process <= 0 || dash == end || *dash != '-') return {};
  const auto [last, second_error] = std::from_chars(dash + 1, end, count);
  if (second_error != std::errc() || last != end) return {};
  return process;
}

// A name with the program's own number is left from an earlier process that had that number.
bool IsAtWork(ProcessId process) { return process != OwnProcessId() && ProcessExists(process); }

}  // namespace

std::string ResolvedPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path resolved = std::filesystem::canonical(NativePath(path), error);
  return error ? path : PathText(resolved);
}

// A name beside the file that is gone at the end of its block, whatever happened to it. It goes
// after a renaming too: renaming one link of a file to another link of the same file does nothing
// and leaves both.
class AtomicFile::Temporary {
 public:
  Temporary(std::string path, FileCalls& calls) : path_(std::move(path)), calls_(calls) {}
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() { calls_.Unlink(path_); }

  const std::string& Path() const { return path_; }
  int RenameTo(const std::string& path) const {
    return calls_.Rename(path_, path) == 0 ? 0 : errno;
  }

 private:
  std::string path_;
  FileCalls& calls_;
};

int AtomicFile::Replace(std::string_view bytes) {
  RemoveLeftovers();
  // Opened first, so that after the renaming nothing is left to fail but the flush.
  OpenFile folder(calls_, FolderOf(path_), OpenMode::Folder);
  if (!folder.IsOpen()) return errno;
  const Temporary fresh(FreshName(), calls_);
  if (const int failure = Write(fresh.Path(), bytes)) return failure;
  if (const int failure = fresh.RenameTo(path_)) return failure;
  return FlushFolder(folder);
}

int AtomicFile::ReplaceKeepingBackup(std::string_view bytes) {
  RemoveLeftovers();
  OpenFile folder(calls_, FolderOf(path_), OpenMode::Folder);
  if (!folder.IsOpen()) return errno;
  const Temporary fresh(FreshName(), calls_);
  if (const int failure = Write(fresh.Path(), bytes)) return failure;
  bool existed = false;
  if (const int failure = KeepBackup(existed)) return failure;
  if (const int failure = fresh.RenameTo(path_)) return failure;
  const int failure = FlushFolder(folder);
  if (failure != 0) PutBack(existed);
  return failure;
}

std::string AtomicFile::FreshName() const {
  static std::atomic<unsigned> count = 0;
  return path_ + std::string(kMark) + std::to_string(OwnProcessId()) + "-" +
         std::to_string(++count);
}

int AtomicFile::Write(const std::string& path, std::string_view bytes) {
  OpenFile file(calls_, path, OpenMode::CreateNew);
  if (!file.IsOpen()) return errno;
  if (const int failure = file.MakePrivate()) return failure;
  if (const int failure = file.WriteAll(bytes)) return failure;
  if (const int failure = file.Flush()) return failure;
  return file.Close();
}

int AtomicFile::KeepBackup(bool& existed) {
  const Temporary previous(FreshName(), calls_);
  existed = calls_.Link(path_, previous.Path()) == 0;
  if (!existed) {
    if (errno == ENOENT) return 0;
    // The file system has no hard links.
    if (const int failure = Duplicate(previous.Path())) return failure;
    existed = true;
  }
  return previous.RenameTo(path_ + ".bak");
}

int AtomicFile::Duplicate(const std::string& path) {
  OpenFile file(calls_, path_, OpenMode::Read);
  if (!file.IsOpen()) return errno;
  std::string bytes;
  if (const int failure = file.ReadAll(bytes)) return failure;
  return Write(path, bytes);
}

void AtomicFile::PutBack(bool existed) {
  if (!existed) {
    calls_.Unlink(path_);
    return;
  }
  const std::string backup = path_ + ".bak";
  const Temporary previous(FreshName(), calls_);
  const bool linked = calls_.Link(backup, previous.Path()) == 0;
  calls_.Rename(linked ? previous.Path() : backup, path_);
}

void AtomicFile::RemoveLeftovers() {
  const std::string folder = FolderOf(path_);
  const std::string start = PathText(NativePath(path_).filename()) + std::string(kMark);
  std::error_code error;
  std::filesystem::directory_iterator entry(NativePath(folder), error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    const std::string name = PathText(entry->path().filename());
    if (!name.starts_with(start)) continue;
    const std::optional<ProcessId> process = ProcessIn(std::string_view(name).substr(start.size()));
    if (process && !IsAtWork(*process)) calls_.Unlink(PathText(entry->path()));
  }
}

}  // namespace brenwick
