// What a panel makes of a row that its author hardly means: characters that do not fit, symbols and
// codes that there are none of, a tag that goes wrong on the wire.
#pragma once

#include <QByteArray>
#include <QStringList>

#include "row/page_row.h"

namespace BrivonCtl {

struct RowLineCheck {
  QByteArray line;              ///< As it stands in the file.
  int number = 1;               ///< Of the row, from 1.
  int columns = 0;              ///< Dots of the panel.
  const Brivon1::PageRow& row;  ///< What the editor reads of it.
};

/// What is odd about a row of a page, one sentence for each thing.
QStringList RowWarnings(const RowLineCheck& check);

/// What is odd about the text of a scrolling message.
QStringList ScrollingWarnings(const QByteArray& text);

}  // namespace BrivonCtl
