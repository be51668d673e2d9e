// What the program tells other programs: its events, its streams, its exit status.
#include <gtest/gtest.h>

#include "brivonctl/program_run.h"
#include "brivonctl/site.h"

using namespace Qt::StringLiterals;

namespace {

QStringList In(const Site& site) { return {u"--folder"_s, site.Folder().Path({})}; }

TEST(BrivonctlJson, APageToTwoPanelsIsTheseEvents) {
  Site site(2);
  ProgramRun run;
  run.To("send page --page 7 --to all --json", QStringList{site.Page()} + In(site));
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.errors, "");
  const QList<QJsonObject> events = run.Events();
  ASSERT_EQ(events.size(), 8);  // the start, two rows and an end of each panel, the summary
  EXPECT_EQ(events.first()[u"event"_s], u"start"_s);
  EXPECT_EQ(events.first()[u"version"_s], 1);
  EXPECT_EQ(events.first()[u"action"_s], u"send page"_s);
  EXPECT_EQ(events.last()[u"event"_s], u"summary"_s);
  EXPECT_EQ(events.last()[u"ok"_s], 2);
  EXPECT_EQ(events.last()[u"status"_s], 0);
  int rows = 0;
  int ends = 0;
  for (const QJsonObject& event : events) {
    if (event[u"event"_s] == u"row"_s) ++rows;
    if (event[u"event"_s] != u"panel"_s) continue;
    ++ends;
    EXPECT_EQ(event[u"result"_s], u"ok"_s);
    EXPECT_EQ(event[u"rows"_s], 2);
    EXPECT_EQ(event[u"attempts"_s], 2);
    EXPECT_FALSE(event.contains(u"reason"_s));
  }
  EXPECT_EQ(rows, 4);
  EXPECT_EQ(ends, 2);
  EXPECT_EQ(site.Frames(1), Site::PageFrames(1));
  EXPECT_EQ(site.Frames(2), Site::PageFrames(2));
}

TEST(BrivonctlJson, APanelThatFailsHasItsReasonAndTheStatusIs1) {
  Site site(2);
  site.Close(2);
  ProgramRun run;
  run.To("poll --to all --json --quiet", In(site));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.errors, "");
  const QList<QJsonObject> events = run.Events();
  ASSERT_EQ(events.size(), 4);
  for (const QJsonObject& event : events) {
    if (event[u"event"_s] != u"panel"_s) continue;
    const bool is_closed = event[u"panel"_s] == 2;
    EXPECT_EQ(event[u"result"_s], is_closed ? u"failed"_s : u"ok"_s);
    EXPECT_EQ(event[u"reason"_s].toString().startsWith(u"Cannot create TCP link!"_s), is_closed);
  }
  EXPECT_EQ(events.last()[u"ok"_s], 1);
  EXPECT_EQ(events.last()[u"failed"_s], 1);
}

TEST(BrivonctlJson, WhereAPanelDoesNotFitNobodyGetsItUnlessItIsSkipped) {
  Site site(1);
  ProgramRun strict;
  strict.To("poll --to 1,9 --json", In(site));
  EXPECT_EQ(strict.status, 3);
  EXPECT_EQ(strict.errors.count('\n'), 1);
  const QList<QJsonObject> refused = strict.Events();
  ASSERT_EQ(refused.size(), 2);
  EXPECT_EQ(refused[0][u"panel"_s], 9);
  EXPECT_EQ(refused[0][u"result"_s], u"refused"_s);
  EXPECT_EQ(refused[1][u"status"_s], 3);
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());

  ProgramRun skipping;
  skipping.To("poll --to 1,9 --skip-unfit --json --quiet", In(site));
  EXPECT_EQ(skipping.status, 1);
  EXPECT_EQ(skipping.errors, "");
  EXPECT_EQ(skipping.Events().last()[u"ok"_s], 1);
  EXPECT_EQ(skipping.Events().last()[u"refused"_s], 1);
  EXPECT_EQ(site.Frames(1), (QList<QByteArray>{"<ID01><?>\r\n"}));

  ProgramRun nobody;
  nobody.To("poll --to 8,9 --skip-unfit", In(site));
  EXPECT_EQ(nobody.status, 3);
}

