// What a look through a file finds: what the file is, how large, and what is wrong in which line.
#pragma once

#include <optional>
#include <vector>

#include <QList>
#include <QString>

#include "base/dimension.h"

namespace BrivonCtl {

enum class FileKind { kUnknown, kPage, kSchedule, kScrolling };

/// "page", "schedule", "scrolling"; "unknown" for what is no file of the system.
QString KindName(FileKind kind);

struct Problem {
  enum class Weight {
    kWarning,  ///< The file is taken as it is, and does something that hardly anybody means.
    kError     ///< The file is refused.
  };

  Weight weight = Weight::kWarning;
  int line = 0;  ///< From 1; 0 where the file as a whole is meant.
  QString text;
};

struct FileReport {
  QString path;  ///< As it was named.
  FileKind kind = FileKind::kUnknown;
  std::optional<Brivon1::Dimension> dimension;  ///< Of a page or schedule.
  std::optional<int> steps;                     ///< Of a schedule.
  std::optional<qsizetype> length;              ///< Of a scrolling message, in characters.
  QString times;                                ///< When a schedule begins, in words.
  QList<Problem> problems;                      ///< In the order of their lines.

  /// The message files of a schedule, in the order in which it first names them, and the line in
  /// which each is named.
  struct Named;
  std::vector<Named> files;

  void Warn(int line, const QString& text);
  void Refuse(int line, const QString& text);

  /// Whether the file, or for a schedule one of its message files, is refused.
  bool IsRefused() const;

  /// The number of warnings, those of a schedule's message files included.
  int Warnings() const;

  /// The first thing that makes it refused; empty where it is not.
  QString FirstError() const;
};

struct FileReport::Named {
  int line = 0;
  FileReport report;
};

/// `bytes` in quotation marks, as the code page has them; what is no character is written "\x1B",
/// and a long text is cut.
QString Quoted(const QByteArray& bytes);

}  // namespace BrivonCtl
