// A label for long texts such as file names: it shows what fits, with the middle left out unless it
// is told otherwise, and the whole text as its tool tip. It never makes its window wider.
#pragma once

#include <QLabel>

class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(QWidget* parent = nullptr);

  /// Which part is left out where not everything fits.
  void SetElision(Qt::TextElideMode elision) { elision_ = elision; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  Qt::TextElideMode elision_ = Qt::ElideMiddle;
};
