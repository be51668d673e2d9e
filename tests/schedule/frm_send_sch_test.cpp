#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "schedule/frmSendSch.h"
#include "support/full_listener.h"
#include "support/message_box_reader.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"
#include "widgets/caption_button.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFailure = u"Transmission failure!"_s;
const QString kNoLink = u"Cannot create TCP link!"_s;
const QString kNoPort = u"Fail to initialize communication port!"_s;
const QString kWrongDimension = u"Dimension not matched!"_s;
const QString kEnterLetter = u"Please enter A-J"_s;

class Dialog : public SendDialog<frmSendSch> {
 public:
  using SendDialog::SendDialog;

  void ChoosePanel(int index) { Find<QComboBox>("ComboSchID")->setCurrentIndex(index); }
  void TypeLetter(const QString& letter) { TypeInto("txtSchNo", letter); }
  QString Shown(const char* label) { return Find<QLabel>(label)->text(); }

  bool IsReady() { return AreReady({"butSend", "butDone", "ComboSchID", "butBrowse", "txtSchNo"}); }
};

/// A step of a schedule file.
struct Step {
  QString path;
  QByteArray delay;
  QByteArray feature;
};

QByteArray ScheduleFile(const QByteArray& dimension, const QList<Step>& steps) {
  QByteArray file = "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\n" +
                    dimension + "No of Sequence =" + QByteArray::number(steps.size()) + "\r\n";
  for (const Step& step : steps) {
    file += step.path.toLocal8Bit().leftJustified(100, ' ') + "\r\n" + step.delay + "\r\n" +
            step.feature.leftJustified(20, ' ') + "\r\n";
  }
  return file;
}

const QByteArray k2x96 = "Row =2\r\nCol =96\r\n";

/// Two message files for a panel of 2 rows, and what the panel is to receive of them as the pages
/// 1 and 2.
const QByteArray kFirstFile =
    "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SA><CA>Open \r\n<L02>Gate 1\r\n";
const QByteArray kSecondFile =
    "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n<L01><SC>Today HH:MM\r\n<L02>~B\r\n";
const QList<QByteArray> kShortFrames = {
    "<ID1A><L01><P001><SA><CA>Open  \r\n",     "<ID1A><L02><P001>Gate 1 \r\n",
    "<ID1A><L01><P002><SC>Today <DT> \r\n",    "<ID1A><L02><P002><GB> \r\n",
    "<ID1A><TA>608**00105E,00203A,00104A\r\n",
};

class OverBothLinks : public testing::TestWithParam<LineKind> {
 protected:
  explicit OverBothLinks(int rows) : bench_(GetParam(), {{26, rows, 96, true}}) {}

  QString Finished() const {
    return GetParam() == LineKind::kTcp ? u"Schedules file is sent successfully through network"_s
                                        : u"Transmission finished!"_s;
  }

  /// The texts of a send that failed at `file`.
  QStringList FailedAt(const QString& file) {
    return {u"Error in sending "_s + bench_.Folder().Path(file) + QLatin1Char('!'), kFailure};
  }

  PanelBench bench_;
};

class SendSchedule : public OverBothLinks {
 protected:
  SendSchedule() : OverBothLinks(2) {
    const QString first = bench_.Folder().Write(u"first.msg"_s, kFirstFile);
    const QString second = bench_.Folder().Write(u"second.msg"_s, kSecondFile);
    path_ = bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{first, "5", "wipe left"},
                                                                      {second, "3", "Sparkle"},
                                                                      {first, "4", ""}}));
  }

  /// Makes the dialog ready to send to the bench's panel under the letter "a".
  void FillIn(Dialog& dialog) {
    dialog.ChoosePanel(0);
    dialog.TypeLetter(u"a"_s);
  }

  void ExpectTheNextSendWorks(Dialog& dialog) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
    bench_.Fail({});
    const qsizetype before = bench_.Frames().size();
    EXPECT_EQ(dialog.Send(), QStringList{Finished()});
    EXPECT_EQ(bench_.Frames().mid(before), kShortFrames);
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
  }

  QString path_;
};

INSTANTIATE_TEST_SUITE_P(Links, SendSchedule, testing::Values(LineKind::kTcp, LineKind::kSerial),
                         LineName);

TEST_P(SendSchedule, TheMessageFilesArriveAsPagesAndThenTheSchedule) {
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), kShortFrames);
  EXPECT_EQ(dialog.Shown("lblSendStatus"), u"<--- Ack"_s);
  ExpectTheNextSendWorks(dialog);
}

