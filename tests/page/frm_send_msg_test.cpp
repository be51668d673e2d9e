#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSerialPort>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/frmSendMsg.h"
#include "support/full_listener.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFinished = u"Transmission finished!"_s;
const QString kFailure = u"Transmission failure!"_s;
const QString kNoLink = u"Cannot create TCP link!"_s;
const QString kNoPort = u"Fail to initialize communication port!"_s;

class Dialog : public SendDialog<frmSendMsg> {
 public:
  using SendDialog::SendDialog;

  void ChoosePanel(int index) { Find<QComboBox>("ComboID")->setCurrentIndex(index); }
  void TypePage(const QString& page) { TypeInto("txtPage", page); }

  bool IsReady() {
    return AreReady({"butBrowse", "ComboID", "txtPage", "butSend", "butDone"}) &&
           Find<QLabel>("lblSendStatus")->text().isEmpty();
  }
};

class SendMessage : public testing::TestWithParam<LineKind> {
 protected:
  SendMessage() : bench_(GetParam(), {{26, 4, 96, true}}) {
    path_ = bench_.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  }

  void ExpectTheNextSendWorks(Dialog& dialog) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
    bench_.Fail({});
    EXPECT_EQ(dialog.Send(), QStringList{kFinished});
    EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 4);
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
  }

  PanelBench bench_;
  QString path_;
};

INSTANTIATE_TEST_SUITE_P(Links, SendMessage, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(SendMessage, EveryRowArrivesAsItStandsInTheFile) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypePage(u"7"_s);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames(), (QList<QByteArray>{
                                 "<ID1A><L01><P007><SA><CA>Row 01 \r\n",
                                 "<ID1A><L02><P007><SA><CB>Row 02 \r\n",
                                 "<ID1A><L03><P007><SA><CC>Row 03 \r\n",
                                 "<ID1A><L04><P007><SA><CD>Row 04 \r\n",
                             }));
  dialog.TypePage(u"1"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, TheBoxIsPlainAndBearsTheWindowsCaption) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  ASSERT_EQ(boxes.Seen().size(), 1);
  EXPECT_EQ(boxes.Seen()[0].text, kFinished);
  EXPECT_EQ(boxes.Seen()[0].title, u"Send Message"_s);
  EXPECT_EQ(boxes.Seen()[0].icon, QMessageBox::NoIcon);
  EXPECT_EQ(boxes.Seen()[0].buttons, QMessageBox::Ok);
  EXPECT_EQ(boxes.Seen()[0].parent, &dialog.window);
}

TEST_P(SendMessage, WhileItSendsTheControlsAreLockedAndTheWindowStaysOpen) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  int seen = 0;
  QObject::connect(
      &bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window, [&] {
        ++seen;
        EXPECT_FALSE(dialog.Find<QPushButton>("butSend")->isEnabled());
        EXPECT_FALSE(dialog.Find<QPushButton>("butDone")->isEnabled());
        EXPECT_FALSE(dialog.Find<QComboBox>("ComboID")->isEnabled());
        EXPECT_EQ(dialog.window.cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(dialog.Find<QLabel>("lblSendStatus")->text(), u" Sending Line %1"_s.arg(seen));
        dialog.window.close();
        QTest::keyClick(&dialog.window, Qt::Key_Escape);
        EXPECT_TRUE(dialog.window.isVisible());
      });
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(seen, 4);
  EXPECT_TRUE(dialog.window.isVisible());
  EXPECT_TRUE(dialog.IsReady());
  QTest::keyClick(&dialog.window, Qt::Key_Escape);
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST_P(SendMessage, TheResultComesFromTheLanguageFile) {
  bench_.Folder().UseLanguage(
      "[Message]\r\nmsgTxOK=Fertig!\r\nmsgTxFail=Fehler!\r\nmsgErrTCP=Kein Netz!\r\n"
      "msgErrComm=Kein Anschluss!\r\n");
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{u"Fertig!"_s});
  bench_.Fail({.garbage = true});
  EXPECT_EQ(dialog.Send(), QStringList{u"Fehler!"_s});
  bench_.Unplug();
  EXPECT_EQ(dialog.Send(),
            QStringList{GetParam() == LineKind::kTcp ? u"Kein Netz!"_s : u"Kein Anschluss!"_s});
}

