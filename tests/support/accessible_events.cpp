#include "support/accessible_events.h"

#include <utility>

#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString WithCursor(QAccessibleTextCursorEvent& event, const QString& change) {
  return u"%1, cursor %2"_s.arg(change).arg(event.cursorPosition());
}

QString What(QAccessibleEvent& event) {
  switch (event.type()) {
    case QAccessible::TextInserted: {
      auto& insert = static_cast<QAccessibleTextInsertEvent&>(event);
      return WithCursor(
          insert, u"insert %1 '%2'"_s.arg(insert.changePosition()).arg(insert.textInserted()));
    }
    case QAccessible::TextRemoved: {
      auto& remove = static_cast<QAccessibleTextRemoveEvent&>(event);
      return WithCursor(remove,
                        u"remove %1 '%2'"_s.arg(remove.changePosition()).arg(remove.textRemoved()));
    }
    case QAccessible::TextUpdated: {
      auto& update = static_cast<QAccessibleTextUpdateEvent&>(event);
      return WithCursor(
          update, u"replace %1 '%2' by '%3'"_s.arg(QString::number(update.changePosition()),
                                                   update.textRemoved(), update.textInserted()));
    }
    case QAccessible::TextCaretMoved:
      return u"cursor %1"_s.arg(static_cast<QAccessibleTextCursorEvent&>(event).cursorPosition());
    case QAccessible::TextSelectionChanged: {
      auto& selection = static_cast<QAccessibleTextSelectionEvent&>(event);
      return WithCursor(
          selection,
          u"select %1-%2"_s.arg(selection.selectionStart()).arg(selection.selectionEnd()));
    }
    case QAccessible::DescriptionChanged:
      return u"description"_s;
    default:
      return {};
  }
}

}  // namespace

std::string AccessibleEvents::TakeAll() {
  return std::exchange(told_, {}).join(u"; ").toStdString();
}

void AccessibleEvents::Record(QAccessibleEvent& event) {
  const QString what = What(event);
  if (what.isEmpty() || !event.object()->inherits("RowSurface")) return;
  const auto* widget = qobject_cast<QWidget*>(event.object());
  told_.append(u"%1: %2"_s.arg(widget == nullptr ? QString() : widget->accessibleName(), what));
}

QString AccessibleText(QWidget* widget) {
  QAccessibleTextInterface* text = QAccessible::queryAccessibleInterface(widget)->textInterface();
  if (text != nullptr) return text->text(0, text->characterCount());
  ADD_FAILURE() << "no text";
  return {};
}
