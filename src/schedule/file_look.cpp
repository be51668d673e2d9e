#include "schedule/file_look.h"

#include <memory>
#include <utility>

#include <QPromise>
#include <QThreadPool>

#include "base/files.h"

namespace Brivon1 {
namespace {

/// Earlier looks hang as long as the drive does. With so many of them a new one has to wait.
constexpr int kMostLooks = 4;

/// It is never destroyed, because that would wait for its threads: a dead drive does not keep the
/// program from ending.
QThreadPool& Threads() {
  static QThreadPool* const threads = new QThreadPool;
  threads->setMaxThreadCount(kMostLooks);
  return *threads;
}

}  // namespace

bool IsMessageFileThere(const QString& path) { return FileExists(FindFile(path)); }

FileLook::FileLook(std::function<void(const QString& path, bool is_there)> report) {
  QObject::connect(&watcher_, &QFutureWatcher<bool>::resultReadyAt, &watcher_,
                   [this, report = std::move(report)](int index) {
                     report(paths_[index], watcher_.resultAt(index));
                   });
}

FileLook::~FileLook() { watcher_.cancel(); }

void FileLook::Begin(const QStringList& paths, const IsThere& is_there) {
  watcher_.cancel();
  paths_ = paths;
  if (paths.isEmpty()) return;
  const auto promise = std::make_shared<QPromise<bool>>();
  watcher_.setFuture(promise->future());
  Threads().start([promise, paths, is_there] {
    promise->start();
    for (const QString& path : paths) {
      if (promise->isCanceled()) break;
      promise->addResult(is_there(path));
    }
    promise->finish();
  });
}

}  // namespace Brivon1
