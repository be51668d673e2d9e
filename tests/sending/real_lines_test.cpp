// The windows that send over lines that are really there, a TCP port and a pseudo-terminal: what
// a line in memory cannot show.
#include <chrono>
#include <memory>
#include <thread>

#include <QComboBox>
#include <QElapsedTimer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/frmSendMsg.h"
#include "sending/sending_windows.h"
#include "support/full_listener.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFinished = u"Transmission finished!"_s;
const QString kFailure = u"Transmission failure!"_s;

class WindowsOverRealLines : public testing::TestWithParam<WindowOverLine> {};

INSTANTIATE_TEST_SUITE_P(All, WindowsOverRealLines, testing::ValuesIn(WindowsOverLines()),
                         WindowOverLineName);

TEST_P(WindowsOverRealLines, EveryByteArrivesAndTheLineIsReleased) {
  const SendingWindow& window = *GetParam().window;
  PanelBench bench(GetParam().line, {window.panel});
  SendDialog dialog(window.make(window.write_file(bench.Folder()), nullptr), window.locked);
  window.fill_in(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{window.finished(GetParam().line)});
  EXPECT_EQ(bench.Frames(), window.frames);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_TRUE(bench.IsReleased());
}

/// The dialog that sends a page of four rows, and its panel.
class PageOverRealLine {
 protected:
  explicit PageOverRealLine(LineKind kind)
      : bench_(kind, {{26, 4, 96, true}}),
        path_(bench_.Folder().Write(u"page.msg"_s, SampleMessageFile(4, 96))) {}

  SendDialog Open() {
    SendDialog dialog(std::make_unique<frmSendMsg>(nullptr, path_),
                      {"butBrowse", "ComboID", "txtPage", "butSend", "butDone"});
    dialog.Find<QComboBox>("ComboID")->setCurrentIndex(0);
    return dialog;
  }

  void ExpectTheNextSendWorks(SendDialog& dialog) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_EQ(dialog.Shown("lblSendStatus"), QString());
    EXPECT_TRUE(bench_.IsReleased());
    bench_.Fail({});
    bench_.PlugIn();
    EXPECT_EQ(dialog.Send(), QStringList{kFinished});
    EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 4);
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
  }

  PanelBench bench_;
  QString path_;
};

class RealLine : public testing::TestWithParam<LineKind>, protected PageOverRealLine {
 protected:
  RealLine() : PageOverRealLine(GetParam()) {}
};

TEST(PanelBenchPort, IsWaitedForWhileAnotherProgramHasIt) {
  PanelBench bench(LineKind::kTcp, {{26, 4, 96, true}});
  const quint16 port = bench.Tcp().Port();
  bench.Unplug();
  auto other = std::make_unique<FullListener>(port);
  std::thread leaving([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    other.reset();
  });
  bench.PlugIn();
  leaving.join();
  EXPECT_EQ(bench.Tcp().Port(), port);
}

INSTANTIATE_TEST_SUITE_P(Links, RealLine, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(RealLine, AnAnswerIsWaitedForAsLongAsTheTimeOutSays) {
  bench_.Fail({.silent_answers = 1});
  SendDialog dialog = Open();
  QElapsedTimer elapsed;
  elapsed.start();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_GE(elapsed.elapsed(), 1000);
  EXPECT_EQ(bench_.Frames().size(), 5);
}

TEST_P(RealLine, AnswersInPiecesAndLateAreAccepted) {
  bench_.Fail({.pieces = 3, .piece_pause_ms = 40, .late_ms = 60});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Frames().size(), 4);
}

TEST_P(RealLine, AnEndlessAnswerFailsAndTheNextSendWorks) {
  bench_.Fail({.flood = true});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  ExpectTheNextSendWorks(dialog);
}

TEST_P(RealLine, ALineLostAfterRow2FailsOnceAndTheNextSendWorks) {
  bench_.Fail({.close_after_frame = 2});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{kFailure}) << "one message, not one for each error";
  EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 2);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(RealLine, ALineLostAfterTheLastAnswerHasSentEveryRow) {
  bench_.Fail({.close_after_frame = 4});
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  EXPECT_EQ(bench_.Engine().Page(26, 1).size(), 4);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !bench_.Port().IsPlugged(); }));
  ExpectTheNextSendWorks(dialog);
}

