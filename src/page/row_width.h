// How wide a row of a page is on its panel, in dots, and where its middle is.
#pragma once

#include <QtGlobal>

#include "row/page_row.h"

namespace Brivon1 {

/// The dot columns that a panel takes for a row, be they more than it has.
qsizetype DotsOf(const PageRow& row);

/// The row with blanks in front of its characters, so that they stand in the middle of `columns`
/// dots, as far as its `places` characters allow. Dark blanks that stand in front of them already
/// are replaced, those behind them do not count. The cursor stays at its character.
PageRow CentredRow(const PageRow& row, qsizetype columns, qsizetype places);

}  // namespace Brivon1
