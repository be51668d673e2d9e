// A label of one line that may be longer than its room: its end is left out then, and its tool tip
// says it all, unless it has one of its own.
#pragma once

#include <QLabel>

namespace VirtualPanel {

class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  // The text is plain, selectable by mouse.
  explicit ElidedLabel(QWidget* parent = nullptr);

  bool IsElided() const;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace VirtualPanel
