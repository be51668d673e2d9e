// The page number dialog.
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include "page/frmPage.h"
#include "support/message_box_reader.h"
#include "support/small_dialog.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

class PageDialogTest : public SmallDialogTest {
 protected:
  PageDialogTest() {
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  QLineEdit* Page() { return Find<QLineEdit>(window_, "txtPage"); }

  frmPage window_{nullptr};
};

TEST_F(PageDialogTest, ItShows001WithTheCaretAtItsEnd) {
  EXPECT_EQ(Page()->text(), Text("001"));
  EXPECT_EQ(Page()->cursorPosition(), 3);
  EXPECT_EQ(window_.focusWidget(), Page());
  QTest::keyClick(Page(), Qt::Key_End);
  QTest::keyClicks(Page(), Text("5"));
  EXPECT_EQ(Page()->text(), Text("0015"));
}

TEST_F(PageDialogTest, WhatIsTypedTakesThePlaceOfWhatStandsThere) {
  EXPECT_EQ(Page()->selectedText(), Text("001"));
  QTest::keyClicks(Page(), Text("7"));
  QTest::keyClick(Page(), Qt::Key_Return);
  EXPECT_EQ(Brivon1::DialogText, Text("7"));
}

TEST_F(PageDialogTest, ItShowsItsCaptions) {
  EXPECT_EQ(window_.windowTitle(), Text("Page"));
  EXPECT_EQ(Find<QLabel>(window_, "lblPageNo")->text(), Text("Input Page No."));
  EXPECT_EQ(Find<QLabel>(window_, "Label2")->text(), Text("(001 - 120)"));
  EXPECT_EQ(Button(window_, "butOk")->text(), Text("OK"));
  EXPECT_EQ(Button(window_, "butCancel")->text(), Text("Cancel"));
}

TEST_F(PageDialogTest, OkReturnsTheTrimmedTextUnchecked) {
  Page()->setText(Text("  nine hundred "));
  Click(window_, "butOk");
  EXPECT_FALSE(window_.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::DialogText, Text("nine hundred"));
}

TEST_F(PageDialogTest, EnterActsAsOk) {
  Page()->setText(Text("120"));
  QTest::keyClick(Page(), Qt::Key_Return);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::DialogText, Text("120"));
}

TEST_F(PageDialogTest, CancelLeavesDialogAcceptedFalse) {
  Brivon1::DialogAccepted = true;
  Brivon1::DialogText = Text("before");
  Click(window_, "butCancel");
  EXPECT_FALSE(window_.isVisible());
  EXPECT_FALSE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::DialogText, Text("before"));
}

TEST_F(PageDialogTest, EscapeIsCancel) {
  Brivon1::DialogAccepted = true;
  QTest::keyClick(Page(), Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_FALSE(Brivon1::DialogAccepted);
}

TEST_F(PageDialogTest, TheCloseBoxIsCancel) {
  Brivon1::DialogAccepted = true;
  window_.close();
  EXPECT_FALSE(Brivon1::DialogAccepted);
}

TEST_F(SmallDialogTest, WhoAsksForAPageIsToldTheTextAndNothingWhereItIsCancelled) {
  const auto ask = [](const char* button) {
    const ModalWindowDriver driver(Text("frmPage"), [button](QWidget* window) {
      Find<QLineEdit>(*window, "txtPage")->setText(Text(" 7"));
      Click(*window, button);
    });
    return frmPage::Ask(nullptr);
  };
  EXPECT_EQ(ask("butCancel"), std::nullopt);
  EXPECT_EQ(ask("butOk"), Text("7"));
}

}  // namespace