TEST(BrivonctlJson, AConnectionThatThePanelClosesIsTheReason) {
  Site site(1);
  site.Fail(1, {.silent = true, .close_after_frame = 1});
  ProgramRun run;
  run.To("poll --to 1 --delay-period 0 --json", In(site));
  EXPECT_EQ(run.status, 1);
  for (const QJsonObject& event : run.Events()) {
    if (event[u"event"_s] != u"panel"_s) continue;
    EXPECT_TRUE(event[u"reason"_s].toString().contains(u"remote host closed the connection"_s))
        << event[u"reason"_s].toString().toStdString();
  }
}

TEST(BrivonctlJson, AWholeTransmissionThatIsRepeatedIsToldAsARetry) {
  Site site(1);
  const VirtualPanel::Faults once = {.silent_answers = 1, .close_after_frame = 1};
  site.Fail(1, once);
  ProgramRun run;
  run.To("poll --to 1 --retry 1 --delay-period 0 --json", In(site));
  EXPECT_EQ(run.status, 0);
  int retries = 0;
  for (const QJsonObject& event : run.Events()) {
    if (event[u"event"_s] == u"retry"_s) ++retries;
    if (event[u"event"_s] == u"panel"_s) {
      EXPECT_EQ(event[u"transmissions"_s], 2);
    }
  }
  EXPECT_EQ(retries, 1);

  site.Fail(1, once);
  ProgramRun quiet;
  quiet.To("poll --to 1 --retry 1 --delay-period 0 --json --quiet", In(site));
  EXPECT_EQ(quiet.status, 0);
  const QList<QJsonObject> events = quiet.Events();
  ASSERT_EQ(events.size(), 3);
  EXPECT_EQ(events[1][u"event"_s], u"panel"_s);
  EXPECT_EQ(events[1][u"transmissions"_s], 2);

  site.Fail(1, once);
  ProgramRun person;
  person.To("poll --to 1 --retry 1 --delay-period 0", In(site));
  EXPECT_EQ(person.status, 0);
  EXPECT_TRUE(person.errors.startsWith("ID001 once more ")) << person.errors.toStdString();
  EXPECT_TRUE(person.errors.contains("\nID001 ok ")) << person.errors.toStdString();
}

TEST(BrivonctlJson, WithFewDescriptorsAllPanelsAreServed) {
  Site site(12);
  struct Few {
    const char* descriptors;
    const char* panels;
    const char* done;
  };
  for (const Few& few : {Few{"100", "all", "\"ok\":12,"}, Few{"60", "1,2", "\"ok\":2,"}}) {
    QProcess shell;
    shell.start(
        u"sh"_s,
        {u"-c"_s, u"ulimit -n \"$2\"; exec \"$0\" poll --to \"$3\" --json --folder \"$1\""_s,
         QStringLiteral(BRIVONCTL), site.Folder().Path({}), QString::fromLatin1(few.descriptors),
         QString::fromLatin1(few.panels)});
    ASSERT_TRUE(WaitUntil([&] { return shell.state() == QProcess::NotRunning; }));
    EXPECT_EQ(shell.exitCode(), 0) << shell.readAllStandardError().toStdString();
    EXPECT_TRUE(shell.readAllStandardOutput().contains(few.done)) << few.descriptors;
  }
}

TEST(BrivonctlJson, WithoutATerminalAPersonReadsPlainLinesAndTheTableIsTheResult) {
  Site site(2);
  site.Close(2);
  ProgramRun run;
  run.To("poll --to all", In(site));
  EXPECT_EQ(run.status, 1);
  EXPECT_FALSE(run.output.contains('\x1b'));
  EXPECT_FALSE(run.errors.contains('\x1b'));
  const QList<QByteArray> lines = run.output.split('\n');
  ASSERT_EQ(lines.size(), 4);
  EXPECT_EQ(lines[0], "ID001  ok       Command is sent successfully!");
  EXPECT_TRUE(lines[1].startsWith("ID002  failed   Cannot create TCP link!"));
  EXPECT_TRUE(lines[2].startsWith("1 of 2 panels done, 1 failed, "));
  EXPECT_EQ(run.errors.count('\n'), 2);

  ProgramRun quiet;
  quiet.To("poll --to 1 --quiet", In(site));
  EXPECT_EQ(quiet.status, 0);
  EXPECT_EQ(quiet.output, "");
  EXPECT_EQ(quiet.errors, "");
}

