// The system calls behind the files that the program keeps. A test hands in calls of its own, so
// that each of them fails once.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace brenwick {

// What a file is opened for. Folder: a folder, to flush what was renamed in it.
enum class OpenMode { Read, CreateNew, Append, Lock, Folder };

// Each call does what the POSIX call of its name does: what fails returns -1 and sets errno. Paths
// are UTF-8. Whatever a call makes is private to the user. The thread of the caller does the work;
// no call throws but for a lack of memory.
class FileCalls {
 public:
  FileCalls() = default;
  FileCalls(const FileCalls&) = delete;
  FileCalls& operator=(const FileCalls&) = delete;
  virtual ~FileCalls() = default;

  // CreateNew fails with EEXIST where there is a file; Append and Lock make one that is missing.
  virtual int Open(const std::string& path, OpenMode mode);
  virtual std::ptrdiff_t Read(int descriptor, void* bytes, std::size_t count);
  virtual std::ptrdiff_t Write(int descriptor, const void* bytes, std::size_t count);
  // Makes an open file private to the user.
  virtual int Fchmod(int descriptor);
  virtual int Fsync(int descriptor);
  virtual int Close(int descriptor);
  virtual int Link(const std::string& path, const std::string& new_path);
  // Replaces a file of the new name; at every moment there is the old one or the new one.
  virtual int Rename(const std::string& path, const std::string& new_path);
  virtual int Unlink(const std::string& path);
  virtual int Mkdir(const std::string& path);
};

// The calls of the system itself.
FileCalls& SystemCalls();

// A path as the standard library takes it, and back.
std::filesystem::path NativePath(std::string_view path);
std::string PathText(const std::filesystem::path& path);

// An open file, closed at the end of its block. A call that a signal interrupts is made again.
class OpenFile {
 public:
  OpenFile(FileCalls& calls, const std::string& path, OpenMode mode);
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { Close(); }

  // False: it could not be opened; errno says why.
  bool IsOpen() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }

  // Each returns 0, or the errno of the call that failed.
  int ReadAll(std::string& bytes);
  int WriteAll(std::string_view bytes);
  int MakePrivate();
  int Flush();
  int Close();

 private:
  FileCalls& calls_;
  int descriptor_;
};

// The folder that a path lies in, "." where it names none.
std::string FolderOf(const std::string& path);

// Makes a folder and all above it, private to the user, where they are missing. Returns 0 or the
// errno of the call that failed.
int MakeFolders(FileCalls& calls, const std::string& path);

}  // namespace brenwick
