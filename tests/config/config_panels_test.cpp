// The configuration dialog's panels: their number boxes, Add, Remove and the list.
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>

#include "config/config_dialog.h"
#include "store/configuration_store.h"

namespace {

TEST_F(ConfigDialogTest, Id256OrRows13OrColumns3001AreNotAcceptedId0Is) {
  Open("");
  TypePanel("256", "13", "3001");
  EXPECT_EQ(Box("txtID")->text(), Text("25"));
  EXPECT_EQ(Box("txtRow")->text(), Text("1"));
  EXPECT_EQ(Box("txtcol")->text(), Text("300"));
  TypePanel("0", "12", "3000");
  EXPECT_EQ(Box("txtID")->text(), Text("0"));
  EXPECT_EQ(Box("txtRow")->text(), Text("12"));
  EXPECT_EQ(Box("txtcol")->text(), Text("3000"));
  Click("butAdd");
  EXPECT_EQ(Lines(), QStringList{Text("ID000     12x3000     Mono-Color     0.0.0.0:80")});
}

TEST_F(ConfigDialogTest, OutOfRangeIdRowColumnTextTheLastValidTextComesBack) {
  Open("");
  TypePanel("25", "12", "300");
  Paste("txtID", "256");
  Paste("txtRow", "0");
  Paste("txtcol", "99999999999999999999");
  EXPECT_EQ(Box("txtID")->text(), Text("25"));
  EXPECT_EQ(Box("txtRow")->text(), Text("12"));
  EXPECT_EQ(Box("txtcol")->text(), Text("300"));
  Box("txtRow")->setText(Text("-3"));
  EXPECT_EQ(Box("txtRow")->text(), Text("12"));
}

TEST_F(ConfigDialogTest, TheKeyFilterIsAboutCharactersAndAPasteIsTakenOnlyIfAllOfItPasses) {
  Open("");
  for (const char* name : {"txtID", "txtRow", "txtcol"}) {
    Type(name, "a-+.,x E\t1");
    EXPECT_EQ(Box(name)->text(), Text("1")) << name;
    for (const char* text : {"2x", " 2", "2,3", "2\t", "٣"}) {
      Paste(name, text);
      EXPECT_EQ(Box(name)->text(), Text("1")) << name << text;
    }
    Paste(name, "12");
    EXPECT_EQ(Box(name)->text(), Text("12")) << name;
    QTest::keyClick(Box(name), Qt::Key_Home);
    QTest::keyClick(Box(name), Qt::Key_Delete);
    EXPECT_EQ(Box(name)->text(), Text("2")) << name;
    QTest::keyClick(Box(name), Qt::Key_End);
    QTest::keyClick(Box(name), Qt::Key_Backspace);
    EXPECT_EQ(Box(name)->text(), QString()) << name;
    QTest::keyClicks(Box(name), Text("7"));
    QTest::keyClick(Box(name), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Box(name)->selectedText(), Text("7")) << name;
  }
}

TEST_F(ConfigDialogTest, A1000AndMoreDotColumnsALineSaysThatOnlyTheFirstThreeDigitsAreReadBack) {
  Open(kTwoPanels);
  const auto* note = Find<QLabel>("lblColumnsNote");
  EXPECT_FALSE(note->isVisible());
  Type("txtcol", "999");
  EXPECT_FALSE(note->isVisible());
  Type("txtcol", "1000");
  EXPECT_TRUE(note->isVisible());
  EXPECT_EQ(note->text(), Text("Only the first three digits are read back."));
  const int below = Box("txtcol")->mapTo(window_.get(), Box("txtcol")->rect().bottomLeft()).y();
  EXPECT_GT(note->mapTo(window_.get(), QPoint()).y(), below);
  ClickLine(List(), 0);
  EXPECT_FALSE(note->isVisible());
  TypePanel("5", "8", "1280");
  Click("butAdd");
  Click("butOK");
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_TRUE(File().contains("\r\nID005=8x1280,Tri,127.0.0.1:2101\r\n"));
  EXPECT_EQ(Brivon1::Store().panels[5].columns, 128);
}

TEST_F(ConfigDialogTest, AddWithAnEmptyPortBoxStoresTheAddressWithPort80) {
  Open("[Communication]\r\nSendMode=TCPIP\r\n");
  TypePanel("5", "8", "96");
  Type("txtIPAddress", "10.0.0.5");
  Click("butAdd");
  EXPECT_EQ(Lines(), QStringList{Text("ID005     8x96     Mono-Color     10.0.0.5:80")});
  EXPECT_EQ(Box("txtIPPortNo")->text(), QString());
  Type("txtIPPortNo", "8080");
  Find<QComboBox>("ComboColorType")->setCurrentIndex(1);
  Click("butAdd");
  EXPECT_EQ(Lines(), QStringList{Text("ID005     8x96     Tri-Color     10.0.0.5:8080")});
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(File(),
            "[Communication]\r\nSendMode=TCPIP\r\nBaudrate=9600\r\nComPort=2\r\n"
            "[Dimension Config]\r\nID005=8x96,Tri,10.0.0.5:8080\r\n");
}

TEST_F(ConfigDialogTest, AddingAnIdThatIsAlreadyListedReplacesItsLineRatherThanAddingASecondOne) {
  Open(kTwoPanels);
  TypePanel("012", "2", "48");
  Type("txtIPAddress", "10.0.0.1");
  Click("butAdd");
  const QString line = Text("ID012     2x48     Mono-Color     10.0.0.1:80");
  EXPECT_EQ(Lines(), (QStringList{Text(kLine1), line}));
  EXPECT_EQ(SelectedLine(), line);
}

TEST_F(ConfigDialogTest, TheListIsInAscendingOrderAndTheAddedLineIsSelected) {
  Open(kTwoPanels);
  TypePanel("255", "1", "8");
  Click("butAdd");
  TypePanel("5", "1", "8");
  Click("butAdd");
  EXPECT_EQ(Lines(),
            (QStringList{Text(kLine1), Text("ID005     1x8     Mono-Color     0.0.0.0:80"),
                         Text(kLine12), Text("ID255     1x8     Mono-Color     0.0.0.0:80")}));
  EXPECT_EQ(SelectedLine(), Text("ID005     1x8     Mono-Color     0.0.0.0:80"));
}

TEST_F(ConfigDialogTest, AnEmptyBoxIsInputIsNotValid) {
  const char* panels[][3] = {{"", "4", "96"}, {"5", "", "96"}, {"5", "4", ""}, {"", "", ""}};
  for (const auto& [id, rows, columns] : panels) {
    MessageBoxReader reader;
    Open(kTwoPanels);
    TypePanel(id, rows, columns);
    Click("butAdd");
    EXPECT_EQ(reader.Texts(), QStringList{Text("Input is not Valid!")});
    EXPECT_EQ(reader.Seen().first().title, Text("Configuration"));
    EXPECT_EQ(reader.Seen().first().icon, QMessageBox::NoIcon);
    EXPECT_EQ(Lines(), (QStringList{Text(kLine1), Text(kLine12)}));
    EXPECT_EQ(Box("txtRow")->text(), Text(rows));
  }
}

TEST_F(ConfigDialogTest, APortThatIsNoneIsInputIsNotValid) {
  for (const char* port : {"0", "65536", "80,1", "x", " "}) {
    MessageBoxReader reader;
    Open(kTwoPanels);
    TypePanel("5", "4", "96");
    Type("txtIPPortNo", port);
    Click("butAdd");
    EXPECT_EQ(reader.Texts(), QStringList{Text("Input is not Valid!")}) << port;
    EXPECT_EQ(Box("txtIPPortNo")->text(), Text(port));
    EXPECT_EQ(Lines().size(), 2);
  }
}

TEST_F(ConfigDialogTest, AStoredValueThatWouldNotSurviveThe34CharacterLimitIsRefusedAtAdd) {
  Open(kTwoPanels);
  TypePanel("5", "12", "3000");
  Type("txtIPAddress", "254.254.254.254");
  Type("txtIPPortNo", "065535");
  Click("butAdd");
  ExpectOneBox("Input is not Valid!");
  EXPECT_EQ(Lines().size(), 2);
}

TEST_F(ConfigDialogTest, ChoosingALinePutsItsValuesIntoTheBoxesReadyToChange) {
  Open(kTwoPanels);
  ClickLine(List(), 0);
  EXPECT_EQ(Box("txtID")->text(), Text("1"));
  EXPECT_EQ(Box("txtRow")->text(), Text("4"));
  EXPECT_EQ(Box("txtcol")->text(), Text("96"));
  EXPECT_EQ(Find<QComboBox>("ComboColorType")->currentIndex(), 1);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("127.0.0.1"));
  EXPECT_EQ(Box("txtIPPortNo")->text(), Text("2101"));
  QTest::keyClick(List(), Qt::Key_Down);
  EXPECT_EQ(Box("txtID")->text(), Text("12"));
  EXPECT_EQ(Find<QComboBox>("ComboColorType")->currentIndex(), 0);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("192.168.0.12"));
  Type("txtRow", "3");
  ClickLine(List(), 1);  // the chosen line again
  EXPECT_EQ(Box("txtRow")->text(), Text("12"));
  Type("txtRow", "3");
  Click("butAdd");
  EXPECT_EQ(SelectedLine(), Text("ID012     3x192     Mono-Color     192.168.0.12:80"));
}