TEST_P(SendMessage, ThePointerIsBusyOverEveryControlAndTheKeyboardComesBack) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  auto* page = dialog.Find<QLineEdit>("txtPage");
  page->setFocus();
  ASSERT_EQ(page->cursor().shape(), Qt::IBeamCursor);
  Qt::CursorShape shape = Qt::ArrowCursor;
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] { shape = page->cursor().shape(); });
  const MessageBoxReader boxes;
  QTest::keyClick(page, Qt::Key_Return);
  EXPECT_EQ(boxes.Texts(), QStringList{kFinished});
  EXPECT_EQ(shape, Qt::WaitCursor);
  EXPECT_EQ(page->cursor().shape(), Qt::IBeamCursor);
  EXPECT_EQ(dialog.window.focusWidget(), page);
}

TEST_P(SendMessage, ASecondPressWhileItSendsDoesNothing) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] {
                     dialog.Click("butSend");
                     QTest::keyClick(&dialog.window, Qt::Key_Return);
                   });
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().size(), 4);
}

TEST_P(SendMessage, ASilentPanelFailsAfterFiveAttemptsAtTheFirstRow) {
  bench_.Fail({.silent = true});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>(5, "<ID1A><L01><P001><SA><CA>Row 01 \r\n"));
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, APanelThatAnswersOnTheThirdAttemptGetsEveryRow) {
  bench_.Fail({.silent_answers = 2});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().size(), 6);
  EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 4);
}

TEST_P(SendMessage, GarbledAnswersAreRefusedFiveTimesAtOnce) {
  bench_.Fail({.garbage = true});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_EQ(bench_.Frames().size(), 5);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, LowerCaseAnswersAreRefused) {
  bench_.Fail({.lower_case = true});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
}

TEST_P(SendMessage, AnswersInPiecesAndLateAreAccepted) {
  bench_.Fail({.pieces = 3, .piece_pause_ms = 40, .late_ms = 60});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().size(), 4);
}

TEST_P(SendMessage, AnEndlessAnswerFailsAndTheNextSendWorks) {
  bench_.Fail({.flood = true});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, ALineLostAfterRow2FailsOnceAndTheNextSendWorks) {
  bench_.Fail({.close_after_frame = 2});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure}) << "one message, not one for each error";
  EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 2);
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, ALineLostAfterTheLastAnswerHasSentEveryRow) {
  bench_.Fail({.close_after_frame = 4});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 4);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !bench_.Pty().IsPlugged(); }));
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, ALineLostWhileTheMessageBoxIsOpenDoesNoHarm) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  {
    const MessageBoxReader boxes;
    const ModalWindowDriver box(QString(), [&](QWidget*) {
      bench_.Unplug();
      QCoreApplication::processEvents();
    });
    dialog.Click("butSend");
    EXPECT_EQ(boxes.Texts(), QStringList{kFinished});
  }
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendMessage, TheWholeProgramCanBeEndedWhileItSends) {
  bench_.Fail({.silent = true});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [] { QCoreApplication::exit(3); });
  QTimer::singleShot(0, &dialog.window, [&] { dialog.Click("butSend"); });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(SendMessage, AStrayByteInFrontOfEveryAnswerFails) {
  bench_.Fail({.stray_byte = true});
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_EQ(bench_.Frames().size(), 5);
}

TEST(SendMessageOverTcp, TheControlsAreLockedBeforeTheLinkIsOpened) {
  PanelBench bench(LineKind::kTcp, {{26, 4, 96, true}});
  Dialog dialog(bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96)));
  dialog.ChoosePanel(0);
  bool locked = false;
  QTimer::singleShot(0, &dialog.window, [&] {
    locked = !dialog.Find<QWidget>("butSend")->isEnabled() && bench.Frames().isEmpty();
    dialog.window.close();
    EXPECT_TRUE(dialog.window.isVisible());
  });
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_TRUE(locked);
}

TEST(SendMessageOverTcp, TheProgramsEndWhileItConnectsSendsNothing) {
  PanelBench bench(LineKind::kTcp, {{26, 4, 96, true}});
  Dialog dialog(bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96)));
  dialog.ChoosePanel(0);
  QTimer::singleShot(0, &dialog.window, [&] {
    QTimer until_connected;
    QObject::connect(&until_connected, &QTimer::timeout, &dialog.window, [&] {
      if (bench.Tcp().ConnectionCount() == 1) QCoreApplication::exit(3);
    });
    until_connected.start(1);
    dialog.Click("butSend");
  });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_TRUE(bench.IsReleased());
  EXPECT_TRUE(bench.Frames().isEmpty());
}

