// The surface on which one row of a page, or a span of a scrolling message, is shown and typed. It
// draws its row and reports what the keyboard, an input method and the mouse do to it; what that
// means is decided elsewhere.
#pragma once

#include <QKeySequence>
#include <QWidget>

#include "row/draw_cell.h"
#include "row/row_accessible.h"

/// The usual keys of a command; none where it has none.
QKeySequence KeysOf(Brivon1::RowCommand command);

class RowSurface : public QWidget {
  Q_OBJECT

 public:
  /// `row` is shown as it is whenever something is painted, and outlives the surface.
  RowSurface(const Brivon1::PageRow& row, QWidget* parent);

  /// To be called after every change of the row, which is drawn again if it is another one than
  /// before. `span` is what is shown of it.
  void RedrawRow(RowSpan span = {});

  enum class CursorLine { kNone, kShown, kErased };
  void SetCursorLine(CursorLine line);

  /// Shows the blinking characters, or blank cells in their places.
  void SetBlinkingHidden(bool hidden);

  const Brivon1::PageRow& Row() const { return row_; }

  /// What is shown of the row.
  RowSpan Span() const { return span_; }

  /// What screen readers are told of the characters.
  const RowWords& Words() const { return words_; }
  void SetWords(const RowWords& words) { words_ = words; }

  /// What an editor says of the row, for screen readers: the status, which they give when asked,
  /// and of it what must be heard at once, or nothing.
  void SetStatus(const QString& status, const QString& urgent);
  const QString& Status() const { return status_; }
  const QString& UrgentStatus() const { return urgent_status_; }

  /// Puts the cursor in front of a character, and the keyboard to this row, as a click does.
  void PutCursor(qsizetype position);

  /// Selects from one position to another, where the cursor goes, and puts the keyboard to this
  /// row.
  void Select(qsizetype anchor, qsizetype cursor);

  /// What the mouse does here: it is no drag before the mouse has come some way on the screen,
  /// whatever the surface does below it. Pressed twice, it has selected a word and drags no more.
  enum class Hold { kNone, kPressed, kPressedTwice, kDragging };
  Hold MouseHold() const { return hold_; }

  /// Where the cursor is.
  QRect CursorRectangle() const;

  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 Q_SIGNALS:
  /// Text came from the keyboard or an input method; Backspace and Enter are the control characters
  /// 8 and 13.
  void Typed(const QString& text);

  void MoveKeyPressed(Brivon1::MoveKey key);

  /// A key that moves was pressed together with Shift.
  void SelectKeyPressed(Brivon1::MoveKey key);

  void CommandPressed(Brivon1::RowCommand command);

  /// The left button was pressed `x` pixels from the left edge.
  void Clicked(double x);

  /// The mouse, its left button held, has come to `x`, or the button was pressed there with Shift.
  void Dragged(double x);

  /// The left button, pressed before, is held no more.
  void Released();

  /// The left button was pressed twice, for the first time at `x`.
  void DoubleClicked(double x);

  /// A selection was asked for by other means than key and mouse.
  void SelectionAsked(qsizetype anchor, qsizetype cursor);

  /// A menu was asked for at a place of the screen.
  void MenuAsked(const QPoint& place);

  /// The keyboard has come to this row.
  void KeyboardEntered();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  /// The cell in front of which the cursor stands.
  int CursorCell() const { return static_cast<int>(row_.Cursor() - span_.first); }

  /// The cells that are selected and in sight; empty without any.
  QRect SelectionRectangle() const;

  const Brivon1::PageRow& row_;
  Brivon1::PageRow told_;  // what screen readers know of the row
  RowWords words_;
  QString status_;
  QString urgent_status_;
  RowSpan span_;
  CursorLine cursor_line_ = CursorLine::kNone;
  bool blinking_hidden_ = false;
  Hold hold_ = Hold::kNone;
  QPointF press_place_;  // on the screen
  double press_x_ = 0;   // from the left edge
};
