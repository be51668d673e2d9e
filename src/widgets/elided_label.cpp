#include "widgets/elided_label.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>

#include "widgets/plain_tool_tip.h"

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 20, fontMetrics().height() + 2 * margin() + 2};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, sizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), elision_, contentsRect().width());
  painter.drawItemText(contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                       foregroundRole());
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    ShowPlainToolTip(*static_cast<QHelpEvent*>(event), text(), this);
    return true;
  }
  return QLabel::event(event);
}
