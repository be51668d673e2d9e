// The library that a test program loads before all others. Its functions have the names of the
// system's and stand in their place; whatever they do not count they hand on.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>

#include "disk/faulty_disk.h"

namespace {

constexpr int kMostHandles = 4096;
constexpr int kMostCalls = 4096;

struct {
  bool counts = false;
  char folder[4096] = {};
  DiskFault fault;
  std::atomic<int> calls{0};
  const char* names[kMostCalls + 1] = {};
  std::atomic<bool> is_below[kMostHandles];  // none at first
  std::atomic<int> folder_handle{-1};        // the one by which the folder itself is open
  std::atomic<int> call_before_folder_flush{0};
} disk;

template <typename Function>
Function* System(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsLock(const char* path) {
  const char* end = std::strrchr(path, '.');
  return end != nullptr && (std::strcmp(end, ".lock") == 0 || std::strcmp(end, ".rmlock") == 0);
}

bool IsBelow(const char* path) {
  const std::size_t size = std::strlen(disk.folder);
  return disk.counts && std::strncmp(path, disk.folder, size) == 0 &&
         (path[size] == '/' || path[size] == '\0') && IsLock(path) == disk.fault.is_lock;
}

bool IsBelow(int handle) {
  return disk.counts && handle >= 0 && handle < kMostHandles && disk.is_below[handle];
}

/// Whether it is the folder itself, with or without a slash behind it.
bool IsFolder(const char* path) {
  const std::size_t size = std::strlen(disk.folder);
  return IsBelow(path) && std::strlen(path) <= size + 1;
}

void Keep(int handle, bool is_below) {
  if (handle >= 0 && handle < kMostHandles) disk.is_below[handle] = is_below;
  // A folder that was listed is closed within the system, and its handle is another file's next.
  if (handle == disk.folder_handle) disk.folder_handle = -1;
}

/// Whether a disk without room refuses this call.
bool TakesRoom(const char* name) {
  for (const char* part : {"open", "write", "sync", "link", "rename"}) {
    if (std::strstr(name, part) != nullptr) return std::strncmp(name, "unlink", 6) != 0;
  }
  return false;
}

enum class Outcome { kAsEver, kShort, kFailed };

/// Counts one call and says how it ends.
Outcome Count(const char* name, bool is_write = false) {
  using Way = DiskFault::Way;
  const int call = ++disk.calls;
  if (call <= kMostCalls) disk.names[call] = name;
  const DiskFault& fault = disk.fault;
  if (fault.call == 0 || call < fault.call) return Outcome::kAsEver;
  if (fault.spares_what_frees && !TakesRoom(name)) return Outcome::kAsEver;
  const bool is_first = call == fault.call;
  const bool is_second = call == fault.call + 1;
  const bool begins_short = fault.way != Way::kError && fault.way != Way::kKill;
  if (begins_short && is_first) return is_write ? Outcome::kShort : Outcome::kAsEver;
  if ((fault.way == Way::kKill && is_first) || (fault.way == Way::kShortThenKill && is_second)) {
    kill(getpid(), SIGKILL);
  }
  const bool fails = (fault.way == Way::kError && is_first) ||
                     (fault.way == Way::kShortThenError && is_second) || fault.stays;
  if (!fails) return Outcome::kAsEver;
  errno = fault.error;
  return Outcome::kFailed;
}

/// How many of `size` bytes a write takes.
std::size_t Taken(Outcome outcome, std::size_t size) {
  if (outcome != Outcome::kShort) return size;
  const int cut = disk.fault.cut;
  return cut == DiskFault::kHalf ? size / 2 : std::min(static_cast<std::size_t>(cut), size);
}

bool Fails(const char* name) { return Count(name) == Outcome::kFailed; }

int Open(const char* name, int folder, const char* path, int flags, mode_t mode) {
  const bool is_nameless = (flags & O_TMPFILE) == O_TMPFILE;
  const bool is_ours = IsBelow(path) && (flags & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
  if (is_ours && is_nameless && !disk.fault.has_nameless_files) {
    errno = disk.fault.nameless_error;
    return -1;
  }
  if (is_ours && Fails(name)) return -1;
  const int handle = System<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
  Keep(handle, is_ours);
  if ((flags & O_DIRECTORY) != 0 && !is_nameless && IsFolder(path)) disk.folder_handle = handle;
  return handle;
}

mode_t ModeOf(int flags, va_list arguments) {
  const bool has_mode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  return has_mode ? va_arg(arguments, mode_t) : 0;
}

}  // namespace

// NOLINTBEGIN(cert-dcl50-cpp): the system's own functions take what they take
extern "C" {

void FaultyDiskBegin(const char* folder, const DiskFault* fault) {
  std::strncpy(disk.folder, folder, sizeof disk.folder - 1);
  disk.fault = *fault;
  disk.calls = 0;
  disk.folder_handle = -1;
  disk.call_before_folder_flush = 0;
  disk.counts = true;
}

void FaultyDiskEnd() { disk.counts = false; }
int FaultyDiskCalls() { return disk.calls; }
int FaultyDiskCallBeforeFolderFlush() { return disk.call_before_folder_flush; }
const char* FaultyDiskName(int call) { return disk.names[call]; }

// Each stands under the system's name, which its headers have taken already.
#define OPEN(symbol)                                                  \
  int Faulty_##symbol(const char* path, int flags, ...) asm(#symbol); \
  int Faulty_##symbol(const char* path, int flags, ...) {             \
    va_list arguments;                                                \
    va_start(arguments, flags);                                       \
    const mode_t mode = ModeOf(flags, arguments);                     \
    va_end(arguments);                                                \
    return Open("open", AT_FDCWD, path, flags, mode);                 \
  }
OPEN(open)
OPEN(open64)

#define OPENAT(symbol)                                                            \
  int Faulty_##symbol(int folder, const char* path, int flags, ...) asm(#symbol); \
  int Faulty_##symbol(int folder, const char* path, int flags, ...) {             \
    va_list arguments;                                                            \
    va_start(arguments, flags);                                                   \
    const mode_t mode = ModeOf(flags, arguments);                                 \
    va_end(arguments);                                                            \
    return Open("open", folder, path, flags, mode);                               \
  }
OPENAT(openat)
OPENAT(openat64)

#define CREAT(symbol)                                                        \
  int Faulty_##symbol(const char* path, mode_t mode) asm(#symbol);           \
  int Faulty_##symbol(const char* path, mode_t mode) {                       \
    return Open("open", AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode); \
  }
