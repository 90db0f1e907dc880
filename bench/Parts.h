// The lower floors of a program, without the program: what a benchmark of one room stands on.
#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "Stage.h"

namespace brenwick {

// In a folder of its own, which goes away with it.
struct Parts {
  explicit Parts(const std::string& name)
      : folder(std::filesystem::temp_directory_path() / ("brenwick-bench-" + name)),
        folders({folder.string(), BRENWICK_PROGRAM_FOLDER, ""}) {
    ParseMoment("2004-01-10T12:00:00", clock.now);
    data.Create();
  }
  ~Parts() { std::filesystem::remove_all(folder); }
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  std::filesystem::path folder;
  SilentTranscript transcript;
  ScriptedScreen screen{transcript};
  ScriptedLoop loop;
  ScriptedClock clock;
  ScriptedSystem system;
  SystemFolders folders;
  ProgramState state;
  frmMain form;
  SettingsValues settings;
  cMousePointer pointer{screen};
  StatusWindow status{pointer, loop, system};
  DataFolder data{folders};
  LogFiles files{data, folders, clock};
  ErrorReport report{state, files, status, screen};
  Logs log{state, files, report};
  TextTable texts{log};
};

inline double Median(std::vector<double>& seconds) {
  const auto middle = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
  std::nth_element(seconds.begin(), middle, seconds.end());
  return *middle;
}

template <typename Action>
double Seconds(const Action& action) {
  const auto begin = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

}  // namespace brenwick
