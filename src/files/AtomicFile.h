// A file that is replaced as a whole.
#pragma once

#include <string>
#include <string_view>

#include "files/FileCalls.h"

namespace brenwick {

// The file that a path leads to, through every link; the path itself where there is no such file.
std::string ResolvedPath(const std::string& path);

// Whatever fails, and whenever the program or the machine stops, the file holds the old bytes or
// the new ones, whole. The new bytes are written to a file beside it, flushed to the disk, and
// renamed. What a stopped program left beside the file goes at the next replacement. Where the path
// is a link, the file behind it is replaced. The file is private to the user.
class AtomicFile {
 public:
  explicit AtomicFile(const std::string& path, FileCalls& calls = SystemCalls())
      : path_(ResolvedPath(path)), calls_(calls) {}

  // 0 when the bytes are on the disk, otherwise the errno of the call that failed. Where only the
  // folder could not be flushed, the file holds the new bytes already.
  int Replace(std::string_view bytes);

  // The same, and the bytes that were there are afterwards in the file's name + ".bak". The file
  // and the backup exist at every moment at which they existed before. After a failure the file
  // holds the old bytes; it does not exist where it did not.
  int ReplaceKeepingBackup(std::string_view bytes);

 private:
  class Temporary;

  std::string FreshName() const;
  int Write(const std::string& path, std::string_view bytes);
  int KeepBackup(bool& existed);
  int Duplicate(const std::string& path);
  void PutBack(bool existed);
  void RemoveLeftovers();

  std::string path_;
  FileCalls& calls_;
};

}  // namespace brenwick
