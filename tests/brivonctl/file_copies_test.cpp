// What is read of a file once, and what of that remains when the file does not.
#include "orders/file_copies.h"

#include <QFile>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "orders/order.h"
#include "orders/order_checks.h"
#include "schedule/schedule_reader.h"
#include "support/program_folder.h"
#include "support/use_code_page.h"

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
  FileCopies copies(path);
  ASSERT_TRUE(QFile::remove(path));
  EXPECT_TRUE(copies.Exists(path));
  EXPECT_EQ(Brivon1::IsMessageFile(path, copies), (Brivon1::Dimension{1, 96}));
  EXPECT_EQ(FirstRow(copies, path), "<L01><SA><CA>Hi");
  copies.TakeDigest(path);
  // Of these bytes, by sha256sum.
  EXPECT_EQ(copies.Digest(path),
            "950e5286056a80a844a442f0f6e0babd3f1a246a5a0beecc3989bd6f1558ea91");
}

TEST_F(FileCopiesTest, WhatIsMadeLaterIsNotThere) {
  const QString path = folder_.Path(u"a.msg"_s);
  FileCopies copies(path);
  folder_.Write(u"a.msg"_s, kPage);
  copies.TakeDigest(path);
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
  const UseCodePage western(1252);
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

TEST_F(FileCopiesTest, OfAScheduleThatBreaksOffTheWholeStepsAreKept) {
  const QString page = folder_.Write(u"a.msg"_s, kPage);
  const auto has_page_before = [&](const char* rest) {
    const QByteArray whole = kSchedule;
    const QString path = folder_.Write(u"a.sch"_s, whole.first(whole.indexOf(rest)));
    return FileCopies(path).Exists(page);
  };
  EXPECT_TRUE(has_page_before("none.msg"));
  EXPECT_FALSE(has_page_before("5\r\nFlip\r\nnone.msg"));
}

TEST_F(FileCopiesTest, OfTwoFilesThatCannotBeReadTheFirstIsTold) {
  const QStringList paths = {u"/proc/self/mem"_s, u"/proc/thread-self/mem"_s};
  if (!QFile::exists(paths[1])) GTEST_SKIP() << "the system has no such file";
  const FileCopies copies(folder_.Write(u"a.sch"_s, QByteArray(kSchedule)
                                                        .replace("a.msg", paths[0].toLatin1())
                                                        .replace("none.msg", paths[1].toLatin1())));
  EXPECT_TRUE(copies.ReadFailure().startsWith(paths[0] + u" cannot be read: "_s))
      << copies.ReadFailure().toStdString();
}

TEST_F(FileCopiesTest, NoMoreIsKeptThanATransmissionReads) {
  const QByteArray lines = QByteArray("*** Brivon Message File ***\nRow = 1\nCol = 96\n") +
                           QByteArray("<L01>\n").repeated(100'000);
  const QString path = folder_.Write(u"a.msg"_s, lines);
  const FileCopies copies(path);
  EXPECT_EQ(copies.Device(path)->size(), lines.indexOf("<L01>") + 12 * 6);
  EXPECT_EQ(FirstRow(copies, path), "<L01>");
}

TEST_F(FileCopiesTest, HowMuchThatIsTellsTheKind) {
  const auto kept = [this](const QByteArray& header) {
    const QString path = folder_.Write(u"a"_s, header + QByteArray("x\n").repeated(1000));
    return FileCopies(path).Device(path)->size();
  };
  const QByteArray scrolling = "*** Brivon Shift Message File ***\n";
  const QByteArray schedule = "*** Brivon Schedule File ***\r\n";
  EXPECT_EQ(kept(scrolling), scrolling.size() + 2);
  EXPECT_EQ(kept(schedule), schedule.size() + (6 + 3 * 32) * 2);
  EXPECT_EQ(kept("*** Brivon Message File ****\n"), 0);
}

TEST_F(FileCopiesTest, AFirstLineWithoutAnEndTellsTheKindToo) {
  const QByteArray line = "*** Brivon Message File ***      ";
  const QString path = folder_.Write(u"a.msg"_s, line);
  EXPECT_EQ(FileCopies(path).Device(path)->size(), line.size());
}

TEST_F(FileCopiesTest, OfMoreNamesThanAScheduleSendsTheRestIsNotRead) {
  QByteArray steps;
  for (char name = 'A'; name <= 'Z'; ++name) {
    folder_.Write(QString(QLatin1Char(name)), kPage);
    steps += QByteArray(1, name) + "\r\n5\r\nFlip\r\n";
  }
  const QString last = folder_.Write(u"last.msg"_s, kPage);
  const QByteArray head = QByteArray(kSchedule).first(QByteArray(kSchedule).indexOf("2\r\na.msg"));
  const QString path = folder_.Write(
      u"a.sch"_s, head + "28\r\n" + steps + "a\r\n5\r\nFlip\r\nlast.msg\r\n5\r\nFlip\r\n");
  const FileCopies copies(path);
  EXPECT_TRUE(copies.Exists(folder_.Path(u"Z"_s)));
  EXPECT_FALSE(copies.Exists(last));
}

TEST_F(FileCopiesTest, ADigestIsTakenWhenItIsAskedFor) {
  const QString path =
      folder_.Write(u"a.msg"_s, kPage + QByteArray("<L01>\n").repeated((8 << 20) / 6));
  int portions = 0;
  FileCopies copies(path, [&portions] {
    ++portions;
    return false;
  });
  EXPECT_EQ(portions, 1);
  EXPECT_EQ(copies.Digest(path), "");
  copies.TakeDigest(path);
  EXPECT_GT(portions, 100);
  EXPECT_EQ(copies.Digest(path).size(), 64);
}

TEST_F(FileCopiesTest, AScheduleThatNamesItselfHasADigest) {
  const QString path =
      folder_.Write(u"a.sch"_s, QByteArray(kSchedule).replace("none.msg", "a.sch"));
  FileCopies copies(path);
  copies.TakeDigest(path);
  EXPECT_EQ(copies.Digest(path).size(), 64);
}

TEST_F(FileCopiesTest, AReadErrorIsNoEndOfTheFile) {
  const QString path = u"/proc/self/mem"_s;  // whose first bytes nobody can read
  if (!QFile::exists(path)) GTEST_SKIP() << "the system has no such file";
  const FileCopies copies(path);
  EXPECT_TRUE(copies.Exists(path));
  EXPECT_EQ(copies.ReadFailure(), u"/proc/self/mem cannot be read: "_s + qt_error_string(EIO) +
                                      u"; send another copy of it"_s);
  EXPECT_EQ(Brivon1::MessageFileReader(path, copies).Failure().fault,
            Brivon1::FileFault::kNotReadable);
  const Order order{Action::kSendPage, path, u"7"_s, std::make_shared<FileCopies>(path)};
  folder_.Configure("[Communication]\r\nSendMode=TCPIP\r\n");
  EXPECT_EQ(WhatIsWrongWith(order, Brivon1::Store()), copies.ReadFailure());
}

TEST_F(FileCopiesTest, TheDigestIsThatOfTheFileThatIsSent) {
  const QString sent = folder_.Write(u"a.sch"_s, kSchedule);
  const QString blank = folder_.Write(u"a.sch "_s, QByteArray(kSchedule) + "other");
  const auto digest = [&](Action action, const QString& path) {
    const auto copies = std::make_shared<FileCopies>(path);
    const Order order{action, path, u"A"_s, copies};
    copies->TakeDigest(order.SentPath());
    return order.Digest();
  };
  const QByteArray of_sent = digest(Action::kSendSchedule, sent);
  EXPECT_EQ(of_sent.size(), 64);
  EXPECT_EQ(digest(Action::kSendSchedule, blank), of_sent);
  const QByteArray of_blank = digest(Action::kSendPage, blank);
  EXPECT_EQ(of_blank.size(), 64);
  EXPECT_NE(of_blank, of_sent);
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
  FileCopies copies(path, [] { return true; });
  copies.TakeDigest(path);
  EXPECT_EQ(copies.Digest(path), "");
}

TEST_F(FileCopiesTest, OfAStrangersFileTheRestIsNotRead) {
  const QString path = folder_.Write(u"a.msg"_s, QByteArray(3 << 20, 'x'));
  int portions = 0;
  FileCopies copies(path, [&portions] {
    ++portions;
    return false;
  });
  copies.TakeDigest(path);
  EXPECT_LT(portions, 20);
  EXPECT_EQ(copies.Digest(path), "");
}

}  // namespace
}  // namespace BrivonCtl
