#include "row/editor_controls.h"

#include <utility>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QShortcut>

#include "widgets/fitted_text.h"
#include "widgets/ignore_wheel.h"

void ConnectAttributes(const AttributeControls& controls, Brivon1::EditedMessage& message,
                       const std::function<void()>& return_keyboard) {
  for (const char* name : Brivon1::kColourNames) controls.colour->addItem(QLatin1String(name));
  for (const char* name : Brivon1::kSizeNames) controls.size->addItem(QLatin1String(name));
  QObject::connect(controls.colour, &QComboBox::currentIndexChanged, controls.colour,
                   [&message](int index) { message.ChooseColour(index); });
  QObject::connect(controls.size, &QComboBox::currentIndexChanged, controls.size,
                   [&message](int index) { message.ChooseSize(index); });
  QObject::connect(controls.blink, &QCheckBox::toggled, controls.blink,
                   [&message](bool checked) { message.ChooseBlink(checked); });
  QObject::connect(controls.blink, &QCheckBox::clicked, controls.blink, return_keyboard);
  for (QComboBox* list : {controls.colour, controls.size}) new ListGuard(list, return_keyboard);
}

RowWords WordsOf(const AttributeControls& controls) {
  RowWords words;
  for (int n = 0; n < controls.colour->count(); ++n) {
    words.colours[n] = controls.colour->itemText(n);
  }
  for (int n = 0; n < controls.size->count(); ++n) {
    words.sizes[n] = controls.size->itemText(n);
  }
  words.blinking = WithoutShortcutMark(controls.blink->text());
  return words;
}

void AddUndoShortcuts(QWidget* window, Brivon1::EditedMessage& message,
                      const std::function<void()>& show) {
  const auto add = [&](const QKeySequence& keys, bool (Brivon1::EditedMessage::*act)()) {
    QObject::connect(new QShortcut(keys, window), &QShortcut::activated, window,
                     [&message, act, show] {
                       if ((message.*act)()) show();
                     });
  };
  add(QKeySequence(Qt::CTRL | Qt::Key_Z), &Brivon1::EditedMessage::Undo);
  add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), &Brivon1::EditedMessage::Redo);
  add(QKeySequence(Qt::CTRL | Qt::Key_Y), &Brivon1::EditedMessage::Redo);
}

ListGuard::ListGuard(QComboBox* list, std::function<void()> closed)
    : QObject(list), list_(list), closed_(std::move(closed)) {
  IgnoreWheel(list);
  list->view()->installEventFilter(this);
}

bool ListGuard::eventFilter(QObject* /*view*/, QEvent* event) {
  // A list that vanishes with its window has nothing to give back.
  if (event->type() == QEvent::Hide && list_->isVisible()) closed_();
  return false;
}