CREAT(creat)
CREAT(creat64)

ssize_t Faulty_write(int handle, const void* data, size_t size) asm("write");
ssize_t Faulty_write(int handle, const void* data, size_t size) {
  const Outcome outcome = IsBelow(handle) ? Count("write", true) : Outcome::kAsEver;
  if (outcome == Outcome::kFailed) return -1;
  return System<ssize_t(int, const void*, size_t)>("write")(handle, data, Taken(outcome, size));
}

#define PWRITE(symbol)                                                                          \
  ssize_t Faulty_##symbol(int handle, const void* data, size_t size, off_t at) asm(#symbol);    \
  ssize_t Faulty_##symbol(int handle, const void* data, size_t size, off_t at) {                \
    const Outcome outcome = IsBelow(handle) ? Count("write", true) : Outcome::kAsEver;          \
    if (outcome == Outcome::kFailed) return -1;                                                 \
    return System<ssize_t(int, const void*, size_t, off_t)>(#symbol)(handle, data,              \
                                                                     Taken(outcome, size), at); \
  }
PWRITE(pwrite)
PWRITE(pwrite64)

ssize_t Faulty_writev(int handle, const iovec* parts, int count) asm("writev");
ssize_t Faulty_writev(int handle, const iovec* parts, int count) {
  const Outcome outcome = IsBelow(handle) ? Count("write", true) : Outcome::kAsEver;
  if (outcome == Outcome::kFailed) return -1;
  return System<ssize_t(int, const iovec*, int)>("writev")(
      handle, parts, outcome == Outcome::kShort ? (count + 1) / 2 : count);
}

// A call on an open file, with what follows the file's handle.
#define ON_HANDLE(symbol, PARAMETERS, ARGUMENTS)      \
  int Faulty_##symbol PARAMETERS asm(#symbol);        \
  int Faulty_##symbol PARAMETERS {                    \
    if (IsBelow(handle) && Fails(#symbol)) return -1; \
    return System<int PARAMETERS>(#symbol) ARGUMENTS; \
  }

int Faulty_fsync(int handle) asm("fsync");
int Faulty_fsync(int handle) {
  if (disk.counts && handle == disk.folder_handle) {
    disk.call_before_folder_flush = disk.calls.load();
    if (disk.fault.folder_error != 0) {
      errno = disk.fault.folder_error;
      return -1;
    }
  }
  if (IsBelow(handle) && Fails("fsync")) return -1;
  return System<int(int)>("fsync")(handle);
}

ON_HANDLE(fdatasync, (int handle), (handle))
ON_HANDLE(syncfs, (int handle), (handle))
ON_HANDLE(sync_file_range, (int handle, off_t from, off_t size, unsigned flags),
          (handle, from, size, flags))
ON_HANDLE(ftruncate, (int handle, off_t size), (handle, size))
ON_HANDLE(ftruncate64, (int handle, off_t size), (handle, size))
ON_HANDLE(fchmod, (int handle, mode_t mode), (handle, mode))
ON_HANDLE(fchown, (int handle, uid_t owner, gid_t group), (handle, owner, group))
ON_HANDLE(flock, (int handle, int operation), (handle, operation))

// The handle is given back in any case, as by the system.
int Faulty_close(int handle) asm("close");
int Faulty_close(int handle) {
  const bool fails = IsBelow(handle) && Fails("close");
  const int error = errno;
  Keep(handle, false);
  const int result = System<int(int)>("close")(handle);
  if (!fails) return result;
  errno = error;
  return -1;
}

// A call on names; `path` is the one that is made or taken away.
#define ON_PATH(symbol, PARAMETERS, ARGUMENTS)        \
  int Faulty_##symbol PARAMETERS asm(#symbol);        \
  int Faulty_##symbol PARAMETERS {                    \
    if (IsBelow(path) && Fails(#symbol)) return -1;   \
    return System<int PARAMETERS>(#symbol) ARGUMENTS; \
  }
ON_PATH(rename, (const char* from, const char* path), (from, path))
ON_PATH(renameat, (int from_folder, const char* from, int folder, const char* path),
        (from_folder, from, folder, path))
ON_PATH(renameat2,
        (int from_folder, const char* from, int folder, const char* path, unsigned flags),
        (from_folder, from, folder, path, flags))
ON_PATH(link, (const char* from, const char* path), (from, path))
ON_PATH(linkat, (int from_folder, const char* from, int folder, const char* path, int flags),
        (from_folder, from, folder, path, flags))
ON_PATH(unlink, (const char* path), (path))
ON_PATH(unlinkat, (int folder, const char* path, int flags), (folder, path, flags))
ON_PATH(remove, (const char* path), (path))
}
// NOLINTEND(cert-dcl50-cpp)
