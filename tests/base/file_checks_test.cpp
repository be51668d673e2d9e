#include "base/file_checks.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Brivon1 {

void PrintTo(const Dimension& dimension, std::ostream* out) {
  *out << dimension.rows << "x" << dimension.columns;
}

namespace {

constexpr Dimension kNoDimension{0, 0};

class FileChecks : public testing::Test {
 protected:
  QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

  QString Write(const QByteArray& content) const {
    QFile file(Path("file"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return file.fileName();
  }

  std::optional<Dimension> Message(const QByteArray& content) const {
    return IsMessageFile(Write(content));
  }
  std::optional<Dimension> Schedule(const QByteArray& content) const {
    return IsScheduleFile(Write(content));
  }
  bool Scrolling(const QByteArray& content) const { return IsScrollingFile(Write(content)); }

  QTemporaryDir folder_;
};

const QByteArray kMessage = "*** Brivon Message File ***\r\nRow = 4\r\nCol = 80\r\n<L01>\r\n";
const QByteArray kSchedule =
    "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =30\r\nRow =16\r\nCol =96\r\n"
    "No of Sequence =0\r\n";
const QByteArray kScrolling = "*** Brivon Shift Message File ***\r\n<SA><CA>Hello\r\n";

TEST_F(FileChecks, AMessageFileReturnsItsRowsAndColumns) {
  EXPECT_EQ(Message(kMessage), (Dimension{4, 80}));
}

TEST_F(FileChecks, AScheduleFileReturnsItsRowsAndColumns) {
  EXPECT_EQ(Schedule(kSchedule), (Dimension{16, 96}));
}

TEST_F(FileChecks, AScrollingFileIsOne) { EXPECT_TRUE(Scrolling(kScrolling)); }

TEST_F(FileChecks, EachCheckRefusesTheOtherKinds) {
  EXPECT_FALSE(Message(kSchedule));
  EXPECT_FALSE(Message(kScrolling));
  EXPECT_FALSE(Schedule(kMessage));
  EXPECT_FALSE(Schedule(kScrolling));
  EXPECT_FALSE(Scrolling(kMessage));
  EXPECT_FALSE(Scrolling(kSchedule));
}

TEST_F(FileChecks, AMessageFileOf29BytesIsNeverAMessageFileWhateverItsFirstLineHolds) {
  ASSERT_EQ(QByteArray("*** Brivon Message File ***\r\n").size(), 29);
  EXPECT_FALSE(Message("*** Brivon Message File ***\r\n"));
  EXPECT_FALSE(Message(" *** Brivon Message File *** "));
  EXPECT_EQ(Message("*** Brivon Message File ***\r\n\n"), kNoDimension);
}

TEST_F(FileChecks, AScheduleFileOf29BytesIsRefusedEvenIfItsOneLineIsTheHeader) {
  EXPECT_FALSE(Schedule("*** Brivon Schedule File ***\n"));
  EXPECT_EQ(Schedule("*** Brivon Schedule File ***\r\n"), kNoDimension);
}

TEST_F(FileChecks, TheTextOfAScrollingFileIsItsSecondLine) {
  const auto text = [this](const QByteArray& content) {
    return ScrollingFileText(Write(content)).value_or("none");
  };
  const QByteArray header = "*** Brivon Shift Message File ***";
  EXPECT_EQ(text(header + "\r\n <SA>x \r\nmore\r\n"), " <SA>x ");
  EXPECT_EQ(text(header + "\n\n"), "");
  EXPECT_EQ(text(header + "\r\n"), "none");
  EXPECT_EQ(text("*** Another Header Of The Same Length ***\r\nx\r\n"), "none");
}

TEST_F(FileChecks, OfAFileThatIsNoMessageFileNoRowIsRead) {
  MessageFileReader message(Write(kMessage));
  EXPECT_EQ(message.NextRowLine(), "<L01>");
  MessageFileReader schedule(Write(kSchedule));
  EXPECT_EQ(schedule.NextRowLine(), std::nullopt);
}

TEST_F(FileChecks, AScrollingFileOf29BytesIsRefused) {
  EXPECT_FALSE(Scrolling(QByteArray("*** Brivon Shift Message File ***").first(29)));
}

TEST_F(FileChecks, AHeaderLineWithBlanksAroundItIsAccepted) {
  EXPECT_EQ(Message("  *** Brivon Message File ***  \r\nRow = 2\r\nCol = 8\r\n"),
            (Dimension{2, 8}));
  EXPECT_TRUE(Schedule("  *** Brivon Schedule File ***  \r\n"));
  EXPECT_TRUE(Scrolling("\t*** Brivon Shift Message File *** \t\r\n"));
}

TEST_F(FileChecks, AHeaderInOtherLetterCaseIsRefused) {
  EXPECT_FALSE(Message("*** brivon message file ***\r\nRow = 4\r\nCol = 80\r\n"));
  EXPECT_FALSE(Schedule("*** BRIVON Schedule File ***\r\nWeek =0\r\n"));
  EXPECT_FALSE(Scrolling("*** Brivon shift Message File ***\r\n\r\n"));
}

TEST_F(FileChecks, AHeaderWithAnythingElseInItsLineIsRefused) {
  EXPECT_FALSE(Message("*** Brivon Message File ***.\r\nRow = 4\r\nCol = 80\r\n"));
  EXPECT_FALSE(Message("\xEF\xBB\xBF*** Brivon Message File ***\r\nRow = 4\r\nCol = 80\r\n"));
  EXPECT_FALSE(Message("*** Brivon  Message File ***\r\nRow = 4\r\nCol = 80\r\n"));
  EXPECT_FALSE(Message("\r\n*** Brivon Message File ***\r\nRow = 4\r\nCol = 80\r\n"));
  EXPECT_FALSE(Message(QByteArray("*** Brivon Message File ***\0\r\nRow = 4\r\n", 39)));
}

TEST_F(FileChecks, ValuesAreReadWithAndWithoutBlanksAndTextIsReadAsZero) {
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nRow=2\r\nCol =   80 dots\r\n"),
            (Dimension{2, 80}));
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nRow = x\r\nCol = 80\r\n"), (Dimension{0, 80}));
}

TEST_F(FileChecks, ADimensionLineWithoutEqualsIsWhollyTheValue) {
  EXPECT_EQ(Message("*** Brivon Message File ***\r\n3\r\n80\r\n"), (Dimension{3, 80}));
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nRow 3\r\nCol 80\r\n"), kNoDimension);
}

TEST_F(FileChecks, TheValueStandsBehindTheFirstEqualsSignAndTheKeyIsNotCompared) {
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nanything=3=9\r\n=80\r\n"), (Dimension{3, 80}));
}

TEST_F(FileChecks, TheRangeOfTheDimensionIsNotCheckedButHeldIn16Bits) {
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nRow = 99999\r\nCol = -99999\r\n"),
            (Dimension{32767, -32768}));
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nRow = -4\r\nCol = 65616\r\n"),
            (Dimension{-4, 32767}));
}

