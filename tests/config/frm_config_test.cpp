// What the configuration dialog shows, and the window as a whole.
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "app/frmMain.h"
#include "config/config_dialog.h"
#include "store/configuration_store.h"
#include "support/wheel.h"
#include "widgets/caption_button.h"

using namespace Qt::StringLiterals;

namespace {

TEST_F(ConfigDialogTest, ItShowsItsCaptions) {
  Open("");
  EXPECT_EQ(window_->windowTitle(), Text("Configuration"));
  const std::pair<const char*, const char*> frames[] = {
      {"FrameSelection", "Communication Selection"},
      {"FrameComm", "Communication"},
      {"FrameBaudRate", "Baudrate"},
      {"PanelSerial", "Serial Port"},
      {"FrameIDConfig", "ID Configuration"}};
  for (const auto& [name, caption] : frames) {
    EXPECT_EQ(Find<QGroupBox>(name)->title(), Text(caption));
  }
  const std::pair<const char*, const char*> labels[] = {
      {"lblIPAdress", "IP Address"}, {"lblIPport", "IP PortNo"},      {"lblIDNumber", "ID number"},
      {"lblRow", "No. of Row"},      {"lblCol", "No. of dot-column"}, {"lblColor", "Color Type"}};
  for (const auto& [name, caption] : labels) {
    EXPECT_EQ(Find<QLabel>(name)->text(), Text(caption));
  }
  const std::pair<const char*, const char*> buttons[] = {{"optRS232", "RS-232 Serial Port"},
                                                         {"optTCPIP", "TCP/IP Network"},
                                                         {"Opt300", "300"},
                                                         {"Opt600", "600"},
                                                         {"opt1200", "1200"},
                                                         {"opt2400", "2400"},
                                                         {"opt4800", "4800"},
                                                         {"opt9600", "9600"},
                                                         {"butAdd", "Add >>"},
                                                         {"butRemove", "Remove"},
                                                         {"butOK", "OK"},
                                                         {"butCancel", "Cancel"}};
  for (const auto& [name, caption] : buttons) {
    EXPECT_EQ(Find<QAbstractButton>(name)->text(), Text(caption));
  }
  EXPECT_EQ(Box("txtIPAddress")->text(), Text("0.0.0.0"));
  auto* colours = Find<QComboBox>("ComboColorType");
  ASSERT_EQ(colours->count(), 2);
  EXPECT_EQ(colours->itemText(0), Text("Mono"));
  EXPECT_EQ(colours->itemText(1), Text("Tri"));
  ASSERT_EQ(Ports()->count(), 4);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(Ports()->item(i)->text(), u"Com %1"_s.arg(i + 1));
  }
}

TEST_F(ConfigDialogTest, AWheelOverTheColourTypeChoosesNothing) {
  Open("");
  TurnWheel(Find<QComboBox>("ComboColorType"));
  EXPECT_EQ(Find<QComboBox>("ComboColorType")->currentIndex(), 0);
}

TEST_F(ConfigDialogTest, ItStartsWithTheStoredSettingsAndOneLineForEachConfiguredPanel) {
  Open(kTwoPanels);
  EXPECT_TRUE(Option("optTCPIP")->isChecked());
  EXPECT_FALSE(Option("optRS232")->isChecked());
  EXPECT_TRUE(Option("opt4800")->isChecked());
  EXPECT_EQ(Ports()->selectedItems(), QList{Ports()->item(2)});
  EXPECT_EQ(Lines(), (QStringList{Text(kLine1), Text(kLine12)}));
  EXPECT_EQ(SelectedLine(), QString());
  EXPECT_EQ(window_->focusWidget(), Option("optTCPIP"));
}

TEST_F(ConfigDialogTest, EveryOptionShowsItsStoredBaudRateAndSetsIt) {
  for (const char* name : {"Opt300", "Opt600", "opt1200", "opt2400", "opt4800", "opt9600"}) {
    Open(kTwoPanels);
    Click(name);
    Click("butOK");
    EXPECT_TRUE(File().contains(QByteArray("\r\nBaudrate=") + (name + 3) + "\r\n")) << name;
    Open();
    EXPECT_TRUE(Option(name)->isChecked());
  }
}

