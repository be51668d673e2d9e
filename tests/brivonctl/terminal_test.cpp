#include "reports/terminal.h"

#include <gtest/gtest.h>

#include "reports/results_table.h"
#include "reports/text_report.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

Summary ThreePanels() {
  Summary summary;
  summary.results = {{1, Result::kOk, u"Done!"_s, {}},
                     {2, Result::kFailed, u"Failure!"_s, u"Panel ID 2 was\ntried 5 times."_s},
                     {3, Result::kStopped, u"Aborted!"_s, u"Nothing has been sent."_s}};
  summary.milliseconds = 12340;
  return summary;
}

TEST(ResultsTable, WithoutATerminalEachPanelIsOnePlainLine) {
  EXPECT_EQ(ResultsTable(ThreePanels(), false, {}),
            u"ID001  ok       Done!\n"
            "ID002  failed   Failure! Panel ID 2 was. tried 5 times.\n"
            "ID003  stopped  Aborted! Nothing has been sent.\n"
            "1 of 3 panels done, 1 failed, 1 stopped, 12.3 s\n"_s);
}

TEST(ResultsTable, QuietlyItNamesOnlyWhoHasItNot) {
  EXPECT_EQ(ResultsTable(ThreePanels(), true, {}),
            u"ID002  failed   Failure! Panel ID 2 was. tried 5 times.\n"
            "ID003  stopped  Aborted! Nothing has been sent.\n"_s);
}

TEST(ResultsTable, ATerminalBreaksReasonsAtItsWidthAndHasColours) {
  const QString table = ResultsTable(ThreePanels(), true, {true, true, 42, 24});
  EXPECT_EQ(table,
            u"ID002  \x1b[31mfailed   \x1b[0mFailure! Panel ID 2 was.\n"
            "                tried 5 times.\n"
            "ID003  \x1b[33mstopped  \x1b[0mAborted! Nothing has been\n"
            "                sent.\n"_s);
  EXPECT_FALSE(ResultsTable(ThreePanels(), true, {true, false, 42, 24}).contains(u'\x1b'));
}

TEST(Terminal, ATextIsCutToItsColumns) {
  EXPECT_EQ(Cut(u"twelve chars"_s, 12), u"twelve chars"_s);
  EXPECT_EQ(Cut(u"twelve chars"_s, 11), u"twelve c..."_s);
  EXPECT_EQ(Cut(u"twelve chars"_s, 2), u".."_s);
}

TEST(TextReport, ALineForEachPanelThatMovesAndATotalFitTheTerminal) {
  TextReport report(false);
  report.Begin({{}, {1, 2, 3, 4}, {}, Brivon1::SendMode::kTcp, false});
  for (const int panel : {1, 2, 3, 4}) {
    report.TakeIn(Step{panel, {.row = panel, .rows = 12, .attempt = 1}});
  }
  EXPECT_EQ(
      report.MovingLines({true, false, 80, 24}),
      (QStringList{u"ID001 Row 1 of 12, attempt 1 of 5"_s, u"ID002 Row 2 of 12, attempt 1 of 5"_s,
                   u"ID003 Row 3 of 12, attempt 1 of 5"_s, u"ID004 Row 4 of 12, attempt 1 of 5"_s,
                   u"0 of 4 done, 0 s"_s}));
  EXPECT_EQ(report.MovingLines({true, false, 16, 5}),
            (QStringList{u"ID001 Row 1 ..."_s, u"ID002 Row 2 ..."_s, u"and 2 more"_s,
                         u"0 of 4 done,..."_s}));
}

TEST(TextReport, AStopStandsInTheTotal) {
  TextReport report(true);
  report.Begin({{}, {1}, {}, Brivon1::SendMode::kTcp, false});
  report.TakeInStop();
  EXPECT_EQ(report.MovingLines({true, false, 80, 24}),
            QStringList{u"0 of 1 done, 0 s, stopping after the attempts in progress"_s});
}

TEST(ResultsTable, AReasonMovesNoCursorAndKeepsItsBlanks) {
  Summary summary;
  summary.results = {{3, Result::kFailed, u"No"_s, u"two  blanks\x1b[2J"_s}};
  EXPECT_EQ(ResultsTable(summary, true, {}).toStdString(),
            "ID003  failed   No. two  blanks\\x1B[2J\n");
}

}  // namespace
}  // namespace BrivonCtl
