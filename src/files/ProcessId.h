// The numbers by which the system knows its processes.
#pragma once

namespace brenwick {

using ProcessId = int;

ProcessId OwnProcessId();

// False only where there is certainly no process of that number.
bool ProcessExists(ProcessId process);

}  // namespace brenwick
