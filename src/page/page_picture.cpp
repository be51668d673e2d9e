#include "page/page_picture.h"

#include <algorithm>

#include "page/row_line.h"

namespace Brivon1 {

QList<PanelDots::Cell> PanelCells(const QByteArray& row_line, qint16 colour_type) {
  return PanelDots::ParseCells(AsPanelLine(row_line, colour_type).text);
}

PanelDots::PanelShape PanelShapeOf(Dimension dimension, qint16 colour_type) {
  return {std::clamp<int>(dimension.rows, 0, kMaxRows), std::max<int>(dimension.columns, 0),
          colour_type != kMono};
}

PanelDots::PanelPicture PagePicture(const QList<QByteArray>& row_lines, Dimension dimension,
                                    qint16 colour_type, const QDateTime& clock) {
  PanelDots::PanelPicture picture;
  picture.shape = PanelShapeOf(dimension, colour_type);
  picture.clock = clock;
  const auto rows = static_cast<int>(std::min<qsizetype>(row_lines.size(), picture.shape.rows));
  for (int row = 1; row <= rows; ++row) {
    picture.rows.insert(row, PanelCells(row_lines[row - 1], colour_type));
  }
  return picture;
}

PanelDots::PanelPicture PagePicture(const PageRows& rows, Dimension dimension, qint16 colour_type,
                                    const QDateTime& clock) {
  QList<QByteArray> lines;
  for (const PageRow& row : rows) lines.append(RowLine(static_cast<int>(lines.size()) + 1, row));
  return PagePicture(lines, dimension, colour_type, clock);
}

}  // namespace Brivon1
