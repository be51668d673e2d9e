#include "records/kept_file.h"

#include <utility>

#include <QFileInfo>
#include <QSaveFile>

#include "records/appended_file.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr int kAgainMs = 1000;

QString LostLines(qint64 count) {
  if (count == 0) return {};
  return count == 1 ? u"; 1 line is lost"_s : u"; %1 lines are lost"_s.arg(count);
}

// Writes what it can to a file that is not buffered, and leaves the rest in *bytes. False: there is
// a rest.
bool WriteAll(QFileDevice* file, QByteArray* bytes, QString* reason) {
  while (!bytes->isEmpty()) {
    const qint64 size = file->write(*bytes);
    if (size <= 0) {
      *reason = file->errorString();
      return false;
    }
    bytes->remove(0, size);
  }
  return true;
}

}  // namespace

KeptFile::KeptFile(QString name, QString path, QObject* parent)
    : QObject(parent), name_(std::move(name)), path_(std::move(path)) {}

QString KeptFile::TroubleText() const {
  if (trouble_.isEmpty()) return {};
  return u"the %1 %2 cannot be written: %3"_s.arg(name_, path_, trouble_);
}

void KeptFile::SetTrouble(const QString& reason, const QString& note) {
  if (reason == trouble_) return;
  const bool was_in_trouble = !trouble_.isEmpty();
  trouble_ = reason;
  if (!was_in_trouble) {
    Q_EMIT Said(TroubleText());
  } else if (trouble_.isEmpty()) {
    Q_EMIT Said(u"the %1 %2 is written again"_s.arg(name_, path_) + note);
  }
  Q_EMIT TroubleChanged();
}

bool LogFile::Open() {
  QString reason;
  const bool is_open = Reopen(&reason);
  SetTrouble(reason);
  return is_open;
}

void LogFile::Append(const QByteArray& line) {
  QString reason;
  QByteArray rest = line;
  if ((IsAtItsPath() || Reopen(&reason)) && WriteAll(&file_, &unfinished_, &reason) &&
      WriteAll(&file_, &rest, &reason)) {
    SetTrouble({}, LostLines(std::exchange(lost_lines_, 0)));
    return;
  }
  if (rest.size() < line.size()) {
    unfinished_ = rest;
  } else {
    ++lost_lines_;
  }
  SetTrouble(reason);
}

bool LogFile::IsAtItsPath() const { return file_.isOpen() && IsFileAt(file_, Path()); }

bool LogFile::Reopen(QString* reason) {
  file_.close();
  // The beginning of the unfinished line is gone with the file.
  if (!unfinished_.isEmpty()) ++lost_lines_;
  unfinished_.clear();
  return OpenAtEnd(Path(), &file_, reason);
}

WholeFile::WholeFile(QString name, QString path, std::function<QByteArray()> contents,
                     QObject* parent)
    : KeptFile(std::move(name), std::move(path), parent), contents_(std::move(contents)) {
  again_.setInterval(kAgainMs);
  again_.setSingleShot(true);
  connect(&again_, &QTimer::timeout, this, &WholeFile::Write);
}

bool WholeFile::Write() {
  const QString reason = Replace();
  if (reason.isEmpty()) {
    again_.stop();
  } else {
    again_.start();
  }
  SetTrouble(reason);
  return reason.isEmpty();
}

QString WholeFile::Replace() const {
  // A device or a pipe would be replaced by a file.
  const QFileInfo present(Path());
  if (present.exists() && !present.isFile()) return u"It is no ordinary file"_s;
  QByteArray bytes = contents_();
  QSaveFile file(Path());
  QString reason;
  // Unbuffered: of what the disk had no room for in a buffer, a commit would not hear.
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return file.errorString();
  if (!WriteAll(&file, &bytes, &reason)) return reason;
  return file.commit() ? QString() : file.errorString();
}

}  // namespace VirtualPanel