TEST(SendMessageOverTcp, ARefusedConnectionIsReportedWithItsAddress) {
  PanelBench bench(LineKind::kTcp, {{26, 4, 96, true}});
  const QString path = bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  const quint16 port = bench.Tcp().Port();
  bench.Unplug();
  Dialog dialog(path);
  dialog.ChoosePanel(0);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{kNoLink});
  EXPECT_EQ(boxes.Seen().value(0).informative, u"127.0.0.1:%1: Connection refused"_s.arg(port));
  EXPECT_TRUE(dialog.IsReady());
  bench.PlugIn();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

TEST(SendMessageOverTcp, APanelThatHasNotAcceptedAfter500MsIsReportedAndTheNextSendWorks) {
  PanelBench bench(LineKind::kTcp, {{26, 4, 96, true}});
  const QString path = bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  const quint16 port = bench.Tcp().Port();
  bench.Unplug();
  Dialog dialog(path);
  dialog.ChoosePanel(0);
  {
    const FullListener slow_panel(port);
    const MessageBoxReader boxes;
    dialog.Click("butSend");
    EXPECT_EQ(boxes.Texts(), QStringList{kNoLink});
    EXPECT_EQ(boxes.Seen().value(0).informative,
              u"127.0.0.1:%1: no answer within 500 ms"_s.arg(port));
  }
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(dialog.Find<QTcpSocket>("Winsock1")->state(), QAbstractSocket::UnconnectedState);
  bench.PlugIn();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

TEST(SendMessageOverSerial, AMissingPortIsReportedWithItsDevice) {
  PanelBench bench(LineKind::kSerial, {{26, 4, 96, true}});
  const QString path = bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  bench.Unplug();
  Dialog dialog(path);
  dialog.ChoosePanel(0);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{kNoPort});
  EXPECT_TRUE(
      boxes.Seen().value(0).informative.startsWith(bench.Folder().Path(u"panel-line"_s) + u": "_s))
      << boxes.Seen().value(0).informative.toStdString();
  EXPECT_TRUE(dialog.IsReady());
  bench.PlugIn();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

TEST(SendMessageOverSerial, APanelWithoutAnAddressIsReachedAllTheSame) {
  PanelBench bench(LineKind::kSerial, {{26, 4, 96, true}});
  const QByteArray ini = bench.Folder().Read(u"brivon.ini"_s);
  bench.Folder().Configure(QByteArray(ini).replace(",127.0.0.1:9", ""));
  Dialog dialog(bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96)));
  EXPECT_EQ(dialog.Find<QComboBox>("ComboID")->itemText(0),
            u"ID026     4x96     Tri-Color     Tri"_s);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

TEST(SendMessageOverSerial, ABaudRateOf0IsAPortThatCannotBeOpened) {
  PanelBench bench(LineKind::kSerial, {{26, 4, 96, true}});
  const QString path = bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  QByteArray ini = bench.Folder().Read(u"brivon.ini"_s);
  bench.Folder().Configure(ini.replace("Baudrate=9600", "Baudrate=fast"));
  Dialog dialog(path);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kNoPort});
}

TEST(SendMessageOverSerial, AHandWrittenBaudRateWorks) {
  PanelBench bench(LineKind::kSerial, {{26, 4, 96, true}});
  const QString path = bench.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96));
  QByteArray ini = bench.Folder().Read(u"brivon.ini"_s);
  bench.Folder().Configure(ini.replace("Baudrate=9600", "Baudrate=115200"));
  Dialog dialog(path);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

/// The dialog in front of panels that are never reached: what it refuses before it opens a link.
class SendMessageChecks : public testing::Test {
 protected:
  SendMessageChecks() {
    folder_.Configure(
        "[Dimension Config]\r\nID001=4x96,Tri,192.168.0.1:80\r\nID002=2x96,Mono\r\n"
        "[Communication]\r\nSendMode=TCPIP\r\n");
    path_ = folder_.Write(u"page.msg"_s, SampleMessageFile(2, 96));
  }

  TemporaryProgramFolder folder_;
  QString path_;
};

