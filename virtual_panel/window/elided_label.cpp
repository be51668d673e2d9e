#include "window/elided_label.h"

#include <QHelpEvent>
#include <QStyleOption>
#include <QStylePainter>
#include <QToolTip>

#include "base/tool_tip_text.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
}

bool ElidedLabel::IsElided() const {
  return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

QSize ElidedLabel::minimumSizeHint() const {
  const QSize whole = QLabel::minimumSizeHint();
  const int margins = width() - contentsRect().width();
  const int few = fontMetrics().horizontalAdvance(u"listening\u2026"_s) + margins;
  return {qMin(whole.width(), few), whole.height()};
}

bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && IsElided()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Brivon1::ToolTipText(text(), Brivon1::LongLines::kBroken), this);
    return true;
  }
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
  if (!IsElided()) {
    QLabel::paintEvent(event);
    return;
  }
  QStylePainter painter(this);
  QStyleOption ground;
  ground.initFrom(this);
  painter.drawPrimitive(QStyle::PE_Widget, ground);
  const QRect place = contentsRect();
  painter.drawItemText(place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                       fontMetrics().elidedText(text(), Qt::ElideRight, place.width()),
                       foregroundRole());
}

}  // namespace VirtualPanel
