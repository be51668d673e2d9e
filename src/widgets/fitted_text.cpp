#include "widgets/fitted_text.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>

#include "widgets/plain_tool_tip.h"

namespace {

constexpr qreal kStep = 0.95;

// A text without the "&" of its shortcut, and where the underlined letter stands.
struct Plain {
  QString text;
  qsizetype shortcut = -1;
};

Plain WithoutMnemonic(const QString& text) {
  Plain plain;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) {
      ++i;
      if (text[i] != u'&' && plain.shortcut < 0) plain.shortcut = plain.text.size();
    }
    plain.text += text[i];
  }
  return plain;
}

QFont Scaled(QFont font, qreal scale) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * scale);
  } else {
    font.setPixelSize(std::max(1, qRound(font.pixelSize() * scale)));
  }
  return font;
}

bool WordsFit(const QFont& font, const QString& text, qreal width) {
  const QFontMetricsF metrics(font);
  const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
  return std::all_of(words.begin(), words.end(),
                     [&](const QString& word) { return metrics.horizontalAdvance(word) <= width; });
}

qreal LayOut(QTextLayout& layout, qreal width, Qt::Alignment alignment) {
  QTextOption option(alignment & Qt::AlignHorizontal_Mask);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  qreal height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  return height;
}

TextFit FitPlainText(const QFont& font, const QString& text, const QSizeF& size) {
  TextFit fit;
  TextFit broken{0, false, true};
  for (; fit.scale >= kSmallestScale; fit.scale *= kStep) {
    const QFont scaled = Scaled(font, fit.scale);
    QTextLayout layout(text, scaled);
    if (LayOut(layout, size.width(), Qt::AlignLeft) > size.height()) continue;
    if (WordsFit(scaled, text, size.width())) return fit;
    if (broken.scale == 0) broken.scale = fit.scale;
  }
  return broken.scale > 0 ? broken : TextFit{kSmallestScale, false, false};
}

}  // namespace

QString WithoutShortcutMark(const QString& caption) { return WithoutMnemonic(caption).text; }

TextFit FitText(const QFont& font, const QString& text, const QSizeF& size) {
  return FitPlainText(font, text, size);
}

TextFit DrawFittedText(QPainter* painter, const QRectF& area, Qt::Alignment alignment,
                       const QString& text, bool mnemonic) {
  const Plain plain = mnemonic ? WithoutMnemonic(text) : Plain{text, -1};
  const TextFit fit = FitPlainText(painter->font(), plain.text, area.size());
  QTextLayout layout(plain.text, Scaled(painter->font(), fit.scale));
  if (plain.shortcut >= 0) {
    QTextLayout::FormatRange underline;
    underline.start = static_cast<int>(plain.shortcut);
    underline.length = 1;
    underline.format.setFontUnderline(true);
    layout.setFormats({underline});
  }
  const qreal height = LayOut(layout, area.width(), alignment);
  const qreal spare = std::max<qreal>(0, area.height() - height);
  const qreal top = area.top() + (alignment.testFlag(Qt::AlignTop) ? 0 : spare / 2);
  painter->save();
  painter->setClipRect(area, Qt::IntersectClip);
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    const bool fits = line.rect().bottom() <= area.height() + 1;
    if (fit.complete || fits) line.draw(painter, {area.left(), top});
  }
  painter->restore();
  return fit;
}

bool FittedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const QString shown = HasShortcut() ? WithoutShortcutMark(text()) : text();
    if (!FitText(font(), shown, QRectF(contentsRect()).size()).complete) {
      ShowPlainToolTip(*static_cast<QHelpEvent*>(event), shown, this);
      return true;
    }
  }
  return QLabel::event(event);
}

void FittedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setFont(font());
  painter.setPen(palette().color(foregroundRole()));
  DrawFittedText(&painter, contentsRect(), alignment(), text(), HasShortcut());
}
