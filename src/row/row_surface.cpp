#include "row/row_surface.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

using Brivon1::kCellWidth;
using Brivon1::MoveKey;
using Brivon1::RowCommand;

/// A selection has a frame in a colour that no character has, and behind its characters a ground
/// that is nearly black, so that they keep their own colours.
constexpr QColor kSelectionGround{34, 34, 34};
constexpr QColor kSelectionFrame{120, 180, 255};

void DrawFrame(QPainter& painter, const QRect& cells) {
  painter.setPen(kSelectionFrame);
  painter.drawRect(cells.adjusted(0, 0, -1, -1));
}

std::optional<MoveKey> MoveKeyOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  // Those are the window's and the desktop's.
  if (modifiers & (Qt::AltModifier | Qt::MetaModifier)) return std::nullopt;
  const bool word = modifiers.testFlag(Qt::ControlModifier);
  switch (event.key()) {
    case Qt::Key_End:
      return MoveKey::kEnd;
    case Qt::Key_Home:
      return MoveKey::kHome;
    case Qt::Key_Left:
      return word ? MoveKey::kWordLeft : MoveKey::kLeft;
    case Qt::Key_Up:
      return MoveKey::kUp;
    case Qt::Key_Right:
      return word ? MoveKey::kWordRight : MoveKey::kRight;
    case Qt::Key_Down:
      return MoveKey::kDown;
    case Qt::Key_Delete:
      // With Shift it cuts.
      if (modifiers.testFlag(Qt::ShiftModifier)) return std::nullopt;
      return word ? MoveKey::kDeleteWord : MoveKey::kDelete;
    case Qt::Key_Backspace:
      return word ? std::optional(MoveKey::kBackspaceWord) : std::nullopt;
    default:
      return std::nullopt;
  }
}

std::optional<RowCommand> CommandOf(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Cut)) return RowCommand::kCut;
  if (event.matches(QKeySequence::Copy)) return RowCommand::kCopy;
  if (event.matches(QKeySequence::Paste)) return RowCommand::kPaste;
  if (event.matches(QKeySequence::SelectAll)) return RowCommand::kSelectRow;
  for (const RowCommand command : {RowCommand::kCentreRow, RowCommand::kCopyRow}) {
    if (KeysOf(command) == QKeySequence(event.keyCombination())) return command;
  }
  return std::nullopt;
}

bool AsksForMenu(const QKeyEvent& event) {
  return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
}

/// The text that a key types; none for a key that is a command or a mere modifier.
QString TypedText(const QKeyEvent& event) {
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  const bool alt = event.modifiers().testFlag(Qt::AltModifier);
  // Some keyboards report AltGr, which types text, as both keys together.
  if (control != alt || event.modifiers().testFlag(Qt::MetaModifier)) return {};
  const QString text = event.text();
  if (alt) return !text.isEmpty() && text.front().isPrint() ? text : QString();
  switch (event.key()) {
    case Qt::Key_Backspace:
      return QString(QLatin1Char(Brivon1::kBackspace));
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return QString(QLatin1Char(Brivon1::kEnter));
    case Qt::Key_Escape:
    case Qt::Key_Delete:
      return {};
    default:
      return text;
  }
}

}  // namespace

QKeySequence KeysOf(RowCommand command) {
  switch (command) {
    case RowCommand::kUndo:
      return Qt::CTRL | Qt::Key_Z;
    case RowCommand::kRedo:
      return Qt::CTRL | Qt::Key_Y;
    case RowCommand::kCut:
      return Qt::CTRL | Qt::Key_X;
    case RowCommand::kCopy:
      return Qt::CTRL | Qt::Key_C;
    case RowCommand::kPaste:
      return Qt::CTRL | Qt::Key_V;
    case RowCommand::kSelectRow:
      return Qt::CTRL | Qt::Key_A;
    case RowCommand::kCentreRow:
      return Qt::CTRL | Qt::Key_E;
    case RowCommand::kCopyRow:
      return Qt::CTRL | Qt::SHIFT | Qt::Key_C;
    case RowCommand::kClearRow:
      break;
  }
  return {};
}

RowSurface::RowSurface(const Brivon1::PageRow& row, QWidget* parent) : QWidget(parent), row_(row) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_InputMethodEnabled);
  setFocusPolicy(Qt::ClickFocus);
  setCursor(Qt::IBeamCursor);
  QAccessible::installFactory(MakeRowAccessible);
}

void RowSurface::RedrawRow(RowSpan span) {
  const bool is_same = span == span_ && row_.ShowsTheSameAs(told_) &&
                       row_.Cursor() == told_.Cursor() && row_.Anchor() == told_.Anchor();
  if (is_same) return;
  span_ = span;
  TellRowChange(*this, std::exchange(told_, row_));
  updateMicroFocus();
  update();
}

