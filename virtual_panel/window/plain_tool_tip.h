// Tool tips of texts that are not the program's own: frames, rows, file names.
#pragma once

#include <QString>

namespace VirtualPanel {

// `text` as a tool tip that shows it as it is, also where a tool tip would take it for HTML. What
// has no blanks can be broken all the same, or it would end at the edge of the screen.
QString PlainToolTip(QString text);

}  // namespace VirtualPanel