/// A schedule of 32 steps over 12 message files of 4 rows, all of its texts the test's own.
class SendLongSchedule : public OverBothLinks {
 protected:
  SendLongSchedule() : OverBothLinks(4) {
    for (int file = 1; file <= 12; ++file) {
      const QByteArray number = QByteArray::number(file);
      files_.append(bench_.Folder().Write(u"stop%1.msg"_s.arg(file),
                                          "*** Brivon Message File ***\r\nRow = 4\r\n"
                                          "Col = 96\r\n"
                                          "<L01><SA><CB>Stop " +
                                              number +
                                              "\r\n"
                                              "<L02><CC>via town\r\n"
                                              "<L03>\r\n"
                                              "<L04><SB>DD MMM YYYY\r\n"));
    }
    const int order[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 12, 11, 10, 9,
                         8, 7, 6, 5, 4, 3, 2, 1, 1, 2,  3,  4,  5,  6,  7,  8};
    const char* const features[] = {"Appear",    "Flip", "OPEN",  "Wipe Right",
                                    "Wipe Left", "Fall", "slide", "Shift"};
    QList<Step> steps;
    for (const int file : order) {
      const qsizetype step = steps.size();
      steps.append({files_.at(file - 1), QByteArray::number(step + 1), features[step % 8]});
    }
    path_ = bench_.Folder().Write(u"long.sch"_s, ScheduleFile("Row =4\r\nCol =96\r\n", steps));
  }

  /// The four frames of a file as the page of these three digits.
  static QList<QByteArray> FileFrames(int file, const QByteArray& page) {
    return {"<ID1A><L01><P" + page + "><SA><CB>Stop " + QByteArray::number(file) + " \r\n",
            "<ID1A><L02><P" + page + "><CC>via town \r\n", "<ID1A><L03><P" + page + "> \r\n",
            "<ID1A><L04><P" + page + "><SB><DD> \r\n"};
  }

  QStringList files_;
  QString path_;
};

INSTANTIATE_TEST_SUITE_P(Links, SendLongSchedule,
                         testing::Values(LineKind::kTcp, LineKind::kSerial), LineName);

TEST_P(SendLongSchedule, ThirtyTwoSequencesOverTwelveFilesArriveByteForByte) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"c"_s);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  const QByteArray pages[] = {"025", "026", "027", "028", "029", "030",
                              "031", "032", "033", "034", "035", "036"};
  QList<QByteArray> expected;
  for (int file = 1; file <= 12; ++file) expected += FileFrames(file, pages[file - 1]);
  expected.append(
      "<ID1A><TC>608**"
      "02501A,02602B,02703C,02804D,02905E,03006F,03107G,03208H,"
      "03309A,03410B,03511C,03612D,03613E,03514F,03415G,03316H,"
      "03217A,03118B,03019C,02920D,02821E,02722F,02623G,02524H,"
      "02525A,02626B,02727C,02828D,02929E,03030F,03131G,03232H\r\n");
  EXPECT_EQ(bench_.Frames(), expected);
}

TEST_P(SendLongSchedule, AFailureInTheFifthFileSendsNothingOfTheSixthAndNoSchedule) {
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &bench_.Engine(),
                   [&] {
                     // The answer to row 1 of file 5 is on its way; row 2 gets no right one.
                     if (bench_.Engine().FrameCount() == 17) bench_.Fail({.garbage = true});
                   });
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"J"_s);
  EXPECT_EQ(dialog.Send(), FailedAt(u"stop5.msg"_s));
  QList<QByteArray> expected = FileFrames(1, "109") + FileFrames(2, "110") + FileFrames(3, "111") +
                               FileFrames(4, "112") + FileFrames(5, "113").first(1);
  expected += QList<QByteArray>(5, "<ID1A><L02><P113><CC>via town \r\n");
  EXPECT_EQ(bench_.Frames(), expected);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_TRUE(bench_.IsReleased());
}

TEST_P(SendLongSchedule, AFifthFileThatLacksARowIsFoundOutBeforeItsFirstFrame) {
  bench_.Folder().Write(u"stop5.msg"_s,
                        "*** Brivon Message File ***\r\nRow = 4\r\nCol = 96\r\n<L01>\r\n");
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"A"_s);
  EXPECT_EQ(dialog.Send(), FailedAt(u"stop5.msg"_s));
  EXPECT_EQ(bench_.Frames(), FileFrames(1, "001") + FileFrames(2, "002") + FileFrames(3, "003") +
                                 FileFrames(4, "004"));
}

