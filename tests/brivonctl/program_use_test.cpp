// What the program says to a command line that makes no sense, and to what does not fit.
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "brivonctl/program_run.h"
#include "brivonctl/site.h"

using namespace Qt::StringLiterals;

namespace {

struct Wrong {
  const char* line;
  const char* said;  ///< "%F" is the program folder.
};

/// One line on standard error, nothing on standard output.
void ExpectComplaint(const ProgramRun& run, const QByteArray& said, int status) {
  EXPECT_EQ(run.status, status) << said.toStdString();
  EXPECT_EQ(run.errors.toStdString(), "brivonctl: " + said.toStdString() + "\n");
  EXPECT_EQ(run.output.toStdString(), "");
}

TEST(BrivonctlUse, EveryWrongUseIsOneLineThatSaysWhatWouldBeRight) {
  const Wrong wrongs[] = {
      {"", "what to do is missing behind \"brivonctl\"; one of these must follow: %S"},
      {"foo", "\"foo\" is unknown; one of these must follow: %S"},
      {"send",
       "what to do is missing behind \"brivonctl send\"; one of these must follow: page, "
       "schedule, scrolling"},
      {"send foo", "\"foo\" is unknown; one of these must follow: page, schedule, scrolling"},
      {"list extra", "The following argument was not expected: extra; see brivonctl list --help"},
      {"poll", "--to is required; see brivonctl poll --help"},
      {"poll --to 1 --bad",
       "The following argument was not expected: --bad; see brivonctl poll --help"},
      {"send page a.msg --to 1", "--page is required; see brivonctl send page --help"},
      {"send page --page 1 --to 1", "FILE is required; see brivonctl send page --help"},
      {"poll --to 9-4", "--to: \"9-4\" runs backwards; write 4-9; see brivonctl poll --help"},
      {"delete-all --to all",
       "delete-all --to all deletes every page of all panels; add --yes if it is to"},
      {"clock --to 3 --folder . delete-all",
       "The following argument was not expected: delete-all; see brivonctl clock --help"},
      {"send page a.msg --page 1 --to 1 schedule",
       "The following argument was not expected: schedule; see brivonctl send page --help"},
      {"poll --to 0-9",
       "--to: \"0-9\" reaches to ID 0, which is all panels at once; write 0 alone, or a range from "
       "1; see brivonctl poll --help"},
      {"delete-all --to 0",
       "delete-all --to 0 deletes every page of all panels; add --yes if it is to"},
  };
  const QByteArray subcommands = [] {
    ProgramRun run;
    const QByteArray line = run.To("foo").errors;
    return line.mid(line.lastIndexOf(": ") + 2).trimmed();
  }();
  for (const char* name : {"list", "send", "poll", "run", "delete", "delete-all", "clock"}) {
    EXPECT_TRUE((", " + subcommands + ',').contains(QByteArray(", ") + name + ',')) << name;
  }
  for (const Wrong& wrong : wrongs) {
    ProgramRun run;
    ExpectComplaint(run.To(wrong.line), QByteArray(wrong.said).replace("%S", subcommands), 2);
  }
}

TEST(BrivonctlUse, ANumberIsNothingButDigitsWithinItsBounds) {
  for (const char* word : {"0", "121", "7x", "+7", "-7", "0x7", "7.0", "99999999999999999999"}) {
    ProgramRun run;
    run.To("send page a.msg --to 1 --page", {QString::fromLatin1(word)});
    ExpectComplaint(run,
                    "--page: \"" + QByteArray(word) +
                        "\" is no page; it must be a number from 1 to 120; see brivonctl send page "
                        "--help",
                    2);
  }
  for (const char* word : {" 7", "", "7 "}) {
    ProgramRun run;
    run.To("run --to 1 --", {QString::fromLatin1(word)});
    EXPECT_EQ(run.status, 2) << '"' << word << '"';
    EXPECT_EQ(run.errors.count('\n'), 1);
  }
  const Wrong wrongs[] = {
      {"send scrolling a.srl --to 1 --line 13",
       "\"13\" is no line; it must be a number from 1 to 12"},
      {"send schedule a.sch --to 1 --letter K",
       "\"K\" is no letter of a schedule; it must be one from A to J"},
      {"send schedule a.sch --to 1 --letter AB",
       "\"AB\" is no letter of a schedule; it must be one from A to J"},
      {"poll --to 256",
       "\"256\" is no panel; panels are named by numbers from 0 to 255, as in 1,4-9, or by all, "
       "4x96, mono, tri"},
      {"poll --to 1 --jobs 0", "\"0\" is no number of jobs; it must be a number from 1 to 256"},
      {"poll --to 1 --retry x",
       "\"x\" is no number of retries; it must be a number from 0 to 1000"},
      {"poll --to 1 --delay-period 30001",
       "\"30001\" is no pause in milliseconds; it must be a number from 0 to 30000"},
  };
  for (const Wrong& wrong : wrongs) {
    ProgramRun run;
    run.To(wrong.line);
    EXPECT_EQ(run.status, 2) << wrong.line;
    EXPECT_EQ(run.errors.count('\n'), 1);
    EXPECT_TRUE(run.errors.contains(wrong.said)) << run.errors.toStdString();
    EXPECT_EQ(run.output, "");
  }
}

TEST(BrivonctlUse, WhatDoesNotFitIsRefusedAndNothingIsSent) {
  Site site(2);
  const QString other = site.Folder().Write(
      u"other.msg"_s, "*** Brivon Message File ***\r\nRow = 1\r\nCol = 96\r\n<L01><SA><CA>Hi\r\n");
  const QStringList folder = {u"--folder"_s, site.Folder().Path({})};
  const auto expect_refusal = [&](const char* line, QStringList further, const char* said) {
    ProgramRun run;
    run.To(line, further + folder);
    EXPECT_EQ(run.status, 3) << line;
    EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.toStdString();
    EXPECT_TRUE(run.errors.contains(said)) << run.errors.toStdString();
    EXPECT_EQ(run.output, "");
  };
  expect_refusal("poll --to 1,7", {}, "nothing was sent: ID007: not configured");
  expect_refusal("poll --to 4x96", {}, "--to: no configured panel is \"4x96\"");
  expect_refusal("send page --page 7 --to all", {other}, "ID001");
  expect_refusal("send page --page 7 --to all", {other}, "Dimension not matched!");
  expect_refusal("send page --page 7 --to all", {u"no.msg"_s}, "no.msg: File not found!");
  expect_refusal("send page --page 7 --to all", {site.Folder().Path({})}, "File not found!");
  expect_refusal("send page --page 7 --to all", {QString()}, "brivonctl: \"\": File not found!");
  expect_refusal("send schedule --letter A --to all", {site.Page()}, "Error in opening file");
  expect_refusal("send scrolling --line 1 --to all", {site.Page()}, "Error in opening file!");
  expect_refusal("poll --to all --log", {site.Folder().Path({})},
                 "; name a file in a folder that you may write to");
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());
  EXPECT_EQ(site.Frames(2), QList<QByteArray>());
}

