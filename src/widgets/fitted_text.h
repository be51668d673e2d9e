// Captions that wrap. A translated caption may be much longer than the English one: the layout
// gives it the width of a line, or several lines where there is less; where nothing can grow, it is
// written smaller, and only at the last cut.
#pragma once

#include <QFont>
#include <QLabel>
#include <QString>

class QPainter;

/// How a caption fits into a given space.
struct TextFit {
  qreal scale = 1;       ///< The size of its letters against those of the font.
  bool whole = true;     ///< Whether no word is broken.
  bool complete = true;  ///< Whether all of the text is there.
};

/// The smallest letters that FitText() takes, against those of the font.
inline constexpr qreal kSmallestScale = 0.6;

/// From one size of letters to the next smaller one.
inline constexpr qreal kSmallerScale = 0.95;

/// `font` with letters of `scale` times its size.
QFont Scaled(QFont font, qreal scale);

/// A caption as it is drawn where "&" marks the letter behind it as the shortcut: without the mark.
QString WithoutShortcutMark(QString caption);

/// A caption without what only the eye wants: the mark, and a colon at its end.
QString SpokenCaption(const QString& caption);

/// How `text` fits into `size` in `font`, with letters down to kSmallestScale of their size. Every
/// letter counts, also "&".
TextFit FitText(const QFont& font, const QString& text, const QSizeF& size);

/// The width at which `text` is best read: one line, or a part of it where it is very long.
int CaptionWidth(const QFont& font, const QString& text);

/// The width below which a word of `text` would be broken; one that is far too long is.
int LeastCaptionWidth(const QFont& font, const QString& text);

/// The height of `text` when it is wrapped into `width`.
int CaptionHeight(const QFont& font, const QString& text, int width);

/// Draws `caption` into `area` with the painter's font and pen, wrapped; lines without room are
/// left out. With `mnemonic`, an "&" marks the letter behind it, which is underlined.
void DrawCaption(QPainter* painter, const QRectF& area, Qt::Alignment alignment,
                 const QString& caption, bool mnemonic);

/// A label that wraps its text; what had to be cut, its tool tip shows.
class FittedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The text as it is drawn: with a buddy, it shows the buddy's shortcut.
  QString Shown() const { return buddy() == nullptr ? text() : WithoutShortcutMark(text()); }
  TextFit Fit() const { return FitText(font(), Shown(), QRectF(contentsRect()).size()); }
};
