// A file to which several processes append lines at the same time, each line whole.
#pragma once

#include <QByteArray>
#include <QString>

namespace BrivonCtl {

class LogFile {
 public:
  /// An empty path is no log: everything succeeds and nothing is written.
  explicit LogFile(const QString& path) : path_(path) {}

  /// Whether lines can be appended, as far as that can be told before; makes the file. False, with
  /// the reason in ErrorText(), where not.
  bool Check();

  /// Appends a line, whole or not at all, and its end. The file is opened anew each time, so that
  /// it may be moved away meanwhile.
  bool Append(const QByteArray& line);

  QString ErrorText() const { return error_; }

 private:
  bool Take(const QString& reason);

  QString path_;
  QString error_;
};

}  // namespace BrivonCtl
