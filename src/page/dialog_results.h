// The process-wide values in which the small modal dialogs leave their answer. The windows ask by
// the dialogs' Ask(), which hands the answer over.
#pragma once

#include <QString>
#include <QtGlobal>

namespace Brivon1 {

inline bool DialogAccepted = false;  ///< True when the dialog was left with OK.
inline qint16 DialogDelay = 1;       ///< Seconds, 1 to 99.
inline QString DialogText;           ///< The display feature's name, or the page number's text.
inline qint16 SelectedRows = 0;      ///< Rows of the chosen dimension.
inline qint16 SelectedCols = 0;      ///< Dot columns of the chosen dimension.

}  // namespace Brivon1
