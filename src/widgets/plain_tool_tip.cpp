#include "widgets/plain_tool_tip.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void ShowPlainToolTip(const QHelpEvent& event, const QString& text, QWidget* widget) {
  QToolTip::showText(event.globalPos(), PlainToolTip(text), widget);
}
