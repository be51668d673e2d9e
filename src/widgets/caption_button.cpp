#include "widgets/caption_button.h"

#include <algorithm>

#include <QHelpEvent>
#include <QImage>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "base/tool_tip_text.h"
#include "widgets/plain_tool_tip.h"

namespace {

constexpr int kMargin = 8;
constexpr int kPlainMargin = 3;  // of a button that never has a symbol
constexpr int kLeastWidth = 88;
constexpr qreal kGap = 6;
constexpr qreal kSymbolSize = 40;
constexpr qreal kAboveSymbol = 10;

// Smaller letters than these are a price that the symbol is not worth.
constexpr qreal kSmallestWithSymbol = 0.85;

}  // namespace

CaptionButton::CaptionButton(const QString& caption, QWidget* parent)
    : QPushButton(caption, parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize CaptionButton::sizeHint() const {
  // The height is that of the narrowest button: layouts take what heightForWidth() asks for, and no
  // more than this.
  const int width = CaptionWidth(font(), ShownCaption()) + 2 * kMargin;
  return {std::max(width, kLeastWidth), heightForWidth(minimumSizeHint().width())};
}

QSize CaptionButton::minimumSizeHint() const {
  const int width = LeastCaptionWidth(font(), ShownCaption()) + 2 * kMargin;
  return {std::max(width, kLeastWidth), QPushButton::sizeHint().height()};
}

int CaptionButton::heightForWidth(int width) const {
  const int caption = CaptionHeight(font(), ShownCaption(), width - 2 * kMargin);
  return std::max(QPushButton::sizeHint().height(), caption + 2 * kPlainMargin);
}

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
  const qreal without = FitText(font(), ShownCaption(), inside.size()).scale;
  return fit.whole && fit.scale >= std::min(kSmallestWithSymbol, without) ? area : QRectF();
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

qreal CaptionButton::Scale() const {
  qreal scale = Fit().scale;
  if (parentWidget() == nullptr) return scale;
  for (const auto* other :
       parentWidget()->findChildren<CaptionButton*>(Qt::FindDirectChildrenOnly)) {
    if (!other->isHidden() && other->y() == y()) scale = std::min(scale, other->Fit().scale);
  }
  return scale;
}

QList<QColor> CaptionButton::Grounds(const QStyleOptionButton& option) const {
  constexpr int kEvery = 4;  // pixels, within which a style's shades hardly differ
  QImage drawn(size(), QImage::Format_RGB32);
  drawn.fill(option.palette.color(QPalette::Window));
  QPainter painter(&drawn);
  style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
  const QRect area = SymbolArea().toRect() & drawn.rect();
  QList<QColor> grounds;
  for (int y = area.top(); y <= area.bottom(); y += kEvery) {
    grounds.append(drawn.pixelColor(area.center().x(), y));
  }
  return grounds;
}

void CaptionButton::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);

  const QColor line = option.palette.color(QPalette::ButtonText);
  QColor outline = line;
  QColor accent = line;
  if (isEnabled() && !SymbolArea().isEmpty()) {
    const QList<QColor> grounds = Grounds(option);
    outline = ReadableOn(grounds, line);
    accent = ReadableOn(grounds, option.palette.color(QPalette::Highlight));
  }
  DrawLauncherSymbol(&painter, symbol_, SymbolArea(), outline, accent);
  painter.setPen(line);
  painter.setFont(Scaled(font(), Scale()));
  DrawCaption(&painter, CaptionArea(), Qt::AlignCenter, text(), true);
}

QString CaptionButton::WholeToolTip() const {
  const QString tip = Brivon1::ShownByToolTip(toolTip());
  if (Fit().complete) return tip;
  return tip.isEmpty() ? ShownCaption() : ShownCaption() + QLatin1Char('\n') + tip;
}

bool CaptionButton::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && !Fit().complete) {
    ShowPlainToolTip(*static_cast<QHelpEvent*>(event), WholeToolTip(), this);
    return true;
  }
  return QPushButton::event(event);
}
