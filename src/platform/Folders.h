// The folders and files of the user and of the program. Paths use the system's separator.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brenwick {

// The program calls each operation on its own thread. Each waits for the disk and for nothing else,
// and lets no event run. A failure is a Failure with one of the numbers that the operation names;
// nothing else is thrown.
class Folders {
 public:
  Folders() = default;
  Folders(const Folders&) = delete;
  Folders& operator=(const Folders&) = delete;
  virtual ~Folders() = default;

  // The user's documents folder, made when it is missing; without a separator at its end. Raises
  // what CreateFolder raises when it cannot be made.
  virtual std::string DocumentsFolder() = 0;
  // The folder of the program file, which holds "Languages", "OrgLanguages" and
  // "Abbreviations.Txt". Neither this nor the next two can fail.
  virtual std::string ProgramFolder() = 0;
  // The program file itself, with its folder.
  virtual std::string ProgramFile() = 0;
  // Between the parts of a path: "/" or "\".
  virtual char Separator() const = 0;

  // Where the answer cannot be found out, these raise kPermissionDenied or kPathFileAccess: a file
  // that is taken for missing would be written anew.
  virtual bool FileExists(const std::string& path) = 0;
  virtual bool FolderExists(const std::string& path) = 0;
  // Makes one folder, private to the user. Raises kPathNotFound, kPermissionDenied or
  // kPathFileAccess; an existing folder is kPathFileAccess.
  virtual void CreateFolder(const std::string& path) = 0;
  // The names (without the folder) of the files in a folder, in the order in which the system lists
  // them. A folder that does not exist has none.
  virtual std::vector<std::string> FileNames(const std::string& folder) = 0;

  // All bytes of a file. Raises kFileNotFound, kPathNotFound, kPermissionDenied or kPathFileAccess,
  // as every call below does.
  virtual std::string Read(const std::string& path) = 0;
  // Opens the file, appends the bytes, and closes it; makes it, private to the user, when it is
  // missing.
  virtual void Append(const std::string& path, std::string_view bytes) = 0;
  // Puts the bytes in the place of the file's content so that after a crash, a full disk or any
  // failure the file holds the old bytes or the new ones, whole; flushed to the disk on return.
  virtual void Replace(const std::string& path, std::string_view bytes) = 0;
  virtual void Delete(const std::string& path) = 0;
};

}  // namespace brenwick
