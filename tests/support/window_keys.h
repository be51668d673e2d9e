// The keys that come to a window because no control in it took them.
#pragma once

#include <utility>

#include <QKeyEvent>
#include <QWidget>

class WindowKeys : public QObject {
 public:
  explicit WindowKeys(QWidget* window) { window->installEventFilter(this); }

  /// The key that came last since this was last asked; 0 where none came.
  int TakeLast() { return std::exchange(last_, 0); }

  bool eventFilter(QObject* window, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) last_ = static_cast<QKeyEvent*>(event)->key();
    return QObject::eventFilter(window, event);
  }

 private:
  int last_ = 0;
};
