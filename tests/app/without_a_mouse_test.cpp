// What the manual says of working without a mouse: every step by key alone.
#include <string>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeySequence>
#include <QTest>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "page/frmMsgEditor.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/shown_window.h"

using namespace Qt::StringLiterals;

namespace {

void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(window.focusWidget() == nullptr ? &window : window.focusWidget(), key, modifiers);
}

std::string Focus(const QWidget& window) {
  return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
}

class WithoutAMouse : public testing::Test {
 protected:
  WithoutAMouse() {
    folder_.Configure(
        "[Dimension "
        "Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\nID002=12x192,Tri,127.0.0.1:80\r\n");
  }

  /// A new page of 4 rows and 96 dot columns.
  static void BeginPage(QWidget& editor) {
    ActivateWindow(&editor);
    const ModalWindowDriver sizes(u"frmDimension"_s,
                                  [](QWidget* dialog) { Press(*dialog, Qt::Key_Return); });
    Press(editor, Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(sizes.Count(), 1);
    ActivateWindow(&editor);
  }

  TemporaryProgramFolder folder_;
};

TEST_F(WithoutAMouse, TheLauncherIsGoneThroughWithTabAndArrowsAndOpensByALetter) {
  frmMain launcher;
  launcher.show();
  ActivateWindow(&launcher);
  const std::string first = Focus(launcher);
  Press(launcher, Qt::Key_Tab);
  const std::string second = Focus(launcher);
  EXPECT_NE(second, first);
  Press(launcher, Qt::Key_Left);
  EXPECT_EQ(Focus(launcher), first);
  Press(launcher, Qt::Key_Right);
  EXPECT_EQ(Focus(launcher), second);
  const ModalWindowDriver editors(u"frmMsgEditor"_s,
                                  [](QWidget* editor) { Press(*editor, Qt::Key_Escape); });
  Press(launcher, Qt::Key_M, Qt::AltModifier);
  EXPECT_EQ(editors.Count(), 1);
}

TEST_F(WithoutAMouse, ANewPageHasTheKeyboardInItsFirstRowAndDownGoesToTheNext) {
  ShownWindow<frmMsgEditor> editor(nullptr);
  BeginPage(editor.window);
  EXPECT_EQ(Focus(editor.window), "Picture1(1)");
  Press(editor.window, Qt::Key_Down);
  EXPECT_EQ(Focus(editor.window), "Picture1(2)");
}

TEST_F(WithoutAMouse, AColourIsChosenByKeyAndTabGoesOnToTheRow) {
  ShownWindow<frmMsgEditor> editor(nullptr);
  BeginPage(editor.window);
  auto* colours = editor.Find<QComboBox>("ComboColor");
  for (int tabs = 0; tabs < 20 && !colours->hasFocus(); ++tabs) Press(editor.window, Qt::Key_Tab);
  ASSERT_TRUE(colours->hasFocus());
  Press(editor.window, Qt::Key_Down);
  EXPECT_EQ(colours->currentText(), u"Green"_s);
  Press(editor.window, Qt::Key_Y);
  EXPECT_EQ(colours->currentText(), u"Yellow"_s);
  for (int tabs = 0; tabs < 10 && Focus(editor.window) != "Picture1(1)"; ++tabs) {
    Press(editor.window, Qt::Key_Tab);
  }
  EXPECT_EQ(Focus(editor.window), "Picture1(1)");
}

TEST_F(WithoutAMouse, ALetterOfBlinkingDateOrTimeLeadsBackToTheRow) {
  ShownWindow<frmMsgEditor> editor(nullptr);
  BeginPage(editor.window);
  for (const char* name : {"chkBlink", "cmdAddDate", "cmdAddTime"}) {
    const QKeySequence keys = editor.Find<QAbstractButton>(name)->shortcut();
    ASSERT_EQ(keys.count(), 1) << name;
    Press(editor.window, keys[0].key(), keys[0].keyboardModifiers());
    EXPECT_EQ(Focus(editor.window), "Picture1(1)") << name;
  }
  EXPECT_TRUE(editor.Find<QCheckBox>("chkBlink")->isChecked());
  MessageBoxReader boxes;
  boxes.Answer(QMessageBox::No);
  Press(editor.window, Qt::Key_Escape);
  EXPECT_EQ(boxes.Texts(), QStringList{u"File not saved. Save it now?"_s}) << "something was typed";
}

TEST_F(WithoutAMouse, AListThatIsOpenedAndChosenFromLeadsBackToTheRow) {
  ShownWindow<frmMsgEditor> editor(nullptr);
  BeginPage(editor.window);
  auto* colours = editor.Find<QComboBox>("ComboColor");
  colours->setFocus();
  Press(editor.window, Qt::Key_Down, Qt::AltModifier);
  QWidget* list = QApplication::activePopupWidget();
  ASSERT_NE(list, nullptr);
  QTest::keyClick(list->focusWidget() == nullptr ? list : list->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Focus(editor.window), "Picture1(1)");
}

}  // namespace
