// The configuration dialog's address box: what it takes, when it is checked, and with how many
// messages.
#include <QApplication>
#include <QMenu>
#include <QPushButton>

#include "config/config_dialog.h"

namespace {

TEST_F(ConfigDialogTest, AnAddressPart255IsRefusedAndTheBoxReturnsTo0000And254IsAccepted) {
  Open(kTwoPanels);
  Type("txtIPAddress", "10.0.0.254");
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("10.0.0.254"));
  EXPECT_TRUE(reader_.Seen().isEmpty());
  Type("txtIPAddress", "10.0.0.255");
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab);
  ExpectOneBox("Invalid IP Address!");
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("0.0.0.0"));
  EXPECT_EQ(window_->focusWidget(), Box("txtIPPortNo"));
}

TEST_F(ConfigDialogTest, AnythingButFourPartsOfDigitsIsInvalid) {
  for (const char* text : {"", " ", "1.2.3", "1.2.3.4.5", "1..2.3", "1.2.3.", "a.b.c.d", "1.2.3.4 ",
                           "1.2.3.4,5", "panel.local"}) {
    MessageBoxReader reader;
    Open(kTwoPanels);
    Type("txtIPAddress", text);
    QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(reader.Texts(), QStringList{Text("Invalid IP Address!")}) << text;
    EXPECT_EQ(Box("txtIPAddress")->text(), Text("0.0.0.0")) << text;
  }
}

TEST_F(ConfigDialogTest, TheBoxShowsTheAddressOfAChosenLineAsItWasAdded) {
  Open("[Dimension Config]\r\nID001=8x96,Mono,010.0.0.5:80\r\n");
  ClickLine(List(), 0);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("010.0.0.5"));
  Click("butAdd");
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("10.0.0.5"));
  EXPECT_EQ(SelectedLine(), Text("ID001     8x96     Mono-Color     10.0.0.5:80"));
}

TEST_F(ConfigDialogTest, LeadingZerosGoWhenTheAddressBoxIsLeft) {
  Open(kTwoPanels);
  Type("txtIPAddress", "192.168.001.020");
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("192.168.1.20"));
  EXPECT_TRUE(reader_.Seen().isEmpty());
}

// Types a bad address and presses a button with the mouse: first the press, then what it brought
// about, then the release, as it happens to an operator.
class BadAddressTest : public ConfigDialogTest {
 protected:
  void Prepare() {
    Open(kTwoPanels);
    TypePanel("5", "1", "8");
    Type("txtIPAddress", "10.0.0.255");
  }

  void PressSlowly(const char* name) {
    QTest::mousePress(Find<QWidget>(name), Qt::LeftButton);
    QCoreApplication::processEvents();
    QTest::mouseRelease(Find<QWidget>(name), Qt::LeftButton);
    QCoreApplication::processEvents();
  }

  // After a message box, whose end leaves the window without the keyboard for a moment.
  void PressAltOnceMore(Qt::Key letter) {
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(window_->focusWidget(), letter, Qt::AltModifier);
  }

  void ExpectRefused() {
    ExpectOneBox("Invalid IP Address!");
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(Box("txtIPAddress")->text(), Text("0.0.0.0"));
    EXPECT_EQ(Lines(), (QStringList{Text(kLine1), Text(kLine12)}));
    EXPECT_EQ(File(), kTwoPanels);
  }
};

TEST_F(BadAddressTest, AQuickClickOnAddIsRefusedWithOneMessage) {
  Prepare();
  Click("butAdd");
  QCoreApplication::processEvents();
  ExpectRefused();
}

TEST_F(BadAddressTest, ASlowClickOnAddIsRefusedWithOneMessage) {
  Prepare();
  PressSlowly("butAdd");
  ExpectRefused();
  EXPECT_FALSE(Find<QPushButton>("butAdd")->isDown());
}

TEST_F(BadAddressTest, AQuickClickOnOkIsRefusedWithOneMessage) {
  Prepare();
  Click("butOK");
  QCoreApplication::processEvents();
  ExpectRefused();
}

TEST_F(BadAddressTest, ASlowClickOnOkIsRefusedWithOneMessage) {
  Prepare();
  PressSlowly("butOK");
  ExpectRefused();
  EXPECT_FALSE(Find<QPushButton>("butOK")->isDown());
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(BadAddressTest, EnterInTheAddressBoxIsRefusedWithOneMessage) {
  Prepare();
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Return);
  QCoreApplication::processEvents();
  ExpectRefused();
}

TEST_F(BadAddressTest, AltAndTheLetterOfAddIsRefusedWithOneMessageAndReplacesNoPanel) {
  Open(kTwoPanels);
  ClickLine(List(), 0);
  Type("txtIPAddress", "10.0.0.255");
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_A, Qt::AltModifier);
  QCoreApplication::processEvents();
  ExpectRefused();
  EXPECT_FALSE(Find<QPushButton>("butAdd")->isDown());
  PressAltOnceMore(Qt::Key_A);
  EXPECT_EQ(Lines().first(), Text("ID001     4x96     Tri-Color     0.0.0.0:2101"));
}

