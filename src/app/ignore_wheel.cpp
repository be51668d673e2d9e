#include "app/ignore_wheel.h"

#include <QComboBox>
#include <QEvent>

namespace {

class WheelFilter : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    return event->type() == QEvent::Wheel;
  }
};

}  // namespace

void IgnoreWheel(QComboBox* list) { list->installEventFilter(new WheelFilter(list)); }