TEST_F(ConfigDialogTest, EveryPortLineSetsItsNumber) {
  for (int row = 0; row < 4; ++row) {
    Open(kTwoPanels);
    ClickLine(Ports(), row);
    Click("butOK");
    EXPECT_EQ(Brivon1::Store().com_port, row + 1);
    Open();
    EXPECT_EQ(Ports()->selectedItems(), QList{Ports()->item(row)});
  }
}

TEST_F(ConfigDialogTest, TheToolTipsOfThePortListShowTheDevice) {
  Open("[Serial Ports]\r\nCom2=/dev/ttyUSB0\r\nCom3=<b>x</b>\r\n");
  EXPECT_EQ(Ports()->item(0)->toolTip(), Text("/dev/ttyS0"));
  EXPECT_EQ(Ports()->item(1)->toolTip(), Text("/dev/ttyUSB0"));
  EXPECT_FALSE(Ports()->item(2)->toolTip().contains(Text("<b>")));  // no markup
  EXPECT_EQ(Ports()->item(3)->toolTip(), Text("/dev/ttyS3"));
}

TEST_F(ConfigDialogTest, ChoosingOptRs232DisablesTheAddressBoxesAndChoosingOptTcpipEnablesThem) {
  Open(kTwoPanels);
  EXPECT_TRUE(Box("txtIPAddress")->isEnabled());
  EXPECT_TRUE(Box("txtIPPortNo")->isEnabled());
  Click("optRS232");
  EXPECT_FALSE(Box("txtIPAddress")->isEnabled());
  EXPECT_FALSE(Box("txtIPPortNo")->isEnabled());
  for (const char* name : {"Opt300", "ListComPort", "txtID", "butAdd", "List1"}) {
    EXPECT_TRUE(Find<QWidget>(name)->isEnabled()) << name;
  }
  Click("optTCPIP");
  EXPECT_TRUE(Box("txtIPAddress")->isEnabled());
  EXPECT_TRUE(Box("txtIPPortNo")->isEnabled());
  Open("[Communication]\r\nSendMode=RS232\r\n");
  EXPECT_TRUE(Option("optRS232")->isChecked());
  EXPECT_FALSE(Box("txtIPAddress")->isEnabled());
  EXPECT_FALSE(Box("txtIPPortNo")->isEnabled());
}

TEST_F(ConfigDialogTest,
       NoSendModeStoredBothAddressBoxesAreEnabledThePortEmptyTheColourTypeAtItsFirstEntry) {
  Open("[Communication]\r\nSendMode=rs232\r\n");
  EXPECT_FALSE(Option("optRS232")->isChecked());
  EXPECT_FALSE(Option("optTCPIP")->isChecked());
  EXPECT_TRUE(Box("txtIPAddress")->isEnabled());
  EXPECT_TRUE(Box("txtIPPortNo")->isEnabled());
  EXPECT_EQ(Box("txtIPPortNo")->text(), QString());
  EXPECT_EQ(Find<QComboBox>("ComboColorType")->currentIndex(), 0);
}

TEST_F(ConfigDialogTest, TabGoesThroughTheControlsInTheirOrder) {
  Open("[Communication]\r\nSendMode=TCPIP\r\nBaudrate=300\r\n");
  const char* order[] = {"txtIPAddress", "txtIPPortNo", "Opt300",         "ListComPort", "txtID",
                         "txtRow",       "txtcol",      "ComboColorType", "butAdd",      "List1",
                         "butRemove",    "butOK",       "butCancel",      "optTCPIP"};
  for (const char* name : order) {
    QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window_->focusWidget()->objectName(), Text(name));
  }
}