TEST_P(SendLongSchedule, AFileThatTheTransmissionRefusesGivesItsMessageAndSendsNothing) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"A"_s);
  bench_.Folder().Write(u"stop3.msg"_s, SampleMessageFile(4, 80));
  EXPECT_EQ(dialog.Send(), (QStringList{u"Dimension Not Match: "_s + files_.at(2), kFailure}));
  bench_.Folder().Write(u"stop3.msg"_s, QByteArray(100, 'x'));
  EXPECT_EQ(dialog.Send(), (QStringList{u"Error in opening file: "_s + files_.at(2), kFailure}));
  ASSERT_TRUE(QFile::remove(files_.at(2)));
  EXPECT_EQ(dialog.Send(), (QStringList{u"File not found: "_s + files_.at(2), kFailure}));
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(SendSchedule, TheBoxesArePlainAndBearTheWindowsCaption) {
  Dialog dialog(path_);
  FillIn(dialog);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  dialog.TypeLetter(u"K"_s);
  dialog.Click("butSend");
  bench_.Unplug();
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), (QStringList{Finished(), kEnterLetter, kFailure,
                                        GetParam() == LineKind::kTcp ? kNoLink : kNoPort}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Schedule"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
    EXPECT_EQ(box.parent, &dialog.window);
  }
}

TEST_P(SendSchedule, TheResultsComeFromTheLanguageFile) {
  bench_.Folder().UseLanguage(
      "[Message]\r\nmsgTxOK=Fertig!\r\nmsgSendSchOK=Zeitplan ist da!\r\nmsgErrSend=Fehler bei\r\n"
      "msgTxFail=Fehler!\r\nmsgErrTCP=Kein Netz!\r\nmsgErrComm=Kein Anschluss!\r\n");
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(),
            QStringList{GetParam() == LineKind::kTcp ? u"Zeitplan ist da!"_s : u"Fertig!"_s});
  bench_.Fail({.garbage = true});
  EXPECT_EQ(dialog.Send(),
            (QStringList{u"Fehler bei "_s + bench_.Folder().Path(u"first.msg"_s) + QLatin1Char('!'),
                         u"Fehler!"_s}));
  bench_.Unplug();
  EXPECT_EQ(dialog.Send(),
            QStringList{GetParam() == LineKind::kTcp ? u"Kein Netz!"_s : u"Kein Anschluss!"_s});
}

TEST_P(SendSchedule, ALanguageFileWithoutTheResultLeavesTheEnglishOne) {
  bench_.Folder().UseLanguage("[Message]\r\nmsgTxFail=Fehler!\r\n");
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
}

TEST_P(SendSchedule, WithoutALanguageTheLanguageFileSaysNothing) {
  bench_.Folder().Write(u"langSetting.INI"_s,
                        "[Message]\r\nmsgTxOK=Fertig!\r\nmsgSendSchOK=Zeitplan ist da!\r\n");
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
}

TEST_P(SendSchedule, WhileItSendsTheControlsAreLockedAndTheWindowStaysOpen) {
  Dialog dialog(path_);
  FillIn(dialog);
  QStringList statuses;
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] {
                     for (const char* name : {"butSend", "butDone", "ComboSchID", "butBrowse"}) {
                       EXPECT_FALSE(dialog.Find<QWidget>(name)->isEnabled()) << name;
                     }
                     EXPECT_EQ(dialog.window.cursor().shape(), Qt::WaitCursor);
                     statuses.append(dialog.Shown("lblSendStatus"));
                     dialog.window.close();
                     QTest::keyClick(&dialog.window, Qt::Key_Escape);
                     EXPECT_TRUE(dialog.window.isVisible());
                   });
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(statuses, (QStringList{u" Sending Line 1"_s, u" Sending Line 2"_s, u" Sending Line 1"_s,
                                   u" Sending Line 2"_s, u"Schedule--->"_s}));
  EXPECT_TRUE(dialog.window.isVisible());
  EXPECT_TRUE(dialog.IsReady());
  QTest::keyClick(&dialog.window, Qt::Key_Escape);
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST_P(SendSchedule, ALetterTypedWhileItSendsIsForTheNextSend) {
  Dialog dialog(path_);
  FillIn(dialog);
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] { dialog.TypeLetter(u"b"_s); });
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), kShortFrames);
  EXPECT_EQ(dialog.Find<QLineEdit>("txtSchNo")->text(), u"b"_s);
}

TEST_P(SendSchedule, ReturnInTheLetterSendsAndTheKeyboardStaysThere) {
  Dialog dialog(path_);
  FillIn(dialog);
  auto* letter = dialog.Find<QLineEdit>("txtSchNo");
  letter->setFocus();
  Qt::CursorShape shape = Qt::ArrowCursor;
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] { shape = letter->cursor().shape(); });
  const MessageBoxReader boxes;
  QTest::keyClick(letter, Qt::Key_Return);
  EXPECT_EQ(boxes.Texts(), QStringList{Finished()});
  EXPECT_EQ(shape, Qt::WaitCursor);
  EXPECT_EQ(letter->cursor().shape(), Qt::IBeamCursor);
  EXPECT_EQ(dialog.window.focusWidget(), letter);
}

TEST_P(SendSchedule, ASecondPressWhileItSendsDoesNothing) {
  Dialog dialog(path_);
  FillIn(dialog);
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [&] {
                     dialog.Click("butSend");
                     QTest::keyClick(dialog.Find<QLineEdit>("txtSchNo"), Qt::Key_Return);
                     QTest::keyClick(&dialog.window, Qt::Key_Return);
                   });
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), kShortFrames);
}