TEST_F(ConfigDialogTest, ALineThatIsOnlyLookedAtNeverKeepsTheDialogOpen) {
  Open("[Dimension Config]\r\nID001=20x96,Tri,panel.local:99999\r\nID002=8x96,Tri\r\n");
  ClickLine(List(), 0);
  EXPECT_EQ(Box("txtRow")->text(), QString());
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("panel.local"));
  QTest::keyClick(Box("txtIPAddress"), Qt::Key_Tab);
  ClickLine(List(), 1);
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("0.0.0.0"));
  ClickLine(List(), 0);
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(File(),
            "[Dimension Config]\r\nID001=20x96,Tri,panel.local:99999\r\nID002=8x96,Tri\r\n"
            "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\n");
}

TEST_F(ConfigDialogTest, EnterInABoxOfThePanelAddsItAndLeavesTheDialogOpen) {
  for (const char* name : {"txtID", "txtRow", "txtcol", "txtIPAddress", "txtIPPortNo"}) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
      Open(kTwoPanels);
      TypePanel("5", "1", "8");
      Box(name)->setFocus();
      QTest::keyClick(Box(name), key);
      EXPECT_TRUE(window_->isVisible()) << name;
      EXPECT_EQ(SelectedLine(), Text("ID005     1x8     Mono-Color     0.0.0.0:80")) << name;
      EXPECT_EQ(window_->focusWidget(), Box("txtID"));
      EXPECT_EQ(Box("txtID")->selectedText(), Text("5"));
    }
  }
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(File(), kTwoPanels);
}

