// How many files, and so connections, the system lets this program have open.
#pragma once

namespace VirtualPanel {

// Takes as many as the system gives without asking anyone, up to what kMostDescriptors connections
// need, and returns how many that are.
int RaiseDescriptorLimit();

inline constexpr int kMostDescriptors = 16'384;

// Of these, files, terminals and the window's own keep so many.
inline constexpr int kDescriptorsOfOthers = 64;

}  // namespace VirtualPanel
