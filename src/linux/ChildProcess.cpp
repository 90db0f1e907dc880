#include "linux/ChildProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "base/Failure.h"
#include "base/ProgramState.h"

namespace brenwick {
namespace {

pid_t Spawned(const std::string& program, int standard_input) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, standard_input, STDIN_FILENO);
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  std::string name = program;
  std::array<char*, 2> arguments = {name.data(), nullptr};
  pid_t id = 0;
  const int failed =
      posix_spawn(&id, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed == 0) return id;
  throw Failure(kFileNotFound, program + " does not start: " + std::strerror(failed), kTitle);
}

}  // namespace

ChildProcess::ChildProcess(const std::string& program, int standard_input)
    : id_(Spawned(program, standard_input)), reaper_([this] { AwaitEnd(); }) {}

ChildProcess::~ChildProcess() {
  {
    const std::lock_guard lock(mutex_);
    if (!ended_) kill(id_, SIGKILL);
  }
  reaper_.join();
}

// The child is reaped under the lock: until then no other process can get its id.
void ChildProcess::AwaitEnd() {
  siginfo_t end;
  while (waitid(P_PID, static_cast<id_t>(id_), &end, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
  }
  const std::lock_guard lock(mutex_);
  waitpid(id_, nullptr, 0);
  ended_ = true;
}

}  // namespace brenwick
