#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "ports/port.h"
#include "scrolling/frmSendShift.h"
#include "store/configuration_store.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFinished = u"Transmission finished!"_s;
const QString kFailure = u"Transmission failure!"_s;
const QString kNoPort = u"Fail to initialize communication port!"_s;
const QByteArray kFile = "*** Brivon Shift Message File ***\r\n<SA><CA>Road <CB>works\r\n";

/// The dialog as an operator has it before him.
class Dialog : public SendDialog {
 public:
  explicit Dialog(const QString& path, const Brivon1::PanelPorts* ports = nullptr)
      : SendDialog(std::make_unique<frmSendShift>(nullptr, path, ports),
                   {"butBrowse", "ComboID", "txtLine", "butSend", "butDone"}) {}

  void TypeLine(const QString& line) { TypeInto("txtLine", line); }
  QString File() { return Shown("lblFileName"); }

  bool IsReady() { return SendDialog::IsReady() && Shown("lblSendStatus").isEmpty(); }
};

/// The dialog in front of panels that are really there.
class SendScrolling : public testing::Test {
 protected:
  SendScrolling()
      : bench_(LineKind::kSerial, {{18, 16, 96, true}, {19, 4, 96, false}, {26, 4, 96, true}}) {
    path_ = bench_.Folder().Write(u"a.srl"_s, kFile);
  }

  VirtualBench bench_;
  QString path_;
};

TEST_F(SendScrolling, TheMessageArrivesAsOneFrameAndTheDialogStaysOpenForTheNext) {
  Dialog dialog(path_, bench_.Ports());
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  dialog.TypeLine(u"16"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  dialog.Find<QComboBox>("ComboID")->setCurrentIndex(1);
  dialog.TypeLine(u"4"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames(), (QList<QByteArray>{"<ID12><L1><SA><CA>Road <CB>works\r\n",
                                                "<ID12><L16><SA><CA>Road <CB>works\r\n",
                                                "<ID13><L4><SA>Road works\r\n"}));
  EXPECT_EQ(bench_.Engine().FindPanel(18)->Memory().Scrolling().keys(), (QList<int>{1, 16}));
  EXPECT_EQ(bench_.Engine().FindPanel(19)->Memory().Scrolling().keys(), QList<int>{4});
  EXPECT_TRUE(dialog.window.isVisible());
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(dialog.File(), path_);
  EXPECT_EQ(dialog.Find<QLineEdit>("txtLine")->text(), u"4"_s);
  EXPECT_EQ(dialog.Find<QComboBox>("ComboID")->currentIndex(), 1);
}

TEST_F(SendScrolling, TheConfigurationNamesTheTcpIpModeTheMessageIsStillSentOverTheSerialPort) {
  const QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
  for (const char* mode : {"SendMode=TCPIP", "SendMode=", "SendMode=other"}) {
    bench_.Folder().Configure(QByteArray(ini).replace("SendMode=RS232", mode));
    Dialog dialog(path_, bench_.Ports());
    EXPECT_EQ(dialog.Send(), QStringList{kFinished}) << mode;
  }
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>(3, "<ID12><L1><SA><CA>Road <CB>works\r\n"));
  EXPECT_EQ(bench_.Openings(), 3);  // nor was a connection tried
}

TEST_F(SendScrolling, TxtLine0OnAnyPanelIsSentWithLine0WithoutAMessage) {
  Dialog dialog(path_, bench_.Ports());
  dialog.TypeLine(u"0"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().value(0), "<ID12><L0><SA><CA>Road <CB>works\r\n");
}

TEST_F(SendScrolling, TxtLine17OnA16RowPanelIsNotValid) {
  Dialog dialog(path_, bench_.Ports());
  dialog.TypeLine(u"17"_s);
  EXPECT_EQ(dialog.Send(), QStringList{u"Line No. Not Valid!"_s});
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendScrolling, TxtLineAbcIsReadAs0AndSent) {
  Dialog dialog(path_, bench_.Ports());
  dialog.TypeLine(u"abc"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().value(0), "<ID12><L0><SA><CA>Road <CB>works\r\n");
}

TEST_F(SendScrolling, ALineBelow0PassesTheCheckAndIsSentAsItIs) {
  Dialog dialog(path_, bench_.Ports());
  dialog.TypeLine(u" -70000x"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().value(0), "<ID12><L-70000><SA><CA>Road <CB>works\r\n");
}

