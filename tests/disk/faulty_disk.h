// A disk that fails, for tests. The library "faulty_disk", loaded before all others, sees the
// system calls that change files below one folder, counts them, and lets any of them fail.
#pragma once

#include <sys/types.h>

#include <cerrno>

/// What fails, and how. It crosses the border of a library that knows nothing of the toolkit.
struct DiskFault {
  enum class Way : int {
    kError,           ///< The call does nothing and gives `error`.
    kShort,           ///< A write takes `cut` of its bytes.
    kShortThenError,  ///< The same, and the next call gives `error`.
    kKill,            ///< The program is killed in place of the call.
    kShortThenKill,   ///< A write takes `cut` of its bytes, and the next call kills.
  };

  int call = 0;  ///< The number, from 1, of the call; 0: none fails.
  Way way = Way::kError;
  int error = 0;                   ///< The system's number.
  bool stays = false;              ///< Whether all calls behind it give `error`, too.
  bool spares_what_frees = false;  ///< Whether what takes no room, such as removing, is as ever.
  bool has_nameless_files = true;
  int cut = kHalf;       ///< How many bytes a short write takes, at most all.
  bool is_lock = false;  ///< Whether it is of "*.lock" and "*.rmlock" alone, or of all others.
  int folder_error = 0;  ///< What a flush of the folder gives, which is none of the calls.
  int nameless_error = EOPNOTSUPP;  ///< What a disk without nameless files gives for one.

  static constexpr int kHalf = -1;
};

/// While it lives, the disk has this fault for files below `folder`. One at a time.
class FaultyDisk {
 public:
  FaultyDisk(const char* folder, const DiskFault& fault);
  ~FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

  /// How many calls there were.
  int Calls() const;

  /// The name of a call, by its number from 1.
  const char* Name(int call) const;

  /// The number of the last call before the folder was flushed; 0 where it was not.
  int CallBeforeFolderFlush() const;

  /// Starts the program anew with the library before all others, unless it has been already: what
  /// the toolkit calls goes there then, too. False, and said, where it cannot be loaded.
  static bool Load(char** argv);

  /// Whether the real disk of `folder` can hold a file without a name.
  static bool HasNamelessFiles(const char* folder);
};
