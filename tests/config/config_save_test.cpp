// The configuration dialog's OK and Cancel: what is written, kept and reported.
#include <functional>
#include <map>
#include <random>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "config/config_dialog.h"
#include "store/configuration_store.h"
#include "support/full_disk.h"

using namespace Qt::StringLiterals;

namespace {

TEST_F(ConfigDialogTest, OkWritesTheFileReloadsTheStoreAndCloses) {
  const QByteArray ini =
      "; our panels\r\n"
      "[Dimension Config]\r\n"
      "ID001=4x96,Tri,127.0.0.1:2101\r\n"
      "; the big one\r\n"
      "ID012=12x192,Mono,192.168.0.12:80\r\n"
      "\r\n"
      "[Communication]\r\n"
      "SendMode=TCPIP\r\n"
      "Delay Period=250\r\n"
      "Baudrate=4800\r\n"
      "ComPort=3\r\n"
      "[Serial Ports]\r\n"
      "Com2=/dev/ttyUSB0\r\n"
      "Com2Rts=0\r\n"
      "[Language]\r\n"
      "Language=1\r\n"
      "[Unknown]\r\n"
      "a line\r\n";
  Open(ini);
  ClickLine(List(), 0);
  QTest::keyClick(List(), Qt::Key_Delete);
  TypePanel("0", "2", "48");
  Type("txtIPAddress", "10.0.0.1");
  Type("txtIPPortNo", "");
  Click("butAdd");
  Click("optRS232");
  Click("Opt300");
  ClickLine(Ports(), 1);
  EXPECT_EQ(File(), ini);
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(window_->result(), QDialog::Accepted);
  EXPECT_TRUE(reader_.Seen().isEmpty());
  EXPECT_EQ(File(),
            "; our panels\r\n"
            "[Dimension Config]\r\n"
            "; the big one\r\n"
            "ID012=12x192,Mono,192.168.0.12:80\r\n"
            "ID000=2x48,Mono,10.0.0.1:80\r\n"
            "\r\n"
            "[Communication]\r\n"
            "SendMode=RS232\r\n"
            "Delay Period=250\r\n"
            "Baudrate=300\r\n"
            "ComPort=2\r\n"
            "[Serial Ports]\r\n"
            "Com2=/dev/ttyUSB0\r\n"
            "Com2Rts=0\r\n"
            "[Language]\r\n"
            "Language=1\r\n"
            "[Unknown]\r\n"
            "a line\r\n");
  EXPECT_EQ(Brivon1::Store().panels[0].rows, 2);
  EXPECT_EQ(Brivon1::Store().panels[0].columns, 48);
  EXPECT_EQ(Brivon1::Store().panels[0].address, "10.0.0.1:80");
  EXPECT_FALSE(Brivon1::Store().panels[1].IsConfigured());
  EXPECT_EQ(Brivon1::Store().send_mode, "RS232");
  EXPECT_EQ(Brivon1::Store().baud_rate, 300);
  EXPECT_EQ(Brivon1::Store().com_port, 2);
}

TEST_F(ConfigDialogTest, AMissingFileIsMadeAndAnUntouchedDialogChangesNoByteOfAnother) {
  Open();
  TypePanel("7", "8", "96");
  Click("butAdd");
  Click("optTCPIP");
  Click("butOK");
  const QByteArray made =
      "[Dimension Config]\r\nID007=8x96,Mono,0.0.0.0:80\r\n"
      "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\nSendMode=TCPIP\r\n";
  EXPECT_EQ(File(), made);
  Open();
  Click("butOK");
  EXPECT_EQ(File(), made);
}

TEST_F(ConfigDialogTest, WhatIsChangedInTheFileWhileTheDialogIsOpenSurvives) {
  Open(kTwoPanels);
  folder_.Write(Text("brivon.ini"), QByteArray(kTwoPanels) +
                                        "Delay Period=900\r\n[Language]\r\nLanguage=2\r\n"
                                        "; a new comment\r\n");
  Click("opt9600");
  Click("butOK");
  EXPECT_EQ(File(), QByteArray(kTwoPanels).replace("=4800", "=9600") +
                        "Delay Period=900\r\n[Language]\r\nLanguage=2\r\n; a new comment\r\n");
  EXPECT_EQ(Brivon1::Store().delay_period, 900);
}

TEST_F(ConfigDialogTest, WhatWasChangedInTheFileSinceTheStoreWasLoadedIsShownAndKept) {
  folder_.Configure(kTwoPanels);
  const QByteArray by_hand =
      "[Dimension Config]\r\nID003=1x8,Tri,10.0.0.3:80\r\n"
      "[Communication]\r\nBaudrate=600\r\nComPort=1\r\n";
  Open(by_hand);
  EXPECT_EQ(Lines(), QStringList{Text("ID003     1x8     Tri-Color     10.0.0.3:80")});
  Click("butOK");
  EXPECT_EQ(File(), by_hand);
}

TEST_F(ConfigDialogTest, AStoredBaudRateOrPortWithoutAnOptionStaysUnlessAnotherIsChosen) {
  const QByteArray ini = "[Communication]\r\nBaudrate=115200\r\nComPort=7\r\nSendMode=RS232\r\n";
  Open(ini);
  for (const QRadioButton* option : window_->findChildren<QRadioButton*>()) {
    EXPECT_EQ(option->isChecked(), option->objectName() == Text("optRS232"));
  }
  EXPECT_TRUE(Ports()->selectedItems().isEmpty());
  // Passing through with the keyboard chooses nothing.
  for (int n = 0; n < 30; ++n) QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Ports()->selectedItems().isEmpty());
  Click("butOK");
  EXPECT_EQ(File(), ini);
  Open();
  ClickLine(Ports(), 0);
  Click("Opt600");
  Click("butOK");
  EXPECT_EQ(File(), "[Communication]\r\nBaudrate=600\r\nComPort=1\r\nSendMode=RS232\r\n");
}