TEST_F(SendScrolling, AHugeLineNumberIsNotValid) {
  Dialog dialog(path_, bench_.Ports());
  for (const char* line : {"65537", "4294967297", "99999999999999999999999999"}) {
    dialog.TypeLine(QString::fromLatin1(line));
    EXPECT_EQ(dialog.Send(), QStringList{u"Line No. Not Valid!"_s}) << line;
  }
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST(SendScrollingOverARealPort, WhileItSendsTheControlsAreLockedAndTheWindowStaysOpen) {
  PanelBench bench(LineKind::kSerial, {{18, 16, 96, true}});
  Dialog dialog(bench.Folder().Write(u"a.srl"_s, kFile));
  int seen = 0;
  QObject::connect(&bench.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window, [&] {
    ++seen;
    dialog.ExpectLocked();
    EXPECT_EQ(dialog.Find<QLabel>("lblSendStatus")->text(), u"Sending --->"_s);
    EXPECT_TRUE(dialog.Find<QTimer>("Timer1")->isActive());
    dialog.Click("butSend");
    dialog.window.close();
    QTest::keyClick(&dialog.window, Qt::Key_Escape);
    QTest::keyClick(&dialog.window, Qt::Key_Return);
    EXPECT_TRUE(dialog.window.isVisible());
  });
  QString status;
  const ModalWindowDriver box(
      QString(), [&](QWidget*) { status = dialog.Find<QLabel>("lblSendStatus")->text(); });
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(status, u"<--- Ack"_s);
  EXPECT_EQ(seen, 1);
  EXPECT_TRUE(dialog.window.isVisible());
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_FALSE(dialog.Find<QTimer>("Timer1")->isActive());
  QTest::keyClick(&dialog.window, Qt::Key_Escape);
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST(SendScrollingOverARealPort, ThePortIsOpenAndTheControlsAreLockedUntilTheResultIsRead) {
  PanelBench bench(LineKind::kSerial, {{18, 16, 96, true}});
  Dialog dialog(bench.Folder().Write(u"a.srl"_s, kFile));
  bool ready = true;
  bool open = false;
  const ModalWindowDriver box(QString(), [&](QWidget*) {
    ready = dialog.Find<QWidget>("butSend")->isEnabled();
    open = dialog.Find<Ports::Port>("Comm1")->IsOpen();
  });
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_FALSE(ready);
  EXPECT_TRUE(open);
  EXPECT_FALSE(dialog.Find<Ports::Port>("Comm1")->IsOpen());
}

TEST_F(SendScrolling, ALineOfBlanksIsNotEmptyIsReadAs0AndSent) {
  Dialog dialog(path_, bench_.Ports());
  dialog.TypeLine(u"  "_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().value(0), "<ID12><L0><SA><CA>Road <CB>works\r\n");
}

TEST_F(SendScrolling, AFileThatIsRefusedAtSendingIsATransmissionFailureAndNothingIsSent) {
  Dialog dialog(path_, bench_.Ports());
  for (const char* content : {"too short", "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n",
                              "*** Brivon Shift Message File ***\r\n"}) {
    bench_.Folder().Write(u"a.srl"_s, content);
    EXPECT_EQ(dialog.Send(), QStringList{kFailure}) << content;
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
  }
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST_F(SendScrolling, TheLongestMessageArrivesWhole) {
  QByteArray body;
  for (int at = 0; at < 1000; ++at) {
    body += QByteArray("<S") + static_cast<char>('A' + at % 8) + "><C" +
            static_cast<char>('A' + at % 16) + '>' + static_cast<char>('a' + at % 26);
  }
  bench_.Folder().Write(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n" + body + "\r\n");
  Dialog dialog(path_, bench_.Ports());
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>{"<ID12><L1>" + body + "\r\n"});
}

TEST_F(SendScrolling, ItsTextsComeFromTheLanguageFileItsCaptionsDoNot) {
  bench_.Folder().UseLanguage(
      "[Message]\r\nmsgTxOK=Fertig!\r\nmsgTxFail=Fehler!\r\nmsgErrComm=Kein Anschluss!\r\n"
      "msgNotFound=Datei fehlt\r\nmsgErrOpen=Unlesbar\r\n"
      "[frmSendShift]\r\nfrmSendShift.Caption=Senden\r\nfrmSendShift.butSend=Los\r\n");
  Dialog dialog(path_, bench_.Ports());
  EXPECT_EQ(dialog.Send(), QStringList{u"Fertig!"_s});
  bench_.Fail({.garbage = true});
  EXPECT_EQ(dialog.Send(), QStringList{u"Fehler!"_s});
  bench_.Unplug();
  EXPECT_EQ(dialog.Send(), QStringList{u"Kein Anschluss!"_s});
  EXPECT_EQ(Dialog(QString()).Send(), QStringList{u"Datei fehlt!"_s});
  EXPECT_EQ(dialog.window.windowTitle(), u"Send Scrolling Message"_s);
  EXPECT_EQ(dialog.Find<QPushButton>("butSend")->text(), u"Send"_s);
}

/// The dialog in front of panels that are never reached: what it refuses before it opens a port.
class SendScrollingChecks : public testing::Test {
 protected:
  SendScrollingChecks() {
    folder_.Configure(
        "[Dimension Config]\r\nID007=16x96,Tri,192.168.0.1:80\r\nID012=2x128,Mono\r\n"
        "ID200=0x96,Tri\r\n[Communication]\r\nSendMode=TCPIP\r\n"
        "[Serial Ports]\r\nCom2=/nowhere/at/all\r\n");
    path_ = folder_.Write(u"a.srl"_s, kFile);
  }

  TemporaryProgramFolder folder_;
  QString path_;
};

TEST_F(SendScrollingChecks, HasItsControlsAndTexts) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.window.objectName(), u"frmSendShift"_s);
  EXPECT_EQ(dialog.window.windowTitle(), u"Send Scrolling Message"_s);
  EXPECT_EQ(dialog.Find<QLabel>("LabelDisplayID")->text(), u"ID Number"_s);
  EXPECT_EQ(dialog.Find<QLabel>("labelLine")->text(), u"Line :"_s);
  EXPECT_EQ(dialog.Find<QLabel>("lblSendStatus")->text(), QString());
  EXPECT_EQ(dialog.Find<QLineEdit>("txtLine")->text(), u"1"_s);
  const std::pair<const char*, const char*> buttons[] = {
      {"butBrowse", "Browse"}, {"butSend", "Send"}, {"butDone", "Done"}};
  for (const auto& [name, text] : buttons) {
    EXPECT_EQ(dialog.Find<QPushButton>(name)->text(), QLatin1String(text));
  }
  EXPECT_EQ(dialog.Find<QTimer>("Timer1")->interval(), 100);
  EXPECT_NE(dialog.Find<Ports::Port>("Comm1"), nullptr);
  EXPECT_EQ(dialog.File(), path_);
}

TEST_F(SendScrollingChecks, ThePanelListHasNoAddressesAndItsFirstEntryIsSelected) {
  Dialog dialog(path_);
  auto* list = dialog.Find<QComboBox>("ComboID");
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->itemText(0), u"ID007     16x96     Tri-Color"_s);
  EXPECT_EQ(list->itemText(1), u"ID012     2x128     Mono-Color"_s);
  EXPECT_EQ(list->currentIndex(), 0);
}

