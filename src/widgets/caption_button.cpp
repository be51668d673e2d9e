#include "widgets/caption_button.h"

#include <algorithm>

#include <QHelpEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "widgets/plain_tool_tip.h"

namespace {

constexpr qreal kMargin = 8;
constexpr qreal kPlainMargin = 3;  // of a button that never has a symbol
constexpr qreal kGap = 6;
constexpr qreal kSymbolSize = 40;
constexpr qreal kAboveSymbol = 10;

// Smaller letters than these cost more than the symbol is worth.
constexpr qreal kSmallestWithSymbol = 0.85;

}  // namespace

QRectF CaptionButton::Inside() const {
  const qreal above = symbol_ == LauncherSymbol::kNone ? kPlainMargin : kMargin;
  return QRectF(rect()).adjusted(kMargin, above, -kMargin, -above);
}

QRectF CaptionButton::SymbolArea() const {
  const QRectF inside = Inside();
  const bool wide = inside.width() > 2 * inside.height();
  const qreal side = std::min({kSymbolSize, inside.width(), inside.height()});
  if (symbol_ == LauncherSymbol::kNone) return {};
  const QPointF at = wide ? QPointF(inside.left(), inside.center().y() - side / 2)
                          : QPointF(inside.center().x() - side / 2, inside.top() + kAboveSymbol);
  const QRectF area(at, QSizeF(side, side));
  QRectF caption = inside;
  if (wide) {
    caption.setLeft(area.right() + kGap);
  } else {
    caption.setTop(area.bottom() + kGap);
  }
  const TextFit fit = FitText(font(), ShownCaption(), caption.size());
  return fit.whole && fit.scale >= kSmallestWithSymbol ? area : QRectF();
}

QRectF CaptionButton::CaptionArea() const {
  QRectF area = Inside();
  const QRectF symbol = SymbolArea();
  if (symbol.isEmpty()) return area;
  if (symbol.left() == area.left()) {
    area.setLeft(symbol.right() + kGap);
  } else {
    area.setTop(symbol.bottom() + kGap);
  }
  return area;
}

TextFit CaptionButton::Fit() const { return FitText(font(), ShownCaption(), CaptionArea().size()); }

void CaptionButton::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);

  const QColor line = option.palette.color(QPalette::ButtonText);
  const QColor accent = isEnabled() ? option.palette.color(QPalette::Highlight) : line;
  DrawLauncherSymbol(&painter, symbol_, SymbolArea(), line, accent);
  painter.setPen(line);
  DrawFittedText(&painter, CaptionArea(), Qt::AlignHCenter | Qt::AlignVCenter, text(), true);
}

bool CaptionButton::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && !Fit().complete) {
    QString tip = ShownCaption();
    if (!toolTip().isEmpty()) tip += QLatin1Char('\n') + toolTip();
    ShowPlainToolTip(*static_cast<QHelpEvent*>(event), tip, this);
    return true;
  }
  return QPushButton::event(event);
}
