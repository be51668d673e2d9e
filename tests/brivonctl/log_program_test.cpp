// The log, written by one process, by one that is killed, and by several at once.
#include <cstdlib>
#include <memory>
#include <vector>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "brivonctl/program_run.h"
#include "brivonctl/site.h"

using namespace Qt::StringLiterals;

namespace {

class BrivonctlLog : public testing::Test {
 protected:
  QStringList Log() const {
    return {u"--log"_s, site_.Folder().Path(u"log"_s), u"--folder"_s, site_.Folder().Path({})};
  }

  QList<QJsonObject> Lines() const {
    QList<QJsonObject> objects;
    QList<QByteArray> lines = site_.Folder().Read(u"log"_s).split('\n');
    EXPECT_EQ(lines.takeLast(), "");
    for (const QByteArray& line : lines) {
      objects.append(QJsonDocument::fromJson(line).object());
      EXPECT_FALSE(objects.last().isEmpty()) << line.toStdString();
    }
    return objects;
  }

  Site site_{4};
};

TEST_F(BrivonctlLog, EveryTransmissionIsOneLineWithWhatWasSent) {
  site_.Close(2);
  ProgramRun run;
  run.To("send page --page 7 --to 1,2 --quiet", QStringList{site_.Page()} + Log());
  EXPECT_EQ(run.status, 1);
  const QList<QJsonObject> lines = Lines();
  ASSERT_EQ(lines.size(), 2);
  QFile page(site_.Page());
  ASSERT_TRUE(page.open(QIODevice::ReadOnly));
  const QByteArray digest =
      QCryptographicHash::hash(page.readAll(), QCryptographicHash::Sha256).toHex();
  for (const QJsonObject& line : lines) {
    const bool is_closed = line[u"panel"_s] == 2;
    EXPECT_EQ(line[u"action"_s], u"send page"_s);
    EXPECT_EQ(line[u"file"_s], site_.Page());
    EXPECT_EQ(line[u"sha256"_s], QString::fromLatin1(digest));
    EXPECT_EQ(line[u"page"_s], 7);
    EXPECT_EQ(line[u"rows"_s], is_closed ? 0 : 2);
    EXPECT_EQ(line[u"attempts"_s], is_closed ? 0 : 2);
    EXPECT_EQ(line[u"result"_s], is_closed ? u"failed"_s : u"ok"_s);
    const QDateTime time = QDateTime::fromString(line[u"time"_s].toString(), Qt::ISODateWithMs);
    EXPECT_LT(std::abs(time.msecsTo(QDateTime::currentDateTime())), 20'000);
  }
}

TEST_F(BrivonctlLog, ARepeatedTransmissionIsALineOfItsOwnAndARefusedOneIsNone) {
  site_.Fail(1, {.silent_answers = 5});
  ProgramRun run;
  run.To("poll --to 1,9 --skip-unfit --retry 1 --delay-period 0 --quiet", Log());
  EXPECT_EQ(run.status, 1);
  const QList<QJsonObject> lines = Lines();
  ASSERT_EQ(lines.size(), 2);
  EXPECT_EQ(lines[0][u"result"_s], u"failed"_s);
  EXPECT_EQ(lines[0][u"attempts"_s], 5);
  EXPECT_EQ(lines[1][u"result"_s], u"ok"_s);
}

TEST_F(BrivonctlLog, ADryRunLogsNothing) {
  ProgramRun run;
  EXPECT_EQ(run.To("poll --to all --dry-run", Log()).status, 0);
  EXPECT_FALSE(QFile::exists(site_.Folder().Path(u"log"_s)));
}

TEST_F(BrivonctlLog, SeveralProcessesAppendWholeLines) {
  constexpr int kProcesses = 6;
  std::vector<std::unique_ptr<ProgramRun>> runs;
  for (int i = 0; i < kProcesses; ++i) {
    runs.push_back(std::make_unique<ProgramRun>());
    runs.back()->Start("poll --to all --quiet", Log());
  }
  for (const auto& run : runs) EXPECT_EQ(run->Wait().status, 0);
  EXPECT_EQ(Lines().size(), kProcesses * 4);
}

TEST_F(BrivonctlLog, ALogThatIsLostMeanwhileIsSaidOnceAndNoSuccess) {
  site_.Fail(1, {.silent = true});
  ProgramRun run;
  run.Start("poll --to 1,2 --jobs 1 --quiet", Log());
  ASSERT_TRUE(WaitUntil([this] { return !site_.Frames(1).isEmpty(); }));
  const QString log = site_.Folder().Path(u"log"_s);
  ASSERT_TRUE(QFile::remove(log) && QDir().mkdir(log));
  site_.Fail(1, {});
  run.Wait();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.errors.toStdString(),
            "brivonctl: --log: " + log.toStdString() + ": Is a directory\n");
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(site_.Frames(2).size(), 1);
}

TEST_F(BrivonctlLog, AProcessThatIsKilledLeavesWholeLines) {
  for (const int id : {2, 3, 4}) site_.Fail(id, {.silent = true});
  ProgramRun run;
  run.Start("poll --to all --quiet", Log());
  ASSERT_TRUE(WaitUntil([this] { return QFile(site_.Folder().Path(u"log"_s)).size() > 0; }));
  run.Process().kill();
  ASSERT_TRUE(WaitUntil([&] { return run.Process().state() == QProcess::NotRunning; }));
  const QList<QJsonObject> lines = Lines();
  ASSERT_EQ(lines.size(), 1);
  EXPECT_EQ(lines[0][u"panel"_s], 1);
  EXPECT_EQ(lines[0][u"result"_s], u"ok"_s);
}

}  // namespace
