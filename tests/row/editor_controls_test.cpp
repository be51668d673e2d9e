// The controls around the rows of every editor: lists, tab order, keys.
#include <QAbstractItemView>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "row/editor_driver.h"
#include "support/wheel.h"

namespace {

TEST_P(RowEditor, ClosingAListReturnsTheKeyboardToTheRow) {
  for (const char* name : {"ComboColor", "ComboSize"}) {
    auto* list = Find<QComboBox>(name);
    list->setFocus();
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    EXPECT_EQ(list->currentIndex(), 1);
    EXPECT_EQ(window_.focusWidget(), Surface());
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Escape);
    EXPECT_EQ(window_.focusWidget(), Surface());
  }
  Keys("y");
  for (const char* name : {"ComboColor", "ComboSize"}) {
    EXPECT_EQ(Find<QComboBox>(name)->currentIndex(), 1);
  }
  EXPECT_EQ(Saved(), FileOf("<SB><CB>y"));
}

TEST_P(RowEditor, EscapeInAnOpenListClosesTheListAndNotTheWindow) {
  for (const QString& name : kind_.lists) {
    auto* list = window_.findChild<QComboBox*>(name);
    list->setFocus();
    list->showPopup();
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Escape);
    EXPECT_FALSE(list->view()->isVisible());
    EXPECT_EQ(list->currentIndex(), 0);
    EXPECT_TRUE(window_.isVisible());
    EXPECT_EQ(window_.focusWidget(), Surface());
  }
  EXPECT_FALSE(Asks());
}

TEST_P(RowEditor, AWheelOverAListChoosesNothing) {
  for (const QString& name : kind_.lists) {
    auto* list = window_.findChild<QComboBox*>(name);
    TurnWheel(list);
    EXPECT_EQ(list->currentIndex(), 0);
  }
  EXPECT_FALSE(Asks());
}

TEST_P(RowEditor, ReturnPressesNoButtonFromAnywhereElse) {
  {
    const ModalWindowDriver file(Text("CMDialog1"), [](QWidget* w) { w->close(); });
    const ModalWindowDriver dimension(Text("frmDimension"), [](QWidget* w) { w->close(); });
    const ModalWindowDriver send(Text(kind_.send_dialog), [](QWidget* w) { w->close(); });
    const MessageBoxReader boxes;
    for (QWidget* widget : window_.findChildren<QWidget*>()) {
      if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible()) continue;
      if (qobject_cast<QPushButton*>(widget) != nullptr) continue;
      widget->setFocus();
      QTest::keyClick(widget, Qt::Key_Return);
      QTest::keyClick(widget, Qt::Key_Enter);
      EXPECT_TRUE(window_.isVisible()) << widget->objectName().toStdString();
    }
    EXPECT_EQ(file.Count() + dimension.Count() + send.Count(), 0);
    EXPECT_TRUE(boxes.Seen().isEmpty());
  }
  EXPECT_EQ(folder_.Read(Text(kind_.new_file)), "");
  EXPECT_EQ(Saved(), FileOf(""));
}

TEST_P(RowEditor, TabVisitsTheControlsInTheOrderInWhichTheyAreRead) {
  Button("butNew")->setFocus();
  for (const QString& name : kind_.tab_order) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(window_.focusWidget()->objectName(), name);
  }
}

}  // namespace
