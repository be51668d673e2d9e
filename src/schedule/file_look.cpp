#include "schedule/file_look.h"

#include <atomic>
#include <memory>
#include <utility>

#include <QPromise>
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

FileLook::FileLook(std::function<void(const QString& path, bool is_there)> report) {
  QObject::connect(&watcher_, &QFutureWatcher<Answer>::resultReadyAt, &watcher_,
                   [this, report = std::move(report)](int index) {
                     const Answer answer = watcher_.resultAt(index);
                     report(answer.path, answer.is_there);
                   });
}

FileLook::~FileLook() { watcher_.cancel(); }

void FileLook::Begin(const QStringList& paths, const IsThere& is_there) {
  watcher_.cancel();
  if (paths.isEmpty()) return;
  const auto promise = std::make_shared<QPromise<Answer>>();
  const auto left = std::make_shared<std::atomic<qsizetype>>(paths.size());
  watcher_.setFuture(promise->future());
  promise->start();
  // One thread a file: those on a drive that answers do not wait for those on one that does not.
  for (const QString& path : paths) {
    Threads().start([promise, left, is_there, path] {
      if (!promise->isCanceled()) promise->addResult(Answer{path, is_there(path)});
      if (--*left == 0) promise->finish();
    });
  }
}

}  // namespace Brivon1
