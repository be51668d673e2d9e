// What the editors hold and what the files hold, in one form, so that it can be said whether a work
// is on the disk.
#pragma once

#include <map>

#include <QByteArray>
#include <QString>
#include <QWidget>

/// All that an editor's window shows of its work; empty for another window.
QByteArray WorkIn(const QWidget& editor);

/// Whether there is nothing in it that could be lost.
bool IsBlank(const QByteArray& work);

/// What the file shows when it is opened in the editor of its kind; empty where none opens it.
QByteArray WorkOf(const QString& path);

/// Whether every character of the work comes back from a file: text that looks like a code does
/// not.
bool ComesBack(const QByteArray& work);

/// The name of the file that an editor works on.
QString NameOfFile(const QWidget& editor);

/// The program's folder as it was seen last.
class Folder {
 public:
  explicit Folder(QString path) : path_(std::move(path)) {}

  /// The paths of the files that came, went or changed since the last look.
  QStringList Look();

  /// The file, as it is, was written from `work` and counts as holding that too.
  void KnowAs(const QString& path, const QByteArray& work) { saved_[path] = work; }

  /// Whether a file holds the work.
  bool Holds(const QByteArray& work) const;

 private:
  QString path_;
  std::map<QString, QByteArray> files_;
  std::map<QString, QByteArray> works_;  // that the editors read from the files
  std::map<QString, QByteArray> saved_;  // that the files were written from
};
