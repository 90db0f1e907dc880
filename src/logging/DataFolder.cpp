#include "logging/DataFolder.h"

#include "base/ProgramState.h"

namespace brenwick {

const std::string& DataFolder::Path() {
  if (path_.empty()) path_ = folders_.DocumentsFolder() + folders_.Separator() + kTitle;
  return path_;
}

void DataFolder::Create() {
  for (const std::string& folder : {Path(), Inside("DebugLogs"), Inside("Conversations")}) {
    if (!folders_.FolderExists(folder)) folders_.CreateFolder(folder);
  }
}

}  // namespace brenwick