TEST(BrivonctlUse, WhatComesToAllPanelsIsDeletedNowhereWithoutYes) {
  Site site(2);
  const QStringList folder = {u"--folder"_s, site.Folder().Path({})};
  for (const char* panels : {"tri", "1-2", "1,2", "2x96", "1-255"}) {
    ProgramRun run;
    run.To("delete-all --to", QStringList{QString::fromLatin1(panels)} + folder);
    ExpectComplaint(run,
                    "delete-all --to " + QByteArray(panels) +
                        " deletes every page of all panels; add --yes if it is to",
                    2);
  }
  ProgramRun second;
  EXPECT_EQ(second.To("clock --to 2 delete-all --to 1", folder).status, 2);
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());
  EXPECT_EQ(site.Frames(2), QList<QByteArray>());
  ProgramRun one;
  EXPECT_EQ(one.To("delete-all --to 2", folder).status, 0);
  ProgramRun sure;
  EXPECT_EQ(sure.To("delete-all --to tri --yes", folder).status, 0);
  EXPECT_EQ(site.Frames(1).size(), 1);
  EXPECT_EQ(site.Frames(2).size(), 2);
}

TEST(BrivonctlUse, NoFileOfBrivonBecomesALog) {
  Site site(1);
  const QString page = site.Page();
  const QString settings = site.Folder().Path(u"brivon.ini"_s);
  const QString texts = site.Folder().Write(u"langSetting.INI"_s, "[Messages]\r\n");
  for (const QString& path : {page, settings, texts}) {
    const QByteArray before = site.Folder().Read(QFileInfo(path).fileName());
    ProgramRun run;
    run.To("poll --to 1 --log", {path, u"--folder"_s, site.Folder().Path({})});
    ExpectComplaint(
        run, "--log: " + path.toLocal8Bit() + " is a file of Brivon and no log; name another file",
        3);
    EXPECT_EQ(site.Folder().Read(QFileInfo(path).fileName()), before);
  }
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());
}

