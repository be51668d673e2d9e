#include "sending/sending_words.h"

#include <algorithm>

#include "language/module_language.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {

using ModuleLanguage::TranslateMessage;

namespace {

constexpr int kSecond = 1000;

bool HasBegun(const Progress& progress) {
  return progress.attempt > 0 || progress.row > 1 || progress.file > 1 || progress.is_schedule;
}

QString LastBytes(qint64 milliseconds) {
  const qint64 seconds = (milliseconds + kSecond - 1) / kSecond;
  return TranslateMessage(u"The last bytes are leaving, %1 s left"_s).arg(seconds);
}

QString FilesArrived(int arrived, int all) {
  return TranslateMessage(u"%1 of %2 files have arrived. The schedule has not."_s)
      .arg(arrived)
      .arg(all);
}

}  // namespace

QString LinkNote(const Configuration& configuration) {
  if (configuration.Mode() != SendMode::kNone) return {};
  return TranslateMessage(u"No link is chosen: Config, Communication Selection"_s);
}

QString SerialNote(const Configuration& configuration) {
  return TranslateMessage(u"Sent over Com %1, %2"_s)
      .arg(configuration.com_port)
      .arg(SerialDevice(configuration, configuration.com_port));
}

QString ProgressText(const Progress& progress) {
  if (progress.milliseconds_left >= 0) return LastBytes(progress.milliseconds_left);
  if (progress.is_schedule) {
    return TranslateMessage(u"Schedule, attempt %1 of %2"_s)
        .arg(progress.attempt)
        .arg(progress.attempts);
  }
  if (progress.rows == 0) {
    return TranslateMessage(u"Attempt %1 of %2"_s).arg(progress.attempt).arg(progress.attempts);
  }
  if (progress.files == 0) {
    return TranslateMessage(u"Row %1 of %2, attempt %3 of %4"_s)
        .arg(progress.row)
        .arg(progress.rows)
        .arg(progress.attempt)
        .arg(progress.attempts);
  }
  // The name comes last: it may hold what looks like a place for a number.
  return TranslateMessage(u"File %1 of %2, row %3 of %4, attempt %5 of %6: %7"_s)
      .arg(progress.file)
      .arg(progress.files)
      .arg(progress.row)
      .arg(progress.rows)
      .arg(progress.attempt)
      .arg(progress.attempts)
      .arg(progress.file_name);
}

QString ArrivedText(const Progress& progress, int id) {
  if (!HasBegun(progress)) return TranslateMessage(u"Nothing has been sent."_s);
  if (id == 0) {
    return TranslateMessage(
        u"ID 0 is all panels together, and they do not answer: how much has arrived is not known."_s);
  }
  if (progress.is_schedule) return FilesArrived(progress.files, progress.files);
  if (progress.rows == 0) return TranslateMessage(u"The panel has not acknowledged it."_s);
  const int arrived = std::max(progress.row - 1 - progress.unproven, 0);
  const QString rows = TranslateMessage(u"%1 of %2 rows have arrived, missing: %3."_s)
                           .arg(arrived)
                           .arg(progress.rows)
                           .arg(progress.rows - arrived);
  if (progress.files == 0) return rows;
  return FilesArrived(progress.file - 1, progress.files) + u'\n' + progress.file_name + u": "_s +
         rows;
}

QString FailureText(const Progress& progress, int id, int last_ack_status) {
  if (!HasBegun(progress)) return {};
  QStringList lines;
  if (id != 0 && progress.attempt == progress.attempts && last_ack_status != 1) {
    if (last_ack_status < 0) {
      lines.append(TranslateMessage(u"No response from display panel. Please check connection."_s));
    }
    lines.append(
        TranslateMessage(u"Panel ID %1 was tried %2 times."_s).arg(id).arg(progress.attempts));
  }
  lines.append(ArrivedText(progress, id));
  return lines.join(u'\n');
}

QString WhyNotSent(const OpenLine& line, int id) {
  if (!line.refusal.isEmpty()) return line.refusal;
  const QString failure = FailureText(line.progress, id, line.timer.last_ack_status);
  return failure.isEmpty() ? ArrivedText({}, id) : failure;
}

QString LinkFailureText(SendMode mode) {
  return TranslateMessage(mode == SendMode::kSerial ? u"Fail to initialize communication port!"_s
                                                    : u"Cannot create TCP link!"_s);
}

}  // namespace Brivon1