TEST_P(RealLine, ALineLostWhileTheMessageBoxIsOpenDoesNoHarm) {
  SendDialog dialog = Open();
  {
    const ModalWindowDriver box(QString(), [&](QWidget*) {
      bench_.Unplug();
      QCoreApplication::processEvents();
    });
    EXPECT_EQ(dialog.Send(), QStringList{kFinished});
  }
  ExpectTheNextSendWorks(dialog);
}

TEST_P(RealLine, TheWholeProgramCanBeEndedWhileItSends) {
  bench_.Fail({.silent = true});
  SendDialog dialog = Open();
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [] { QCoreApplication::exit(3); });
  QTimer::singleShot(0, &dialog.window, [&] { dialog.Click("butSend"); });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(dialog.Shown("lblSendStatus"), QString());
}

class RealTcpLine : public testing::Test, protected PageOverRealLine {
 protected:
  RealTcpLine() : PageOverRealLine(LineKind::kTcp) {}
};

TEST_F(RealTcpLine, TheProgramsEndWhileItConnectsSendsNothing) {
  SendDialog dialog = Open();
  QTimer::singleShot(0, &dialog.window, [&] {
    QTimer until_connected;
    QObject::connect(&until_connected, &QTimer::timeout, &dialog.window, [&] {
      if (bench_.Tcp().ConnectionCount() == 1) QCoreApplication::exit(3);
    });
    until_connected.start(1);
    dialog.Click("butSend");
  });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_TRUE(bench_.IsReleased());
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST_F(RealTcpLine, ARefusedConnectionIsReportedWithItsAddress) {
  const quint16 port = bench_.Tcp().Port();
  bench_.Unplug();
  SendDialog dialog = Open();
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{u"Cannot create TCP link!"_s});
  EXPECT_EQ(boxes.Seen().value(0).informative, u"127.0.0.1:%1: Connection refused"_s.arg(port));
  ExpectTheNextSendWorks(dialog);
}

TEST_F(RealTcpLine, APanelThatHasNotAcceptedAfter500MsIsReportedAndTheNextSendWorks) {
  const quint16 port = bench_.Tcp().Port();
  bench_.Unplug();
  SendDialog dialog = Open();
  {
    const FullListener slow_panel(port);
    const MessageBoxReader boxes;
    dialog.Click("butSend");
    EXPECT_EQ(boxes.Texts(), QStringList{u"Cannot create TCP link!"_s});
    EXPECT_EQ(boxes.Seen().value(0).informative,
              u"127.0.0.1:%1: no answer within 500 ms"_s.arg(port));
  }
  EXPECT_EQ(dialog.Find<QTcpSocket>("Winsock1")->state(), QAbstractSocket::UnconnectedState);
  ExpectTheNextSendWorks(dialog);
}

class RealSerialLine : public testing::Test, protected PageOverRealLine {
 protected:
  RealSerialLine() : PageOverRealLine(LineKind::kSerial) {}

  void ConfigureBaudRate(const QByteArray& rate) {
    QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
    bench_.Folder().Configure(ini.replace("Baudrate=9600", "Baudrate=" + rate));
  }
};

TEST_F(RealSerialLine, AMissingPortIsReportedWithItsDevice) {
  bench_.Unplug();
  SendDialog dialog = Open();
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{u"Fail to initialize communication port!"_s});
  EXPECT_TRUE(boxes.Seen().value(0).informative.startsWith(bench_.Device() + u": "_s))
      << boxes.Seen().value(0).informative.toStdString();
  ExpectTheNextSendWorks(dialog);
}

TEST_F(RealSerialLine, ABaudRateOf0IsAPortThatCannotBeOpened) {
  ConfigureBaudRate("fast");
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{u"Fail to initialize communication port!"_s});
}

TEST_F(RealSerialLine, AHandWrittenBaudRateWorks) {
  ConfigureBaudRate("115200");
  SendDialog dialog = Open();
  EXPECT_EQ(dialog.Send(), QStringList{kFinished});
}

}  // namespace
