// The table at the end: who has it and who has not, and why.
#pragma once

#include <QString>

#include "reports/report.h"
#include "reports/terminal.h"

namespace BrivonCtl {

/// One line for each panel, and a total. On a terminal the reasons are broken at its width. Quiet,
/// only those that have it not are listed, without a total; nothing where all have it.
QString ResultsTable(const Summary& summary, bool is_quiet, const Terminal& terminal);

/// "3 of 5 panels done, 2 failed, 12.3 s"
QString TotalText(const Summary& summary);

/// The colour of a result.
Colour ColourOf(Result result);

}  // namespace BrivonCtl
