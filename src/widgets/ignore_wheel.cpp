#include "widgets/ignore_wheel.h"

#include <QEvent>
#include <QWidget>

namespace {

class WheelFilter : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    event->ignore();  // it goes on to what lies around the control
    return true;
  }
};

}  // namespace

void IgnoreWheel(QWidget* control) {
  control->installEventFilter(new WheelFilter(control));
  if (control->focusPolicy() == Qt::WheelFocus) control->setFocusPolicy(Qt::StrongFocus);
}
