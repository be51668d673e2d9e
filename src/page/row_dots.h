// How the characters of a page's row use up the dots of a panel.
#pragma once

#include <QDateTime>
#include <QList>
#include <QtGlobal>

#include "panel_dots/message_text.h"
#include "row/page_row.h"

namespace Brivon1 {

/// The panel that a row is held against.
struct RowPanel {
  int columns = 0;  ///< Of dots.
  qint16 colour_type = 0;
  QDateTime clock{};
};

/// What the panel makes of a row, as far as its dots reach and farther only to say whether the row
/// is cut: a file may hold a row of any length.
QList<PanelDots::Cell> SeenCells(const PageRow& row, const RowPanel& panel);

/// The dot columns that the first `characters` characters of a row take.
int DotsOfCharacters(const PageRow& row, qsizetype characters, const RowPanel& panel);

/// How many characters of a row are seen: those in front of the first one that is cut, all of them
/// where none is. A blank without a ground is never cut.
qsizetype SeenCharacters(const PageRow& row, const RowPanel& panel);

}  // namespace Brivon1
