// The lock of a file that programs read, change and save: a save must not undo what another program
// wrote between the reading and the saving. It is a file of its own beside the one that it is for,
// there for as long as the save takes.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include <QString>

namespace Brivon1 {

/// No save on a disk that works takes as long; behind one that does, the next is refused.
inline constexpr std::chrono::milliseconds kLongestLockWait{2000};

inline constexpr std::chrono::milliseconds kBetweenLockTries{20};

/// What is done while another program holds a lock, between two tries; returns whether to try once
/// more.
using LockWait = std::function<bool()>;

/// Sleeps, and gives up after so long.
LockWait SleepBetweenTries(std::chrono::milliseconds at_most = kLongestLockWait);

class FileLock {
 public:
  /// Of the file at `path`, which need not exist; where it is a link, of the link's
  /// target, which need not exist either.
  explicit FileLock(const QString& path);
  ~FileLock();

  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  /// Returns whether no other program holds the lock, for as long as this object lives: it is
  /// taken, or there can be none, because the folder or the disk refuses it; whatever else they
  /// refuse, the save will tell. What a killed program has left is taken over, unless it is another
  /// user's and closed to this one, or the disk has no locks.
  bool Take(const LockWait& wait);

  /// The path of the file that is the lock, as this system writes it.
  QString Path() const;

 private:
  struct LockFile;

  std::unique_ptr<LockFile> file_;
};

}  // namespace Brivon1
