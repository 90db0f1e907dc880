#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "files/ProcessId.h"

namespace brenwick {

ProcessId OwnProcessId() { return ::getpid(); }

bool ProcessExists(ProcessId process) {
  // Any other number stands for a group of processes.
  return process > 0 && (::kill(process, 0) == 0 || errno != ESRCH);
}

}  // namespace brenwick
