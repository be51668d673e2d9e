// A look for files that may lie on a drive that does not answer: a thread beside the window waits
// for the drive, and the window goes on.
#pragma once

#include <functional>

#include <QFutureWatcher>
#include <QStringList>

namespace Brivon1 {

/// Whether there is a message file at `path`, in whatever form of its letters: the usual look.
bool IsMessageFileThere(const QString& path);

class FileLook {
 public:
  /// Says whether there is a file. It is called in another thread, where it may take its time, and
  /// may outlive the window: it holds what it works with.
  using IsThere = std::function<bool(const QString& path)>;

  /// `report` is called from the event loop of the thread that this object lives in.
  explicit FileLook(std::function<void(const QString& path, bool is_there)> report);

  /// Waits for no drive. Nothing is reported any more.
  ~FileLook();

  FileLook(const FileLook&) = delete;
  FileLook& operator=(const FileLook&) = delete;

  /// Begins a look for `paths`, side by side, and returns at once. Each is reported as soon as it
  /// is known; what an earlier look has not reported yet is not reported any more.
  void Begin(const QStringList& paths, const IsThere& is_there);

 private:
  struct Answer {
    QString path;
    bool is_there;
  };

  QFutureWatcher<Answer> watcher_;  // of the look begun last
};

}  // namespace Brivon1
