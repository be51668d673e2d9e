// What a window system paints anew.
#pragma once

#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

/// Keeps which part of a widget is painted while it lives.
class PaintWatcher : public QObject {
 public:
  explicit PaintWatcher(QWidget* widget) { widget->installEventFilter(this); }

  const QRegion& Painted() const { return painted_; }

  bool eventFilter(QObject* /*object*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

 private:
  QRegion painted_;
};
