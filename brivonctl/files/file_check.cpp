#include "files/file_check.h"

#include <QFile>
#include <QFileInfo>

#include "base/file_checks.h"
#include "base/files.h"
#include "files/page_check.h"
#include "files/schedule_check.h"
#include "files/scrolling_check.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

/// What is wrong with a file that begins as none of the system does.
void RefuseUnknown(const QString& path, FileReport* report) {
  const qint64 size = QFileInfo(path).size();
  if (size < Brivon1::kShortestFile) {
    report->Refuse(0, u"the file has %1 bytes; one of Brivon has %2 at the least"_s.arg(size).arg(
                          Brivon1::kShortestFile));
    return;
  }
  QFile file(path);
  Brivon1::LineReader lines(file);
  const auto first = file.open(QIODevice::ReadOnly) ? lines.Next() : std::nullopt;
  const QString found =
      first ? Quoted(*first) : u"a line of more than %1 bytes"_s.arg(Brivon1::kLongestLine);
  report->Refuse(1,
                 u"%1 begins no file of Brivon; expected was %2"_s.arg(found, ExpectedHeaders()));
}

}  // namespace

QString ExpectedHeaders() {
  return u"%1, %2 or %3"_s.arg(QLatin1String(Brivon1::kMessageHeader),
                               QLatin1String(Brivon1::kScheduleHeader),
                               QLatin1String(Brivon1::kScrollingHeader));
}

QString WhyUnreadable(const QString& path) {
  const QFileInfo info(path);
  if (info.isDir()) return u"this is a folder; a file was expected"_s;
  if (!info.exists()) {
    return info.isSymLink() ? u"this link leads to no file; name one that is there"_s
                            : u"there is no such file; check the name and its folder"_s;
  }
  if (!info.isFile()) return u"this is a device or a pipe; a file was expected"_s;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    return u"it cannot be read: %1; name one that you may read"_s.arg(file.errorString());
  return {};
}

FileKind KindOf(const QString& path) {
  if (Brivon1::IsMessageFile(path)) return FileKind::kPage;
  if (Brivon1::IsScheduleFile(path)) return FileKind::kSchedule;
  if (Brivon1::IsScrollingFile(path)) return FileKind::kScrolling;
  return FileKind::kUnknown;
}

QString CommonFailureText(const Brivon1::FileFailure& failure) {
  switch (failure.fault) {
    case Brivon1::FileFault::kLongLine:
      return u"the line has more than %1 bytes"_s.arg(Brivon1::kLongestLine);
    case Brivon1::FileFault::kNoFile:
    case Brivon1::FileFault::kNotReadable:
    case Brivon1::FileFault::kTooShort:
    case Brivon1::FileFault::kHeader:
      return u"the file has changed while it was read"_s;
    default:
      return {};
  }
}

FileReport CheckFile(const QString& path) {
  FileReport report;
  report.path = path;
  if (const QString reason = WhyUnreadable(path); !reason.isEmpty()) {
    report.Refuse(0, reason);
    return report;
  }
  report.kind = KindOf(path);
  switch (report.kind) {
    case FileKind::kPage:
      CheckPage(path, &report);
      break;
    case FileKind::kSchedule:
      CheckSchedule(path, &report);
      break;
    case FileKind::kScrolling:
      CheckScrolling(path, &report);
      break;
    case FileKind::kUnknown:
      RefuseUnknown(path, &report);
      break;
  }
  return report;
}

}  // namespace BrivonCtl
