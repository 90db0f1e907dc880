// The folders and files of the system.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileCalls.h"
#include "platform/Folders.h"

namespace brenwick {

struct FolderPaths {
  std::string documents_folder;
  std::string program_folder;
  std::string program_file;
};

class SystemFolders : public Folders {
 public:
  explicit SystemFolders(FolderPaths paths, FileCalls& calls = SystemCalls());

  std::string DocumentsFolder() override;
  std::string ProgramFolder() override { return paths_.program_folder; }
  std::string ProgramFile() override { return paths_.program_file; }
  char Separator() const override {
    return static_cast<char>(std::filesystem::path::preferred_separator);
  }

  bool FileExists(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  void CreateFolder(const std::string& path) override;
  // A file whose name is no valid UTF-8 has no name inside the program and is left out.
  std::vector<std::string> FileNames(const std::string& folder) override;

  std::string Read(const std::string& path) override;
  void Append(const std::string& path, std::string_view bytes) override;
  void Replace(const std::string& path, std::string_view bytes) override;
  void Delete(const std::string& path) override;

 private:
  bool IsOfKind(const std::string& path, std::filesystem::file_type kind);
  // Raises the failure that an errno stands for; 0 is none.
  void Raise(int error, const std::string& path);

  FolderPaths paths_;
  FileCalls& calls_;
};

}  // namespace brenwick
