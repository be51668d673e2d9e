// The configuration dialog, driven by key and mouse.
#include <sys/stat.h>
#include <unistd.h>

#include <random>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "config/frmConfig.h"
#include "store/configuration_store.h"
#include "support/full_disk.h"
#include "support/message_box_reader.h"
#include "support/program_folder.h"
#include "support/wheel.h"
#include "widgets/caption_button.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kTwoPanels =
    "[Dimension Config]\r\n"
    "ID001=4x96,Tri,127.0.0.1:2101\r\n"
    "ID012=12x192,Mono,192.168.0.12:80\r\n"
    "[Communication]\r\n"
    "SendMode=TCPIP\r\n"
    "Baudrate=4800\r\n"
    "ComPort=3\r\n";

constexpr const char* kLine1 = "ID001     4x96     Tri-Color     127.0.0.1:2101";
constexpr const char* kLine12 = "ID012     12x192     Mono-Color     192.168.0.12:80";

QString Text(const char* text) { return QString::fromUtf8(text); }

class ConfigDialogTest : public testing::Test {
 protected:
  void Open(const QByteArray& ini) {
    folder_.Write(Text("brivon.ini"), ini);
    Open();
  }

  void Open() {
    window_ = std::make_unique<frmConfig>();
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }

  template <typename Control>
  Control* Find(const char* name) {
    auto* control = window_->findChild<Control*>(Text(name));
    EXPECT_NE(control, nullptr) << name;
    return control;
  }

  QLineEdit* Box(const char* name) { return Find<QLineEdit>(name); }
  QRadioButton* Option(const char* name) { return Find<QRadioButton>(name); }
  QListWidget* List() { return Find<QListWidget>("List1"); }
  QListWidget* Ports() { return Find<QListWidget>("ListComPort"); }

  void Click(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }

  // Puts a text into a box as an operator does, the keyboard in it afterwards.
  void Type(const char* name, const char* text) {
    QLineEdit* box = Box(name);
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, Text(text));
  }

  void Paste(const char* name, const char* text) {
    QGuiApplication::clipboard()->setText(Text(text));
    Box(name)->setFocus();
    Box(name)->selectAll();
    QTest::keyClick(Box(name), Qt::Key_V, Qt::ControlModifier);
  }

  void TypePanel(const char* id, const char* rows, const char* columns) {
    Type("txtID", id);
    Type("txtRow", rows);
    Type("txtcol", columns);
  }

  void ClickLine(QListWidget* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
  }

  QStringList Lines() {
    QStringList lines;
    for (int i = 0; i < List()->count(); ++i) lines.append(List()->item(i)->text());
    return lines;
  }

  QString SelectedLine() {
    const QList<QListWidgetItem*> selected = List()->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
  }

  QByteArray File() const { return folder_.Read(Text("brivon.ini")); }

  void ExpectOneBox(const char* text) {
    ASSERT_EQ(reader_.Texts(), QStringList{Text(text)});
    EXPECT_EQ(reader_.Seen().first().title, Text("Configuration"));
    EXPECT_EQ(reader_.Seen().first().icon, QMessageBox::NoIcon);
    EXPECT_EQ(reader_.Seen().first().buttons, QMessageBox::Ok);
    EXPECT_EQ(reader_.Seen().first().parent, window_.get());
  }

  TemporaryProgramFolder folder_;
  MessageBoxReader reader_;
  std::unique_ptr<frmConfig> window_;
};

// --- what it shows

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

// --- the number boxes

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

// --- Add and Remove

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

// --- the address box

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

// --- OK and Cancel

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
  EXPECT_EQ(reader_.Seen().first().informative, folder_.Path(Text("brivon.ini")));
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

TEST_F(ConfigDialogTest, AFolderWithoutPermissionIsReportedAndTheDialogStaysOpen) {
  Open(kTwoPanels);
  Click("opt9600");
  const QByteArray folder = QFile::encodeName(QFileInfo(folder_.Path(Text("x"))).path());
  ASSERT_EQ(chmod(folder.constData(), 0555), 0);
  // The superuser may write everywhere, so the save is done as somebody else.
  const bool is_superuser = geteuid() == 0;
  if (is_superuser) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  Click("butOK");
  if (is_superuser) {
    ASSERT_EQ(seteuid(0), 0);
  }
  ASSERT_EQ(chmod(folder.constData(), 0755), 0);
  ExpectOneBox("Invalid path!");
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(Option("opt9600")->isChecked());
  EXPECT_EQ(File(), kTwoPanels);
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

// --- the window as a whole

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