TEST(BrivonctlUse, NoNameMovesTheCursorOfATerminal) {
  const TemporaryProgramFolder folder;
  folder.Configure("[Communication]\r\nSendMode=TCPIP\r\n[Dimension Config]\r\nID001=4x96\r\n");
  ProgramRun run;
  run.To("send page --page 7 --to 1 --folder",
         {folder.Path({}), u"two  blanks\x1b[2J\u202e.msg"_s});
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(run.errors.contains("two  blanks\\x1B[2J\\x202E.msg")) << run.errors.toStdString();
  EXPECT_FALSE(run.errors.contains('\x1b'));
  ProgramRun word;
  EXPECT_EQ(word.To("poll --to", {u"\x1b[31m"_s}).status, 2);
  EXPECT_TRUE(word.errors.contains("\\x1B[31m\" is no panel")) << word.errors.toStdString();
}

TEST(BrivonctlUse, AFolderWithoutAConfigurationIsRefused) {
  const TemporaryProgramFolder folder;
  ProgramRun list;
  list.To("list --folder", {folder.Path({})});
  EXPECT_EQ(list.status, 3);
  EXPECT_TRUE(list.errors.contains("brivon.ini does not exist")) << list.errors.toStdString();
  ProgramRun poll;
  poll.To("poll --to all --folder", {folder.Path(u"nowhere"_s)});
  EXPECT_EQ(poll.status, 3);
  EXPECT_TRUE(poll.errors.contains("is no folder")) << poll.errors.toStdString();
}

TEST(BrivonctlUse, AConfigurationThatIsNoFileIsRefused) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"brivon.ini"_s);
  ASSERT_TRUE(QDir().mkdir(path));
  ProgramRun run;
  run.To("poll --to all --folder", {folder.path()});
  ExpectComplaint(run,
                  QDir::toNativeSeparators(path).toLocal8Bit() +
                      " cannot be read; it must be an ordinary file that you may read",
                  3);
}

TEST(BrivonctlUse, AnEmptyNameIsNoneOfTheProgramsOwn) {
  Site site(1);
  const Wrong wrongs[] = {{"--log", "a file"}, {"--folder", "the folder that holds brivon.ini"}};
  for (const Wrong& wrong : wrongs) {
    ProgramRun run;
    run.To("poll --to 1", {QString::fromLatin1(wrong.line), QString()});
    ExpectComplaint(run,
                    QByteArray(wrong.line) + ": the name is empty; name " + wrong.said +
                        "; see brivonctl poll --help",
                    2);
  }
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());
}

TEST(BrivonctlUse, ThePanelsAndTheLinkAreListed) {
  const TemporaryProgramFolder folder;
  folder.Configure(
      "[Dimension Config]\r\nID001=4x96,Tri,10.0.0.1:80\r\nID012=12x192,Mono\r\n"
      "[Communication]\r\nSendMode=RS232\r\nBaudrate=9600\r\nComPort=2\r\nDelay Period=300\r\n"
      "[Serial Ports]\r\nCom2=/dev/ttyUSB0\r\n");
  const QString shown = QDir::toNativeSeparators(folder.Path({}));
  ProgramRun run;
  run.To("list --folder", {folder.Path({})});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.toStdString(),
            "folder: " + shown.toStdString() +
                "\nlink: serial, /dev/ttyUSB0, 9600 baud, delay period 300 ms\n"
                "ID001  4x96     tri  10.0.0.1:80\nID012  12x192   mono no address\n");
  ProgramRun json;
  json.To("list --json --folder", {folder.Path({})});
  EXPECT_EQ(json.Events().first()[u"folder"_s], shown);
  EXPECT_EQ(json.Events().first()[u"link"_s], u"serial"_s);
}

