#include "widgets/plain_tool_tip.h"

#include <QHelpEvent>
#include <QToolTip>

#include "base/tool_tip_text.h"

void ShowPlainToolTip(const QHelpEvent& event, const QString& text, QWidget* widget) {
  const QString tip = Brivon1::ToolTipText(text, Brivon1::LongLines::kWhole);
  QToolTip::showText(event.globalPos(), tip, widget);
}
