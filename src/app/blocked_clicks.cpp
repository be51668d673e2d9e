#include "app/blocked_clicks.h"

#include <algorithm>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCursor>

namespace {

bool IsDown() { return QGuiApplication::mouseButtons() != Qt::NoButton; }

void BringToFront(QWidget* window) {
  window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
  window->raise();
  window->activateWindow();
}

}  // namespace

BlockedClicks::BlockedClicks(const QWidget* launcher, QDialog* task)
    : launcher_(launcher), task_(task), was_down_(IsDown()) {
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
          &BlockedClicks::LookAtButtons);
}

void BlockedClicks::LookAtButtons() {
  const bool is_down = IsDown();
  const bool is_press = is_down && !was_down_;
  was_down_ = is_down;
  if (is_press && task_ != nullptr && task_->isVisible() && IsPointerOverLauncher()) BringBack();
}

bool BlockedClicks::IsPointerOverLauncher() const {
  const QPoint pointer = QCursor::pos();
  if (!launcher_->isVisible() || !launcher_->frameGeometry().contains(pointer)) return false;
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::none_of(windows.begin(), windows.end(), [&](const QWidget* window) {
    return window != launcher_ && window->isVisible() && !window->isMinimized() &&
           window->frameGeometry().contains(pointer);
  });
}

void BlockedClicks::BringBack() const {
  BringToFront(task_);
  QWidget* over_task = QApplication::activeModalWidget();
  if (over_task != nullptr && over_task != task_) BringToFront(over_task);
}
