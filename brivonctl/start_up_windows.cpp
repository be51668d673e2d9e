#include "brivonctl/start_up.h"

namespace BrivonCtl {

// A closed stream is no file's number here, a reader that has gone is an error and no signal, and
// of a thread's stack only what it uses is kept.
void PrepareProcess() {}

int JobsThatFit(int jobs) { return jobs; }

}  // namespace BrivonCtl
