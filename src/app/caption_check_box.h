// A check box that keeps to its place: a caption that is longer than its line is wrapped and
// written smaller.
#pragma once

#include <QCheckBox>

class CaptionCheckBox : public QCheckBox {
  Q_OBJECT

 public:
  using QCheckBox::QCheckBox;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};
