#include "linux/speechd/SpeechdStart.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>

namespace brenwick {
namespace {

constexpr std::chrono::milliseconds kLookAgain{10};

// A machine that has just started is slow.
constexpr std::chrono::seconds kTimeToStart{20};

// Without the program's descriptors: the server outlives it.
pid_t Spawned(const std::string& socket) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
  }
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  std::string program = "speech-dispatcher", spawn = "--spawn";
  std::string method = "--communication-method=unix_socket", path = "--socket-path=" + socket;
  std::array<char*, 5> arguments = {program.data(), spawn.data(), method.data(), path.data(),
                                    nullptr};
  pid_t id = 0;
  const int failed =
      posix_spawnp(&id, program.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return failed == 0 ? id : 0;
}

}  // namespace

bool StartDispatcher(const std::string& socket, const StopToken& stop) {
  const pid_t id = Spawned(socket);
  if (id == 0) return false;
  const auto until = std::chrono::steady_clock::now() + kTimeToStart;
  int status = 0;
  while (::waitpid(id, &status, WNOHANG) == 0) {
    const bool late = std::chrono::steady_clock::now() > until;
    if (late || stop.Await(kLookAgain)) {
      // A plea can be ignored, and the speech waits for the end.
      ::kill(id, SIGKILL);
      ::waitpid(id, nullptr, 0);
      return false;
    }
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace brenwick
