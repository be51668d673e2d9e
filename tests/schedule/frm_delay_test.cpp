// The message property dialog.
#include <memory>

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

#include "schedule/frmDelay.h"
#include "support/message_box_reader.h"
#include "support/small_dialog.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

class DelayDialogTest : public SmallDialogTest {
 protected:
  void Open() {
    window_ = std::make_unique<frmDelay>(nullptr);
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    Delay()->setFocus();
  }

  void Type(const char* text) { QTest::keyClicks(Delay(), Text(text)); }
  void Empty() {
    Delay()->selectAll();
    QTest::keyClick(Delay(), Qt::Key_Backspace);
  }

  QLineEdit* Delay() { return Find<QLineEdit>(*window_, "txtDelay"); }
  QListWidget* List() { return Find<QListWidget>(*window_, "ListFeature"); }

  std::unique_ptr<frmDelay> window_;
};

TEST_F(DelayDialogTest, TypingZeroIntoAnEmptyDelayFieldRestoresTheLastValidDelay) {
  Brivon1::DialogDelay = 25;
  Open();
  Empty();
  EXPECT_EQ(Delay()->text(), QString());
  Type("0");
  EXPECT_EQ(Delay()->text(), Text("25"));
  EXPECT_EQ(Delay()->cursorPosition(), 2);
}

TEST_F(DelayDialogTest, WhatIsTypedTakesThePlaceOfWhatStandsThere) {
  Brivon1::DialogDelay = 8;
  Open();
  EXPECT_EQ(Delay()->selectedText(), Text("8"));
  EXPECT_EQ(Delay()->cursorPosition(), 1);
  Type("5");
  QTest::keyClick(Delay(), Qt::Key_Return);
  EXPECT_EQ(Brivon1::DialogDelay, 5);
}

TEST_F(DelayDialogTest, Typing100After10TurnsTheFieldBackTo10) {
  Open();
  Empty();
  Type("10");
  EXPECT_EQ(Delay()->text(), Text("10"));
  Type("0");
  EXPECT_EQ(Delay()->text(), Text("10"));
  EXPECT_EQ(Delay()->cursorPosition(), 2);
}

TEST_F(DelayDialogTest, ZeroSevenIsRewrittenAsSeven) {
  Open();
  QGuiApplication::clipboard()->setText(Text("07"));
  Delay()->selectAll();
  QTest::keyClick(Delay(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Delay()->text(), Text("7"));
  Delay()->setText(Text(" 08 "));
  EXPECT_EQ(Delay()->text(), Text("8"));
}

TEST_F(DelayDialogTest, EnterInTheDelayFieldClosesTheDialogAsOk) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    Brivon1::DialogAccepted = false;
    Open();
    Empty();
    Type("42");
    QTest::keyClick(Delay(), key);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_TRUE(Brivon1::DialogAccepted);
    EXPECT_EQ(Brivon1::DialogDelay, 42);
  }
}

TEST_F(DelayDialogTest, OkWithNoFeatureSelectedReturnsOpenNotTheFirstEntry) {
  Open();
  List()->clearSelection();
  Click(*window_, "butOK");
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::DialogText, Text("Open"));
}

TEST_F(DelayDialogTest, ItShowsItsCaptionsAndTheEightFeatures) {
  Open();
  EXPECT_EQ(window_->windowTitle(), Text("Message Property"));
  EXPECT_EQ(Find<QGroupBox>(*window_, "FrameDelay")->title(), Text("Delay Time in Seconds (1-99)"));
  EXPECT_EQ(Find<QGroupBox>(*window_, "FrameFeature")->title(), Text("Display Feature"));
  EXPECT_EQ(Button(*window_, "butOK")->text(), Text("OK"));
  EXPECT_EQ(Button(*window_, "butCancel")->text(), Text("Cancel"));
  EXPECT_EQ(Entries(List()).join(u','),
            Text("Appear,Flip,Open,Wipe Left,Wipe Right,Fall,Slide,Shift"));
}

