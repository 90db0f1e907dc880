// The system calls behind the files that the program keeps. A test hands in calls of its own, so
// that each of them fails once.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace brenwick {

// Each call is the POSIX call of its name: what fails returns -1 and sets errno.
class FileCalls {
 public:
  FileCalls() = default;
  FileCalls(const FileCalls&) = delete;
  FileCalls& operator=(const FileCalls&) = delete;
  virtual ~FileCalls() = default;

  virtual int Open(const std::string& path, int flags, mode_t mode);
  virtual ssize_t Read(int descriptor, void* bytes, std::size_t count);
  virtual ssize_t Write(int descriptor, const void* bytes, std::size_t count);
  virtual int Fchmod(int descriptor, mode_t mode);
  virtual int Fsync(int descriptor);
  virtual int Close(int descriptor);
  virtual int Link(const std::string& path, const std::string& new_path);
  virtual int Rename(const std::string& path, const std::string& new_path);
  virtual int Unlink(const std::string& path);
  virtual int Mkdir(const std::string& path, mode_t mode);
};

// The calls of the system itself.
FileCalls& SystemCalls();

// An open file, closed at the end of its block. A call that a signal interrupts is made again.
class OpenFile {
 public:
  OpenFile(FileCalls& calls, const std::string& path, int flags, mode_t mode = 0);
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
