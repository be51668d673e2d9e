// The menu of commands of every editor's row: what it offers, and when.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QSet>
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

  /// The entries of a list that the menu leads to.
  QList<QAction*> List(const char* text) {
    const QAction* entry = Entry(text);
    if (entry == nullptr || entry->menu() == nullptr) {
      ADD_FAILURE() << text;
      return {};
    }
    return entry->menu()->actions();
  }

  void Choose(const char* list, int entry) { List(list).at(entry)->trigger(); }

  /// The entry of a list that is checked, -1 for none.
  int Checked(const char* list) {
    const QList<QAction*> entries = List(list);
    for (qsizetype n = 0; n < entries.size(); ++n) {
      if (entries[n]->isChecked()) return static_cast<int>(n);
    }
    return -1;
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
                         u"Copy Ctrl+C"_s, u"Paste Ctrl+V"_s, u"-"_s, u"Color"_s, u"Size"_s,
                         u"Blinking"_s, u"-"_s, u"Select row Ctrl+A"_s, u"Clear row"_s,
                         u"Centre row Ctrl+E"_s, u"Copy row Ctrl+Shift+C"_s}));
}

TEST_P(RowEditor, AnEntryThatCanDoNothingIsDisabled) {
  QGuiApplication::clipboard()->clear();
  const QStringList attributes = {u"Color"_s, u"Size"_s, u"Blinking"_s};
  EXPECT_EQ(RowMenu(Surface()).Enabled(), attributes);
  QGuiApplication::clipboard()->setText(u"x"_s);
  EXPECT_EQ(RowMenu(Surface()).Enabled(), QStringList(u"Paste"_s) + attributes);
  Keys("ab");
  Key(Qt::Key_Z, Qt::ControlModifier);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  const QStringList enabled = RowMenu(Surface()).Enabled();
  const bool has_middle = enabled.contains(u"Centre row"_s);
  EXPECT_EQ(has_middle, QLatin1String(kind_.window) == "frmMsgEditor"_L1);
  QStringList expected = QStringList{u"Undo"_s, u"Redo"_s, u"Cut"_s, u"Copy"_s, u"Paste"_s} +
                         attributes + QStringList{u"Select row"_s, u"Clear row"_s, u"Copy row"_s};
  if (has_middle) expected.insert(10, u"Centre row"_s);
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

TEST_P(RowEditor, F10AloneIsTheWindows) {
  Key(Qt::Key_F10);
  EXPECT_EQ(Surface()->findChild<QMenu*>(), nullptr);
}

TEST_P(RowEditor, TheMenuLeavesTheSelectionAndTheCursor) {
  Keys("abcd");
  Key(Qt::Key_Left, Qt::ShiftModifier);
  RowMenu(Surface()).Enabled();
  ExpectCursor(3, 4);
  Keys("X");
  EXPECT_EQ(Saved(), FileOf("<SA><CA>abcX"));
}

TEST_P(RowEditor, TheMenuChoosesTheAttributesOfWhatIsTypedNext) {
  RowMenu(Surface()).Choose("Color", 1);
  RowMenu(Surface()).Choose("Size", 2);
  RowMenu(Surface()).Choose("Blinking");
  EXPECT_EQ(Find<QComboBox>("ComboColor")->currentIndex(), 1);
  EXPECT_EQ(Find<QComboBox>("ComboSize")->currentIndex(), 2);
  EXPECT_TRUE(Find<QCheckBox>("chkBlink")->isChecked());
  EXPECT_EQ(window_.focusWidget(), Surface());
  Keys("a");
  EXPECT_EQ(Saved(), FileOf("<SG><CB>a"));
  RowMenu menu(Surface());
  EXPECT_EQ(menu.Checked("Color"), 1);
  EXPECT_EQ(menu.Checked("Size"), 2);
  EXPECT_TRUE(menu.Entry("Blinking")->isChecked());
}

TEST_P(RowEditor, TheMenuGivesWhatIsSelectedAnAttributeAndUndoTakesEachBackInOne) {
  Keys("abc");
  const QByteArray before = Saved();
  const auto choose = [this](const char* list, int entry) {
    Key(Qt::Key_A, Qt::ControlModifier);
    RowMenu(Surface()).Choose(list, entry);
  };
  choose("Color", 15);
  EXPECT_EQ(Saved(), FileOf("<SA><CP>abc"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), before);
  choose("Size", 1);
  EXPECT_EQ(Saved(), FileOf("<SB><CA>abc"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), before);
  Key(Qt::Key_A, Qt::ControlModifier);
  ChooseInMenu(Surface(), "Blinking");
  EXPECT_EQ(Saved(), FileOf("<SE><CA>abc"));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Saved(), before);
}