TEST_F(SendMessageChecks, HasItsControlsAndTexts) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.window.windowTitle(), u"Send Message"_s);
  const std::pair<const char*, const char*> boxes[] = {{"frameFile", "Message File"},
                                                       {"FrameDestination", "Destination"},
                                                       {"FrameStatus", "Send Status"}};
  for (const auto& [name, text] : boxes) {
    EXPECT_EQ(dialog.Find<QGroupBox>(name)->title(), QLatin1String(text));
  }
  const std::pair<const char*, const char*> labels[] = {
      {"labelRow", "Row:"},  {"labelCol", "Col:"},      {"LabelDisplayID", "ID Number"},
      {"Label2", " Page :"}, {"Label5", "(001 - 120)"}, {"lblSendStatus", ""}};
  for (const auto& [name, text] : labels) {
    EXPECT_EQ(dialog.Find<QLabel>(name)->text(), QLatin1String(text));
  }
  const std::pair<const char*, const char*> buttons[] = {
      {"butBrowse", "Browse"}, {"butSend", "Send"}, {"butDone", "Done"}};
  for (const auto& [name, text] : buttons) {
    EXPECT_EQ(dialog.Find<QPushButton>(name)->text(), QLatin1String(text));
  }
  EXPECT_EQ(dialog.Find<QTimer>("Timer1")->interval(), 100);
  EXPECT_NE(dialog.Find<QSerialPort>("Comm1"), nullptr);
  EXPECT_NE(dialog.Find<QTcpSocket>("Winsock1"), nullptr);
}

TEST_F(SendMessageChecks, DoneClosesTheDialog) {
  Dialog dialog(path_);
  dialog.Click("butDone");
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST_F(SendMessageChecks, TheChecksComeInTheirOrderEachWithAPlainBox) {
  folder_.UseLanguage(
      "[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgErrOpen=Unlesbar\r\nmsgDim=Passt nicht!\r\n");
  const QString path = folder_.Path(u"late.msg"_s);
  Dialog dialog(path);
  dialog.TypePage(QString());
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, QByteArray(100, 'x'));
  dialog.Click("butSend");
  dialog.ChoosePanel(1);
  dialog.Click("butSend");
  dialog.TypePage(u"1"_s);
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, SampleMessageFile(4, 96));
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, SampleMessageFile(2, 80));
  dialog.Click("butSend");
  folder_.Write(u"late.msg"_s, SampleMessageFile(2, 96));
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), (QStringList{u"Datei fehlt!"_s, u"Invalid ID Selection!"_s,
                                        u"Invalid Page Value!"_s, u"Unlesbar!"_s, u"Passt nicht!"_s,
                                        u"Passt nicht!"_s, u"IP address is null or invaild"_s}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Message"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendMessageChecks, ThePanelListHasOneEntryForEachConfiguredPanelAndNoneIsSelected) {
  Dialog dialog(path_);
  auto* list = dialog.Find<QComboBox>("ComboID");
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->itemText(0), u"ID001     4x96     Tri-Color     192.168.0.1:80"_s);
  EXPECT_EQ(list->itemText(1), u"ID002     2x96     Mono-Color     Mono"_s);
  EXPECT_EQ(list->currentIndex(), -1);
  EXPECT_EQ(dialog.Send(), QStringList{u"Invalid ID Selection!"_s});
}

TEST_F(SendMessageChecks, WithNoPanelConfiguredTheListIsEmptyAndSendReportsInvalidIdSelection) {
  folder_.Configure("");
  Dialog dialog(path_);
  EXPECT_EQ(dialog.Find<QComboBox>("ComboID")->count(), 0);
  EXPECT_EQ(dialog.Send(), QStringList{u"Invalid ID Selection!"_s});
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendMessageChecks, A2RowFileCannotBeSentToA4RowPanel) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{u"Dimension not matched!"_s});
}

TEST_F(SendMessageChecks, APanelWithoutAnAddressIsRefusedInTcpMode) {
  Dialog dialog(path_);
  dialog.ChoosePanel(1);
  EXPECT_EQ(dialog.Send(), QStringList{u"IP address is null or invaild"_s});
}

TEST_F(SendMessageChecks, AnEmptyPageIsRefused) {
  Dialog dialog(path_);
  dialog.ChoosePanel(1);
  dialog.TypePage(QString());
  EXPECT_EQ(dialog.Send(), QStringList{u"Invalid Page Value!"_s});
}

TEST_F(SendMessageChecks, NeitherSendModeSendsNothingAndSaysNothing) {
  folder_.Configure(
      "[Dimension Config]\r\nID002=2x96,Mono\r\n[Communication]\r\nSendMode=rs232\r\n");
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList());
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendMessageChecks, AMissingFileIsNotFound) {
  Dialog dialog(folder_.Path(u"gone.msg"_s));
  EXPECT_EQ(dialog.Send(), QStringList{u"File not found!"_s});
}

TEST_F(SendMessageChecks, WithoutAFileThereIsNoneToFind) {
  Dialog dialog((QString()));
  EXPECT_EQ(dialog.Send(), QStringList{u"File not found!"_s});
}