TEST_P(SendSchedule, ALetterKIsRefusedByTheTransmissionStepWithPleaseEnterAToJ) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  for (const char* letter : {"k", "K", "", "ab", "1", " ", "@"}) {
    dialog.TypeLetter(QString::fromLatin1(letter));
    EXPECT_EQ(dialog.Send(), (QStringList{kEnterLetter, kFailure})) << letter;
  }
  EXPECT_TRUE(bench_.Frames().isEmpty());
  dialog.TypeLetter(u"A"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALowerCaseLetterIsTakenAsUpperCase) {
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"j"_s);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames().value(0), "<ID1A><L01><P109><SA><CA>Open  \r\n");
  EXPECT_EQ(bench_.Frames().value(4), "<ID1A><TJ>608**10905E,11003A,10904A\r\n");
}

TEST_P(SendSchedule, ADimensionThatDoesNotMatchIsRefusedBeforeTheLineIsOpened) {
  const QString other = bench_.Folder().Write(
      u"other.sch"_s, ScheduleFile("Row =2\r\nCol =128\r\n", {{u"a.msg"_s, "1", "Flip"}}));
  Dialog dialog(other);
  FillIn(dialog);
  bench_.Unplug();  // opening it would give a message of its own
  QSignalSpy tcp(dialog.Find<QTcpSocket>("Winsock1"), &QTcpSocket::stateChanged);
  QSignalSpy serial(dialog.Find<QSerialPort>("Comm1"), &QSerialPort::errorOccurred);
  EXPECT_EQ(dialog.Send(), QStringList{kWrongDimension});
  EXPECT_EQ(tcp.count(), 0);
  EXPECT_EQ(serial.count(), 0);
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(SendSchedule, AScheduleSavedForAnotherPanelSinceItWasChosenIsRefused) {
  Dialog dialog(path_);
  FillIn(dialog);
  bench_.Folder().Write(u"week.sch"_s,
                        ScheduleFile("Row =1\r\nCol =96\r\n", {{u"a.msg"_s, "1", "Flip"}}));
  EXPECT_EQ(dialog.Send(), QStringList{kWrongDimension});
  EXPECT_EQ(dialog.Shown("lblRow"), u"1"_s);
  EXPECT_EQ(dialog.Shown("lblCol"), u"96"_s);
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST_P(SendSchedule, AFileThatIsNoScheduleAnyMoreFailsInTheTransmission) {
  Dialog dialog(path_);
  FillIn(dialog);
  bench_.Folder().Write(u"week.sch"_s, QByteArray(100, 'x'));
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_TRUE(bench_.Frames().isEmpty());
  EXPECT_TRUE(dialog.IsReady());
}

TEST_P(SendSchedule, AnEmptyScheduleFailsWithItsMessage) {
  bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{QString(), "1", "Flip"}}));
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), (QStringList{u"Empty Schedule File!"_s, kFailure}));
  EXPECT_TRUE(bench_.Frames().isEmpty());
}

TEST_P(SendSchedule, ASilentPanelFailsAfterFiveAttemptsAtTheFirstRow) {
  bench_.Fail({.silent = true});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), FailedAt(u"first.msg"_s));
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>(5, kShortFrames.at(0)));
  EXPECT_EQ(dialog.Shown("lblSendStatus"), u" Sending Line 1"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, AScheduleFrameThatIsNeverAcknowledgedFailsWithOneMessage) {
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &bench_.Engine(),
                   [&] {
                     if (bench_.Engine().FrameCount() == 4) bench_.Fail({.garbage = true});
                   });
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure});
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(4) + QList<QByteArray>(5, kShortFrames.at(4)));
  EXPECT_EQ(dialog.Shown("lblSendStatus"), u"Schedule--->"_s);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, GarbledAnswersAreRefusedFiveTimesAtOnce) {
  bench_.Fail({.garbage = true});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), FailedAt(u"first.msg"_s));
  EXPECT_EQ(bench_.Frames().size(), 5);
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, LowerCaseAnswersAreRefused) {
  bench_.Fail({.lower_case = true});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), FailedAt(u"first.msg"_s));
}

TEST_P(SendSchedule, APanelThatAnswersOnTheThirdAttemptGetsEverything) {
  bench_.Fail({.silent_answers = 2});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), QList<QByteArray>(2, kShortFrames.at(0)) + kShortFrames);
}

TEST_P(SendSchedule, AnswersInPiecesAndLateAreAccepted) {
  bench_.Fail({.pieces = 3, .piece_pause_ms = 40, .late_ms = 60});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_EQ(bench_.Frames(), kShortFrames);
}

