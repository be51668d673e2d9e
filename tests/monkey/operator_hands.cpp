#include "monkey/operator_hands.h"

#include <algorithm>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <qtestspontaneevent.h>

#include "monkey/front.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kThousand = 1000;

QPoint PlaceIn(const QWidget& control, int x, int y) {
  return {std::clamp(control.width() * x / kThousand, 0, control.width() - 1),
          std::clamp(control.height() * y / kThousand, 0, control.height() - 1)};
}

// The same place in the control's window.
QPoint PlaceInWindow(const QWidget& control, int x, int y) {
  return control.mapTo(control.window(), PlaceIn(control, x, y));
}

Qt::MouseButton ButtonOf(const QString& word) {
  return word == "right"_L1    ? Qt::RightButton
         : word == "middle"_L1 ? Qt::MiddleButton
                               : Qt::LeftButton;
}

// The mouse at the window of a control, as the desktop tells of it. The window may be gone when one
// of these returns.
class Mouse {
 public:
  explicit Mouse(const QWidget& control) : window_(control.window()->windowHandle()) {}

  void Move(QPoint place, Qt::MouseButtons held = {}) const {
    Send(QEvent::MouseMove, place, Qt::NoButton, held, {});
  }
  void Press(QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) const {
    Send(QEvent::MouseButtonPress, place, button, button, keys);
  }
  void PressAgain(QPoint place) const {
    Send(QEvent::MouseButtonDblClick, place, Qt::LeftButton, Qt::LeftButton, {});
  }
  void Release(QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) const {
    Send(QEvent::MouseButtonRelease, place, button, Qt::NoButton, keys);
  }

 private:
  void Send(QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held,
            Qt::KeyboardModifiers keys) const {
    if (window_ == nullptr) return;
    QMouseEvent event(type, place, window_->mapToGlobal(place), button, held, keys);
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::sendEvent(window_, &event);
  }

  QPointer<QWindow> window_;
};

void Click(const QWidget& control, const Action& action) {
  const Mouse mouse(control);
  const QPoint place = PlaceInWindow(control, action.Number(1), action.Number(2));
  const Qt::MouseButton button = ButtonOf(action.Word(3));
  const Qt::KeyboardModifiers keys =
      action.Word(4) == "shift"_L1 ? Qt::ShiftModifier : Qt::NoModifier;
  mouse.Move(place);
  mouse.Press(place, button, keys);
  mouse.Release(place, button, keys);
}

void ClickTwice(const QWidget& control, const Action& action) {
  const Mouse mouse(control);
  const QPoint place = PlaceInWindow(control, action.Number(1), action.Number(2));
  mouse.Press(place, Qt::LeftButton);
  mouse.Release(place, Qt::LeftButton);
  mouse.PressAgain(place);
  mouse.Release(place, Qt::LeftButton);
}

void Drag(const QWidget& control, const Action& action) {
  const Mouse mouse(control);
  const QPoint from = PlaceInWindow(control, action.Number(1), action.Number(2));
  const QPoint to = PlaceInWindow(control, action.Number(3), action.Number(4));
  mouse.Press(from, Qt::LeftButton);
  for (int part = 1; part <= 4; ++part) mouse.Move(from + (to - from) * part / 4, Qt::LeftButton);
  mouse.Release(to, Qt::LeftButton);
}

// What has the keyboard; null where nothing has. A window that waits for another one's answer is
// told of no keys, not even while that one is yet to become the active window.
QWidget* KeyboardOwner() {
  QWidget* window = QApplication::activePopupWidget();
  if (window == nullptr && QApplication::activeWindow() != nullptr) {
    QWidget* modal = QApplication::activeModalWidget();
    window = modal != nullptr ? modal : QApplication::activeWindow();
  }
  return window == nullptr || window->focusWidget() == nullptr ? window : window->focusWidget();
}

void TurnWheel(QWidget* control, const Action& action) {
  const QPointF at = PlaceIn(*control, action.Number(1), action.Number(2));
  const QPoint turn(0, action.Number(3));
  QWheelEvent wheel(at, control->mapToGlobal(at), QPoint(), turn, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&wheel);
  QApplication::sendEvent(control, &wheel);
}