TEST_F(ConfigDialogTest, TabLandsOnTheChosenBaudRateAndTheArrowsMoveIt) {
  Open(kTwoPanels);
  Box("txtIPPortNo")->setFocus();
  QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), Option("opt4800"));
  QTest::keyClick(window_->focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(Option("opt4800")->isChecked());
  QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), Ports());
  QTest::keyClick(window_->focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(window_->focusWidget(), Option("opt4800"));
  QTest::keyClick(window_->focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(Option("opt9600")->isChecked());
  EXPECT_EQ(window_->focusWidget(), Option("opt9600"));
  Box("txtIPPortNo")->setFocus();
  QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), Option("opt9600"));
}

TEST_F(ConfigDialogTest, TabReachesABaudRateWhereNoneIsChosen) {
  Open("[Communication]\r\nSendMode=TCPIP\r\nBaudrate=38400\r\n");
  Box("txtIPPortNo")->setFocus();
  QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), Option("Opt300"));
  EXPECT_FALSE(Option("Opt300")->isChecked());
}

TEST_F(ConfigDialogTest, EveryBoxHasANameForThoseWhoDoNotSeeIt) {
  Open("");
  EXPECT_EQ(Ports()->accessibleName(), Text("Serial Port"));
  EXPECT_EQ(List()->accessibleName(), Text("ID Configuration"));
  for (const char* name :
       {"lblIPAdress", "lblIPport", "lblIDNumber", "lblRow", "lblCol", "lblColor"}) {
    EXPECT_NE(Find<QLabel>(name)->buddy(), nullptr) << name;
  }
}

TEST_F(ConfigDialogTest, NothingOverlapsHoweverLongTheCaptionsAre) {
  QByteArray captions = "[frmConfig]\r\n";
  for (const char* key :
       {"FrameSelection", "optRS232", "optTCPIP", "FrameIDConfig", "lblIDNumber", "lblColor",
        "lblRow", "lblCol", "butAdd", "butRemove", "butOK", "butCancel", "FrameComm", "PanelSerial",
        "lblIPAdress", "lblIPport", "FrameBaudRate"}) {
    captions += QByteArray("frmConfig.") + key + "=" + key + " und noch dreissig Zeichen mehr\r\n";
  }
  folder_.UseLanguage(captions);
  Open(kTwoPanels);
  EXPECT_LE(window_->width(), 800);
  const QList<QWidget*> all = window_->findChildren<QWidget*>();
  for (QWidget* frame : all) {
    if (qobject_cast<QGroupBox*>(frame) == nullptr) continue;
    const QList<QWidget*> parts = frame->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (qsizetype i = 0; i < parts.size(); ++i) {
      EXPECT_TRUE(frame->rect().contains(parts[i]->geometry()))
          << parts[i]->objectName().toStdString();
      for (qsizetype j = 0; j < i; ++j) {
        EXPECT_FALSE(parts[i]->geometry().intersects(parts[j]->geometry()))
            << parts[i]->objectName().toStdString() << parts[j]->objectName().toStdString();
      }
    }
  }
  for (const CaptionButton* button : window_->findChildren<CaptionButton*>()) {
    EXPECT_TRUE(button->Fit().complete) << button->objectName().toStdString();
  }
  EXPECT_GE(Box("txtIPAddress")->width(),
            Box("txtIPAddress")->fontMetrics().horizontalAdvance(Text("254.254.254.254")));
}

TEST_F(ConfigDialogTest, TheLaunchersConfigButtonOpensIt) {
  folder_.Write(Text("brivon.ini"), kTwoPanels);
  frmMain main;
  main.show();
  const ModalWindowDriver driver(Text("frmConfig"), [](QWidget* window) {
    auto* ok = window->findChild<QPushButton*>(Text("butOK"));
    QTest::mouseClick(window->findChild<QRadioButton*>(Text("optRS232")), Qt::LeftButton);
    QTest::mouseClick(ok, Qt::LeftButton);
  });
  QTest::mouseClick(main.findChild<QPushButton*>(Text("butConfigEdit")), Qt::LeftButton);
  EXPECT_EQ(driver.Count(), 1);
  EXPECT_EQ(Brivon1::Store().send_mode, "RS232");
}

}  // namespace
