// A button that keeps its size: a caption that is longer than its line is wrapped and written
// smaller. A large one can show a symbol with its caption.
#pragma once

#include <QPushButton>

#include "widgets/fitted_text.h"
#include "widgets/launcher_symbols.h"

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
  QString ShownCaption() const { return WithoutShortcutMark(text()); }
  QRectF Inside() const;
  QRectF SymbolArea() const;
  QRectF CaptionArea() const;

  LauncherSymbol symbol_ = LauncherSymbol::kNone;
};