TEST_F(ConfigDialogTest, EnterOnTheColourTypeAddsToo) {
  Open(kTwoPanels);
  TypePanel("5", "1", "8");
  auto* colours = Find<QComboBox>("ComboColorType");
  colours->setFocus();
  QTest::keyClick(colours, Qt::Key_Down);
  QTest::keyClick(colours, Qt::Key_Return);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(SelectedLine(), Text("ID005     1x8     Tri-Color     0.0.0.0:80"));
}

TEST_F(ConfigDialogTest, EnterInAnEmptyBoxIsInputIsNotValidAndLeavesTheDialogOpen) {
  Open(kTwoPanels);
  Box("txtRow")->setFocus();
  QTest::keyClick(Box("txtRow"), Qt::Key_Return);
  ExpectOneBox("Input is not Valid!");
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(window_->focusWidget(), Box("txtRow"));
}

TEST_F(ConfigDialogTest, RemoveMovesTheSelectionToTheNextLineElseToTheOneBefore) {
  Open(kTwoPanels);
  TypePanel("5", "1", "8");
  Click("butAdd");
  Click("butRemove");
  EXPECT_EQ(Lines(), (QStringList{Text(kLine1), Text(kLine12)}));
  EXPECT_EQ(SelectedLine(), Text(kLine12));
  EXPECT_EQ(Box("txtID")->text(), Text("12"));
  Click("butRemove");
  EXPECT_EQ(SelectedLine(), Text(kLine1));
  EXPECT_EQ(Box("txtID")->text(), Text("1"));
  Click("butRemove");
  EXPECT_TRUE(Lines().isEmpty());
  Click("butRemove");
  EXPECT_EQ(File(), kTwoPanels);
  Click("butOK");
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(File(),
            "[Dimension Config]\r\n[Communication]\r\nSendMode=TCPIP\r\nBaudrate=4800\r\n"
            "ComPort=3\r\n");
}

TEST_F(ConfigDialogTest, RemoveWithoutASelectedLineDoesNothing) {
  Open(kTwoPanels);
  Click("butRemove");
  List()->setFocus();
  QTest::keyClick(List(), Qt::Key_Delete);
  EXPECT_EQ(Lines().size(), 2);
  EXPECT_TRUE(reader_.Seen().isEmpty());
}

TEST_F(ConfigDialogTest, ADeleteKeyHeldTooLongTakesOnePanelOut) {
  Open(kTwoPanels);
  ClickLine(List(), 0);
  QTest::keyClick(List(), Qt::Key_Delete);
  for (int n = 0; n < 5; ++n) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(List(), &held);
  }
  EXPECT_EQ(Lines(), QStringList{Text(kLine12)});
}

TEST_F(ConfigDialogTest, TheDeleteKeyInTheListRemovesAndInABoxDeletesACharacter) {
  Open(kTwoPanels);
  ClickLine(List(), 0);
  Box("txtcol")->setFocus();
  QTest::keyClick(Box("txtcol"), Qt::Key_Home);
  QTest::keyClick(Box("txtcol"), Qt::Key_Delete);
  EXPECT_EQ(Box("txtcol")->text(), Text("6"));
  EXPECT_EQ(Lines().size(), 2);
  QTest::keyClick(List(), Qt::Key_Delete);
  EXPECT_EQ(Lines(), QStringList{Text(kLine12)});
  EXPECT_EQ(SelectedLine(), Text(kLine12));
}

}  // namespace
