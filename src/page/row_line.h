// A row of a page as files and frames carry it: a row line, and what a panel receives of it.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include "row/page_row.h"

namespace Brivon1 {

/// The line of row `number`, counted from 1, in a message file, without its line end: the row tag
/// and the row's characters with their codes.
QByteArray RowLine(int number, const PageRow& row);

/// A row line as it goes on the wire.
struct PanelLine {
  QByteArray code;  ///< Its first five characters, in front of the page's number.
  QByteArray text;  ///< What the panel shows.
};

/// What a panel of `colour_type` receives of a row line: its own codes for date, time and symbols.
/// For kMono the colour codes are taken out of the text, and the blanks at its ends.
PanelLine AsPanelLine(const QByteArray& row_line, qint16 colour_type);

}  // namespace Brivon1
