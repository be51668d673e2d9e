#include "support/bytes_read.h"

#include <qt_windows.h>

qint64 BytesRead() {
  IO_COUNTERS counts{};
  if (GetProcessIoCounters(GetCurrentProcess(), &counts) == 0) return -1;
  return static_cast<qint64>(counts.ReadTransferCount);
}
