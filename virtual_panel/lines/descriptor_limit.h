// How many files, and so connections, the system lets this program have open.
#pragma once

namespace VirtualPanel {

// Takes as many as the system gives without asking anyone, up to what kMostDescriptors connections
// need, and returns how many that are.
int RaiseDescriptorLimit();

inline constexpr int kMostDescriptors = 16'384;
inline constexpr int kKeptDescriptors = 64;  // for everything but connections

// How many connections each of `tcp_lines` may have with so many descriptors: most of them, with
// some kept for every other line, for files, terminals and the window; at least one.
int MostConnections(int descriptors, int tcp_lines);

}  // namespace VirtualPanel