TEST_P(RowEditor, TwoChoicesInTheMenuForTheSameCharactersAreTwoEdits) {
  Keys("abc");
  Key(Qt::Key_A, Qt::ControlModifier);
  for (const char* list : {"Color", "Size"}) {
    const QByteArray before = Saved();
    RowMenu(Surface()).Choose(list, 1);
    const QByteArray first = Saved();
    EXPECT_NE(first, before);
    RowMenu(Surface()).Choose(list, 2);
    EXPECT_NE(Saved(), first);
    ChooseInMenu(Surface(), "Undo");
    EXPECT_EQ(Saved(), first);
    ChooseInMenu(Surface(), "Undo");
    EXPECT_EQ(Saved(), before);
    Key(Qt::Key_A, Qt::ControlModifier);
  }
}

TEST_P(RowEditor, TheMenuGivesTheAttributeThatTheControlsShowAlready) {
  Keys("a");
  RowMenu(Surface()).Choose("Color", 1);
  RowMenu(Surface()).Choose("Blinking");
  Key(Qt::Key_A, Qt::ControlModifier);
  RowMenu(Surface()).Choose("Color", 1);
  RowMenu(Surface()).Choose("Blinking");
  EXPECT_EQ(Saved(), FileOf("<SE><CB>a"));
}

TEST_P(RowEditor, TheMenuChecksWhatAllSelectedCharactersHave) {
  Keys("a");
  Find<QComboBox>("ComboColor")->setCurrentIndex(3);
  Find<QComboBox>("ComboSize")->setCurrentIndex(1);
  Find<QCheckBox>("chkBlink")->setChecked(true);
  Keys("b");
  Find<QComboBox>("ComboColor")->setCurrentIndex(5);
  Key(Qt::Key_Left, Qt::ShiftModifier);
  {
    RowMenu menu(Surface());
    EXPECT_EQ(menu.Checked("Color"), 3);
    EXPECT_EQ(menu.Checked("Size"), 1);
    EXPECT_TRUE(menu.Entry("Blinking")->isChecked());
  }
  Key(Qt::Key_A, Qt::ControlModifier);
  RowMenu menu(Surface());
  EXPECT_EQ(menu.Checked("Color"), -1);
  EXPECT_EQ(menu.Checked("Size"), -1);
  EXPECT_FALSE(menu.Entry("Blinking")->isChecked());
}

TEST_P(RowEditor, TheMenuShowsColoursAndSizesAsTheyLook) {
  RowMenu menu(Surface());
  for (const char* list : {"Color", "Size"}) {
    const auto* box =
        Find<QComboBox>(QLatin1String(list) == "Color"_L1 ? "ComboColor" : "ComboSize");
    const QList<QAction*> entries = menu.List(list);
    ASSERT_EQ(entries.size(), box->count());
    QSet<QByteArray> pictures;
    for (int n = 0; n < entries.size(); ++n) {
      EXPECT_EQ(entries[n]->text(), box->itemText(n));
      const QImage picture = entries[n]->icon().pixmap(QSize(200, 200)).toImage();
      pictures.insert(
          QByteArray(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()));
    }
    EXPECT_EQ(pictures.size(), entries.size()) << "each looks otherwise";
  }
}

TEST_P(RowEditor, TheKeyboardReachesTheAttributesInTheMenu) {
  Keys("ab");
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_F10, Qt::ShiftModifier);
  auto* menu = Surface()->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  while (menu->activeAction() == nullptr || menu->activeAction()->text() != u"Color"_s) {
    QTest::keyClick(menu, Qt::Key_Down);
  }
  QTest::keyClick(menu, Qt::Key_Right);
  QMenu* colours = menu->activeAction()->menu();
  ASSERT_TRUE(colours->isVisible());
  QTest::keyClick(colours, Qt::Key_Down);
  QTest::keyClick(colours, Qt::Key_Return);
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(Saved(), FileOf("<SA><CB>ab"));
}

}  // namespace
