// The dialogs for a page's delay and feature, for a page number, and for a panel size.
#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "core/configuration_store.h"
#include "core/dialog_results.h"
#include "page/frmDelay.h"
#include "page/frmDimension.h"
#include "page/frmPage.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

class SmallDialogTest : public testing::Test {
 protected:
  SmallDialogTest() {
    Brivon1::DialogAccepted = false;
    Brivon1::DialogDelay = 1;
    Brivon1::DialogText.clear();
    Brivon1::SelectedRows = 0;
    Brivon1::SelectedCols = 0;
  }

  template <typename Control>
  static Control* Find(const QWidget& window, const char* name) {
    return window.findChild<Control*>(Text(name));
  }

  static QPushButton* Button(const QWidget& window, const char* name) {
    return Find<QPushButton>(window, name);
  }

  static void Click(const QWidget& window, const char* name) {
    QTest::mouseClick(Button(window, name), Qt::LeftButton);
  }

  static QStringList Entries(const QListWidget* list) {
    QStringList entries;
    for (int i = 0; i < list->count(); ++i) entries.append(list->item(i)->text());
    return entries;
  }

  TemporaryProgramFolder folder_;
};

// --- the message property dialog

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

// --- the page number dialog

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
  EXPECT_FALSE(Page()->hasSelectedText());
  EXPECT_EQ(window_.focusWidget(), Page());
  QTest::keyClicks(Page(), Text("5"));
  EXPECT_EQ(Page()->text(), Text("0015"));
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

// --- the dimension dialog

class DimensionDialogTest : public SmallDialogTest {
 protected:
  void Panels(const QByteArray& panels) {
    folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\n" + panels);
  }

  static QListWidget* List(const QWidget& window) { return Find<QListWidget>(window, "List1"); }
};

TEST_F(DimensionDialogTest, TwoPanelsOfTheSameSizeGiveOneEntryAndAPanelWith0RowsIsNotOffered) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\nID003=4x96,Mono\r\nID004=0x96,Mono\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(Entries(List(window)), QStringList({Text(" 4x 96"), Text(" 12x 192")}));
}

TEST_F(DimensionDialogTest, WithNoPanelConfiguredItCannotBeConfirmedOnlyCancelled) {
  MessageBoxReader reader;
  frmDimension window(nullptr);
  ASSERT_EQ(reader.Seen().size(), 1);
  EXPECT_EQ(reader.Seen()[0].text, Text("System haven't config. yet!"));
  EXPECT_EQ(reader.Seen()[0].title, Text("New"));
  EXPECT_EQ(reader.Seen()[0].icon, QMessageBox::NoIcon);
  EXPECT_EQ(reader.Seen()[0].parent, &window);

  window.show();
  Brivon1::DialogAccepted = true;
  EXPECT_FALSE(Button(window, "butOK")->isEnabled());
  EXPECT_EQ(List(window)->count(), 0);
  QTest::keyClick(List(window), Qt::Key_Return);
  Click(window, "butOK");
  window.accept();
  EXPECT_TRUE(window.isVisible());
  Click(window, "butCancel");
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(Brivon1::DialogAccepted);
}

TEST_F(DimensionDialogTest, TheMessageStandsOverTheWindowThatAsked) {
  MessageBoxReader reader;
  QWidget editor;
  const frmDimension window(&editor);
  ASSERT_EQ(reader.Seen().size(), 1);
  EXPECT_EQ(reader.Seen()[0].parent, &editor);
}

TEST_F(DimensionDialogTest, ItReloadsTheConfiguration) {
  Panels("ID001=4x96,Tri\r\n");
  Brivon1::LoadConfiguration();
  Panels("ID001=8x128,Tri\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(Entries(List(window)), QStringList(Text(" 8x 128")));
  EXPECT_EQ(Brivon1::Store().panels[1].rows, 8);
}

TEST_F(DimensionDialogTest, ItShowsItsCaptionsAndSelectsTheFirstEntry) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(window.windowTitle(), Text("New"));
  EXPECT_EQ(Find<QLabel>(window, "lblDimension")->text(), Text("Set Dimension"));
  EXPECT_EQ(Find<QGroupBox>(window, "FrameDimension")->title(), Text("Available Dimension"));
  EXPECT_EQ(Button(window, "butOK")->text(), Text("OK"));
  EXPECT_EQ(Button(window, "butCancel")->text(), Text("Cancel"));
  ASSERT_EQ(List(window)->selectedItems().size(), 1);
  EXPECT_EQ(List(window)->selectedItems().first()->text(), Text(" 4x 96"));
}

