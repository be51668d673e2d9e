// Pages that a panel shows one after the other, each for its seconds, from the first again after
// the last.
#pragma once

#include <QList>
#include <QtGlobal>

namespace PanelDots {

// How long a page is shown that is to be shown for so many seconds: one second at least, or it
// would never be seen.
qint64 ShownMs(int seconds);

// The page that is shown, and its moments in the time since the first one began for the first time.
struct PageAtTime {
  qsizetype index = 0;
  qint64 entered_ms = 0;  // each page enters anew in every round; a single one enters but once
  qint64 left_ms = 0;     // until the next one
};

// `seconds` are those of the pages. Any time has an answer, a negative one too; without pages it is
// the default.
PageAtTime PageAt(const QList<int>& seconds, qint64 elapsed_ms);

}  // namespace PanelDots
