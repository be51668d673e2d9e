#include "schedule/file_look.h"

#include <QThreadPool>

#include "base/files.h"

namespace Brivon1 {
namespace {

/// A file on a dead drive holds its thread as long as the drive does. With so many of them the next
/// ones have to wait.
constexpr int kMostLooks = 64;

/// It is never destroyed, because that would wait for its threads: a dead drive does not keep the
/// program from ending.
QThreadPool& Threads() {
  static QThreadPool* const threads = new QThreadPool;
  threads->setMaxThreadCount(kMostLooks);
  return *threads;
}

}  // namespace

bool IsMessageFileThere(const QString& path) { return FileExists(FindFile(path)); }

void LookBeside(std::function<void()> look) { Threads().start(std::move(look)); }

}  // namespace Brivon1
