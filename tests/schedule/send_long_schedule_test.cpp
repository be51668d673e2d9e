#include <QFile>

#include <gtest/gtest.h>

#include "schedule/send_schedule_dialog.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFailure = u"Transmission failure!"_s;

using Dialog = ScheduleDialog;

/// A schedule of 32 steps over 12 message files of 4 rows, all of its texts the test's own.
class SendLongSchedule : public ScheduleOverLine {
 protected:
  SendLongSchedule() : ScheduleOverLine(4) {
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
    QList<ScheduleStep> steps;
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
  Dialog dialog(path_, bench_.Ports());
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
  Dialog dialog(path_, bench_.Ports());
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
  Dialog dialog(path_, bench_.Ports());
  dialog.ChoosePanel(0);
  dialog.TypeLetter(u"A"_s);
  EXPECT_EQ(dialog.Send(), FailedAt(u"stop5.msg"_s));
  EXPECT_EQ(bench_.Frames(), FileFrames(1, "001") + FileFrames(2, "002") + FileFrames(3, "003") +
                                 FileFrames(4, "004"));
}

TEST_P(SendLongSchedule, AFileThatTheTransmissionRefusesGivesItsMessageAndSendsNothing) {
  Dialog dialog(path_, bench_.Ports());
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

}  // namespace