TEST(BrivonctlUse, WhereNothingIsConfiguredTheListSaysSo) {
  const TemporaryProgramFolder folder;
  folder.Configure("[Communication]\r\nSendMode=NONE\r\n");
  ProgramRun run;
  run.To("list --folder", {folder.Path({})});
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(run.output.contains("\nlink: none; ")) << run.output.toStdString();
  EXPECT_TRUE(run.output.endsWith("\nno panel is configured\n")) << run.output.toStdString();
  ProgramRun json;
  json.To("list --json --folder", {folder.Path({})});
  ASSERT_EQ(json.Events().size(), 2);
  EXPECT_EQ(json.Events().first()[u"link"_s], u"none"_s);
  EXPECT_EQ(json.Events().last()[u"panels"_s], 0);
}

TEST(BrivonctlUse, TheHelpSaysWhichFolderAndWhatADryRunNeedsNot) {
  ProgramRun run;
  run.To("delete-all --help");
  const QByteArray words = run.output.simplified();
  EXPECT_TRUE(words.contains("a dry run needs it not")) << words.toStdString();
  EXPECT_TRUE(words.contains("that of Brivon unless told otherwise")) << words.toStdString();
  EXPECT_FALSE(words.contains("brivonctl's own"));
}

TEST(BrivonctlUse, ADryRunOfADeletionAtAllPanelsNeedsNoYes) {
  Site site(2);
  ProgramRun run;
  run.To("delete-all --to all --dry-run --folder", {site.Folder().Path({})});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.count('\n'), 2);
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());
}

TEST(BrivonctlUse, HelpAndVersionGoToStandardOutput) {
  ProgramRun version;
  EXPECT_EQ(version.To("--version").status, 0);
  EXPECT_TRUE(version.output.startsWith("brivonctl 2."));
  EXPECT_EQ(version.errors, "");
  ProgramRun help;
  EXPECT_EQ(help.To("send page --help").status, 0);
  EXPECT_TRUE(help.output.contains("--skip-unfit"));
  EXPECT_EQ(help.errors, "");
}

TEST(BrivonctlUse, TheCompletionCompletesSubcommandsAndOptionsInBash) {
  const auto completed = [](const QString& words, int current) {
    QProcess bash;
    bash.start(u"bash"_s, {u"-c"_s,
                           u"source <(\"$0\" --print-completion); COMP_WORDS=(%1); COMP_CWORD=%2; "
                           "_brivonctl; echo \"${COMPREPLY[@]}\""_s.arg(words)
                               .arg(current),
                           QStringLiteral(BRIVONCTL)});
    EXPECT_TRUE(bash.waitForFinished());
    EXPECT_EQ(bash.readAllStandardError(), "");
    return bash.readAllStandardOutput().trimmed();
  };
  EXPECT_EQ(completed(u"brivonctl sen"_s, 1), "send");
  EXPECT_EQ(completed(u"brivonctl send ''"_s, 2), "page schedule scrolling --help");
  EXPECT_EQ(completed(u"brivonctl send page a.msg --pa"_s, 4), "--page");
  EXPECT_EQ(completed(u"brivonctl send schedule --le"_s, 3), "--letter");
  EXPECT_EQ(completed(u"brivonctl poll --to list --js"_s, 4), "--json");
}

TEST(BrivonctlUse, TheManualPageIsOneOfMan) {
  ProgramRun run;
  EXPECT_EQ(run.To("--print-manual-page").status, 0);
  EXPECT_TRUE(run.output.startsWith(".TH BRIVONCTL 1 "));
  EXPECT_TRUE(run.output.contains(".SS delete\\-all "));
  EXPECT_TRUE(run.output.contains("Exit status: 0 all done"));
}

TEST(BrivonctlUse, ADryRunPrintsEveryFrameAndSendsNothing) {
  Site site(2);
  ProgramRun run;
  run.To("send page --page 7 --to 1,2 --dry-run --folder", {site.Folder().Path({}), site.Page()});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output.toStdString(),
            "ID001 <ID01><L01><P007><SA><CA>Hi \\r\\n\nID001 <ID01><L02><P007><SA><CB>Ho \\r\\n\n"
            "ID002 <ID02><L01><P007><SA><CA>Hi \\r\\n\nID002 <ID02><L02><P007><SA><CB>Ho \\r\\n\n");
  EXPECT_EQ(run.errors, "");
  EXPECT_EQ(site.Frames(1), QList<QByteArray>());
}

}  // namespace
