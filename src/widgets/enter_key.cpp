#include "widgets/enter_key.h"

#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>

namespace {

/// Sees the keys that the focused control has left to its window.
class EnterKey : public QObject {
 public:
  explicit EnterKey(QDialog* window) : QObject(window), window_(window) {
    window->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (object != window_ || event->type() != QEvent::KeyPress) return false;
    const auto* press = static_cast<const QKeyEvent*>(event);
    auto* button = qobject_cast<QPushButton*>(window_->focusWidget());
    const bool is_enter = press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter;
    if (!is_enter || button == nullptr || !button->isEnabled()) return false;
    // A key that is held too long presses once.
    if (!press->isAutoRepeat()) button->click();
    return true;
  }

 private:
  QDialog* window_;
};

}  // namespace

void LetEnterPressButtons(QDialog* window) { new EnterKey(window); }
