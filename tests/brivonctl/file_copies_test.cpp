// What is read of a file once, and what of that remains when the file does not.
#include "orders/file_copies.h"

#include <QFile>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "schedule/schedule_reader.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

constexpr const char* kPage =
    "*** Brivon Message File ***\r\nRow = 1\r\nCol = 96\r\n<L01><SA><CA>Hi\r\n";

constexpr const char* kSchedule =
    "*** Brivon Schedule File ***\r\nWeek =0\r\nHour =8\r\nMin =30\r\nRow =1\r\nCol =96\r\n"
    "No of Sequence =2\r\na.msg\r\n5\r\nFlip\r\nnone.msg\r\n5\r\nFlip\r\n";

class FileCopiesTest : public testing::Test {
 protected:
  static QByteArray FirstRow(const FileCopies& copies, const QString& path) {
    return Brivon1::MessageFileReader(path, copies).NextRowLine().value_or("none");
  }

  TemporaryProgramFolder folder_;
};

TEST_F(FileCopiesTest, WhatWasReadStaysWhenTheFileGoes) {
  const QString path = folder_.Write(u"a.msg"_s, kPage);
  const FileCopies copies(path);
  ASSERT_TRUE(QFile::remove(path));
  EXPECT_TRUE(copies.Exists(path));
  EXPECT_EQ(Brivon1::IsMessageFile(path, copies), (Brivon1::Dimension{1, 96}));
  EXPECT_EQ(FirstRow(copies, path), "<L01><SA><CA>Hi");
  // Of these bytes, by sha256sum.
  EXPECT_EQ(copies.Digest(path),
            "950e5286056a80a844a442f0f6e0babd3f1a246a5a0beecc3989bd6f1558ea91");
}

TEST_F(FileCopiesTest, WhatIsMadeLaterIsNotThere) {
  const QString path = folder_.Path(u"a.msg"_s);
  const FileCopies copies(path);
  folder_.Write(u"a.msg"_s, kPage);
  EXPECT_FALSE(copies.Exists(path));
  EXPECT_FALSE(Brivon1::IsMessageFile(path, copies));
  EXPECT_EQ(copies.Digest(path), "");
}

TEST_F(FileCopiesTest, AScheduleBringsItsMessageFiles) {
  const QString page = folder_.Write(u"a.msg"_s, kPage);
  const QString path = folder_.Write(u"a.sch"_s, kSchedule);
  const FileCopies copies(path);
  folder_.Write(u"a.msg"_s, "changed");
  ASSERT_TRUE(QFile::remove(path));
  EXPECT_EQ(Brivon1::ScheduleReader(path, copies).Head()->sequences, 2);
  EXPECT_EQ(FirstRow(copies, copies.Find(page)), "<L01><SA><CA>Hi");
  EXPECT_FALSE(copies.Exists(folder_.Path(u"none.msg"_s)));
}

TEST_F(FileCopiesTest, ANameThatIsSpelledInTheOtherFormIsFoundAsItWasThen) {
  const QString composed = QString(u"\u00fc.msg"_s);
  const QString path = folder_.Write(composed.normalized(QString::NormalizationForm_D), kPage);
  const FileCopies copies(folder_.Write(
      u"a.sch"_s,
      QByteArray(kSchedule).replace("a.msg", "\xfc.msg").replace("none.msg", "\xfc.msg")));
  ASSERT_TRUE(QFile::remove(path));
  EXPECT_EQ(copies.Find(folder_.Path(composed)), path);
  EXPECT_TRUE(copies.Exists(path));
}

TEST_F(FileCopiesTest, AFolderIsNoFile) {
  EXPECT_FALSE(FileCopies(folder_.Path({})).Exists(folder_.Path({})));
}

TEST_F(FileCopiesTest, NoMoreIsKeptThanATransmissionReads) {
  const QByteArray lines = QByteArray("*** Brivon Message File ***\nRow = 1\nCol = 96\n") +
                           QByteArray("<L01>\n").repeated(100'000);
  const QString path = folder_.Write(u"a.msg"_s, lines);
  const FileCopies copies(path);
  EXPECT_EQ(copies.Device(path)->size(), lines.indexOf("<L01>") + 100 * 6);
  EXPECT_EQ(FirstRow(copies, path), "<L01>");
}

TEST_F(FileCopiesTest, ALineThatIsTooLongIsTooLongInTheCopy) {
  const QByteArray head = "*** Brivon Message File ***\nRow = 1\nCol = 96\n";
  const auto last = [&](const QByteArray& row) {
    const QString path = folder_.Write(u"a.msg"_s, head + row);
    return FirstRow(FileCopies(path), path).size();
  };
  EXPECT_EQ(last(QByteArray(Brivon1::kLongestLine, 'x') + "\r\n"), Brivon1::kLongestLine);
  EXPECT_EQ(last(QByteArray(Brivon1::kLongestLine, 'x')), Brivon1::kLongestLine);
  EXPECT_EQ(last(QByteArray(Brivon1::kLongestLine + 1, 'x') + "\r\n"), 4);  // none
  EXPECT_EQ(last(QByteArray(5 * Brivon1::kLongestLine, 'x')), 4);
}

TEST_F(FileCopiesTest, AStopEndsTheReading) {
  const QString path = folder_.Write(u"a.msg"_s, kPage);
  EXPECT_EQ(FileCopies(path, [] { return true; }).Digest(path), "");
}

TEST_F(FileCopiesTest, OfAStrangersFileTheRestIsNotRead) {
  const QString path = folder_.Write(u"a.msg"_s, QByteArray(3 << 20, 'x'));
  int portions = 0;
  const FileCopies copies(path, [&portions] {
    ++portions;
    return false;
  });
  EXPECT_LT(portions, 20);
  EXPECT_EQ(copies.Digest(path), "");
}

}  // namespace
}  // namespace BrivonCtl
