// The program stopped in the middle, by one signal and by two.
#include <signal.h>

#include <map>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include "brivonctl/program_run.h"
#include "brivonctl/site.h"

using namespace Qt::StringLiterals;

namespace {

class BrivonctlStop : public testing::TestWithParam<int> {
 protected:
  BrivonctlStop() {
    site_.Fail(1, {.silent = true});
    site_.Fail(2, {.late_ms = 200});
  }

  /// Starts it and waits until the silent panel is being asked for the first time.
  void Begin() {
    run_.Start("send page --page 7 --to all --json --jobs 2",
               {site_.Page(), u"--folder"_s, site_.Folder().Path({})});
    ASSERT_TRUE(WaitUntil([this] { return !site_.Frames(1).isEmpty(); }));
  }

  void Signal() { ::kill(static_cast<pid_t>(run_.Process().processId()), GetParam()); }

  Site site_{3};
  ProgramRun run_;
};

INSTANTIATE_TEST_SUITE_P(, BrivonctlStop, testing::Values(SIGINT, SIGTERM), [](const auto& signal) {
  return signal.param == SIGINT ? "Interrupt" : "Terminate";
});

TEST_P(BrivonctlStop, OneSignalLetsTheAttemptsInProgressEndAndSaysWhatIsWhere) {
  Begin();
  Signal();
  run_.Wait();
  EXPECT_EQ(run_.status, 130);
  EXPECT_EQ(site_.Frames(1).size(), 1);
  std::map<int, QJsonObject> panels;
  for (const QJsonObject& event : run_.Events()) {
    if (event[u"event"_s] == u"panel"_s) panels[event[u"panel"_s].toInt()] = event;
  }
  ASSERT_EQ(panels.size(), 3U);
  EXPECT_EQ(panels[1][u"result"_s], u"stopped"_s);
  EXPECT_EQ(panels[1][u"reason"_s], u"Aborted! 0 of 2 rows have arrived, missing: 2."_s);
  EXPECT_EQ(run_.Events().last()[u"status"_s], 130);
}

TEST_P(BrivonctlStop, APersonIsToldThatTheAttemptsInProgressEnd) {
  run_.Start("send page --page 7 --to all --jobs 2",
             {site_.Page(), u"--folder"_s, site_.Folder().Path({})});
  ASSERT_TRUE(WaitUntil([this] { return !site_.Frames(1).isEmpty(); }));
  Signal();
  run_.Wait();
  EXPECT_EQ(run_.status, 130);
  EXPECT_EQ(run_.errors.count("stopping after the attempts in progress\n"), 1)
      << run_.errors.toStdString();
  EXPECT_TRUE(run_.output.contains("ID001  stopped  Aborted! ")) << run_.output.toStdString();
}

TEST_P(BrivonctlStop, TheSecondSignalEndsItAtOnce) {
  Begin();
  Signal();
  // The first one has been taken in when it is told.
  ASSERT_TRUE(WaitUntil([this] {
    run_.Read();
    return run_.output.contains("\"stop\"");
  }));
  Signal();
  run_.Wait();
  EXPECT_EQ(run_.status, 130);
  EXPECT_FALSE(run_.output.contains("\"summary\""));
}

TEST_P(BrivonctlStop, ASignalBehindTheLastAttemptIsNoFailure) {
  ProgramRun run;
  run.To("poll --to 3 --folder", {site_.Folder().Path({})});
  EXPECT_EQ(run.status, 0);
}

TEST_P(BrivonctlStop, ASignalDuringTheChecksIsAStopBeforeAnythingIsSent) {
  // Nobody reads what stands behind the rows, but its digest takes a while.
  ASSERT_TRUE(QFile::resize(site_.Page(), qint64{256} << 20));
  run_.Start("send page --page 7 --to 1", {site_.Page(), u"--folder"_s, site_.Folder().Path({})});
  const QDir open(u"/proc/%1/fd"_s.arg(run_.Process().processId()));
  ASSERT_TRUE(WaitUntil([&] {
    for (const QFileInfo& file : open.entryInfoList(QDir::NoDotAndDotDot | QDir::AllEntries)) {
      if (file.symLinkTarget() == site_.Page()) return true;
    }
    return false;
  }));
  Signal();
  run_.Wait();
  EXPECT_EQ(run_.status, 130);
  EXPECT_EQ(run_.errors.toStdString(), "brivonctl: stopped; nothing was sent\n");
  EXPECT_EQ(site_.Frames(1), QList<QByteArray>());
}

}  // namespace
