// What a panel shows of a page: its rows go through the row line and the panel's codes as a
// transmission sends them, and are then cells that panel_dots makes dots of.
//
//   const PanelPicture picture = PagePicture(page->rows, page->dimension, kTri, now);
//   const DotMatrix dots = DotsOf(picture, 0);
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QtGlobal>

#include "base/dimension.h"
#include "page/page_message.h"
#include "panel_dots/message_text.h"
#include "panel_dots/panel_picture.h"

namespace Brivon1 {

/// What a panel of `colour_type`, kMono or kTri, makes of the text of a row line.
QList<PanelDots::Cell> PanelCells(const QByteArray& row_line, qint16 colour_type);

/// The shape of a panel of this size. A size below 0 is 0; of more rows than kMaxRows the first
/// ones are taken.
PanelDots::PanelShape PanelShapeOf(Dimension dimension, qint16 colour_type);

/// The page of a message file's row lines, the first one being row 1, on a panel of this size.
/// `clock` is the panel's date and time.
PanelDots::PanelPicture PagePicture(const QList<QByteArray>& row_lines, Dimension dimension,
                                    qint16 colour_type, const QDateTime& clock);

/// The same of rows that were read from a file or are being edited.
PanelDots::PanelPicture PagePicture(const PageRows& rows, Dimension dimension, qint16 colour_type,
                                    const QDateTime& clock);

}  // namespace Brivon1
