#include "disk/faulty_disk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

template <typename Function>
Function* InLibrary(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

bool IsLoaded() { return dlsym(RTLD_DEFAULT, "FaultyDiskBegin") != nullptr; }

void StartWithFaultyDisk(char** argv) {
  const char* options = std::getenv("ASAN_OPTIONS");
  // The address sanitizer wants to be the first library itself, and does without.
  const std::string sanitizer = std::string(options ? options : "") + ":verify_asan_link_order=0";
  setenv("ASAN_OPTIONS", sanitizer.c_str(), 1);
  setenv("LD_PRELOAD", BRIVON_FAULTY_DISK, 1);
  execv("/proc/self/exe", argv);
}

}  // namespace

FaultyDisk::FaultyDisk(const char* folder, const DiskFault& fault) {
  InLibrary<void(const char*, const DiskFault*)>("FaultyDiskBegin")(folder, &fault);
}

FaultyDisk::~FaultyDisk() { InLibrary<void()>("FaultyDiskEnd")(); }

int FaultyDisk::Calls() const { return InLibrary<int()>("FaultyDiskCalls")(); }

int FaultyDisk::CallBeforeFolderFlush() const {
  return InLibrary<int()>("FaultyDiskCallBeforeFolderFlush")();
}

const char* FaultyDisk::Name(int call) const {
  return InLibrary<const char*(int)>("FaultyDiskName")(call);
}

bool FaultyDisk::Load(char** argv) {
  const char* preloaded = std::getenv("LD_PRELOAD");
  if (!IsLoaded() && (!preloaded || std::string(preloaded) != BRIVON_FAULTY_DISK)) {
    StartWithFaultyDisk(argv);
  }
  if (!IsLoaded()) {
    std::fprintf(stderr, "%s cannot be loaded before all libraries\n", BRIVON_FAULTY_DISK);
    return false;
  }
  unsetenv("LD_PRELOAD");
  return true;
}

bool FaultyDisk::HasNamelessFiles(const char* folder) {
  const int handle = open(folder, O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (handle >= 0) close(handle);
  return handle >= 0;
}
