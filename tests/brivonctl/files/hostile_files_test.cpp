// Any bytes give a report, and what a reader accepts is accepted.
#include <random>

#include "brivonctl/files/checked_files.h"
#include "files/shown_file.h"
#include "page/message_file.h"
#include "schedule/schedule_file.h"
#include "scrolling/scrolling_file.h"
#include "support/pipe_file.h"

using namespace Qt::StringLiterals;

namespace {

class HostileFiles : public CheckedFiles {
 protected:
  /// Whether the reader of the file's kind accepts it.
  static bool IsRead(const QString& path) {
    switch (BrivonCtl::KindOf(path)) {
      case BrivonCtl::FileKind::kPage:
        return Brivon1::LoadMessageFile(path).has_value();
      case BrivonCtl::FileKind::kSchedule:
        return Brivon1::LoadScheduleFile(path).has_value();
      case BrivonCtl::FileKind::kScrolling:
        return Brivon1::ReadScrollingMessage(path).has_value();
      case BrivonCtl::FileKind::kUnknown:
        break;
    }
    return false;
  }

  static std::string Escaped(const QByteArray& content) {
    return content.toPercentEncoding().left(2000).toStdString();
  }

  void ExpectReport(const QByteArray& content) {
    const QString path = folder_.Write(u"hostile"_s, content);
    BrivonCtl::FileReport report = BrivonCtl::CheckFile(path);
    report.files.clear();  // those of a schedule have readers of their own
    EXPECT_EQ(report.IsRefused(), !IsRead(path)) << Escaped(content);
    const QString text = BrivonCtl::ReportText(report);
    for (const QChar character : text) {
      EXPECT_TRUE(character == u'\n' || character.isPrint()) << Escaped(content);
    }
    const auto shown = BrivonCtl::ReadShownFile(path, false, QDateTime::currentDateTime());
    EXPECT_NE(shown.pages.empty(), shown.refusal.isEmpty()) << Escaped(content);
  }
};

TEST_F(HostileFiles, DamagedFilesGiveAReport) {
  std::mt19937 random(20260305);
  const QByteArrayList wholes = {
      Page(2, "<L01><SA><CA>Drive ~A DD MMM YYYY\r\n<L02><SG><CD>safely HH:MM\r\n"),
      Schedule(2, Step("a.msg") + Step("hostile", "x", "Nothing")),
      "*** Brivon Shift Message File ***\r\n<SA><CB>Road works ~A\r\n"};
  for (int round = 0; round < 1500; ++round) {
    QByteArray content = wholes[round % wholes.size()];
    const int changes = 1 + static_cast<int>(random() % 4);
    for (int change = 0; change < changes; ++change) {
      const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(content.size()));
      // The first line stays a header more often than not.
      if (at < 34 && random() % 4 != 0) continue;
      switch (random() % 4) {
        case 0:
          content[at] = static_cast<char>(random());
          break;
        case 1:
          content.insert(at, static_cast<char>(random()));
          break;
        case 2:
          content.remove(at, static_cast<qsizetype>(random() % 8));
          break;
        default:
          content.insert(at, content.mid(at, 20));
      }
    }
    ExpectReport(content);
  }
}

TEST_F(HostileFiles, RandomBytesBehindAHeaderGiveAReport) {
  std::mt19937 random(7);
  for (const char* begin : {"*** Brivon Message File ***\nRow = 12\nCol = 80\n",
                            "*** Brivon Schedule File ***\nWeek =0\nHour =\nMin =\nRow =1\nCol =1\n"
                            "No of Sequence =32\n",
                            "*** Brivon Shift Message File ***\n", ""}) {
    for (int round = 0; round < 20; ++round) {
      QByteArray content = begin;
      for (int i = 0; i < 3000; ++i) content.append(static_cast<char>(random()));
      ExpectReport(content);
    }
  }
}

TEST_F(HostileFiles, TheLongestRowsGiveAReport) {
  QByteArray lines;
  for (int row = 1; row <= 12; ++row) {
    lines += QByteArray("<L") + (row < 10 ? "0" : "") + QByteArray::number(row) + ">" +
             QByteArray(200'000, row % 2 == 0 ? '\x01' : '~') + "\r\n";
  }
  ExpectReport(Page(12, lines));
  ExpectReport("*** Brivon Shift Message File ***\r\n" + QByteArray(1'000'000, 'W') + "\r\n");
}

TEST_F(HostileFiles, APipeIsNotWaitedFor) {
  const QString path = folder_.Path(u"pipe.msg"_s);
  ASSERT_TRUE(MakePipe(path));
  EXPECT_EQ(SaidOf(path),
            "pipe.msg: refused\n  error: this is a device or a pipe; a file was expected\n");
}

}  // namespace