TEST_F(ConfigDialogTest, AStoredPortBelowTheFirstOneChoosesNoLineAndStays) {
  const QByteArray ini = "[Communication]\r\nBaudrate=4800\r\nComPort=0\r\nSendMode=RS232\r\n";
  Open(ini);
  EXPECT_TRUE(Ports()->selectedItems().isEmpty());
  Click("butOK");
  EXPECT_EQ(File(), ini);
}

TEST_F(ConfigDialogTest, APortLineStaysChosen) {
  Open(kTwoPanels);
  QTest::mouseClick(Ports()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                    Ports()->visualItemRect(Ports()->item(2)).center());
  EXPECT_EQ(Ports()->selectedItems(), QList{Ports()->item(2)});
}

TEST_F(ConfigDialogTest, NeitherSendModeStoredNoneChosenSendModeIsLeftAsItIs) {
  const QByteArray ini = "[Communication]\r\nSendMode= UDP\r\nBaudrate=9600\r\nComPort=2\r\n";
  Open(ini);
  Click("butOK");
  EXPECT_EQ(File(), ini);
}

TEST_F(ConfigDialogTest, CancelEscapeAndTheCloseBoxLeaveTheFileAsItWasWithoutAQuestion) {
  const std::function<void()> ways[] = {[this] { Click("butCancel"); },
                                        [this] { QTest::keyClick(window_.get(), Qt::Key_Escape); },
                                        [this] { window_->close(); }};
  for (const auto& leave : ways) {
    Open(kTwoPanels);
    TypePanel("5", "1", "8");
    Click("butAdd");
    Click("optRS232");
    leave();
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(window_->result(), QDialog::Rejected);
    EXPECT_EQ(File(), kTwoPanels);
    EXPECT_FALSE(Brivon1::Store().panels[5].IsConfigured());
    EXPECT_EQ(Brivon1::Store().send_mode, "TCPIP");
  }
  EXPECT_TRUE(reader_.Seen().isEmpty());
}

TEST_F(ConfigDialogTest, AFullDiskIsReportedAndTheDialogStaysOpenWithNothingLost) {
  Open(kTwoPanels);
  TypePanel("5", "1", "8");
  Click("butAdd");
  {
    const FullDisk full_disk(20);
    Click("butOK");
  }
  ExpectOneBox("Drive not available!");
  EXPECT_EQ(reader_.Seen().first().informative,
            folder_.Path(Text("brivon.ini")) +
                Text(": File too large\nMake room there, then press \"OK\" again."));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(Lines().size(), 3);
  EXPECT_EQ(File(), kTwoPanels);
  EXPECT_FALSE(Brivon1::Store().panels[5].IsConfigured());
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(File(), QByteArray(kTwoPanels).replace("[Comm", "ID005=1x8,Mono,0.0.0.0:80\r\n[Comm"));
}

