#include "app/plain_tool_tip.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

void ShowPlainToolTip(const QHelpEvent& event, const QString& text, QWidget* widget) {
  QToolTip::showText(event.globalPos(),
                     Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text, widget);
}
