// Schedules and pages on demand, scrolling texts, and what deletes them.

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

#include "records/engine_json.h"
#include "schedule_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(ScheduleTest, PlaysAtOnceOnDemand) {
  Send({"<TA>*****00105A", "<TB>3235900205B,00305C", "<RP009>"});
  const QSignalSpy changes(&engine_, &PanelEngine::Changed);
  EXPECT_TRUE(engine_.Play(26, 'B'));
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(Now(), (Playing{'B', 1, 2, 2, 'B'}));
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);
  Wait(6 * kSecond);
  EXPECT_EQ(Now(), (Playing{'B', 2, 2, 3, 'C'}));
  EXPECT_TRUE(engine_.Play(26, 'B'));
  EXPECT_EQ(Now(), (Playing{'B', 1, 2, 2, 'B'}));
  EXPECT_FALSE(engine_.Play(26, 'C'));
  EXPECT_FALSE(engine_.Play(3, 'B'));
  EXPECT_FALSE(engine_.Play(4, 'B'));
  EXPECT_EQ(changes.count(), 2);
  EXPECT_EQ(Letter(3), "-");
}

TEST_F(ScheduleTest, RunsAPageOnDemandAsTheCommandDoes) {
  Send({"<TA>*****00105A", "<L01><P001>x ", "<L01><P009>y ", "<L2>scrolling"});
  const QSignalSpy changes(&engine_, &PanelEngine::Changed);
  EXPECT_TRUE(engine_.Run(26, 9));
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(engine_.RunningPage(26), 9);
  EXPECT_EQ(Letter(), "-");
  EXPECT_TRUE(engine_.FindPanel(26)->Memory().Scrolling().isEmpty());
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "y ");
  EXPECT_FALSE(engine_.Run(26, 8));
  EXPECT_FALSE(engine_.Run(26, -1));
  EXPECT_FALSE(engine_.Run(3, 9));
  EXPECT_FALSE(engine_.Run(4, 9));
  EXPECT_EQ(engine_.RunningPage(26), 9);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(ScheduleTest, SaysHowAndWhenTheShownPageEntered) {
  const auto entrance = [this] { return engine_.LastEntrance(26, now_); };
  const qint64 start = now_.toMSecsSinceEpoch();
  EXPECT_EQ(entrance(), std::nullopt);
  EXPECT_EQ(engine_.LastEntrance(4, now_), std::nullopt);
  // A row that arrives just appears.
  Send({"<L01><P007>x "});
  EXPECT_EQ(entrance(), std::nullopt);
  Send({"<RP007>"});
  EXPECT_EQ(entrance(), (PageEntrance{7, 'A', start}));
  // Of two schedules that have the page the first one says how.
  Wait(100);
  Send({"<TB>3235900805C,00705D", "<TC>3235900705E"});
  EXPECT_EQ(entrance(), (PageEntrance{7, 'D', start}));
  Wait(100);
  Send({"<RP007>"});
  EXPECT_EQ(entrance(), (PageEntrance{7, 'D', start + 200}));
  // A schedule: entry by entry, round and round.
  Send({"<TA>*****00102F,00203G"});
  EXPECT_EQ(entrance(), (PageEntrance{1, 'F', start + 200}));
  Wait(1999);
  EXPECT_EQ(entrance(), (PageEntrance{1, 'F', start + 200}));
  Wait(1);
  EXPECT_EQ(entrance(), (PageEntrance{2, 'G', start + 2200}));
  Wait(3500);
  EXPECT_EQ(entrance(), (PageEntrance{1, 'F', start + 5200}));
  // A single page enters once, and anew when it is played anew.
  Send({"<TA>*****00102H"});
  Wait(9000);
  EXPECT_EQ(entrance(), (PageEntrance{1, 'H', start + 5700}));
  EXPECT_TRUE(engine_.Play(26, 'A'));
  EXPECT_EQ(entrance(), (PageEntrance{1, 'H', start + 14'700}));
  Send({"<D*>"});
  EXPECT_EQ(entrance(), std::nullopt);
}

TEST_F(ScheduleTest, PlaysOnArrivalOnEveryPanelThatHasIt) {
  engine_.SetPlayOnArrival('C');
  Send({"<TA>*****00105A", "<TC>3235900205B"});
  EXPECT_EQ(Letter(), "C");
  EXPECT_EQ(Letter(3), "-");
  engine_.Receive("<ID03><TC>3235900405D\r\n");
  EXPECT_EQ(engine_.PlayingAt(3, now_), (Playing{'C', 1, 1, 4, 'D'}));
}

TEST_F(ScheduleTest, ObeysABroadcastOnEveryPanelWithItsOwnClockAndPages) {
  EXPECT_TRUE(engine_.Receive("<ID00><TA>*08**00105A,00205B\r\n").isEmpty());
  EXPECT_EQ(Letter(26), "A");
  EXPECT_EQ(Letter(3), "A");
  engine_.Receive("<ID03><RP007>\r\n");
  EXPECT_EQ(Letter(26), "A");
  EXPECT_EQ(Letter(3), "-");
  EXPECT_TRUE(engine_.Receive("<ID00><L2>all\r\n").isEmpty());
  EXPECT_EQ(engine_.FindPanel(26)->Memory().Scrolling().value(2).row.text, "all");
  EXPECT_EQ(engine_.FindPanel(3)->Memory().Scrolling().value(2).row.text, "all");
}

TEST_F(ScheduleTest, DeletingAllPagesDeletesSchedulesAndScrollingTexts) {
  Send({"<L01><P001>x ", "<TA>*****00105A", "<L2>text", "<D*>"});
  EXPECT_TRUE(engine_.FindPanel(26)->Memory().StoredSchedules().isEmpty());
  EXPECT_TRUE(engine_.FindPanel(26)->Memory().Scrolling().isEmpty());
  EXPECT_EQ(Letter(), "-");
  EXPECT_EQ(engine_.ShownPage(26), std::nullopt);
  EXPECT_EQ(Next(), "never");
  EXPECT_FALSE(engine_.Play(26, 'A'));
  // The panel begins anew.
  Send({"<TA>*****00205A"});
  EXPECT_EQ(Letter(), "A");
}

TEST_F(ScheduleTest, DropsAScheduleOfTooManyEntries) {
  const auto with_entries = [](int count) {
    QByteArrayList entries;
    for (int i = 0; i < count; ++i) entries.append("00101A");
    return "<TA>*****" + entries.join(',');
  };
  const QByteArray most = with_entries(64);
  const QByteArray too_many = with_entries(65);
  Send({too_many.constData()});
  EXPECT_EQ(LastDescription(),
            u"schedule A, daily **:**, 65 entries: ignored, a "
            "schedule has at most 64 entries"_s);
  EXPECT_FALSE(engine_.Frames().last().obeyed);
  EXPECT_TRUE(engine_.FindPanel(26)->Memory().StoredSchedules().isEmpty());
  Send({most.constData()});
  EXPECT_EQ(engine_.FindPanel(26)->Memory().StoredSchedules().value('A').entries.size(), 64);
}

TEST_F(ScheduleTest, KeepsScrollingTextsByRow) {
  Send({"<L1><SC><CB>One", "<L4>Four ", "<L0>zero", "<L5>five", "<L-1>minus", "<L10>ten"});
  EXPECT_EQ(LastDescription(), u"scrolling text, row 10: ignored, panel 26 has rows 1 to 4"_s);
  EXPECT_FALSE(engine_.Frames().last().obeyed);
  const ScrollingLines& lines = engine_.FindPanel(26)->Memory().Scrolling();
  EXPECT_EQ(lines.keys(), (QList<int>{1, 4}));
  EXPECT_EQ(lines.value(1).row.text, "<SC><CB>One");
  EXPECT_EQ(lines.value(1).row.cells.size(), 3);
  EXPECT_EQ(lines.value(1).row.cells.first(),
            (PanelDots::Cell{PanelDots::Cell::Kind::kCharacter, 'O', 'C', 'B', false}));
  EXPECT_EQ(lines.value(1).began_ms, now_.toMSecsSinceEpoch());
  EXPECT_EQ(lines.value(4).row.cells.size(), 5);  // nobody adds a blank to it
  EXPECT_TRUE(engine_.FindPanel(3)->Memory().Scrolling().isEmpty());
}

TEST_F(ScheduleTest, AScrollingTextEndsByAnotherAnEmptyOneOrARunPage) {
  const ScrollingLines& lines = engine_.FindPanel(26)->Memory().Scrolling();
  Send({"<L1>first", "<L2>second"});
  Wait(5 * kSecond);
  Send({"<L1>new"});
  EXPECT_EQ(lines.value(1).row.text, "new");
  EXPECT_EQ(lines.value(1).began_ms, now_.toMSecsSinceEpoch());
  Send({"<L1>"});
  EXPECT_EQ(LastDescription(), u"scrolling text, row 1: ends"_s);
  EXPECT_EQ(lines.keys(), QList<int>{2});
  // A page that arrives, one that is deleted and a schedule go on under it.
  Send({"<L02><P001>x ", "<D001>", "<TA>*****00101A,00201A"});
  Wait(5 * kSecond);
  EXPECT_EQ(lines.keys(), QList<int>{2});
  Send({"<RP001>"});
  EXPECT_TRUE(lines.isEmpty());
}

TEST_F(ScheduleTest, WritesSchedulesPlayingAndScrollingIntoItsState) {
  Send({"<TB>*08**00750A,012100H", "<TD>0123000101C", "<L2><CA>caf\xE9"});
  Wait(60 * kSecond);
  const QJsonDocument expected = QJsonDocument::fromJson(R"({"panels": [
      {"id": 3, "rows": 2, "columns": 48, "colour": "mono", "running_page": null, "shown_page": null,
       "clock_offset_seconds": 0, "pages": {}, "schedules": {}, "playing": null, "scrolling": {}},
      {"id": 26, "rows": 4, "columns": 96, "colour": "tri", "running_page": null, "shown_page": 12,
       "clock_offset_seconds": 0, "pages": {},
       "schedules": {
         "B": {"weekday": "*", "hour": "08", "minute": "**",
               "entries": [{"page": 7, "delay": 50, "feature": "A"},
                           {"page": 12, "delay": 100, "feature": "H"}]},
         "D": {"weekday": "0", "hour": "12", "minute": "30",
               "entries": [{"page": 1, "delay": 1, "feature": "C"}]}},
       "playing": {"letter": "B", "entry": 2, "page": 12, "effect": "Shift"},
       "scrolling": {"2": "<CA>café"}}]})");
  EXPECT_EQ(QJsonDocument::fromJson(StateDocument(engine_)), expected);
}

}  // namespace
}  // namespace VirtualPanel
