// Check boxes and option buttons that keep to their place: a caption that is longer than its line
// is wrapped and written smaller.
#pragma once

#include <QCheckBox>
#include <QRadioButton>

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

class CaptionRadioButton : public QRadioButton {
  Q_OBJECT

 public:
  using QRadioButton::QRadioButton;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};
