// "brivonctl check", run as a shell runs it.
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include "brivonctl/files/checked_files.h"
#include "brivonctl/files/ctl_process.h"

using namespace Qt::StringLiterals;

namespace {

class CheckProgram : public CheckedFiles {
 protected:
  Ended Run(const QStringList& arguments) {
    return RunBrivonCtl(QStringList{u"check"_s} + arguments, folder_.Path(QString()));
  }
};

TEST_F(CheckProgram, EverySampleIsFine) {
  const Ended ended =
      RunBrivonCtl({u"check"_s, u"--folder"_s, u"."_s, u"messages/all_colours.msg"_s,
                    u"messages/roadworks.srl"_s, u"schedules/every_day.sch"_s},
                   QStringLiteral(BRIVON_SAMPLES));
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output,
            "messages/all_colours.msg: page message, 12 rows x 192 columns: ok\n"
            "messages/roadworks.srl: scrolling message, 116 characters: ok\n"
            "schedules/every_day.sch: schedule, 4 rows x 96 columns, 3 steps, every day, every "
            "hour, every minute: ok\n"
            "  line 8: messages/welcome.msg: page message, 4 rows x 96 columns: ok\n"
            "  line 11: messages/lane_closed.msg: page message, 4 rows x 96 columns: ok\n");
  EXPECT_EQ(ended.errors, "");
}

TEST_F(CheckProgram, ARefusedFileGivesThreeAndOneLineOfError) {
  folder_.Write(u"good.msg"_s, Page(1, "<L01>\r\n"));
  folder_.Write(u"bad.msg"_s, Page(13, ""));
  Ended ended = Run({u"bad.msg"_s});
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.output,
            "bad.msg: page message, 13 rows x 96 columns: refused\n"
            "  line 2: error: 13 rows; a page has 1 to 12\n");
  EXPECT_EQ(ended.errors, "brivonctl: bad.msg: line 2: 13 rows; a page has 1 to 12\n");
  ended = Run({u"good.msg"_s, u"gone.msg"_s, u"bad.msg"_s, u"."_s});
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.errors,
            "brivonctl: 3 of 4 files refused; the first: gone.msg: there is no such file; check "
            "the name and its folder\n");
}

TEST_F(CheckProgram, WarningsLeaveTheStatusAtNought) {
  folder_.Write(u"long.msg"_s, Page(1, "<L01>" + QByteArray(20, 'W') + "\r\n"));
  const Ended ended = Run({u"long.msg"_s});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output,
            "long.msg: page message, 1 row x 96 columns: ok, 1 warning\n"
            "  line 4: warning: the last 4 characters are not seen or not seen whole: 120 dots in "
            "96\n");
  EXPECT_EQ(ended.errors, "");
}

TEST_F(CheckProgram, QuietTellsOnlyOfProblems) {
  folder_.Write(u"good.msg"_s, Page(1, "<L01>\r\n"));
  folder_.Write(u"none.msg"_s, Page(0, ""));
  const Ended ended = Run({u"--quiet"_s, u"good.msg"_s, u"none.msg"_s, u"gone.msg"_s});
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.output,
            "none.msg: page message, 0 rows x 96 columns: ok, 1 warning\n"
            "  line 2: warning: 0 rows: the editor opens an empty page, and it cannot be sent\n"
            "gone.msg: refused\n  error: there is no such file; check the name and its folder\n");
}

TEST_F(CheckProgram, JsonIsOneObjectALine) {
  folder_.Write(u"good.msg"_s, Page(1, "<L01>\r\n"));
  const Ended ended = Run({u"--json"_s, u"good.msg"_s, u"gone.msg"_s});
  EXPECT_EQ(ended.status, 3);
  QStringList events;
  for (const QByteArray& line : QByteArray::fromStdString(ended.output).split('\n')) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    events.append(object.value("event"_L1).toString() + u' ' +
                  object.value("result"_L1).toString());
  }
  EXPECT_EQ(events.join(u'|').toStdString(), "start |file ok|file refused|summary | ");
}

