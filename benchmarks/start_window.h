// A program that ends as soon as its window has been drawn for the first time.
#pragma once

#include <memory>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

class EndWhenDrawn : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    // Behind the paint event, so that the drawing itself is part of the time.
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, [] { QApplication::exit(0); });
    return QObject::eventFilter(object, event);
  }
};

template <typename MakeWindow>
int RunUntilDrawn(int argc, char** argv, const MakeWindow& make_window) {
  QApplication application(argc, argv);
  EndWhenDrawn end;
  const auto window = make_window();
  window->installEventFilter(&end);
  window->show();
  return QApplication::exec();
}