TEST_F(ConfigDialogTest, AFolderInPlaceOfTheFileIsReportedAndTheDialogStaysOpen) {
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("brivon.ini"))));
  Open();
  TypePanel("5", "1", "8");
  Click("butAdd");
  Click("butOK");
  ExpectOneBox("Invalid path!");
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(Lines().size(), 1);
  ASSERT_TRUE(QDir().rmdir(folder_.Path(Text("brivon.ini"))));
  Click("butOK");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_TRUE(Brivon1::Store().panels[5].IsConfigured());
}

TEST_F(ConfigDialogTest, AFileThatIsNotReadWholeIsNeverReplaced) {
  const QByteArray large = QByteArray("; ") + QByteArray(4 << 20, 'x');
  Open(large);
  Click("butOK");
  ExpectOneBox("Invalid path!");
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(File(), large);
}

TEST_F(ConfigDialogTest, AnEntryWhoseAddressIsOnlyItsColourWordIsWrittenWithTwoFieldsAsItWas) {
  const QByteArray ini =
      "[Dimension Config]\r\nID007=8x96,Tri\r\nID008=8x96,Mono\r\n"
      "[Communication]\r\nBaudrate=9600\r\nComPort=2\r\n";
  Open(ini);
  EXPECT_EQ(Lines(), (QStringList{Text("ID007     8x96     Tri-Color     Tri"),
                                  Text("ID008     8x96     Mono-Color     Mono")}));
  Click("butOK");
  EXPECT_EQ(File(), ini);
}

TEST_F(ConfigDialogTest, MessagesGoThroughTheMessageLookup) {
  folder_.UseLanguage("[Message]\r\nmsgPath=Pfad!\r\n[frmConfig]\r\nfrmConfig.Caption=Daten\r\n");
  ASSERT_TRUE(QDir().mkdir(folder_.Path(Text("brivon.ini"))));
  Open();
  Click("butOK");
  ASSERT_TRUE(QDir().rmdir(folder_.Path(Text("brivon.ini"))));
  ASSERT_EQ(reader_.Texts(), QStringList{Text("Pfad!")});
  EXPECT_EQ(reader_.Seen().first().title, Text("Daten"));
}

TEST_F(ConfigDialogTest, WhatIsTypedIntoTheBoxesIsReadBackByTheStoreFieldByField) {
  std::mt19937 random(22);
  const auto number = [&](int lowest, int highest) {
    return std::uniform_int_distribution<int>(lowest, highest)(random);
  };
  Open("");
  std::map<int, Brivon1::PanelEntry> expected;
  for (int n = 0; n < 40; ++n) {
    const int id = number(0, 255);
    Brivon1::PanelEntry& entry = expected[id];
    entry.rows = static_cast<qint16>(number(1, 12));
    entry.columns = static_cast<qint16>(number(1, 999));
    entry.colour_type = static_cast<qint16>(number(0, 1));
    const QByteArray address = QByteArray::number(number(0, 254)) + ".0." +
                               QByteArray::number(number(0, 254)) + '.' +
                               QByteArray::number(number(0, 254));
    const QByteArray port = number(0, 2) == 0 ? "" : QByteArray::number(number(1, 65535));
    entry.address = address + ':' + (port.isEmpty() ? QByteArray("80") : port);
    TypePanel(QByteArray::number(id).constData(), QByteArray::number(entry.rows).constData(),
              QByteArray::number(entry.columns).constData());
    Type("txtIPAddress", address.constData());
    Type("txtIPPortNo", port.constData());
    Find<QComboBox>("ComboColorType")->setCurrentIndex(entry.colour_type);
    QTest::keyClick(Box("txtID"), Qt::Key_Return);
  }
  Click("butOK");
  EXPECT_TRUE(reader_.Seen().isEmpty());
  Brivon1::LoadConfiguration();
  for (int id = 0; id < 256; ++id) {
    const Brivon1::PanelEntry& read = Brivon1::Store().panels[static_cast<std::size_t>(id)];
    ASSERT_EQ(read.IsConfigured(), expected.contains(id)) << id;
    if (!read.IsConfigured()) continue;
    EXPECT_EQ(read.rows, expected[id].rows) << id;
    EXPECT_EQ(read.columns, expected[id].columns) << id;
    EXPECT_EQ(read.colour_type, expected[id].colour_type) << id;
    EXPECT_EQ(read.address, expected[id].address) << id;
  }
}

}  // namespace