TEST_F(DelayDialogTest, TheFeatureIsPreselectedByItsUpperCaseFormOnly) {
  const std::pair<const char*, int> expected[] = {{"WIPE RIGHT", 4}, {"SHIFT", 7}, {"FLIP", 1},
                                                  {"Shift", 0},      {"", 0},      {"other", 0}};
  for (const auto& [text, row] : expected) {
    Brivon1::DialogText = Text(text);
    Open();
    ASSERT_EQ(List()->selectedItems().size(), 1) << text;
    EXPECT_EQ(List()->row(List()->selectedItems().first()), row) << text;
  }
}

TEST_F(DelayDialogTest, OkReturnsTheFeatureAsTheListShowsIt) {
  Brivon1::DialogText = Text("WIPE LEFT");
  Brivon1::DialogDelay = 7;
  Open();
  QTest::keyClick(List(), Qt::Key_Down);
  Click(*window_, "butOK");
  EXPECT_EQ(Brivon1::DialogText, Text("Wipe Right"));
  EXPECT_EQ(Brivon1::DialogDelay, 7);
}

TEST_F(DelayDialogTest, OtherKeysThanDigitsAreDropped) {
  Open();
  Empty();
  Type("a-+. ,xE");
  EXPECT_EQ(Delay()->text(), QString());
  Type("3b4");
  EXPECT_EQ(Delay()->text(), Text("34"));
  QTest::keyClick(Delay(), Qt::Key_Backspace);
  EXPECT_EQ(Delay()->text(), Text("3"));
}

