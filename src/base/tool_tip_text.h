// Tool tips of texts that are not a program's own: file names, frames, translated captions.
#pragma once

#include <QString>

namespace Brivon1 {

/// Whether a line of a tool tip that is too long for it goes on in the next one. One without blanks
/// can be broken all the same.
enum class LongLines { kWhole, kBroken };

/// `text` as a tool tip that shows it letter by letter, also where a tool tip would take it for
/// HTML.
QString ToolTipText(QString text, LongLines lines);

/// The text that a tool tip shows, which may be one of ToolTipText().
QString ShownByToolTip(const QString& tool_tip);

}  // namespace Brivon1
