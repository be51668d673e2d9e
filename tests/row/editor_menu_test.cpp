// The menu of commands of every editor's row: what it offers, and when.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

#include "row/editor_driver.h"

using namespace Qt::StringLiterals;

namespace {

/// The menu that a row opens when it is asked by key; it closes with this.
class RowMenu {
 public:
  explicit RowMenu(QWidget* surface) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(surface, &event);
    menu_ = surface->findChild<QMenu*>();
    EXPECT_NE(menu_, nullptr);
  }
  ~RowMenu() {
    menu_->close();
    QCoreApplication::sendPostedEvents(menu_, QEvent::DeferredDelete);
  }

  QAction* Entry(const char* text) {
    for (QAction* action : menu_->actions()) {
      if (action->text() == QLatin1String(text)) return action;
    }
    ADD_FAILURE() << text;
    return nullptr;
  }

  void Choose(const char* text) {
    ASSERT_TRUE(Entry(text)->isEnabled());
    Entry(text)->trigger();
  }

  QStringList Enabled() {
    QStringList texts;
    for (const QAction* action : menu_->actions()) {
      if (!action->isSeparator() && action->isEnabled()) texts.append(action->text());
    }
    return texts;
  }

  /// All entries with their keys, "-" for a line between them.
  QStringList All() {
    QStringList texts;
    for (const QAction* action : menu_->actions()) {
      const QString keys = action->shortcut().toString();
      texts.append(action->isSeparator() ? u"-"_s
                   : keys.isEmpty()      ? action->text()
                                         : action->text() + u' ' + keys);
    }
    return texts;
  }

 private:
  QMenu* menu_;
};

void ChooseInMenu(QWidget* surface, const char* text) { RowMenu(surface).Choose(text); }

TEST_P(RowEditor, TheMenuListsItsCommandsWithTheirKeys) {
  EXPECT_EQ(RowMenu(Surface()).All(),
            QStringList({u"Undo Ctrl+Z"_s, u"Redo Ctrl+Y"_s, u"-"_s, u"Cut Ctrl+X"_s,
                         u"Copy Ctrl+C"_s, u"Paste Ctrl+V"_s, u"-"_s, u"Select row Ctrl+A"_s,
                         u"Clear row"_s, u"Centre row Ctrl+E"_s, u"Copy row Ctrl+Shift+C"_s}));
}

TEST_P(RowEditor, AnEntryThatCanDoNothingIsDisabled) {
  QGuiApplication::clipboard()->clear();
  EXPECT_EQ(RowMenu(Surface()).Enabled(), QStringList());
  QGuiApplication::clipboard()->setText(u"x"_s);
  EXPECT_EQ(RowMenu(Surface()).Enabled(), QStringList({u"Paste"_s}));
  Keys("ab");
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  const QStringList enabled = RowMenu(Surface()).Enabled();
  const bool has_middle = enabled.contains(u"Centre row"_s);
  EXPECT_EQ(has_middle, QLatin1String(kind_.window) == "frmMsgEditor"_L1);
  QStringList expected = {u"Undo"_s,  u"Redo"_s,       u"Cut"_s,       u"Copy"_s,
                          u"Paste"_s, u"Select row"_s, u"Clear row"_s, u"Copy row"_s};
  if (has_middle) expected.insert(7, u"Centre row"_s);
  EXPECT_EQ(enabled, expected);
}

TEST_P(RowEditor, TheContextMenuPastes) {
  QGuiApplication::clipboard()->setText(Text("abc\n"));
  ChooseInMenu(Surface(), "Paste");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
}

TEST_P(RowEditor, TheMenuUndoesAndMakesAgain) {
  Keys("ab");
  ChooseInMenu(Surface(), "Undo");
  EXPECT_EQ(ReadOut(Surface()), u"a"_s);
  ChooseInMenu(Surface(), "Redo");
  EXPECT_EQ(ReadOut(Surface()), u"ab"_s);
}

TEST_P(RowEditor, TheMenuCopiesCutsAndClears) {
  Keys("abc");
  ChooseInMenu(Surface(), "Copy row");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"abc"_s);
  ChooseInMenu(Surface(), "Select row");
  ChooseInMenu(Surface(), "Cut");
  EXPECT_EQ(Saved(), FileOf(""));
  ChooseInMenu(Surface(), "Paste");
  Key(Qt::Key_Left, Qt::ShiftModifier);
  ChooseInMenu(Surface(), "Copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"c"_s);
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abc"));
  EXPECT_FALSE(Asks());
  ChooseInMenu(Surface(), "Clear row");
  EXPECT_TRUE(Asks());
  EXPECT_EQ(Saved(), FileOf(""));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(ReadOut(Surface()), u"abc"_s);
}

TEST_P(RowEditor, ShiftWithF10OpensTheMenuBelowTheCursor) {
  Keys("ab");
  Key(Qt::Key_F10, Qt::ShiftModifier);
  auto* menu = Surface()->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(menu->isVisible());
  EXPECT_EQ(menu->pos().x(), Surface()->mapToGlobal(QPoint(24, 0)).x());
  menu->close();
}

TEST_P(RowEditor, TheMenuLeavesTheSelectionAndTheCursor) {
  Keys("abcd");
  Key(Qt::Key_Left, Qt::ShiftModifier);
  RowMenu(Surface()).Enabled();
  ExpectCursor(3, 4);
  Keys("X");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcX"));
}

}  // namespace