TEST_F(SendScrollingChecks, TheChecksComeInTheirOrderEachWithAPlainBox) {
  const QString path = folder_.Path(u"late.srl"_s);
  Dialog dialog(path);
  dialog.TypeLine(QString());
  auto* list = dialog.Find<QComboBox>("ComboID");
  list->setCurrentIndex(-1);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  folder_.Write(u"late.srl"_s, kFile);
  dialog.Click("butSend");
  list->setCurrentIndex(1);
  dialog.Click("butSend");
  dialog.TypeLine(u"3"_s);
  dialog.Click("butSend");
  dialog.TypeLine(u"2"_s);
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(),
            (QStringList{u"File not found!"_s, u"Invalid ID Selection!"_s, u"Invalid Line No.!"_s,
                         u"Line No. Not Valid!"_s, kNoPort}));
  EXPECT_EQ(
      boxes.Remedies().first(4),
      (QStringList{
          path +
              u": No such file or directory\nIt has been moved or renamed, or was not saved yet. "
              "Save it, or choose another one."_s,
          u"Choose a panel from the list."_s, u"ID012 has the lines 1 to 2."_s,
          u"ID012 has the lines 1 to 2."_s}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Scrolling Message"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(dialog.File(), path);
  EXPECT_EQ(list->currentIndex(), 1);
}

TEST_F(SendScrollingChecks, AMessageAboutWhatWasChosenLocksNothing) {
  Dialog dialog(folder_.Path(u"gone.srl"_s));
  bool ready = false;
  const ModalWindowDriver box(QString(), [&](QWidget*) { ready = dialog.IsReady(); });
  EXPECT_EQ(dialog.Send(), QStringList{u"File not found!"_s});
  EXPECT_TRUE(ready);
}

TEST_F(SendScrollingChecks, TheControlsAreLockedUntilTheMessageAboutThePortIsRead) {
  Dialog dialog(path_);
  bool ready = true;
  const ModalWindowDriver box(
      QString(), [&](QWidget*) { ready = dialog.Find<QWidget>("butSend")->isEnabled(); });
  EXPECT_EQ(dialog.Send(), QStringList{kNoPort});
  EXPECT_FALSE(ready);
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendScrollingChecks, ReturnInTheLineBoxSends) {
  Dialog dialog(path_);
  const MessageBoxReader boxes;
  QTest::keyClick(dialog.Find<QLineEdit>("txtLine"), Qt::Key_Return);
  EXPECT_EQ(boxes.Texts(), QStringList{kNoPort});
}

}  // namespace
