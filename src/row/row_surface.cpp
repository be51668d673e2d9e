#include "row/row_surface.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include "language/further_texts.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kCellWidth;
using Brivon1::MoveKey;

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
      // With Shift it cuts, but nothing can be selected.
      if (modifiers.testFlag(Qt::ShiftModifier)) return std::nullopt;
      return word ? MoveKey::kDeleteWord : MoveKey::kDelete;
    case Qt::Key_Backspace:
      return word ? std::optional(MoveKey::kBackspaceWord) : std::nullopt;
    default:
      return std::nullopt;
  }
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

RowSurface::RowSurface(const Brivon1::PageRow& row, QWidget* parent) : QWidget(parent), row_(row) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_InputMethodEnabled);
  setFocusPolicy(Qt::ClickFocus);
  setCursor(Qt::IBeamCursor);
  QAccessible::installFactory(MakeRowAccessible);
}

void RowSurface::RedrawRow(RowSpan span) {
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

QVariant RowSurface::inputMethodQuery(Qt::InputMethodQuery query) const {
  switch (query) {
    case Qt::ImCursorRectangle:
    case Qt::ImAnchorRectangle:
      return CursorRectangle();
    case Qt::ImCursorPosition:
    case Qt::ImAnchorPosition:
      return static_cast<int>(row_.Cursor());
    default:
      return QWidget::inputMethodQuery(query);
  }
}

void RowSurface::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect exposed = event->rect();
  painter.fillRect(exposed, kSurfaceBackground);
  DrawRow(painter, row_, exposed, blinking_hidden_, span_);
  if (cursor_line_ != CursorLine::kNone) {
    DrawCursorLine(painter, CursorCell(), cursor_line_ == CursorLine::kShown);
  }
}

void RowSurface::keyPressEvent(QKeyEvent* event) {
  if (const auto move = MoveKeyOf(*event)) {
    Q_EMIT MoveKeyPressed(*move);
  } else if (event->matches(QKeySequence::Paste)) {
    Paste();
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
  if (event->button() == Qt::LeftButton) Q_EMIT Clicked(event->position().x());
}

void RowSurface::contextMenuEvent(QContextMenuEvent* event) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* paste =
      menu->addAction(ModuleLanguage::TranslateText(u"Paste"_s), this, &RowSurface::Paste);
  paste->setShortcut(QKeySequence::Paste);
  paste->setEnabled(!QGuiApplication::clipboard()->text().isEmpty());
  const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
  menu->popup(by_key ? mapToGlobal(CursorRectangle().bottomLeft()) : event->globalPos());
}

void RowSurface::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  Q_EMIT KeyboardEntered();
}

void RowSurface::Paste() {
  Q_EMIT Typed(Brivon1::PastedText(QGuiApplication::clipboard()->text()));
}
