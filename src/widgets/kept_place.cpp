#include "widgets/kept_place.h"

#include <QSizePolicy>
#include <QWidget>

void KeepPlaceWhenHidden(QWidget* control) {
  QSizePolicy policy = control->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control->setSizePolicy(policy);
}
