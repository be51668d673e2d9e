#include "widgets/ignore_wheel.h"

#include <QComboBox>
#include <QEvent>

namespace {

class WheelFilter : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() != QEvent::Wheel) return false;
    event->ignore();  // it goes on to what lies around the list
    return true;
  }
};

}  // namespace

void IgnoreWheel(QComboBox* list) {
  list->installEventFilter(new WheelFilter(list));
  if (list->focusPolicy() == Qt::WheelFocus) list->setFocusPolicy(Qt::StrongFocus);
}
