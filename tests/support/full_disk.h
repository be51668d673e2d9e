// A disk without room, for the time of a test.
#pragma once

#include <QtGlobal>

/// While it lives, the system refuses what goes beyond the first `room` bytes of a file as too
/// large, for every user. A Unix system writes what fits of it: a save meets a real short write.
class FullDisk {
 public:
  explicit FullDisk(qint64 room);
  ~FullDisk();

  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
};
