#include "reports/log_file.h"

#include <cerrno>
#include <set>
#include <thread>
#include <vector>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "support/pipe_file.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

class LogFileTest : public testing::Test {
 protected:
  QString Path() const { return folder_.filePath(u"log"_s); }

  QByteArray Content() const {
    QFile file(Path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  void Write(const QByteArray& content) const {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  QTemporaryDir folder_;
};

TEST_F(LogFileTest, LinesAreAppendedBehindWhatStandsThere) {
  Write("old\n");
  LogFile log(Path());
  EXPECT_TRUE(log.Check());
  EXPECT_TRUE(log.Append("one"));
  EXPECT_TRUE(log.Append("two"));
  EXPECT_EQ(Content(), "old\none\ntwo\n");
}

TEST_F(LogFileTest, ALineThatSomebodyElseCouldNotFinishIsEndedFirst) {
  Write("half a li");
  EXPECT_TRUE(LogFile(Path()).Append("one"));
  EXPECT_EQ(Content(), "half a li\none\n");
}

TEST_F(LogFileTest, AFileThatWasMovedAwayIsMadeAnew) {
  LogFile log(Path());
  EXPECT_TRUE(log.Append("one"));
  ASSERT_TRUE(QFile::rename(Path(), folder_.filePath(u"log.1"_s)));
  EXPECT_TRUE(log.Append("two"));
  EXPECT_EQ(Content(), "two\n");
}

TEST_F(LogFileTest, AFolderAndAFileInNoFolderAreNoLogs) {
  LogFile folder(folder_.path());
  EXPECT_FALSE(folder.Check());
  EXPECT_EQ(folder.ErrorText(), folder_.path() + u": "_s + qt_error_string(EISDIR));
  LogFile nowhere(folder_.filePath(u"no/log"_s));
  EXPECT_FALSE(nowhere.Check());
  EXPECT_EQ(nowhere.ErrorText(), folder_.filePath(u"no/log: "_s) + qt_error_string(ENOENT));
}

TEST_F(LogFileTest, APipeIsNoLog) {
  ASSERT_TRUE(MakePipe(Path()));
  LogFile pipe(Path());
  EXPECT_FALSE(pipe.Check());
  EXPECT_EQ(pipe.ErrorText(), Path() + u": no ordinary file"_s);
}

TEST_F(LogFileTest, ALineForAFullDiskIsRefusedWithItsReason) {
  if (!QFile::exists(u"/dev/full"_s)) GTEST_SKIP() << "this system has no full disk";
  LogFile log(u"/dev/full"_s);
  EXPECT_FALSE(log.Append("one"));
  EXPECT_EQ(log.ErrorText(), u"/dev/full: no ordinary file"_s);
}

TEST_F(LogFileTest, WithoutAPathNothingIsWrittenAndNothingFails) {
  LogFile log({});
  EXPECT_TRUE(log.Check());
  EXPECT_TRUE(log.Append("one"));
}

TEST_F(LogFileTest, LinesOfAnyLengthStayWholeWhenManyWriteThem) {
  constexpr int kWriters = 8;
  constexpr int kLines = 50;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([this, writer] {
      LogFile log(Path());
      for (int line = 0; line < kLines; ++line) {
        EXPECT_TRUE(log.Append(QByteArray(1 + 5000 * (line % 3), static_cast<char>('a' + writer))));
      }
    });
  }
  for (std::thread& writer : writers) writer.join();
  QList<QByteArray> lines = Content().split('\n');
  EXPECT_EQ(lines.takeLast(), "");
  EXPECT_EQ(lines.size(), kWriters * kLines);
  for (const QByteArray& line : lines) {
    ASSERT_FALSE(line.isEmpty());
    EXPECT_EQ(line.count(line[0]), line.size());
    EXPECT_TRUE((std::set<qsizetype>{1, 5001, 10001}).contains(line.size()));
  }
}

}  // namespace
}  // namespace BrivonCtl