TEST_F(SendMessageChecks, AFileWhoseHeaderIsWrongIsRefusedAtSend) {
  Dialog dialog(folder_.Write(u"bad.msg"_s, QByteArray(100, 'x')));
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList{u"Error in opening file!"_s});
}

TEST_F(SendMessageChecks, AFileWhoseHeaderIsWrongIsRefusedAtBrowse) {
  const QString bad = folder_.Write(u"bad.msg"_s, QByteArray(100, 'x'));
  Dialog dialog(path_);
  const MessageBoxReader boxes;
  const FileChooser chooser(bad);
  dialog.Click("butBrowse");
  EXPECT_EQ(chooser.Seen().title, u"Browse"_s);
  EXPECT_EQ(chooser.Seen().filter, u"Message File (*.msg)"_s);
  EXPECT_EQ(boxes.Texts(), QStringList{u"Error in opening file!"_s});
  EXPECT_EQ(dialog.Find<QLabel>("lblFileName")->text(), path_);
}

TEST_F(SendMessageChecks, BrowseShowsTheChosenFileWithItsDimension) {
  const QString other = folder_.Write(u"other.msg"_s, SampleMessageFile(4, 128));
  Dialog dialog((QString()));
  const FileChooser chooser(other);
  dialog.Click("butBrowse");
  EXPECT_EQ(dialog.Find<QLabel>("lblFileName")->text(), other);
  EXPECT_EQ(dialog.Find<QLabel>("lblRow")->text(), u"4"_s);
  EXPECT_EQ(dialog.Find<QLabel>("lblCol")->text(), u"128"_s);
}

TEST_F(SendMessageChecks, ABrowseThatIsCancelledChangesNothing) {
  Dialog dialog(path_);
  const FileChooser chooser((QString()));
  dialog.Click("butBrowse");
  EXPECT_EQ(chooser.Count(), 1);
  EXPECT_EQ(dialog.Find<QLabel>("lblFileName")->text(), path_);
}

TEST_F(SendMessageChecks, AChosenFileThatDoesNotExistIsNotFoundAndNothingElseChanges) {
  Dialog dialog(path_);
  const MessageBoxReader boxes;
  const FileChooser chooser(folder_.Path(u"gone.msg"_s));
  dialog.Click("butBrowse");
  EXPECT_EQ(boxes.Texts(), QStringList{u"File not found!"_s});
  EXPECT_EQ(dialog.Find<QLabel>("lblFileName")->text(), path_);
}

TEST_F(SendMessageChecks, AFileHandedOverShowsItsDimensionAtOnce) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.Find<QLabel>("lblFileName")->text(), path_);
  EXPECT_EQ(dialog.Find<QLabel>("lblRow")->text(), u"2"_s);
  EXPECT_EQ(dialog.Find<QLabel>("lblCol")->text(), u"96"_s);
  EXPECT_EQ(dialog.Find<QLineEdit>("txtPage")->text(), u"001"_s);
}

TEST_F(SendMessageChecks, MessagesComeFromTheLanguageFile) {
  folder_.UseLanguage("[Message]\r\nmsgNotFound=Datei fehlt\r\n");
  Dialog dialog((QString()));
  EXPECT_EQ(dialog.Send(), QStringList{u"Datei fehlt!"_s});
}

struct PageText {
  const char* typed;
  const char* sent;
};

class PageOnTheWire : public testing::TestWithParam<PageText> {};

INSTANTIATE_TEST_SUITE_P(SendMessage, PageOnTheWire,
                         testing::Values(PageText{"0", "000"}, PageText{"500", "500"},
                                         PageText{"7", "007"}, PageText{"abc", "000"},
                                         PageText{"12x", "012"}, PageText{"00012", "012"},
                                         PageText{"1234", "1234"}, PageText{"-5", "000"}));

TEST_P(PageOnTheWire, IsTheLeadingNumberInAtLeastThreeDigits) {
  PanelBench bench(LineKind::kTcp, {{1, 1, 96, true}});
  Dialog dialog(bench.Folder().Write(u"page.msg"_s, SampleMessageFile(1, 96)));
  dialog.ChoosePanel(0);
  dialog.TypePage(QString::fromLatin1(GetParam().typed));
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench.Frames(), QList<QByteArray>{QByteArray("<ID01><L01><P") + GetParam().sent +
                                              "><SA><CA>Row 01 \r\n"});
}

}  // namespace
