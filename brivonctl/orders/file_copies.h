// What an order sends, read once: what was checked is what every panel gets, also those whose turn
// comes hours later, whatever becomes of the files meanwhile.
#pragma once

#include <functional>
#include <memory>

#include <QByteArray>
#include <QHash>
#include <QString>

#include "base/file_source.h"

namespace BrivonCtl {

class FileCopies : public Brivon1::FileSource {
 public:
  /// Reads the file at `path`, and the message files that it names where it is a schedule. As much
  /// is read and kept as a transmission reads of a file of its kind; of one that is of no kind
  /// nothing is kept. `is_stopped` is asked now and then, and ends the reading.
  explicit FileCopies(
      const QString& path, const std::function<bool()>& is_stopped = [] { return false; });

  /// Reads the file at `path`, which the constructor was given, to its end. That may take long, and
  /// waits until the file has passed its checks.
  void TakeDigest(const QString& path);

  /// The SHA-256 of the whole file that was read from `path`, in hexadecimal digits; nothing before
  /// TakeDigest(), where it could not be read, or where it begins as no file of the system does.
  QByteArray Digest(const QString& path) const { return copies_.value(path).digest; }

  /// Which file the system has begun to read and could not go on with, and why; empty where there
  /// is none.
  const QString& ReadFailure() const { return read_failure_; }

  QString Find(const QString& path) const override { return found_.value(path, path); }
  bool Exists(const QString& path) const override { return copies_.contains(path); }
  std::unique_ptr<QIODevice> Device(const QString& path) const override;

 private:
  class HashedFile;

  struct Copy {
    bool is_readable = false;
    QByteArray beginning;
    std::shared_ptr<HashedFile> file;  // of which there may be more to be read for the digest
    QByteArray digest;
  };

  void Take(const QString& path);
  void TakeNamedBy(const QString& schedule);
  void Drop(const QString& path, const QString& reason);

  std::function<bool()> is_stopped_;
  QHash<QString, Copy> copies_;  // of what is an ordinary file
  QString read_failure_;
  QHash<QString, QString> found_;  // what a schedule names -> the file's own path
};

}  // namespace BrivonCtl