void Choose(QWidget* control, int index) {
  const QPointer<QWidget> list = control;
  list->setFocus();
  PressKeys(u"Home"_s);
  for (int i = 0; i < index && list != nullptr; ++i) PressKeys(u"Down"_s);
}

// Types `text`, and no more of it once a window has gone that it was typed into: who waited for
// that window's answer goes on before any desktop hands over the next key.
void Type(const QString& text, const std::function<void()>& typed) {
  QPointer<QWidget> window;
  for (const QChar letter : text) {
    const QPointer<QWidget> owner = KeyboardOwner();
    if (owner == nullptr || (window != nullptr && !window->isVisible())) return;
    window = owner->window();
    const auto code = static_cast<Qt::Key>(letter.toUpper().unicode());
    QTest::simulateEvent(owner, true, code, Qt::NoModifier, letter, false);
    if (owner != nullptr) QTest::simulateEvent(owner, false, code, Qt::NoModifier, letter, false);
    typed();
  }
}

bool EnterName(const QString& name) {
  auto* dialog = qobject_cast<QFileDialog*>(Front());
  if (dialog == nullptr) return false;
  auto* box = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
  box->setText(name);
  QTest::keyClick(box, Qt::Key_Return);
  return true;
}

void SetState(QWidget* window, const QString& state) {
  if (state == "minimized"_L1) {
    window->showMinimized();
  } else if (state == "maximized"_L1) {
    window->showMaximized();
  } else {
    window->showNormal();
  }
}

bool PerformAtControl(const Action& action) {
  QWidget* control = ControlAt(action.Word(0));
  if (control == nullptr || !control->isVisible()) return false;
  if (action.verb == "click"_L1) {
    Click(*control, action);
  } else if (action.verb == "double"_L1) {
    ClickTwice(*control, action);
  } else if (action.verb == "drag"_L1) {
    Drag(*control, action);
  } else if (action.verb == "wheel"_L1) {
    TurnWheel(control, action);
  } else if (action.verb == "focus"_L1) {
    control->setFocus();
  } else if (action.verb == "choose"_L1) {
    Choose(control, action.Number(1));
  } else {
    return false;
  }
  return true;
}

// What is done with the whole window.
bool PerformAtWindow(const Action& action, QWidget* window) {
  if (action.verb == "resize"_L1) {
    window->resize(action.Number(0), action.Number(1));
  } else if (action.verb == "state"_L1) {
    SetState(window, action.Word(0));
  } else if (action.verb == "close"_L1) {
    window->close();
  } else {
    return false;
  }
  return true;
}

// Keys and clicks could do anything to the disk in a file dialog.
bool MayBeDone(const Action& action) {
  if (FileDialogInFront() == nullptr) return action.verb != "name"_L1;
  const QStringList verbs = {u"name"_s, u"resize"_s, u"close"_s, u"clip"_s};
  return verbs.contains(action.verb) || action == Action{u"key"_s, {u"Esc"_s}};
}

}  // namespace

void PressKeys(const QString& keys) {
  const QPointer<QWidget> owner = KeyboardOwner();
  const QKeySequence sequence = QKeySequence::fromString(keys, QKeySequence::PortableText);
  if (owner == nullptr || sequence.isEmpty()) return;
  const QKeyCombination pressed = sequence[0];
  QTest::keyPress(owner, pressed.key(), pressed.keyboardModifiers());
  if (owner != nullptr) QTest::keyRelease(owner, pressed.key(), pressed.keyboardModifiers());
}

void ActivateFront() {
  QWidget* front = Front();
  if (front == nullptr || front->windowType() == Qt::Popup) return;
  if (QApplication::activeWindow() != front) front->activateWindow();
}

bool Perform(const Action& action, const std::function<void()>& typed) {
  QWidget* front = Front();
  if (front == nullptr || !MayBeDone(action)) return false;
  if (action.verb == "key"_L1) {
    PressKeys(action.Word(0));
  } else if (action.verb == "type"_L1) {
    Type(action.Word(0), typed);
  } else if (action.verb == "name"_L1) {
    return EnterName(action.Word(0));
  } else if (action.verb == "clip"_L1) {
    QApplication::clipboard()->setText(action.Word(0));
  } else if (action.verb == "elsewhere"_L1) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window != front) window->activateWindow();
    }
  } else {
    return PerformAtWindow(action, front) || PerformAtControl(action);
  }
  return true;
}
