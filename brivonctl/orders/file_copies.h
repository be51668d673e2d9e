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
  /// is kept as a transmission reads. `is_stopped` is asked now and then, and ends the reading.
  explicit FileCopies(
      const QString& path, const std::function<bool()>& is_stopped = [] { return false; });

  /// The SHA-256 of the whole file that was read from `path`, in hexadecimal digits; nothing where
  /// it could not be read, or begins as no file of the system does.
  QByteArray Digest(const QString& path) const { return copies_.value(path).digest; }

  QString Find(const QString& path) const override { return found_.value(path, path); }
  bool Exists(const QString& path) const override { return copies_.contains(path); }
  std::unique_ptr<QIODevice> Device(const QString& path) const override;

 private:
  struct Copy {
    bool is_readable = false;
    QByteArray beginning;
    QByteArray digest;
  };

  void Take(const QString& path);
  void TakeNamedBy(const QString& schedule);

  std::function<bool()> is_stopped_;
  QHash<QString, Copy> copies_;    // of what is an ordinary file
  QHash<QString, QString> found_;  // what a schedule names -> the file's own path
};

}  // namespace BrivonCtl