TEST_P(SendSchedule, AnEndlessAnswerFailsAndTheNextSendWorks) {
  bench_.Fail({.flood = true});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), FailedAt(u"first.msg"_s));
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALineLostInTheSecondFileNamesThatFileAndTheNextSendWorks) {
  bench_.Fail({.close_after_frame = 3});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), FailedAt(u"second.msg"_s));
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(3));
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALineLostAheadOfTheScheduleFrameFailsOnce) {
  bench_.Fail({.close_after_frame = 4});
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{kFailure}) << "one message, not one for each error";
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(4));
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, ALineLostWhileTheMessageBoxIsOpenDoesNoHarm) {
  Dialog dialog(path_);
  FillIn(dialog);
  {
    const MessageBoxReader boxes;
    const ModalWindowDriver box(QString(), [&](QWidget*) {
      bench_.Unplug();
      QCoreApplication::processEvents();
    });
    dialog.Click("butSend");
    EXPECT_EQ(boxes.Texts(), QStringList{Finished()});
  }
  bench_.PlugIn();
  ExpectTheNextSendWorks(dialog);
}

TEST_P(SendSchedule, TheWholeProgramCanBeEndedWhileItSends) {
  bench_.Fail({.silent = true});
  Dialog dialog(path_);
  FillIn(dialog);
  QObject::connect(&bench_.Engine(), &VirtualPanel::PanelEngine::FrameReceived, &dialog.window,
                   [] { QCoreApplication::exit(3); });
  QTimer::singleShot(0, &dialog.window, [&] { dialog.Click("butSend"); });
  EXPECT_EQ(QCoreApplication::exec(), 3);
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(bench_.Frames(), kShortFrames.first(1));
}

TEST_P(SendSchedule, APressOfSendClearsTheStatusOfTheLastOne) {
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{Finished()});
  EXPECT_FALSE(dialog.Shown("lblSendStatus").isEmpty());
  dialog.TypeLetter(u"k"_s);
  EXPECT_EQ(dialog.Send(), (QStringList{kEnterLetter, kFailure}));
  EXPECT_EQ(dialog.Shown("lblSendStatus"), QString());
}

class SendScheduleOverTcp : public testing::Test {
 protected:
  SendScheduleOverTcp() : bench_(LineKind::kTcp, {{26, 2, 96, true}}) {
    const QString first = bench_.Folder().Write(u"first.msg"_s, kFirstFile);
    path_ = bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{first, "5", "Flip"}}));
  }

  void FillIn(Dialog& dialog) {
    dialog.ChoosePanel(0);
    dialog.TypeLetter(u"A"_s);
  }

  PanelBench bench_;
  QString path_;
  const QStringList sent_{u"Schedules file is sent successfully through network"_s};
};

TEST_F(SendScheduleOverTcp, TheControlsAreLockedBeforeTheLinkIsOpened) {
  Dialog dialog(path_);
  FillIn(dialog);
  bool locked = false;
  QTimer::singleShot(0, &dialog.window, [&] {
    locked = !dialog.Find<QWidget>("butSend")->isEnabled() && bench_.Frames().isEmpty();
    dialog.window.close();
    EXPECT_TRUE(dialog.window.isVisible());
  });
  EXPECT_EQ(dialog.Send(), sent_);
  EXPECT_TRUE(locked);
}

TEST_F(SendScheduleOverTcp, AnEmptyTranslationOfTheResultGivesAnEmptyText) {
  bench_.Folder().UseLanguage("[Message]\r\nmsgSendSchOK=\r\n");
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{QString()});
}

TEST_F(SendScheduleOverTcp, ARefusedConnectionIsReportedWithItsAddress) {
  const quint16 port = bench_.Tcp().Port();
  bench_.Unplug();
  Dialog dialog(path_);
  FillIn(dialog);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{kNoLink});
  EXPECT_EQ(boxes.Seen().value(0).informative, u"127.0.0.1:%1: Connection refused"_s.arg(port));
  EXPECT_TRUE(dialog.IsReady());
  bench_.PlugIn();
  EXPECT_EQ(dialog.Send(), sent_);
}

TEST_F(SendScheduleOverTcp, APanelThatHasNotAcceptedAfter500MsIsReportedAndTheNextSendWorks) {
  const quint16 port = bench_.Tcp().Port();
  bench_.Unplug();
  Dialog dialog(path_);
  FillIn(dialog);
  {
    const FullListener slow_panel(port);
    EXPECT_EQ(dialog.Send(), QStringList{kNoLink});
  }
  EXPECT_TRUE(dialog.IsReady());
  EXPECT_EQ(dialog.Find<QTcpSocket>("Winsock1")->state(), QAbstractSocket::UnconnectedState);
  bench_.PlugIn();
  EXPECT_EQ(dialog.Send(), sent_);
}

