// Message files of any bytes and any size, and disks that take none.
#include <random>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "base/files.h"
#include "page/message_file_fixture.h"
#include "support/bytes_read.h"
#include "support/full_disk.h"
#include "support/pipe_file.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::LoadMessageFile;
using Brivon1::PageMessage;
using Brivon1::SaveMessageFile;
using Brivon1::SaveResult;

TEST_F(MessageFile, RowsOf100000CharactersAreLoadedWhole) {
  QByteArray content = "*** Brivon Message File ***\r\nRow = 12\r\nCol = 3000\r\n";
  for (int i = 0; i < 12; ++i) content += QByteArray(100000, static_cast<char>('a' + i)) + "\r\n";
  Write(content);
  const auto page = LoadMessageFile(Path());
  ASSERT_TRUE(page);
  EXPECT_EQ(page->rows[11].Text(), QByteArray(100000, 'l'));
}

TEST_F(MessageFile, OfAHundredMegabytesWithoutALineEndNoMoreIsReadThanTheLongestLine) {
  const QByteArray beginnings[] = {"", "*** Brivon Message File ***\r\n",
                                   "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>"};
  for (const QByteArray& beginning : beginnings) {
    QFile file(Write(beginning));
    ASSERT_TRUE(file.resize(100 * 1024 * 1024));
    const qint64 before = BytesRead();
    ASSERT_GT(before, 0);
    EXPECT_FALSE(LoadMessageFile(Path()));
    constexpr qint64 kReadAhead = 1 << 16;
    EXPECT_LT(BytesRead() - before, Brivon1::kLongestLine + kReadAhead);
  }
}

TEST_F(MessageFile, WhatIsNoFileIsRefused) {
  EXPECT_FALSE(LoadMessageFile(Write("")));
  EXPECT_FALSE(LoadMessageFile(QString()));
  EXPECT_FALSE(LoadMessageFile(folder_.path()));
  EXPECT_FALSE(LoadMessageFile(Path(u"missing.msg"_s)));
  EXPECT_FALSE(LoadMessageFile(Path() + u"/below a file.msg"_s));
  EXPECT_FALSE(LoadMessageFile(u"/dev/zero"_s));
  EXPECT_FALSE(LoadMessageFile(u"/proc/self/mem"_s));
}

TEST_F(MessageFile, APipeIsRefused) {
  const QString pipe = Path(u"pipe.msg"_s);
  ASSERT_TRUE(MakePipe(pipe));
  EXPECT_FALSE(LoadMessageFile(pipe));  // nobody writes: opening it would wait for ever
}

TEST_F(MessageFile, RandomBytesGiveABoundedPageOrARefusal) {
  std::mt19937 random(99);
  const QByteArray header = "*** Brivon Message File ***\r\n";
  const QByteArray alphabet = "<<<>>>LSC0112AEHZ=\r\n\n \t\x80\xff";
  int accepted = 0;
  for (int file = 0; file < 800; ++file) {
    QByteArray content;
    if (file % 4 != 0) content = header;
    if (file % 4 >= 2) content += "Row = " + QByteArray::number(random() % 15) + "\r\nCol = 80\r\n";
    const auto length = random() % 400;
    for (unsigned i = 0; i < length; ++i) {
      content +=
          file % 2 == 0
              ? static_cast<char>(random() % 256)
              : alphabet[static_cast<qsizetype>(random() % static_cast<unsigned>(alphabet.size()))];
    }
    const auto page = Load(content);
    if (!page) continue;
    ++accepted;
    ASSERT_GE(page->dimension.rows, 0);
    ASSERT_LE(page->dimension.rows, 12);
    qsizetype characters = 0;
    for (const auto& row : page->rows) {
      ExpectEqualLengths(row);
      characters += row.Length();
    }
    ASSERT_LE(characters, content.size());
  }
  EXPECT_GT(accepted, 40);
}

TEST_F(MessageFile, All256ByteValuesSurviveLoadingAndSaving) {
  QByteArray all;
  for (int value = 0; value < 256; ++value) {
    if (value != '\n') all.append(static_cast<char>(value));
  }
  const QByteArray content =
      "*** Brivon Message File ***\r\nRow = 2\r\nCol = 3000\r\n<L01><SA><CA>" + all +
      "\r\n<L02><SA><CA>ends with a return\r\r\n";
  const auto loaded = Load(content);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->rows[0].Text(), all);
  PageMessage page;
  page.TakeOver(loaded->dimension, loaded->rows);
  EXPECT_EQ(Saved(page), content);
}

TEST_F(MessageFile, RandomPagesAreReadBackAsTheyWereWritten) {
  std::mt19937 random(3);
  const auto below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
  for (int round = 0; round < 200; ++round) {
    const auto rows = static_cast<qint16>(1 + below(12));
    PageMessage page = PageOf(rows, 480);
    for (int key = 0; key < 300; ++key) {
      page.SetCurrentRow(1 + below(static_cast<unsigned>(rows)));
      page.ChooseColour(below(16));
      page.ChooseSize(below(4));
      page.ChooseBlink(below(2) == 0);
      const char character = static_cast<char>(below(256));
      if (character != '<') TypeKey(page, character);
    }
    Saved(page);
    const auto loaded = LoadMessageFile(Path());
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->dimension, (Brivon1::Dimension{rows, 480}));
    for (int row = 1; row <= 12; ++row) {
      ASSERT_EQ(Shown(loaded->rows[static_cast<std::size_t>(row - 1)]), Shown(page.Row(row)));
    }
  }
}

TEST_F(MessageFile, ASaveThatFindsNoRoomLeavesTheOldFileWhole) {
  Write("the old file");
  PageMessage page = PageOf(1, 3000);
  Type(page, QByteArray(500, 'x'));
  SaveResult result;
  {
    const FullDisk full_disk(20);
    result = SaveMessageFile(Path(), page);
  }
  EXPECT_EQ(result, SaveResult::kDriveNotAvailable);
  EXPECT_EQ(Read(), "the old file");
  EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList(u"page.msg"_s));
}

TEST_F(MessageFile, ASaveToAPathThatCannotBeIsAnInvalidPath) {
  const PageMessage page = PageOf(1, 80);
  Write("a file");
  EXPECT_EQ(SaveMessageFile(QString(), page), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveMessageFile(folder_.path(), page), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveMessageFile(Path() + u"/page.msg"_s, page), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveMessageFile(Path(u"no/page.msg"_s), page), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveMessageFile(u"/proc/page.msg"_s, page), SaveResult::kInvalidPath);
  EXPECT_EQ(Read(), "a file");
}

}  // namespace
