// The mouse wheel, for what follows it and for lists that must not.
#pragma once

#include <QApplication>
#include <QWheelEvent>
#include <QWidget>
#include <qtestspontaneevent.h>

/// Turns the wheel by one notch towards the user, the pointer being over `widget`. A touch pad says
/// in what phase of the movement that is.
inline void TurnWheel(QWidget* widget, Qt::ScrollPhase phase = Qt::NoScrollPhase,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  const QPointF at(5, 5);
  QWheelEvent wheel(at, widget->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton, modifiers,
                    phase, false);
  QSpontaneKeyEvent::setSpontaneous(&wheel);  // only what a hand did goes on to the parents
  qApp->notify(widget, &wheel);
}