TEST_F(SendScheduleOverTcp, APanelWithoutAUsableAddressGivesCannotCreateTcpLink) {
  bench_.Folder().Configure(
      "[Dimension Config]\r\nID026=2x96,Tri\r\n[Communication]\r\nSendMode=TCPIP\r\n");
  Dialog dialog(path_);
  FillIn(dialog);
  EXPECT_EQ(dialog.Send(), QStringList{kNoLink});
  EXPECT_TRUE(dialog.IsReady());
}

class SendScheduleOverSerial : public testing::Test {
 protected:
  SendScheduleOverSerial() : bench_(LineKind::kSerial, {{26, 2, 96, true}}) {
    const QString first = bench_.Folder().Write(u"first.msg"_s, kFirstFile);
    path_ = bench_.Folder().Write(u"week.sch"_s, ScheduleFile(k2x96, {{first, "5", "Flip"}}));
  }

  PanelBench bench_;
  QString path_;
};

TEST_F(SendScheduleOverSerial, APortThatCannotBeOpenedIsReportedWithItsDevice) {
  bench_.Unplug();
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"A"_s);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), QStringList{kNoPort});
  EXPECT_TRUE(
      boxes.Seen().value(0).informative.startsWith(bench_.Folder().Path(u"panel-line"_s) + u": "_s))
      << boxes.Seen().value(0).informative.toStdString();
  EXPECT_TRUE(dialog.IsReady());
  bench_.PlugIn();
  EXPECT_EQ(dialog.Send(), QStringList{u"Transmission finished!"_s});
}

TEST_F(SendScheduleOverSerial, APanelWithoutAnAddressIsReachedAllTheSame) {
  const QByteArray ini = bench_.Folder().Read(u"brivon.ini"_s);
  bench_.Folder().Configure(QByteArray(ini).replace(",127.0.0.1:9", ""));
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"A"_s);
  EXPECT_EQ(dialog.Send(), QStringList{u"Transmission finished!"_s});
}

/// The dialog in front of panels that are never reached: what it refuses before it opens a link.
class SendScheduleChecks : public testing::Test {
 protected:
  SendScheduleChecks() {
    folder_.Configure(
        "[Dimension Config]\r\nID001=16x96,Tri,192.168.0.1:80\r\nID002=16x128,Mono\r\n"
        "[Communication]\r\nSendMode=TCPIP\r\n");
    path_ = Schedule(u"week.sch"_s, "Row =16\r\nCol =96\r\n");
  }

  QString Schedule(const QString& name, const QByteArray& dimension) const {
    return folder_.Write(name, ScheduleFile(dimension, {{u"a.msg"_s, "1", "Appear"}}));
  }

  TemporaryProgramFolder folder_;
  QString path_;
};

TEST_F(SendScheduleChecks, HasItsControlsAndTexts) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.window.objectName(), u"frmSendSch"_s);
  EXPECT_EQ(dialog.window.windowTitle(), u"Send Schedule"_s);
  const std::pair<const char*, const char*> boxes[] = {{"frameFile", "Schedule File"},
                                                       {"FrameSchNo", "Schedule No"},
                                                       {"FrameDestination", "Destination"},
                                                       {"FrameStatus", "Send Status"}};
  for (const auto& [name, text] : boxes) {
    EXPECT_EQ(dialog.Find<QGroupBox>(name)->title(), QLatin1String(text));
  }
  const std::pair<const char*, const char*> labels[] = {{"LabelRow", "Row:"},
                                                        {"LabelCol", "Col:"},
                                                        {"lblSchNo", "Schedule No."},
                                                        {"Label2", "(A - J)"},
                                                        {"LabelDisplayID", "ID Number"},
                                                        {"lblSendStatus", ""}};
  for (const auto& [name, text] : labels) EXPECT_EQ(dialog.Shown(name), QLatin1String(text));
  const std::pair<const char*, const char*> buttons[] = {
      {"butBrowse", "Browse"}, {"butSend", "Send"}, {"butDone", "Done"}};
  for (const auto& [name, text] : buttons) {
    EXPECT_EQ(dialog.Find<QPushButton>(name)->text(), QLatin1String(text));
  }
  EXPECT_EQ(dialog.Find<QLineEdit>("txtSchNo")->text(), QString());
  EXPECT_EQ(dialog.Find<QTimer>("Timer1")->interval(), 100);
  EXPECT_NE(dialog.Find<QSerialPort>("Comm1"), nullptr);
  EXPECT_NE(dialog.Find<QTcpSocket>("Winsock1"), nullptr);
}