void RowSurface::SetStatus(const QString& status, const QString& urgent) {
  status_ = status;
  const bool is_new = urgent != urgent_status_;
  urgent_status_ = urgent;
  if (!is_new || !QAccessible::isActive()) return;
  QAccessibleEvent event(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
}

void RowSurface::SetCursorLine(CursorLine line) {
  if (line == cursor_line_) return;
  cursor_line_ = line;
  // Without its line a cell is whole again, so what an erased line had cut is painted anew.
  update(CursorRectangle());
}

void RowSurface::SetBlinkingHidden(bool hidden) {
  blinking_hidden_ = hidden;
  const QByteArrayView shown =
      QByteArrayView(row_.Blink()).sliced(span_.first, span_.Behind(row_) - span_.first);
  const qsizetype first = shown.indexOf(Brivon1::kBlinking);
  if (first < 0) return;
  const qsizetype last = shown.lastIndexOf(Brivon1::kBlinking);
  const int left = static_cast<int>(first) * kCellWidth;
  // One cell more for what reaches over the last one's border.
  update(left, 0, (static_cast<int>(last) + 2) * kCellWidth - left, kCellHeight);
}

QRect RowSurface::SelectionRectangle() const {
  const qsizetype begin = std::max(row_.SelectionBegin(), span_.first);
  const qsizetype end = std::min(row_.SelectionEnd(), span_.Behind(row_));
  if (begin >= end) return {};
  return {static_cast<int>(begin - span_.first) * kCellWidth, 0,
          static_cast<int>(end - begin) * kCellWidth, kCellHeight};
}

QRect RowSurface::CursorRectangle() const { return {CursorCell() * kCellWidth, 0, 1, kCellHeight}; }

void RowSurface::PutCursor(qsizetype position) {
  setFocus(Qt::MouseFocusReason);
  const qsizetype wanted = std::clamp<qsizetype>(position, 0, row_.Length());
  const qsizetype clicked = std::clamp(wanted, span_.first, span_.Behind(row_));
  Q_EMIT Clicked(static_cast<double>(clicked - span_.first) * kCellWidth);
  // A click does not reach what is out of sight, the keys do.
  for (qsizetype from = -1; row_.Cursor() != wanted && row_.Cursor() != from;) {
    from = row_.Cursor();
    Q_EMIT MoveKeyPressed(from < wanted ? MoveKey::kRight : MoveKey::kLeft);
  }
}

void RowSurface::Select(qsizetype anchor, qsizetype cursor) {
  setFocus(Qt::MouseFocusReason);
  Q_EMIT SelectionAsked(anchor, cursor);
}

QVariant RowSurface::inputMethodQuery(Qt::InputMethodQuery query) const {
  switch (query) {
    case Qt::ImCursorRectangle:
    case Qt::ImAnchorRectangle:
      return CursorRectangle();
    case Qt::ImCursorPosition:
      return static_cast<int>(row_.Cursor());
    case Qt::ImAnchorPosition:
      return static_cast<int>(row_.Anchor());
    default:
      return QWidget::inputMethodQuery(query);
  }
}

void RowSurface::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect exposed = event->rect();
  painter.fillRect(exposed, kSurfaceBackground);
  const QRect selected = SelectionRectangle();
  if (!selected.isEmpty()) painter.fillRect(selected, kSelectionGround);
  DrawRow(painter, row_, exposed, blinking_hidden_, span_);
  if (!selected.isEmpty()) {
    // It stays open where the selection goes on out of sight.
    const bool goes_on_left = row_.SelectionBegin() < span_.first;
    const bool goes_on_right = row_.SelectionEnd() > span_.Behind(row_);
    DrawFrame(painter,
              selected.adjusted(goes_on_left ? -1 : 0, 0, goes_on_right ? kRowMargin + 1 : 0, 0));
  }
  if (cursor_line_ != CursorLine::kNone) {
    DrawCursorLine(painter, CursorCell(), cursor_line_ == CursorLine::kShown);
  }
}

void RowSurface::keyPressEvent(QKeyEvent* event) {
  if (const auto move = MoveKeyOf(*event)) {
    const bool selects =
        event->modifiers().testFlag(Qt::ShiftModifier) && Brivon1::MovesWithin(*move);
    if (selects) {
      Q_EMIT SelectKeyPressed(*move);
    } else {
      Q_EMIT MoveKeyPressed(*move);
    }
  } else if (const auto command = CommandOf(*event)) {
    Q_EMIT CommandPressed(*command);
  } else if (AsksForMenu(*event)) {
    Q_EMIT MenuAsked(mapToGlobal(CursorRectangle().bottomLeft()));
  } else if (const QString text = TypedText(*event); !text.isEmpty()) {
    Q_EMIT Typed(text);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void RowSurface::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) Q_EMIT Typed(event->commitString());
  event->accept();
}

void RowSurface::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  hold_ = Hold::kPressed;
  press_place_ = event->globalPosition();
  press_x_ = event->position().x();
  if (event->modifiers().testFlag(Qt::ShiftModifier)) {
    Q_EMIT Dragged(event->position().x());
  } else {
    Q_EMIT Clicked(event->position().x());
  }
}

void RowSurface::mouseMoveEvent(QMouseEvent* event) {
  if (hold_ != Hold::kPressed && hold_ != Hold::kDragging) return;
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const QPointF way = event->globalPosition() - press_place_;
  if (hold_ == Hold::kPressed && way.manhattanLength() < QApplication::startDragDistance()) return;
  hold_ = Hold::kDragging;
  Q_EMIT Dragged(event->position().x());
}

void RowSurface::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || hold_ == Hold::kNone) return;
  hold_ = Hold::kNone;
  Q_EMIT Released();
}

void RowSurface::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  hold_ = Hold::kPressedTwice;
  // The row may have moved below the mouse since the first press, which chose the word.
  const QPointF way = event->globalPosition() - press_place_;
  const bool is_same_place = way.manhattanLength() < QApplication::startDragDistance();
  const double x = is_same_place ? press_x_ : event->position().x();
  Q_EMIT Clicked(x);
  Q_EMIT DoubleClicked(x);
}

void RowSurface::contextMenuEvent(QContextMenuEvent* event) {
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  Q_EMIT MenuAsked(by_key ? mapToGlobal(CursorRectangle().bottomLeft()) : event->globalPos());
}

void RowSurface::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  const Hold before = hold_;
  // The keyboard comes before the press that brings it.
  if (event->reason() == Qt::MouseFocusReason) hold_ = Hold::kPressed;
  Q_EMIT KeyboardEntered();
  hold_ = before;
}
