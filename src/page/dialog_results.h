// The process-wide values through which the small modal dialogs hand their answer to the window
// that opened them.
#pragma once

#include <QByteArray>
#include <QString>

namespace Brivon1 {

inline bool DialogAccepted = false;  ///< True when the dialog was left with OK.
inline qint16 DialogDelay = 1;       ///< Seconds, 1 to 99.
inline QString DialogText;           ///< The display feature's name, or the page number's text.
inline qint16 SelectedRows = 0;      ///< Rows of the chosen dimension.
inline qint16 SelectedCols = 0;      ///< Dot columns of the chosen dimension.

}  // namespace Brivon1
