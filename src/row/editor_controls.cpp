#include "row/editor_controls.h"

#include <memory>
#include <utility>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

#include "row/dots_delegate.h"
#include "widgets/fitted_text.h"
#include "widgets/ignore_wheel.h"

namespace {

/// Calls `choose` for each choice in a list, also of the entry that stands there already: selected
/// characters may have another one. Where it returns false the list is back at an earlier entry,
/// which nobody has chosen.
template <typename Choose>
void ConnectChoice(QComboBox* list, const Choose& choose) {
  const auto is_refused = std::make_shared<bool>(false);
  QObject::connect(list, &QComboBox::currentIndexChanged, list,
                   [list, choose, is_refused](int index) {
                     *is_refused = !choose(index);
                     // A change that the program makes is followed by no activated().
                     QMetaObject::invokeMethod(
                         list, [is_refused] { *is_refused = false; }, Qt::QueuedConnection);
                   });
  QObject::connect(list, &QComboBox::activated, list, [choose, is_refused](int index) {
    if (!std::exchange(*is_refused, false)) choose(index);
  });
}

}  // namespace

void ConnectAttributes(const AttributeControls& controls, Brivon1::EditedMessage& message,
                       RowCommands& commands, const std::function<void()>& return_keyboard) {
  for (const char* name : Brivon1::kColourNames) controls.colour->addItem(QLatin1String(name));
  for (const char* name : Brivon1::kSizeNames) controls.size->addItem(QLatin1String(name));
  ShowColoursInDots(controls.colour);
  ShowSizesInDots(controls.size);
  ConnectChoice(controls.colour, [&message, &commands](int index) {
    message.ChooseColour(index);
    commands.ShowAttributes();
    return true;
  });
  ConnectChoice(controls.size, [&message, &commands, list = controls.size](int index) {
    if (message.ChooseSize(index)) {
      commands.ShowAttributes();
      return true;
    }
    const QSignalBlocker blocker(list);
    list->setCurrentIndex(message.CurrentAttributes().size - 'A');
    commands.SayTooWide();
    return false;
  });
  QObject::connect(controls.blink, &QCheckBox::toggled, controls.blink,
                   [&message, &commands](bool checked) {
                     message.ChooseBlink(checked);
                     commands.ShowAttributes();
                   });
  QObject::connect(controls.blink, &QCheckBox::clicked, controls.blink, return_keyboard);
  for (QComboBox* list : {controls.colour, controls.size}) new ListGuard(list, return_keyboard);
  commands.OfferAttributes(controls);
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
  list->installEventFilter(this);
}

bool ListGuard::eventFilter(QObject* object, QEvent* event) {
  if (object == list_) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    closed_();
    return true;
  }
  // A list that vanishes with its window has nothing to give back.
  if (event->type() == QEvent::Hide && list_->isVisible()) closed_();
  return false;
}
