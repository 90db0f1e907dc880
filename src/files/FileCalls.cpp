#include "files/FileCalls.h"

#include <cerrno>
#include <system_error>

namespace brenwick {
namespace {

template <typename Call>
auto Uninterrupted(const Call& call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace

FileCalls& SystemCalls() {
  static FileCalls calls;
  return calls;
}

std::filesystem::path NativePath(std::string_view path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

OpenFile::OpenFile(FileCalls& calls, const std::string& path, OpenMode mode)
    : calls_(calls), descriptor_(Uninterrupted([&] { return calls.Open(path, mode); })) {}

int OpenFile::ReadAll(std::string& bytes) {
  char buffer[16 * 1024];
  for (;;) {
    const std::ptrdiff_t count =
        Uninterrupted([&] { return calls_.Read(descriptor_, buffer, sizeof buffer); });
    if (count < 0) return errno;
    if (count == 0) return 0;
    bytes.append(buffer, static_cast<std::size_t>(count));
  }
}

int OpenFile::WriteAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t count =
        Uninterrupted([&] { return calls_.Write(descriptor_, bytes.data(), bytes.size()); });
    if (count < 0) return errno;
    // No progress and no reason: going on would never end.
    if (count == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

int OpenFile::MakePrivate() {
  return Uninterrupted([&] { return calls_.Fchmod(descriptor_); }) == 0 ? 0 : errno;
}

int OpenFile::Flush() {
  return Uninterrupted([&] { return calls_.Fsync(descriptor_); }) == 0 ? 0 : errno;
}

int OpenFile::Close() {
  if (!IsOpen()) return 0;
  const int result = calls_.Close(descriptor_);
  descriptor_ = -1;
  // An interrupted close has closed the descriptor all the same.
  return result == 0 || errno == EINTR ? 0 : errno;
}

std::string FolderOf(const std::string& path) {
  const std::filesystem::path folder = NativePath(path).parent_path();
  return folder.empty() ? "." : PathText(folder);
}

int MakeFolders(FileCalls& calls, const std::string& path) {
  if (calls.Mkdir(path) == 0) return 0;
  if (errno == ENOENT && FolderOf(path) != path) {
    if (const int failure = MakeFolders(calls, FolderOf(path))) return failure;
    if (calls.Mkdir(path) == 0) return 0;
  }
  const int failure = errno;
  std::error_code unknown;
  return std::filesystem::is_directory(NativePath(path), unknown) ? 0 : failure;
}

}  // namespace brenwick