TEST(BrivonctlJson, AResultThatCannotBeWrittenIsNoSuccessButThePanelsGetTheirPage) {
  Site site(1);
  ProgramRun run;
  run.Process().setStandardOutputFile(u"/dev/full"_s);
  run.To("send page --page 7 --to 1 --json", QStringList{site.Page()} + In(site));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.errors.toStdString(),
            "brivonctl: the result cannot be written: No space left on device\n");
  EXPECT_EQ(site.Frames(1), Site::PageFrames(1));
  for (const char* line : {"poll --to 1", "poll --to 1 --dry-run", "list", "list --json"}) {
    ProgramRun other;
    other.Process().setStandardOutputFile(u"/dev/full"_s);
    EXPECT_EQ(other.To(line, In(site)).status, 1) << line;
    EXPECT_EQ(other.errors.count("No space left on device\n"), 1) << other.errors.toStdString();
  }
  for (const char* line : {"--help", "--version", "--print-manual-page", "--print-completion"}) {
    ProgramRun page;
    page.Process().setStandardOutputFile(u"/dev/full"_s);
    EXPECT_EQ(page.To(line).status, 1) << line;
  }
}

TEST(BrivonctlJson, WhatIsSaidMeanwhileMayBeLost) {
  Site site(1);
  ProgramRun run;
  run.Process().setStandardErrorFile(u"/dev/full"_s);
  run.To("poll --to 1", In(site));
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(run.output.startsWith("ID001  ok ")) << run.output.toStdString();
}

TEST(BrivonctlJson, AReaderThatLeavesDoesNotKeepThePanelsFromTheirPage) {
  Site site(1);
  QProcess shell;
  shell.start(u"bash"_s, {u"-c"_s,
                          u"\"$0\" send page \"$1\" --page 7 --to 1 --json --folder \"$2\" | "
                          "true; exit ${PIPESTATUS[0]}"_s,
                          QStringLiteral(BRIVONCTL), site.Page(), site.Folder().Path({})});
  ASSERT_TRUE(WaitUntil([&] { return shell.state() == QProcess::NotRunning; }));
  EXPECT_EQ(shell.exitCode(), 0);
  EXPECT_EQ(shell.readAllStandardError(), "");
  EXPECT_EQ(site.Frames(1), Site::PageFrames(1));
}

TEST(BrivonctlJson, WithoutStandardStreamsThePanelsGetTheirPageAllTheSame) {
  Site site(1);
  QProcess shell;
  shell.start(u"sh"_s, {u"-c"_s,
                        u"exec \"$0\" send page \"$1\" --page 7 --to 1 --json --folder \"$2\" "
                        "<&- >&- 2>&-"_s,
                        QStringLiteral(BRIVONCTL), site.Page(), site.Folder().Path({})});
  ASSERT_TRUE(WaitUntil([&] { return shell.state() == QProcess::NotRunning; }));
  EXPECT_EQ(shell.exitCode(), 0);
  EXPECT_EQ(site.Frames(1), Site::PageFrames(1));
}

TEST(BrivonctlJson, TheDelayPeriodOfTheCommandLineIsTheOneThatCounts) {
  Site site(1);
  ProgramRun run;
  run.To("send page --page 7 --to 1 --delay-period 1500 --json",
         QStringList{site.Page()} + In(site));
  EXPECT_GE(run.Events().last()[u"seconds"_s].toDouble(), 1.9);
}

TEST(BrivonctlJson, ASecondProgramAtOneSerialPortFailsAndDisturbsNobody) {
  OneLine line(true);
  line.Fail({.silent = true});
  const QStringList folder = {u"--folder"_s, line.Folder().Path({})};
  ProgramRun first;
  first.Start("poll --to 1 --json", folder);
  ASSERT_TRUE(WaitUntil([&] {
    first.Read();
    return first.output.contains("\"attempt\"");
  }));
  ProgramRun second;
  second.To("poll --to 2 --json", folder);
  EXPECT_EQ(second.status, 1);
  const QJsonObject end = second.Events().at(1);
  EXPECT_EQ(end[u"result"_s], u"failed"_s);
  EXPECT_TRUE(end[u"reason"_s].toString().startsWith(u"Fail to initialize communication port!"_s));
  line.Fail({});
  EXPECT_EQ(first.Wait().status, 0);
}

}  // namespace
