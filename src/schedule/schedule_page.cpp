#include "schedule/schedule_page.h"

#include <algorithm>
#include <optional>

#include <QDateTime>
#include <QList>
#include <QMutex>
#include <QMutexLocker>

#include "base/file_checks.h"
#include "base/files.h"
#include "page/page_picture.h"
#include "panel_dots/dot_glyphs.h"
#include "store/configuration_store.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

using PanelDots::Cell;

/// The cells of a row up to the first one that is cut. Of the others, which have no light, those
/// are left that begin on the panel.
QList<Cell> SeenCells(const QByteArray& row_line, qint16 columns) {
  // A row of a megabyte takes several times as much for a moment: one at a time. The lock outlives
  // the program's end, as a thread may that waits for a drive.
  static QMutex* const one_at_a_time = new QMutex;
  const QMutexLocker lock(one_at_a_time);
  QList<Cell> cells = PanelCells(row_line, kTri);
  const qsizetype cut =
      PanelDots::FirstCut(cells, columns, {true, true, QDateTime::currentDateTime()});
  const qsizetype most = cut < cells.size() ? cut + 1 : columns / PanelDots::kCompressedColumns + 1;
  cells.resize(std::min(cells.size(), most));
  cells.squeeze();
  return cells;
}

}  // namespace

SchedulePage MissingPage() { return {{}, u"File not found"_s}; }

SchedulePage ReadSchedulePage(const QString& path, Dimension dimension) {
  const QString found = FindFile(path);
  if (!FileExists(found)) return MissingPage();
  const SchedulePage unreadable{{}, u"Error in opening file"_s};
  MessageFileReader file(found);
  if (!file.FileDimension()) return unreadable;
  if (file.FileDimension() != dimension) return {{}, u"Dimension Not Match"_s};
  if (dimension.rows > kMaxRows) return unreadable;
  SchedulePage page;
  for (int row = 1; row <= dimension.rows; ++row) {
    const std::optional<QByteArray> line = file.NextRowLine();
    if (!line) return unreadable;
    page.rows.insert(row, SeenCells(*line, dimension.columns));
  }
  return page;
}

}  // namespace Brivon1
