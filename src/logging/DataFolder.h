// The folder that holds everything the program keeps for the user, and what lies in it.
#pragma once

#include <string>

#include "platform/Folders.h"

namespace brenwick {

class DataFolder {
 public:
  explicit DataFolder(Folders& folders) : folders_(folders) {}

  // Documents folder, separator, the program's title; no separator at the end. The documents folder
  // is asked for once; that may raise a Failure.
  const std::string& Path();
  // A file or folder of that name in the data folder.
  std::string Inside(const std::string& name) { return Path() + folders_.Separator() + name; }

  // The log folders, with a separator at their end.
  std::string DebugLogs() { return Inside("DebugLogs") + folders_.Separator(); }
  std::string Conversations() { return Inside("Conversations") + folders_.Separator(); }

  // While this file exists, the program starts as with "/DEBUG".
  std::string DebugMarker() { return Inside("MkDebug.Tmp"); }

  // Makes the data folder and the two log folders where they are missing.
  void Create();

 private:
  Folders& folders_;
  std::string path_;
};

}  // namespace brenwick
