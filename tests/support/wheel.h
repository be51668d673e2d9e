// The mouse wheel, for lists that must not follow it.
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>

/// Turns the wheel by one notch towards the user, the pointer being over `widget`.
inline void TurnWheel(QWidget* widget) {
  const QPointF at(5, 5);
  QWheelEvent wheel(at, widget->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(widget, &wheel);
}