TEST_F(FileChecks, AFileThatEndsBeforeItsDimensionHasNone) {
  EXPECT_EQ(Message("*** Brivon Message File ***\r\nRow = 4"), (Dimension{4, 0}));
  EXPECT_EQ(Message("   *** Brivon Message File ***"), kNoDimension);
  EXPECT_EQ(Schedule("*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =30\r\nRow =16"),
            (Dimension{16, 0}));
}

TEST_F(FileChecks, LinesMayEndWithLfAlone) {
  EXPECT_EQ(Message(QByteArray(kMessage).replace("\r\n", "\n")), (Dimension{4, 80}));
  EXPECT_EQ(Schedule(QByteArray(kSchedule).replace("\r\n", "\n")), (Dimension{16, 96}));
  EXPECT_TRUE(Scrolling(QByteArray(kScrolling).replace("\r\n", "\n")));
}

TEST_F(FileChecks, AnEmptyFileIsNone) {
  EXPECT_FALSE(Message(""));
  EXPECT_FALSE(Schedule(""));
  EXPECT_FALSE(Scrolling(""));
}

TEST_F(FileChecks, AFileOfAll256ByteValuesIsNone) {
  QByteArray bytes;
  for (int value = 0; value < 256; ++value) bytes.append(static_cast<char>(value));
  EXPECT_FALSE(Message(bytes));
  EXPECT_FALSE(Schedule(bytes));
  EXPECT_FALSE(Scrolling(bytes));
}

TEST_F(FileChecks, AHundredMegabytesWithoutALineEndAreNone) {
  QFile file(Path("endless"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_TRUE(file.resize(qint64{100} << 20));
  file.close();
  EXPECT_FALSE(IsMessageFile(file.fileName()));
  EXPECT_FALSE(IsScheduleFile(file.fileName()));
  EXPECT_FALSE(IsScrollingFile(file.fileName()));
}

TEST_F(FileChecks, AHeaderBeforeAHundredMegabytesWithoutALineEndHasNoDimension) {
  QFile file(Path("endless"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("*** Brivon Message File ***\r\n");
  ASSERT_TRUE(file.resize(qint64{100} << 20));
  file.close();
  EXPECT_EQ(IsMessageFile(file.fileName()), kNoDimension);
}

}  // namespace
}  // namespace Brivon1
