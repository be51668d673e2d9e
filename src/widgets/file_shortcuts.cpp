#include "widgets/file_shortcuts.h"

#include <QPushButton>
#include <QShortcut>

namespace {

// Captions come and go with the language, so the keys are bound beside the button, not to it.
QShortcut* Bind(const QKeySequence& keys, QPushButton* button) {
  auto* shortcut = new QShortcut(keys, button->window());
  QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  return shortcut;
}

void ShowKeys(const QKeySequence& keys, QPushButton* button) {
  button->setToolTip(keys.toString(QKeySequence::NativeText));
}

void AddShortcut(const QKeySequence& keys, QPushButton* button) {
  Bind(keys, button);
  ShowKeys(keys, button);
}

}  // namespace

void AddFileShortcuts(const FileButtons& buttons) {
  AddShortcut(QKeySequence::New, buttons.new_file);
  AddShortcut(QKeySequence::Open, buttons.open);
  AddShortcut(QKeySequence::Save, buttons.save);
  const QKeySequence save_as(QKeySequence::SaveAs);
  AddShortcut(save_as.isEmpty() ? QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S) : save_as,
              buttons.save_as);
  // Held too long, the keys would reach the send dialog, which they tell to send.
  for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Return}) {
    Bind(Qt::CTRL | key, buttons.send)->setAutoRepeat(false);
  }
  ShowKeys(Qt::CTRL | Qt::Key_Return, buttons.send);
}
