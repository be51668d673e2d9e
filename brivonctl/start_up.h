// What the program sets up for its streams and its many threads before the first of them runs.
#pragma once

namespace BrivonCtl {

void PrepareProcess();

/// With how many threads that send the system can do, of the `jobs` that are wanted; at least one.
int JobsThatFit(int jobs);

}  // namespace BrivonCtl
