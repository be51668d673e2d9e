#include "schedule/schedule_page.h"

#include <optional>

#include <QDateTime>
#include <QMutex>
#include <QMutexLocker>

#include "base/file_checks.h"
#include "base/files.h"
#include "page/page_picture.h"
#include "panel_dots/seen_cells.h"
#include "schedule/step_file.h"
#include "store/configuration_store.h"

namespace Brivon1 {
namespace {

/// What panels of `columns` dot columns show of a row, put into `page` as row `number`.
void AddRow(SchedulePage& page, int number, const QByteArray& row_line, qint16 columns) {
  // A row of a megabyte takes several times as much for a moment: one at a time. The lock outlives
  // the program's end, as a thread may that waits for a drive.
  static QMutex* const one_at_a_time = new QMutex;
  const QMutexLocker lock(one_at_a_time);
  const QDateTime now = QDateTime::currentDateTime();
  page.rows.insert(number,
                   PanelDots::UpToCut(PanelCells(row_line, kTri), columns, {true, true, now}));
  page.rows_of_one_colour.insert(
      number, PanelDots::UpToCut(PanelCells(row_line, kMono), columns, {false, true, now}));
}

SchedulePage Refused(StepFault fault) { return {{}, {}, StepFaultText(fault)}; }

}  // namespace

SchedulePage MissingPage() { return Refused(StepFault::kMissing); }

SchedulePage ReadSchedulePage(const QString& path, Dimension dimension) {
  const QString found = FindFile(path);
  const bool exists = FileExists(found);
  MessageFileReader file(found);
  if (const auto fault = StepFaultOf(exists, file.FileDimension(), dimension)) {
    return Refused(*fault);
  }
  if (dimension.rows > kMaxRows) return Refused(StepFault::kNoPage);
  SchedulePage page;
  for (int row = 1; row <= dimension.rows; ++row) {
    const std::optional<QByteArray> line = file.NextRowLine();
    if (!line) return Refused(StepFault::kNoPage);
    AddRow(page, row, *line, dimension.columns);
  }
  return page;
}

}  // namespace Brivon1
