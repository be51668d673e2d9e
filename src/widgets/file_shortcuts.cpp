#include "widgets/file_shortcuts.h"

#include <QPushButton>
#include <QShortcut>

namespace {

// Captions come and go with the language, so the keys are bound beside the button, not to it.
void AddShortcut(const QKeySequence& keys, QPushButton* button) {
  QObject::connect(new QShortcut(keys, button->window()), &QShortcut::activated, button,
                   &QPushButton::click);
  button->setToolTip(keys.toString(QKeySequence::NativeText));
}

}  // namespace

void AddFileShortcuts(const FileButtons& buttons) {
  AddShortcut(QKeySequence::New, buttons.new_file);
  AddShortcut(QKeySequence::Open, buttons.open);
  AddShortcut(QKeySequence::Save, buttons.save);
  const QKeySequence save_as(QKeySequence::SaveAs);
  AddShortcut(save_as.isEmpty() ? QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S) : save_as,
              buttons.save_as);
}
