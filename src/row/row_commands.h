// What an editor of rows offers beside typing: selecting by key and mouse, the clipboard, and a
// menu of commands. One of them serves all surfaces of an editor.
#pragma once

#include <functional>

#include <QObject>
#include <QString>

#include "row/attribute_menus.h"
#include "row/edited_message.h"

class QMenu;
class QPoint;
class RowSurface;

class RowCommands : public QObject {
  Q_OBJECT

 public:
  /// `show` is called after every change of `message`, of its selection or its current row, and
  /// `return_keyboard` where the keyboard then belongs to that row. All outlive this, which is
  /// `window`'s.
  RowCommands(QWidget* window, Brivon1::EditedMessage& message, std::function<void()> show,
              std::function<void()> return_keyboard);

  /// Does from now on in row `number` what is asked for on `surface`.
  void Serve(RowSurface& surface, int number);

  /// Offers in the menu what `controls` choose; they outlive this.
  void OfferAttributes(const AttributeControls& controls) { attributes_ = controls; }

  /// Shows what became of a choice of attributes; says of selected characters that they did not get
  /// them, because they would be too wide.
  void ShowAttributes();
  void SayTooWide();

 Q_SIGNALS:
  /// Other attributes were chosen for what is typed next, and nothing was selected.
  void AttributesChosen();

  /// What the operator should be told, in his language.
  void Said(const QString& text);

 private:
  void Do(Brivon1::RowCommand command);
  bool CanDo(Brivon1::RowCommand command) const;
  void OpenMenu(RowSurface& surface, int number, const QPoint& place);
  void AddCommand(QMenu* menu, Brivon1::RowCommand command, const QString& text);

  void Show();
  void Paste();

  Brivon1::EditedMessage& message_;
  std::function<void()> show_;
  std::function<void()> return_keyboard_;
  AttributeControls attributes_;
};

/// Shows a text beside the cursor of `surface` for a while.
void ShowBesideCursor(const RowSurface& surface, const QString& text);
