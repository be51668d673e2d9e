// A frame whose title is seen whole: it is as wide as the title, if that is no longer than a few
// words. What is cut of a longer one, its tool tip shows.
#pragma once

#include <QGroupBox>

class CaptionBox : public QGroupBox {
  Q_OBJECT

 public:
  using QGroupBox::QGroupBox;

  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
};
