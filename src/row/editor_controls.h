// What the windows of the page editor and of the scrolling message editor do alike with their
// controls: the attributes of what is typed next, the lists, and the keys for undo.
#pragma once

#include <functional>

#include <QObject>

#include "row/attribute_menus.h"
#include "row/edited_message.h"
#include "row/row_accessible.h"
#include "row/row_commands.h"

class QComboBox;

/// Fills the lists and lets all three choose the attributes of `message`, which outlives them as
/// `commands` do, also from the menu of a row. Who has chosen types on: `return_keyboard` is
/// called.
void ConnectAttributes(const AttributeControls& controls, Brivon1::EditedMessage& message,
                       RowCommands& commands, const std::function<void()>& return_keyboard);

/// What screen readers call the attributes: the captions of the controls as they are now.
RowWords WordsOf(const AttributeControls& controls);

/// Binds the usual keys of undo and redo in `window`. `show` is called for an edit of `message`
/// that was taken back or made again.
void AddUndoShortcuts(QWidget* window, Brivon1::EditedMessage& message,
                      const std::function<void()>& show);

/// Keeps a list from being changed by accident, and gives the keyboard back after a choice and at
/// Enter.
class ListGuard : public QObject {
  Q_OBJECT

 public:
  /// Ignores a wheel that passes over `list`, and calls `closed` whenever the list is closed, where
  /// a letter that is typed on would else choose an entry.
  ListGuard(QComboBox* list, std::function<void()> closed);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QComboBox* list_;
  std::function<void()> closed_;
};