TEST_F(CheckProgram, FilesMayBeNamedLikeSubcommandsAndStandInBrackets) {
  const QStringList names = {u"poll"_s, u"list"_s, u"[a]"_s, u"[b,c]"_s, u"["_s, u"[d"_s, u"e]"_s};
  for (const QString& name : names) folder_.Write(name, Page(1, "<L01>\r\n"));
  const Ended ended = Run(names);
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output,
            "poll: page message, 1 row x 96 columns: ok\n"
            "list: page message, 1 row x 96 columns: ok\n"
            "./[a]: page message, 1 row x 96 columns: ok\n"
            "./[b,c]: page message, 1 row x 96 columns: ok\n"
            "[: page message, 1 row x 96 columns: ok\n"
            "[d: page message, 1 row x 96 columns: ok\n"
            "e]: page message, 1 row x 96 columns: ok\n");
}

TEST_F(CheckProgram, WrongUseGivesTwoAndOneLineOfError) {
  for (const QStringList& arguments :
       {QStringList{}, QStringList{u"--colour"_s, u"a.msg"_s}, QStringList{u"--folder"_s}}) {
    const Ended ended = Run(arguments);
    EXPECT_EQ(ended.status, 2) << arguments.join(u' ').toStdString();
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1) << ended.errors;
  }
}

TEST_F(CheckProgram, TheFolderHoldsTheScheduleFilesAndTheCodePage) {
  ASSERT_TRUE(QDir(folder_.Path(QString())).mkdir(u"program"_s));
  folder_.Write(u"program/a.msg"_s, Page(1, "<L01>\r\n"));
  folder_.Write(u"s.sch"_s, Schedule(1, Step("a.msg")));
  EXPECT_EQ(Run({u"s.sch"_s}).status, 3);
  EXPECT_EQ(Run({u"--folder"_s, u"program"_s, u"s.sch"_s}).status, 0);
  // Byte 81 is a letter in Cyrillic, and nothing in Western Europe's page.
  folder_.Write(u"letter.msg"_s, Page(1, "<L01><SA><CA>\x81\r\n"));
  EXPECT_NE(Run({u"letter.msg"_s}).output.find("warning"), std::string::npos);
  folder_.Write(u"program/brivon.ini"_s, "[Files]\r\nCodePage=1251\r\n");
  EXPECT_EQ(Run({u"--folder"_s, u"program"_s, u"letter.msg"_s}).output,
            "letter.msg: page message, 1 row x 96 columns: ok\n");
}

TEST_F(CheckProgram, AFolderThatIsNoneIsRefused) {
  folder_.Write(u"good.msg"_s, Page(1, "<L01>\r\n"));
  const Ended ended = Run({u"--folder"_s, u"nowhere"_s, u"good.msg"_s});
  EXPECT_EQ(ended.status, 3);
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.errors,
            "brivonctl: --folder: nowhere is no folder; it must be the one that holds "
            "brivon.ini\n");
}

TEST_F(CheckProgram, AResultThatCannotBeWrittenIsNoSuccess) {
  folder_.Write(u"good.msg"_s, Page(1, "<L01>\r\n"));
  for (const QStringList& words :
       {QStringList{u"check"_s, u"good.msg"_s}, QStringList{u"check"_s, u"--json"_s, u"good.msg"_s},
        QStringList{u"show"_s, u"good.msg"_s},
        QStringList{u"show"_s, u"good.msg"_s, u"--output"_s, u"-"_s}}) {
    QProcess process;
    process.setWorkingDirectory(folder_.Path(QString()));
    process.setStandardOutputFile(u"/dev/full"_s);
    process.start(QStringLiteral(BRIVONCTL_PROGRAM), words);
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1) << words.join(u' ').toStdString();
    EXPECT_EQ(process.readAllStandardError().toStdString(),
              "brivonctl: the result cannot be written: No space left on device\n");
  }
}

}  // namespace
