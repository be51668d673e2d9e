#include "widgets/next_input.h"

#include <utility>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace {

/// Keys that say something only with another one.
bool IsModifier(int key) {
  switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
      return true;
    default:
      return false;
  }
}

}  // namespace

NextInput::NextInput(QWidget* window, std::function<void()> taken)
    : QObject(window), window_(*window), taken_(std::move(taken)) {}

void NextInput::Await() {
  awaits_ = true;
  QCoreApplication::instance()->installEventFilter(this);
}

void NextInput::Take() {
  awaits_ = false;
  taken_();
}

bool NextInput::IsOfWindow(const QObject* object) const {
  if (!object->isWidgetType()) return object == window_.windowHandle();
  return static_cast<const QWidget*>(object)->window() == &window_;
}

bool NextInput::TakesKey(const QKeyEvent& event) {
  if (IsModifier(event.key())) return false;
  if (awaits_) {
    held_key_ = event.key();
    Take();
    return true;
  }
  if (event.isAutoRepeat() && event.key() == held_key_) return true;
  held_key_ = 0;
  click_was_taken_ = false;
  return false;
}

bool NextInput::TakesClick() {
  click_was_taken_ = std::exchange(awaits_, false);
  if (click_was_taken_) taken_();
  return click_was_taken_;
}

bool NextInput::eventFilter(QObject* object, QEvent* event) {
  if (!IsOfWindow(object)) return false;
  switch (event->type()) {
    case QEvent::ShortcutOverride: {
      const auto& key = *static_cast<QKeyEvent*>(event);
      const bool is_taken = awaits_ || (key.isAutoRepeat() && key.key() == held_key_);
      if (is_taken) event->accept();  // so that it comes as a key, not as a shortcut
      return is_taken;
    }
    case QEvent::KeyPress:
      return TakesKey(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
      return static_cast<QKeyEvent*>(event)->key() == held_key_;
    case QEvent::MouseButtonPress:
      return TakesClick();
    case QEvent::MouseButtonDblClick:
      return awaits_ ? TakesClick() : click_was_taken_;
    case QEvent::MouseButtonRelease:
    case QEvent::ContextMenu:
      return click_was_taken_;
    default:
      return false;
  }
}
