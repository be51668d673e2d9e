#include "language/file_remedies.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/code_page.h"
#include "base/file_checks.h"
#include "base/text.h"
#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using ModuleLanguage::TranslateMessage;

constexpr qsizetype kShownBeginning = 40;  // characters of a file's first line

struct Sort {
  const char* header;
  const char* is_one;  // English, as all of these
  const char* wanted;
};

constexpr Sort kSorts[] = {
    {kMessageHeader, "%1 is a page.", "Choose a page (.msg)."},
    {kScheduleHeader, "%1 is a schedule.", "Choose a schedule (.sch)."},
    {kScrollingHeader, "%1 is a scrolling message.", "Choose a scrolling message (.srl)."},
};

QString Translated(const char* english) { return TranslateMessage(QString::fromLatin1(english)); }

/// The system's reason, with the file that it is about.
QString WithReason(const QString& path, const QString& reason) {
  return path + u": "_s + TranslateMessage(reason);
}

/// The beginning of a first line as it can be shown.
QString Beginning(const QByteArray& line) {
  QString text = CodePage::System().ToText(line.left(kShownBeginning));
  for (QChar& letter : text) {
    if (!letter.isPrint()) letter = u'?';
  }
  return text;
}

/// What a file is that begins with `line`.
QString WhatItIs(const QString& path, const QByteArray& line) {
  for (const Sort& sort : kSorts) {
    if (TrimBlanks(line) == sort.header) return Translated(sort.is_one).arg(path);
  }
  return TranslateMessage(u"%1 begins with \"%2\"."_s).arg(path, Beginning(line));
}

}  // namespace

QString MissingFileRemedy(const QString& path) {
  if (path.isEmpty()) return TranslateMessage(u"No file has been chosen yet."_s);
  const QFileInfo info(path);
  if (info.isDir()) return TranslateMessage(u"%1 is a folder. Choose a file in it."_s).arg(path);
  if (info.exists()) return TranslateMessage(u"%1 is no ordinary file."_s).arg(path);
  QFile file(path);
  const bool is_open = file.open(QIODevice::ReadOnly);
  const QString reason = is_open ? QString() : file.errorString();
  return WithReason(path, reason) + u'\n' +
         TranslateMessage(
             u"It has been moved or renamed, or was not saved yet. Save it, or choose another one."_s);
}

QString WrongKindRemedy(const QString& path, FileSort wanted) {
  if (!FileExists(path)) return MissingFileRemedy(path);
  const Sort& sort = kSorts[static_cast<int>(wanted)];
  const QString choose = u'\n' + Translated(sort.wanted);
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return WithReason(path, file.errorString()) + choose;
  if (file.size() == 0) return TranslateMessage(u"%1 is empty."_s).arg(path) + choose;
  LineReader lines(file);
  const auto line = lines.Next();
  if (!line) {
    if (!lines.IsLineTooLong()) return WithReason(path, file.errorString()) + choose;
    return LongLineRemedy(path) + choose;
  }
  if (TrimBlanks(*line) != sort.header) return WhatItIs(path, *line) + choose;
  if (file.size() >= kShortestFile) return {};
  return TranslateMessage(u"%1 ends after its first line."_s).arg(path) + choose;
}

QString LongLineRemedy(const QString& path) {
  return TranslateMessage(u"A line of %1 is longer than %2 bytes."_s)
      .arg(path, QString::number(kLongestLine));
}

QString SaveRemedy(const QString& path, SaveResult result, const QString& reason) {
  const QString why = WithReason(path, reason) + u'\n';
  switch (result) {
    case SaveResult::kSaved:
      return {};
    case SaveResult::kLocked:
    case SaveResult::kInvalidPath:
      return why + TranslateMessage(u"Save it in another folder or under another name."_s);
    case SaveResult::kDriveNotAvailable:
      return why + TranslateMessage(u"Make room there, or save it on another disk."_s);
  }
  return {};
}

QString LongPathRemedy(qsizetype size, qsizetype possible) {
  return TranslateMessage(u"The path has %1 characters, %2 are possible."_s)
      .arg(size)
      .arg(possible);
}

}  // namespace Brivon1
