// What is asked of the system about callers, beyond what the toolkit asks of it.
#pragma once

#include <QtGlobal>

namespace VirtualPanel {

enum class Call {
  kTaken,
  kGivenUp,  // the caller, before he was taken
  kNoCaller,
  kNoRoom  // the system has no descriptor or no memory, now
};

// Takes the next caller of a socket that listens. His socket, which does not block, is in *caller
// then and must be closed.
Call TakeCall(qintptr listener, qintptr* caller);

void CloseSocket(qintptr socket);

// Lets the system ask a caller who has been silent for a while whether he is still there, and cut
// him who has not answered so many times.
struct Asking {
  int seconds_until_first;
  int seconds_between;
  int most;
};
void AskSilentCaller(qintptr socket, const Asking& asking);

}  // namespace VirtualPanel