TEST_F(SendScheduleChecks, CaptionsThatAre30CharactersLongerAreShownWhole) {
  QByteArray language = "[frmSendSch]\r\n";
  for (const QByteArray caption :
       {"LabelRow=Row:", "LabelCol=Col:", "lblSchNo=Schedule No.", "LabelDisplayID=ID Number",
        "butBrowse=Browse", "butSend=Send", "butDone=Done"}) {
    language += "frmSendSch." + caption + " and more words of a translation\r\n";
  }
  folder_.UseLanguage(language);
  Dialog dialog(path_);
  for (const char* name : {"butBrowse", "butSend", "butDone"}) {
    EXPECT_TRUE(dialog.Find<CaptionButton>(name)->Fit().complete) << name;
  }
  for (const char* name : {"LabelRow", "LabelCol", "lblSchNo", "LabelDisplayID"}) {
    const auto* label = dialog.Find<QLabel>(name);
    EXPECT_TRUE(FitText(label->font(), label->text(), label->contentsRect().size()).complete)
        << name;
  }
  EXPECT_LE(dialog.window.width(), 800);
}

TEST_F(SendScheduleChecks, DoneClosesTheDialog) {
  Dialog dialog(path_);
  dialog.Click("butDone");
  EXPECT_FALSE(dialog.window.isVisible());
}

TEST_F(SendScheduleChecks, TheKeyboardGoesFromTopToBottomAndStartsWhereTheWorkDoes) {
  EXPECT_EQ(Dialog((QString())).window.focusWidget()->objectName(), u"butBrowse"_s);
  Dialog dialog(path_);
  EXPECT_EQ(dialog.window.focusWidget()->objectName(), u"txtSchNo"_s);
  QStringList order;
  for (int step = 0; step < 5; ++step) {
    order.append(dialog.window.focusWidget()->objectName());
    QTest::keyClick(dialog.window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order.join(QLatin1Char(' ')), u"txtSchNo ComboSchID butSend butDone butBrowse"_s);
}

TEST_F(SendScheduleChecks, TheChecksComeInTheirOrderEachWithAPlainBox) {
  folder_.UseLanguage("[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgDim=Passt nicht!\r\n");
  const QString path = folder_.Path(u"late.sch"_s);
  Dialog dialog(path);
  const MessageBoxReader boxes;
  dialog.Click("butSend");
  folder_.Write(u"late.sch"_s, QByteArray(100, 'x'));
  dialog.Click("butSend");
  dialog.ChoosePanel(0);
  dialog.Click("butSend");
  Schedule(u"late.sch"_s, "Row =4\r\nCol =96\r\n");
  dialog.Click("butSend");
  Schedule(u"late.sch"_s, "Row =16\r\nCol =128\r\n");
  dialog.Click("butSend");
  dialog.ChoosePanel(1);
  dialog.Click("butSend");
  EXPECT_EQ(boxes.Texts(), (QStringList{u"Datei fehlt"_s, u"No ID Selected!"_s, u"Passt nicht!"_s,
                                        u"Passt nicht!"_s, u"Passt nicht!"_s, kNoLink}));
  for (const SeenMessageBox& box : boxes.Seen()) {
    EXPECT_EQ(box.title, u"Send Schedule"_s);
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.buttons, QMessageBox::Ok);
  }
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendScheduleChecks, A16x96ScheduleSentToAPanelListedAs16x128IsRefusedBeforeAnyPortIsOpened) {
  Dialog dialog(path_);
  dialog.ChoosePanel(1);
  QSignalSpy tcp(dialog.Find<QTcpSocket>("Winsock1"), &QTcpSocket::stateChanged);
  // This panel has no address: a link that was to be opened would give a message of its own.
  EXPECT_EQ(dialog.Send(), QStringList{kWrongDimension});
  EXPECT_EQ(tcp.count(), 0);
}

TEST_F(SendScheduleChecks, AnEmptyPanelListGivesNoIdSelected) {
  folder_.Configure("");
  Dialog dialog(path_);
  EXPECT_EQ(dialog.Find<QComboBox>("ComboSchID")->count(), 0);
  EXPECT_EQ(dialog.Send(), QStringList{u"No ID Selected!"_s});
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendScheduleChecks, ThePanelListHasOneEntryForEachConfiguredPanelAndNoneIsSelected) {
  Dialog dialog(path_);
  auto* list = dialog.Find<QComboBox>("ComboSchID");
  ASSERT_EQ(list->count(), 2);
  EXPECT_EQ(list->itemText(0), u"ID001     16x96     Tri-Color     192.168.0.1:80"_s);
  EXPECT_EQ(list->itemText(1), u"ID002     16x128     Mono-Color     Mono"_s);
  EXPECT_EQ(list->currentIndex(), -1);
  EXPECT_EQ(dialog.Send(), QStringList{u"No ID Selected!"_s});
}

TEST_F(SendScheduleChecks, NeitherSendModeSendsNothingAndSaysNothing) {
  folder_.Configure(
      "[Dimension Config]\r\nID002=16x96,Mono\r\n[Communication]\r\nSendMode=rs232\r\n");
  Dialog dialog(path_);
  dialog.ChoosePanel(0);
  EXPECT_EQ(dialog.Send(), QStringList());
  EXPECT_TRUE(dialog.IsReady());
}