TEST_F(DelayDialogTest, APasteIsTakenOnlyIfAllOfItPasses) {
  Brivon1::DialogDelay = 5;
  Open();
  QGuiApplication::clipboard()->setText(Text("12a"));
  Delay()->selectAll();
  QTest::keyClick(Delay(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Delay()->text(), Text("5"));
  QGuiApplication::clipboard()->setText(Text("12"));
  Delay()->selectAll();
  QTest::keyClick(Delay(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Delay()->text(), Text("12"));
}

TEST_F(DelayDialogTest, LeavingTheFieldEmptyPutsTheLastValidDelayBack) {
  Brivon1::DialogDelay = 12;
  Open();
  Empty();
  QTest::keyClick(Delay(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), List());
  EXPECT_EQ(Delay()->text(), Text("12"));
}

TEST_F(DelayDialogTest, AMenuOrAnotherWindowInFrontLeavesAnEmptyFieldEmpty) {
  Brivon1::DialogDelay = 12;
  Open();
  Empty();
  QMenu menu(window_.get());
  menu.addAction(Text("Paste"));
  menu.popup(window_->mapToGlobal(QPoint(0, 0)));
  EXPECT_EQ(Delay()->text(), QString());
  menu.close();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  EXPECT_EQ(Delay()->text(), QString());
}

TEST_F(DelayDialogTest, AFieldThatIsLeftWithADelayKeepsIt) {
  Brivon1::DialogDelay = 12;
  Open();
  Empty();
  Type("7");
  QTest::keyClick(Delay(), Qt::Key_Tab);
  EXPECT_EQ(Delay()->text(), Text("7"));
}

TEST_F(DelayDialogTest, OkWithAnEmptyFieldReturnsTheLastValidDelay) {
  Brivon1::DialogDelay = 12;
  Open();
  Empty();
  QTest::keyClick(Delay(), Qt::Key_Return);
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::DialogDelay, 12);
}

TEST_F(DelayDialogTest, AStoredDelayOutside1To99StartsAtTheNearestValidOne) {
  Brivon1::DialogDelay = 0;
  Open();
  EXPECT_EQ(Delay()->text(), Text("1"));
  Brivon1::DialogDelay = 500;
  Open();
  EXPECT_EQ(Delay()->text(), Text("99"));
}

TEST_F(DelayDialogTest, CancelEscapeAndTheCloseBoxLeaveDialogAcceptedFalseAndTheRestAsItWas) {
  const std::function<void()> ways[] = {[this] { Click(*window_, "butCancel"); },
                                        [this] { QTest::keyClick(Delay(), Qt::Key_Escape); },
                                        [this] { window_->close(); }};
  for (const auto& leave : ways) {
    Brivon1::DialogAccepted = true;
    Brivon1::DialogDelay = 3;
    Brivon1::DialogText = Text("FALL");
    Open();
    Empty();
    Type("50");
    leave();
    EXPECT_FALSE(window_->isVisible());
    EXPECT_FALSE(Brivon1::DialogAccepted);
    EXPECT_EQ(Brivon1::DialogDelay, 3);
    EXPECT_EQ(Brivon1::DialogText, Text("FALL"));
  }
}

TEST_F(DelayDialogTest, FeatureEntriesThatTheLanguageFileLacksAreTheEnglishNameOfTheCodeThere) {
  folder_.UseLanguage(
      "[frmDelay]\r\nListFeature.List(1)=Umklappen\r\nListFeature.List(4)=Links\r\n");
  Open();
  EXPECT_EQ(Entries(List()).join(u','),
            Text("Appear,Umklappen,Open,Wipe Right,Links,Fall,Slide,Shift"));
}

TEST_F(DelayDialogTest, ALanguageWithoutAnyEntryListsTheFeaturesInTheOrderOfTheirCodes) {
  folder_.UseLanguage("");
  Open();
  EXPECT_EQ(Entries(List()).join(u','),
            Text("Appear,Flip,Open,Wipe Right,Wipe Left,Fall,Slide,Shift"));
}

TEST_F(DelayDialogTest, PlacesWithoutAnEnglishNameAreLeftOutWhenTheyAreMissing) {
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(9)=Neun\r\nListFeature.List(10)=Zehn\r\n");
  Open();
  EXPECT_EQ(Entries(List()).join(u','),
            Text("Appear,Flip,Open,Wipe Right,Wipe Left,Fall,Slide,Shift,Neun"));
}

TEST_F(DelayDialogTest, WithALanguageTheEntryThatEqualsTheTextIsSelected) {
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(1)=Umklappen\r\n");
  Brivon1::DialogText = Text("Umklappen");
  Open();
  ASSERT_EQ(List()->selectedItems().size(), 1);
  EXPECT_EQ(List()->selectedItems().first()->text(), Text("Umklappen"));
  Click(*window_, "butOK");
  EXPECT_EQ(Brivon1::DialogText, Text("Umklappen"));
}

TEST_F(DelayDialogTest, WithALanguageATextThatNoEntryEqualsSelectsNone) {
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(2)=Auf\r\n");
  for (const char* text : {"SHIFT", "shift", "Umklappen"}) {
    Brivon1::DialogText = Text(text);
    Open();
    EXPECT_TRUE(List()->selectedItems().isEmpty()) << text;
    Click(*window_, "butOK");
    EXPECT_EQ(Brivon1::DialogText, Text("Auf"));
  }
}

TEST_F(DelayDialogTest, WhoAsksIsToldDelayAndFeatureAndNothingWhereItIsCancelled) {
  const Brivon1::FeatureNames features;
  const auto ask = [&](const char* button) {
    const ModalWindowDriver driver(Text("frmDelay"), [button](QWidget* window) {
      EXPECT_EQ(Find<QLineEdit>(*window, "txtDelay")->text(), Text("7"));
      EXPECT_EQ(Find<QListWidget>(*window, "ListFeature")->currentItem()->text(), Text("Fall"));
      Find<QLineEdit>(*window, "txtDelay")->setText(Text("8"));
      Click(*window, button);
    });
    return frmDelay::Ask(nullptr, {7, Text("FALL")}, features);
  };
  EXPECT_FALSE(ask("butCancel"));
  const auto answer = ask("butOK");
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->delay, 8);
  EXPECT_EQ(answer->feature, Text("Fall"));
}

TEST_F(DelayDialogTest, TheFeaturesAreThoseThatWereReadBeforeTheDialogOpened) {
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(1)=Umklappen\r\n");
  const Brivon1::FeatureNames features;
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(1)=Kippen\r\n");
  const frmDelay window(nullptr, features);
  EXPECT_EQ(Entries(Find<QListWidget>(window, "ListFeature")).value(1), Text("Umklappen"));
}

}  // namespace
