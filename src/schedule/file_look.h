// A look for files that may lie on a drive that does not answer: a thread beside the window waits
// for the drive, and the window goes on.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

#include <QFutureWatcher>
#include <QPromise>
#include <QStringList>

namespace Brivon1 {

/// Whether there is a message file at `path`, in whatever form of its letters: the usual look.
bool IsMessageFileThere(const QString& path);

/// Begins `look` in a thread that may wait as long as it likes.
void LookBeside(std::function<void()> look);

/// A look that finds a `Found` for each path.
template <typename Found>
class PathLook {
 public:
  /// Says what there is. It is called in another thread, where it may take its time, and may
  /// outlive the window: it holds what it works with.
  using Look = std::function<Found(const QString& path)>;
  using Report = std::function<void(const QString& path, const Found& found)>;

  /// `report` is called from the event loop of the thread that this object lives in.
  explicit PathLook(Report report) {
    QObject::connect(&watcher_, &QFutureWatcher<Answer>::resultReadyAt, &watcher_,
                     [this, report = std::move(report)](int index) {
                       const Answer answer = watcher_.resultAt(index);
                       report(answer.path, answer.found);
                     });
  }

  /// Waits for no drive. Nothing is reported any more.
  ~PathLook() { watcher_.cancel(); }

  PathLook(const PathLook&) = delete;
  PathLook& operator=(const PathLook&) = delete;

  /// Begins a look for `paths`, side by side, and returns at once. Each is reported as soon as it
  /// is known; what an earlier look has not reported yet is not reported any more.
  void Begin(const QStringList& paths, const Look& look);

 private:
  struct Answer {
    QString path;
    Found found;
  };

  QFutureWatcher<Answer> watcher_;  // of the look begun last
};

template <typename Found>
void PathLook<Found>::Begin(const QStringList& paths, const Look& look) {
  watcher_.cancel();
  if (paths.isEmpty()) return;
  const auto promise = std::make_shared<QPromise<Answer>>();
  const auto left = std::make_shared<std::atomic<qsizetype>>(paths.size());
  watcher_.setFuture(promise->future());
  promise->start();
  // One thread a file: those on a drive that answers do not wait for those on one that does not.
  for (const QString& path : paths) {
    LookBeside([promise, left, look, path] {
      if (!promise->isCanceled()) promise->addResult(Answer{path, look(path)});
      if (--*left == 0) promise->finish();
    });
  }
}

/// The look whether there is a file.
class FileLook : public PathLook<bool> {
 public:
  using IsThere = Look;
  using PathLook::PathLook;
};

}  // namespace Brivon1