TEST_F(SendScheduleChecks, AMissingFileIsNotFound) {
  Dialog dialog(folder_.Path(u"gone.sch"_s));
  EXPECT_EQ(dialog.Send(), QStringList{u"File not found"_s});
}

TEST_F(SendScheduleChecks, WithoutAFileThereIsNoneToFind) {
  Dialog dialog((QString()));
  EXPECT_EQ(dialog.Send(), QStringList{u"File not found"_s});
}

TEST_F(SendScheduleChecks, AFolderIsNoFile) {
  Dialog dialog(folder_.Path(QString()));
  EXPECT_EQ(dialog.Send(), QStringList{u"File not found"_s});
}

TEST_F(SendScheduleChecks, AFileHandedOverShowsItsRowsAndColumnsAtOnce) {
  Dialog dialog(path_);
  EXPECT_EQ(dialog.Shown("lblSchFileName"), path_);
  EXPECT_EQ(dialog.Shown("lblRow"), u"16"_s);
  EXPECT_EQ(dialog.Shown("lblCol"), u"96"_s);
}

TEST_F(SendScheduleChecks, BrowseShowsTheChosenScheduleWithItsDimension) {
  const QString other = Schedule(u"other.sch"_s, "Row =4\r\nCol =128\r\n");
  Dialog dialog((QString()));
  const FileChooser chooser(other, u"DialogBrowse"_s);
  dialog.Click("butBrowse");
  EXPECT_EQ(chooser.Seen().title, u"Browse"_s);
  EXPECT_EQ(chooser.Seen().filters, (QStringList{u"Schedule File (*.sch)"_s, u"All (*)"_s}));
  EXPECT_EQ(chooser.Seen().filter, u"Schedule File (*.sch)"_s);
  EXPECT_EQ(dialog.Shown("lblSchFileName"), other);
  EXPECT_EQ(dialog.Shown("lblRow"), u"4"_s);
  EXPECT_EQ(dialog.Shown("lblCol"), u"128"_s);
}

TEST_F(SendScheduleChecks, WhatBrowseRefusesChangesNothing) {
  folder_.Write(u"page.msg"_s, SampleMessageFile(4, 128));
  folder_.Write(u"short.sch"_s, "*** Brivon Schedule File ***\n");
  const std::pair<const char*, const char*> refusals[] = {{"gone.sch", "File not found"},
                                                          {"page.msg", "Error in opening file"},
                                                          {"short.sch", "Error in opening file"}};
  Dialog dialog(path_);
  for (const auto& [name, text] : refusals) {
    const MessageBoxReader boxes;
    const FileChooser chooser(folder_.Path(QString::fromLatin1(name)), u"DialogBrowse"_s);
    dialog.Click("butBrowse");
    EXPECT_EQ(boxes.Texts(), QStringList{QString::fromLatin1(text)});
    EXPECT_EQ(boxes.Seen().value(0).title, u"Send Schedule"_s);
    EXPECT_EQ(boxes.Seen().value(0).icon, QMessageBox::NoIcon);
    EXPECT_EQ(dialog.Shown("lblSchFileName"), path_);
    EXPECT_EQ(dialog.Shown("lblRow"), u"16"_s);
    EXPECT_EQ(dialog.Shown("lblCol"), u"96"_s);
  }
}

TEST_F(SendScheduleChecks, ABrowseThatIsCancelledChangesNothing) {
  Dialog dialog(path_);
  const MessageBoxReader boxes;
  const FileChooser chooser(QString(), u"DialogBrowse"_s);
  dialog.Click("butBrowse");
  EXPECT_EQ(chooser.Count(), 1);
  EXPECT_TRUE(boxes.Seen().isEmpty());
  EXPECT_EQ(dialog.Shown("lblSchFileName"), path_);
}

TEST_F(SendScheduleChecks, BrowseSpeaksTheLanguageInUse) {
  folder_.UseLanguage(
      "[Message]\r\nmsgNotFound=Datei fehlt\r\nmsgErrOpen=Unlesbar\r\nmsgBrowse=Durchsuchen\r\n");
  const QString bad = folder_.Write(u"bad.sch"_s, QByteArray(100, 'x'));
  Dialog dialog(path_);
  const MessageBoxReader boxes;
  for (const QString& path : {folder_.Path(u"gone.sch"_s), bad}) {
    const FileChooser chooser(path, u"DialogBrowse"_s);
    dialog.Click("butBrowse");
    EXPECT_EQ(chooser.Seen().title, u"Durchsuchen"_s);
  }
  EXPECT_EQ(boxes.Texts(), (QStringList{u"Datei fehlt"_s, u"Unlesbar"_s}));
}

}  // namespace
