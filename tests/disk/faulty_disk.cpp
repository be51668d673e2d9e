#include "disk/faulty_disk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

template <typename Function>
Function* InLibrary(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
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

bool FaultyDisk::IsLoaded() { return dlsym(RTLD_DEFAULT, "FaultyDiskBegin") != nullptr; }

bool FaultyDisk::HasNamelessFiles(const char* folder) {
  const int handle = open(folder, O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (handle >= 0) close(handle);
  return handle >= 0;
}
