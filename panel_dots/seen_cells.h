// How much of a text a panel's row shows from its first dot on. A text may be of any length, and no
// more of it needs to be looked at than that.
#pragma once

#include <functional>

#include <QList>
#include <QtGlobal>

#include "panel_dots/dot_matrix.h"
#include "panel_dots/message_text.h"

namespace PanelDots {

// How many characters to begin with: more of them than `columns` dot columns show, unless they were
// typed like codes.
qsizetype UsualLength(int columns);

// The cells of a text as far as `columns` dot columns show it, and farther only to say whether it
// is cut. `cells_of` gives those of its first characters, of which it has `length`.
QList<Cell> BeginningOf(qsizetype length, int columns, const RowLook& look,
                        const std::function<QList<Cell>(qsizetype characters)>& cells_of);

// The cells up to the first one that is cut, which is the last one then. Of the others, which have
// no light, those are left that begin within `columns`.
QList<Cell> UpToCut(QList<Cell> cells, int columns, const RowLook& look);

}  // namespace PanelDots