TEST_F(DimensionDialogTest, OkReturnsTheSelectedSize) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  frmDimension window(nullptr);
  window.show();
  QTest::keyClick(List(window), Qt::Key_Down);
  Click(window, "butOK");
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::SelectedRows, 12);
  EXPECT_EQ(Brivon1::SelectedCols, 192);
}

TEST_F(DimensionDialogTest, EnterInTheListIsOk) {
  Panels("ID001=4x96,Tri\r\n");
  frmDimension window(nullptr);
  window.show();
  QTest::keyClick(List(window), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::SelectedRows, 4);
  EXPECT_EQ(Brivon1::SelectedCols, 96);
}

TEST_F(DimensionDialogTest, ADoubleClickOnASizeIsOk) {
  Panels("ID001=4x96,Tri\r\nID002=12x192,Mono\r\n");
  frmDimension window(nullptr);
  window.show();
  QListWidget* list = List(window);
  const QPoint second = list->visualItemRect(list->item(1)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(Brivon1::DialogAccepted);
  EXPECT_EQ(Brivon1::SelectedRows, 12);
}

TEST_F(DimensionDialogTest, CancelEscapeAndTheCloseBoxLeaveDialogAcceptedFalse) {
  Panels("ID001=4x96,Tri\r\n");
  const std::function<void(frmDimension&)> ways[] = {
      [](frmDimension& window) { Click(window, "butCancel"); },
      [](frmDimension& window) { QTest::keyClick(List(window), Qt::Key_Escape); },
      [](frmDimension& window) { window.close(); }};
  for (const auto& leave : ways) {
    Brivon1::DialogAccepted = true;
    frmDimension window(nullptr);
    window.show();
    leave(window);
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(Brivon1::DialogAccepted);
    EXPECT_EQ(Brivon1::SelectedRows, 0);
  }
}

TEST_F(DimensionDialogTest, ASizeReadsTheSameInEveryLanguage) {
  Panels("ID001=4x96,Tri\r\n");
  folder_.UseLanguage("[frmDimension]\r\nfrmDimension.Caption=Neu\r\n");
  const frmDimension window(nullptr);
  EXPECT_EQ(window.windowTitle(), Text("Neu"));
  EXPECT_EQ(Entries(List(window)), QStringList(Text(" 4x 96")));
}

// --- none of them may cut what it shows

TEST_F(SmallDialogTest, NothingIsCutInAnyOfThemWithTypicalTranslations) {
  folder_.Write(Text("brivon.ini"), "[Dimension Config]\r\nID001=4x96,Tri\r\n");
  folder_.UseLanguage(
      "[frmDelay]\r\nfrmDelay.FrameDelay=Anzeigedauer der Meldung in Sekunden (von 1 bis 99)\r\n"
      "frmDelay.butOK=Übernehmen\r\nfrmDelay.butCancel=Vorgang abbrechen\r\n"
      "[frmPage]\r\nfrmPage.lblPageNo=Bitte geben Sie die Seitennummer ein\r\n"
      "frmPage.butOk=Übernehmen\r\nfrmPage.butCancel=Vorgang abbrechen\r\n"
      "[frmDimension]\r\nfrmDimension.lblDimension=Abmessungen der neuen Seite festlegen\r\n"
      "frmDimension.butOK=Übernehmen\r\nfrmDimension.butCancel=Vorgang abbrechen\r\n");
  frmDelay delay(nullptr);
  frmPage page(nullptr);
  frmDimension dimension(nullptr);
  for (QWidget* window : {static_cast<QWidget*>(&delay), static_cast<QWidget*>(&page),
                          static_cast<QWidget*>(&dimension)}) {
    window->show();
    for (const QWidget* part : window->findChildren<QWidget*>()) {
      if (qobject_cast<const QPushButton*>(part) == nullptr &&
          qobject_cast<const QGroupBox*>(part) == nullptr &&
          qobject_cast<const QLabel*>(part) == nullptr) {
        continue;
      }
      const QSize needed = part->minimumSizeHint();
      EXPECT_GE(part->width(), needed.width()) << part->objectName().toStdString();
      EXPECT_GE(part->height(), needed.height()) << part->objectName().toStdString();
    }
  }
}

}  // namespace
