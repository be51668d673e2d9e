// Captions in a given space. A translated caption may be much longer than the English one; it is
// wrapped, then written smaller, and only at the last cut, so that what surrounds it can stay.
#pragma once

#include <QLabel>
#include <QString>

class QPainter;

/// How a caption was made to fit.
struct TextFit {
  qreal scale = 1;       ///< The size of its letters against those of the font.
  bool whole = true;     ///< Whether no word is broken.
  bool complete = true;  ///< Whether all of the text is there.
};

/// A caption as it is drawn where "&" marks the letter behind it as the shortcut: without the mark.
QString WithoutShortcutMark(const QString& caption);

/// How `text` fits into `size` in `font`, with letters down to kSmallestScale of their size. Every
/// letter counts, also "&".
TextFit FitText(const QFont& font, const QString& text, const QSizeF& size);

/// The smallest letters that FitText() takes, against those of the font.
inline constexpr qreal kSmallestScale = 0.6;

/// Draws `text` into `area` as FitText() finds it, with the painter's font and pen, centred
/// vertically unless it is to be at the top. With `mnemonic`, an "&" marks the letter behind it as
/// the shortcut, which is underlined.
TextFit DrawFittedText(QPainter* painter, const QRectF& area, Qt::Alignment alignment,
                       const QString& text, bool mnemonic);

/// A label of fixed place that fits its text into its size; what had to be cut, its tool tip shows.
class FittedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Whether it shows the shortcut of its buddy.
  bool HasShortcut() const { return buddy() != nullptr; }
};
