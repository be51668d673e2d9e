// A program that says when its window came onto the screen and when it had been drawn, as
// nanoseconds of the system's monotonic clock, and ends.
#pragma once

#include <chrono>
#include <cstdio>
#include <memory>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>

inline void SayNow() {
  std::printf("%lld\n",
              static_cast<long long>(std::chrono::steady_clock::now().time_since_epoch().count()));
}

class ShowWatcher : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Expose && !is_shown_) {
      is_shown_ = true;
      SayNow();
      // Behind the drawing, which the event itself sets off.
      QTimer::singleShot(0, qApp, [] {
        SayNow();
        QApplication::exit(0);
      });
    }
    return QObject::eventFilter(object, event);
  }

 private:
  bool is_shown_ = false;
};

template <typename MakeWindow>
int RunUntilDrawn(int argc, char** argv, const MakeWindow& make_window) {
  QApplication application(argc, argv);
  ShowWatcher watcher;
  const auto window = make_window();
  window->winId();
  window->windowHandle()->installEventFilter(&watcher);
  window->show();
  return QApplication::exec();
}