TEST_F(BadAddressTest, AltAndTheLetterOfOkIsRefusedWithOneMessageAndSavesNothing) {
  Prepare();
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_O, Qt::AltModifier);
  QCoreApplication::processEvents();
  ExpectRefused();
  EXPECT_FALSE(Find<QPushButton>("butOK")->isDown());
  PressAltOnceMore(Qt::Key_O);
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(BadAddressTest, AltAndTheLetterOfCancelShowsNoMessage) {
  Prepare();
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_C, Qt::AltModifier);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(File(), kTwoPanels);
}

TEST_F(BadAddressTest, TwoMistakesAreReportedOneAtATime) {
  Open(kTwoPanels);
  Type("txtIPAddress", "10.0.0.255");
  Click("butAdd");
  QCoreApplication::processEvents();
  ExpectRefused();
  Click("butAdd");
  EXPECT_EQ(reader_.Texts(),
            (QStringList{Text("Invalid IP Address!"), Text("Input is not Valid!")}));
}

TEST_F(BadAddressTest, ABadAddressThatSomethingElsePutThereIsRefusedByOkAndAdd) {
  Open(kTwoPanels);
  TypePanel("5", "1", "8");
  Box("txtIPAddress")->setText(Text("1.2.3"));
  List()->setFocus();
  QTest::keyClick(List(), Qt::Key_Return);  // the default button
  ExpectRefused();
  Box("txtIPAddress")->setText(Text("1.2.3"));
  QTest::keyClick(Box("txtID"), Qt::Key_Return);
  EXPECT_EQ(reader_.Seen().size(), 2);
  EXPECT_EQ(Lines().size(), 2);
}

TEST_F(BadAddressTest, LeavingForCancelShowsNoMessage) {
  Prepare();
  PressSlowly("butCancel");
  QCoreApplication::processEvents();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(File(), kTwoPanels);
}

TEST_F(BadAddressTest, EscapeAndTheCloseBoxShowNoMessage) {
  for (const bool escape : {true, false}) {
    Prepare();
    if (escape) {
      QTest::keyClick(Box("txtIPAddress"), Qt::Key_Escape);
    } else {
      window_->close();
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(window_->isVisible());
    EXPECT_TRUE(reader_.Seen().isEmpty());
    EXPECT_EQ(File(), kTwoPanels);
  }
}

TEST_F(BadAddressTest, ACancelThatWasNotMeantLeavesTheAddressToBeCheckedLater) {
  Prepare();
  QTest::mousePress(Find<QWidget>("butCancel"), Qt::LeftButton);
  QTest::mouseMove(Find<QWidget>("butCancel"), QPoint(-50, -50));
  QTest::mouseRelease(Find<QWidget>("butCancel"), Qt::LeftButton, {}, QPoint(-50, -50));
  QCoreApplication::processEvents();
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(reader_.Seen().isEmpty());
  Click("butOK");
  QCoreApplication::processEvents();
  ExpectRefused();
}

TEST_F(BadAddressTest, SwitchingToAnotherWindowShowsNoMessage) {
  Prepare();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  QCoreApplication::processEvents();
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("10.0.0.255"));
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab);
  ExpectRefused();
}

TEST_F(BadAddressTest, AMenuInFrontShowsNoMessage) {
  Prepare();
  QMenu menu(window_.get());
  menu.addAction(Text("Paste"));
  menu.popup(window_->mapToGlobal(QPoint(0, 0)));
  QCoreApplication::processEvents();
  EXPECT_TRUE(reader_.Seen().isEmpty());
  menu.close();
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("10.0.0.255"));
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab);
  ExpectRefused();
}

TEST_F(BadAddressTest, AClickOnTheColourTypeClosesItsListAndShowsTheMessage) {
  Prepare();
  Click("ComboColorType");
  QCoreApplication::processEvents();
  ExpectRefused();
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(BadAddressTest, ChoosingALineReplacesItWithoutAMessage) {
  Prepare();
  ClickLine(List(), 1);
  QCoreApplication::processEvents();
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("192.168.0.12"));
}

TEST_F(BadAddressTest, ChoosingOptRs232ShowsTheMessageOnce) {
  Prepare();
  Click("optRS232");
  QCoreApplication::processEvents();
  ExpectRefused();
}

TEST_F(BadAddressTest, ASlowClickOnOptRs232ShowsTheMessageOnceAndChoosesNothing) {
  Prepare();
  PressSlowly("optRS232");
  ExpectRefused();
  EXPECT_TRUE(Option("optTCPIP")->isChecked());
}

}  // namespace
