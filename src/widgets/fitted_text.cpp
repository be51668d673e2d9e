#include "widgets/fitted_text.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QRegularExpression>

#include "widgets/plain_tool_tip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidest = 30;  // average characters in a line

// What the letters of a line may take beyond their advances, in pixels.
constexpr int kBeyondAdvance = 1;

qreal LongestWord(const QFontMetricsF& metrics, const QString& text) {
  qreal longest = 0;
  for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
    longest = std::max(longest, metrics.horizontalAdvance(word));
  }
  return longest;
}

/// Words are broken only where the longest does not fit.
int WrapFlag(const QFont& font, const QString& text, qreal width) {
  return LongestWord(QFontMetricsF(font), text) <= width ? Qt::TextWordWrap : Qt::TextWrapAnywhere;
}

qreal WrappedHeight(const QFont& font, const QString& text, qreal width) {
  const QRectF space(0, 0, width, QWIDGETSIZE_MAX);
  return QFontMetricsF(font).boundingRect(space, WrapFlag(font, text, width), text).height();
}

// `caption` with the mark of its shortcut, which is the first one, as the toolkit draws it.
QString WithOneMark(const QString& caption) {
  static const QRegularExpression shortcut(u"^(?:[^&]|&&)*&[^&]"_s);
  const auto length = shortcut.match(caption).capturedLength();
  return caption.left(length) + WithoutShortcutMark(caption.mid(length)).replace(u'&', u"&&"_s);
}

int Widest(const QFont& font) {
  return static_cast<int>(QFontMetricsF(font).averageCharWidth() * kWidest);
}

}  // namespace

QFont Scaled(QFont font, qreal scale) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(std::max(1, qRound(font.pixelSize() * scale)));
  }
  return font;
}

QString WithoutShortcutMark(QString caption) {
  static const QRegularExpression mark(u"&(.)"_s);
  return caption.replace(mark, u"\\1"_s);
}

QString SpokenCaption(const QString& caption) {
  QString spoken = WithoutShortcutMark(caption).trimmed();
  if (spoken.endsWith(u':')) spoken.chop(1);
  return spoken.trimmed();
}

TextFit FitText(const QFont& font, const QString& text, const QSizeF& size) {
  TextFit broken{0, false, true};
  for (qreal scale = 1; scale >= kSmallestScale; scale *= kSmallerScale) {
    const QFont scaled = Scaled(font, scale);
    if (size.isEmpty() || WrappedHeight(scaled, text, size.width()) > size.height()) continue;
    if (LongestWord(QFontMetricsF(scaled), text) <= size.width()) return {scale, true, true};
    if (broken.scale == 0) broken.scale = scale;
  }
  return broken.scale > 0 ? broken : TextFit{kSmallestScale, false, false};
}

int CaptionWidth(const QFont& font, const QString& text) {
  const qreal line = QFontMetricsF(font).horizontalAdvance(text);
  return std::min(static_cast<int>(std::ceil(line)), Widest(font));
}

int LeastCaptionWidth(const QFont& font, const QString& text) {
  const qreal word = LongestWord(QFontMetricsF(font), text);
  return std::min(static_cast<int>(std::ceil(word)), Widest(font));
}

int CaptionHeight(const QFont& font, const QString& text, int width) {
  return static_cast<int>(std::ceil(WrappedHeight(font, text, width)));
}

void DrawCaption(QPainter* painter, const QRectF& area, Qt::Alignment alignment,
                 const QString& caption, bool mnemonic) {
  const QString plain = mnemonic ? WithoutShortcutMark(caption) : caption;
  int flags = static_cast<int>(alignment.toInt()) | WrapFlag(painter->font(), plain, area.width());
  if (mnemonic) flags |= Qt::TextShowMnemonic;
  QRectF seen = area;
  if (WrappedHeight(painter->font(), plain, area.width()) > area.height()) {
    const qreal line = QFontMetricsF(painter->font()).lineSpacing();
    seen.setHeight(std::max(line, std::floor(area.height() / line) * line));
    flags = (flags & ~Qt::AlignVertical_Mask) | Qt::AlignTop;
  }
  painter->save();
  painter->setClipRect(seen, Qt::IntersectClip);
  painter->drawText(seen, flags, mnemonic ? WithOneMark(caption) : caption);
  painter->restore();
}

QSize FittedLabel::sizeHint() const {
  const int width = CaptionWidth(font(), Shown());
  return QSize(width + kBeyondAdvance, CaptionHeight(font(), Shown(), width))
      .grownBy(contentsMargins());
}

QSize FittedLabel::minimumSizeHint() const {
  return QSize(LeastCaptionWidth(font(), Shown()) + kBeyondAdvance, fontMetrics().height())
      .grownBy(contentsMargins());
}

int FittedLabel::heightForWidth(int width) const {
  const QMargins around = contentsMargins();
  const int inside = width - around.left() - around.right() - kBeyondAdvance;
  return CaptionHeight(font(), Shown(), inside) + around.top() + around.bottom();
}

bool FittedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && !Fit().complete) {
    ShowPlainToolTip(*static_cast<QHelpEvent*>(event), Shown(), this);
    return true;
  }
  return QLabel::event(event);
}

void FittedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setFont(Scaled(font(), Fit().scale));
  painter.setPen(palette().color(foregroundRole()));
  DrawCaption(&painter, contentsRect(), alignment(), text(), buddy() != nullptr);
}
