// A button that wraps a long caption. Where it cannot grow, its letters get smaller, and those of
// all buttons of its row with them. A large one can show a symbol with its caption.
#pragma once

#include <QColor>
#include <QList>
#include <QPushButton>

#include "widgets/fitted_text.h"
#include "widgets/launcher_symbols.h"

class QStyleOptionButton;

class CaptionButton : public QPushButton {
  Q_OBJECT

 public:
  explicit CaptionButton(const QString& caption, QWidget* parent = nullptr);
  explicit CaptionButton(QWidget* parent = nullptr) : CaptionButton(QString(), parent) {}

  void SetSymbol(LauncherSymbol symbol) { symbol_ = symbol; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

  /// How the caption fits the button as it is now.
  TextFit Fit() const;

  /// The size of the letters against those of the font: what the longest caption of the row needs.
  qreal Scale() const;

  /// Its tool tip, behind the caption where that is not seen whole.
  QString WholeToolTip() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QString ShownCaption() const { return WithoutShortcutMark(text()); }
  QRectF Inside() const;
  QRectF SymbolArea() const;
  QRectF CaptionArea() const;

  /// The shades of the button behind its symbol, as its style draws them.
  QList<QColor> Grounds(const QStyleOptionButton& option) const;

  LauncherSymbol symbol_ = LauncherSymbol::kNone;
};
