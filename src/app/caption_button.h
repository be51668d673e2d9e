// A large button with a symbol over its caption. A caption that is longer than one line is wrapped
// and written smaller, because a button of the launcher's row cannot grow with it.
#pragma once

#include <QPushButton>

#include "app/fitted_text.h"
#include "app/launcher_symbols.h"

class CaptionButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

  void SetSymbol(LauncherSymbol symbol) { symbol_ = symbol; }

  /// How the caption fits the button as it is now.
  TextFit Fit() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QRectF Inside() const;
  QRectF SymbolArea() const;
  QRectF CaptionArea() const;

  LauncherSymbol symbol_ = LauncherSymbol::kNone;
};
