// Ctrl-C, a request to end, and a reader of the transcript who has gone: the rehearsal stops behind
// the step that it is at, so that its temporary folder does not stay behind.
#pragma once

#include <chrono>

namespace brenwick {

// From now on those signals are noted. A second one ends the process where it is.
void NoteInterruptions();
bool Interrupted();
// The rest of the time is left out when an interruption comes.
void SleepUnlessInterrupted(std::chrono::milliseconds time);
// Ends the process by the signal that was noted; returns when there was none.
void EndAsInterrupted();

}  // namespace brenwick
