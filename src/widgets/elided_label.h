// A label for long texts such as file names: it shows what fits, with the middle left out, and the
// whole text as its tool tip. It never makes its window wider.
#pragma once

#include <QLabel>

class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
};
