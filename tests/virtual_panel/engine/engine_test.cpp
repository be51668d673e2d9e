#include <random>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "print_answer.h"
#include "records/engine_json.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

const QDateTime kStart(QDate(2026, 11, 21), QTime(10, 30, 0));

class EngineTest : public testing::Test {
 protected:
  // What the panels send back at once, as one run of bytes.
  QByteArray Exchange(QByteArrayView bytes) {
    QByteArray sent;
    for (const Answer& answer : engine_.Receive(bytes)) {
      EXPECT_EQ(answer.step, Answer::Step::kSend);
      EXPECT_EQ(answer.after_ms, 0);
      sent += answer.bytes;
    }
    return sent;
  }

  QString LastDescription() { return engine_.Frames().last().description; }

  QDateTime now_ = kStart;
  PanelEngine engine_{{{26, 4, 96, true}, {3, 2, 48, false}}, [this] { return now_; }};
};

TEST_F(EngineTest, AcknowledgesWithItsOwnAddress) {
  EXPECT_EQ(Exchange("<ID1A><?>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(Exchange("<ID03><?>\r\n"), "<ID03>\r\n");
}

TEST_F(EngineTest, AnswersEveryFrameOfOnePiece) {
  EXPECT_EQ(Exchange("<ID1A><?>\r\n<ID03><?>\r\n<ID1A><?"), "<ID1A>\r\n<ID03>\r\n");
  EXPECT_EQ(Exchange(">\r\n"), "<ID1A>\r\n");
}

TEST_F(EngineTest, IgnoresWhatIsForAnotherPanel) {
  EXPECT_EQ(Exchange("<ID04><L01><P001>x \r\n"), "");
  EXPECT_TRUE(engine_.Page(26, 1).isEmpty());
  EXPECT_EQ(LastDescription(), u"page 1, row 1: no panel 4 on this line"_s);
  EXPECT_FALSE(engine_.Frames().last().obeyed);
}

TEST_F(EngineTest, AcknowledgesWhatItDoesNotUnderstand) {
  EXPECT_EQ(Exchange("<ID1A><XYZ>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(LastDescription(), u"not understood"_s);
  EXPECT_FALSE(engine_.Frames().last().obeyed);
}

TEST_F(EngineTest, IsSilentToWhatHasNoAddress) {
  EXPECT_EQ(Exchange("hello\r\n<ID1a><?>\r\n<?>\r\n"), "");
  EXPECT_EQ(engine_.FrameCount(), 3);
}

TEST_F(EngineTest, StoresRowsByPageAsTheyWereSent) {
  EXPECT_EQ(Exchange("<ID1A><L01><P007><SA><CA>One \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(Exchange("<ID1A><L02><P007><SA><CB>Two  \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(Exchange("<ID1A><L01><P500> \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.Page(26, 7),
            (QMap<int, QByteArray>{{1, "<SA><CA>One "}, {2, "<SA><CB>Two  "}}));
  EXPECT_EQ(engine_.Page(26, 500), (QMap<int, QByteArray>{{1, " "}}));
  EXPECT_TRUE(engine_.Page(3, 7).isEmpty());

  // The sender's closing blank is not part of what is shown.
  const StoredPage rows = engine_.FindPanel(26)->Memory().Pages().value(7);
  EXPECT_EQ(rows.value(1).cells.size(), 3);
  EXPECT_EQ(rows.value(2).cells.size(), 4);
}

TEST_F(EngineTest, ReplacesARowThatIsSentAgain) {
  Exchange("<ID1A><L01><P007>first \r\n<ID1A><L01><P007>second \r\n");
  EXPECT_EQ(engine_.Page(26, 7), (QMap<int, QByteArray>{{1, "second "}}));
}

TEST_F(EngineTest, StartsEveryRowFromPlainAttributes) {
  Exchange("<ID1A><L01><P001><SH><CP>a \r\n<ID1A><L02><P001>b \r\n");
  using PanelDots::Cell;
  const Cell cell = engine_.FindPanel(26)->Memory().Pages().value(1).value(2).cells.value(0);
  EXPECT_EQ(cell, (Cell{Cell::Kind::kCharacter, 'b', 'A', 'A', false}));
}

TEST_F(EngineTest, AcknowledgesAndIgnoresARowItDoesNotHave) {
  EXPECT_EQ(Exchange("<ID1A><L05><P001>x \r\n"), "<ID1A>\r\n");
  EXPECT_EQ(LastDescription(), u"page 1, row 5: ignored, panel 26 has rows 1 to 4"_s);
  EXPECT_EQ(Exchange("<ID1A><L00><P001>x \r\n"), "<ID1A>\r\n");
  EXPECT_TRUE(engine_.FindPanel(26)->Memory().Pages().isEmpty());
}

TEST_F(EngineTest, ShowsThePageLastReceivedUntilOneIsRun) {
  EXPECT_EQ(engine_.ShownPage(26), std::nullopt);
  Exchange("<ID1A><L01><P007>x \r\n");
  EXPECT_EQ(engine_.ShownPage(26), 7);
  Exchange("<ID1A><L01><P008>y \r\n");
  EXPECT_EQ(engine_.ShownPage(26), 8);
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);

  EXPECT_EQ(Exchange("<ID1A><RP007>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.RunningPage(26), 7);
  Exchange("<ID1A><L01><P009>z \r\n");
  EXPECT_EQ(engine_.ShownPage(26), 7);
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "x ");
}

TEST_F(EngineTest, ChangesTheRunningPageAtOnce) {
  Exchange("<ID1A><L01><P007>x \r\n<ID1A><RP007>\r\n<ID1A><L01><P007>new \r\n");
  EXPECT_EQ(engine_.ShownRows(26).value(1).text, "new ");
}

TEST_F(EngineTest, RunsAPageItDoesNotHoldAsAnEmptyOne) {
  Exchange("<ID1A><L01><P007>x \r\n");
  EXPECT_EQ(Exchange("<ID1A><RP008>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(engine_.RunningPage(26), 8);
  EXPECT_TRUE(engine_.ShownRows(26).isEmpty());
  EXPECT_EQ(LastDescription(), u"run page 8: an empty page"_s);
}

TEST_F(EngineTest, GoesBlankWhenItsRunningPageIsDeleted) {
  Exchange("<ID1A><L01><P007>x \r\n<ID1A><L01><P008>y \r\n<ID1A><RP007>\r\n");
  EXPECT_EQ(Exchange("<ID1A><D007>\r\n"), "<ID1A>\r\n");
  EXPECT_TRUE(engine_.Page(26, 7).isEmpty());
  EXPECT_FALSE(engine_.Page(26, 8).isEmpty());
  EXPECT_EQ(engine_.ShownPage(26), std::nullopt);
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);
  // From there it shows what comes, as at the start.
  Exchange("<ID1A><L01><P008>y \r\n");
  EXPECT_EQ(engine_.ShownPage(26), 8);
}

TEST_F(EngineTest, KeepsShowingItsPageWhenAnotherIsDeleted) {
  Exchange("<ID1A><L01><P007>x \r\n<ID1A><RP007>\r\n<ID1A><L01><P008>y \r\n<ID1A><D008>\r\n");
  EXPECT_EQ(engine_.ShownPage(26), 7);
  EXPECT_EQ(Exchange("<ID1A><D099>\r\n"), "<ID1A>\r\n");
  EXPECT_EQ(LastDescription(), u"delete page 99: was not stored"_s);
  EXPECT_EQ(engine_.ShownPage(26), 7);
}

TEST_F(EngineTest, DeletesAllPages) {
  Exchange(
      "<ID1A><L01><P001>x \r\n<ID1A><L02><P120>y \r\n<ID1A><RP001>\r\n<ID03><L01><P001>z \r\n");
  EXPECT_EQ(Exchange("<ID1A><D*>\r\n"), "<ID1A>\r\n");
  EXPECT_TRUE(engine_.FindPanel(26)->Memory().Pages().isEmpty());
  EXPECT_EQ(engine_.ShownPage(26), std::nullopt);
  EXPECT_EQ(engine_.Page(3, 1), (QMap<int, QByteArray>{{1, "z "}}));
}

TEST_F(EngineTest, ObeysABroadcastSilentlyOnEveryPanel) {
  EXPECT_EQ(Exchange("<ID00><L02><P001>all \r\n<ID00><RP001>\r\n<ID00><?>\r\n"), "");
  for (const int id : {3, 26}) {
    EXPECT_EQ(engine_.Page(id, 1), (QMap<int, QByteArray>{{2, "all "}}));
    EXPECT_EQ(engine_.RunningPage(id), 1);
  }
  // Panel 3 has two rows only; panel 26 takes the third.
  Exchange("<ID00><L03><P001>deep \r\n");
  EXPECT_EQ(engine_.Page(26, 1).value(3), "deep ");
  EXPECT_FALSE(engine_.Page(3, 1).contains(3));
  EXPECT_TRUE(engine_.Frames().last().obeyed);
  Exchange("<ID00><D*>\r\n");
  EXPECT_TRUE(engine_.Page(3, 1).isEmpty());
  EXPECT_TRUE(engine_.Page(26, 1).isEmpty());
}

TEST_F(EngineTest, SetsEveryClockAndLetsThemRun) {
  EXPECT_EQ(engine_.Clock(26), QDateTime(QDate(2026, 11, 21), QTime(10, 30, 0), QTimeZone::utc()));
  EXPECT_EQ(Exchange("<T2503053140709>\r\n"), "<ID03>\r\n");
  EXPECT_EQ(engine_.Clock(26), QDateTime(QDate(2025, 3, 5), QTime(14, 7, 9), QTimeZone::utc()));
  now_ = now_.addSecs(3600);
  EXPECT_EQ(engine_.Clock(26), QDateTime(QDate(2025, 3, 5), QTime(15, 7, 9), QTimeZone::utc()));
  EXPECT_EQ(engine_.Clock(3), QDateTime(QDate(2025, 3, 5), QTime(15, 7, 9), QTimeZone::utc()));
  EXPECT_FALSE(engine_.Clock(4).isValid());
}

TEST_F(EngineTest, KeepsAClockThatNoSummerTimeDisturbs) {
  // An hour that summer time skips in many places.
  Exchange("<T2603290023000>\r\n");
  EXPECT_EQ(engine_.Clock(26), QDateTime(QDate(2026, 3, 29), QTime(2, 30), QTimeZone::utc()));
}

TEST_F(EngineTest, AnswersTheClockByTheLowestIdUnlessToldOtherwise) {
  EXPECT_EQ(Exchange("<T2503053140709>\r\n"), "<ID03>\r\n");
  engine_.SetClockAnswer(26);
  EXPECT_EQ(Exchange("<T2503053140709>\r\n"), "<ID1A>\r\n");
  engine_.SetClockAnswer(std::nullopt);
  EXPECT_EQ(Exchange("<T2503053140709>\r\n"), "");

  PanelEngine alone({{200, 4, 96, true}});
  const QList<Answer> answers = alone.Receive("<T2503053140709>\r\n");
  EXPECT_EQ(answers, (QList<Answer>{{Answer::Step::kSend, "<IDC8>\r\n", 0}}));
}

TEST_F(EngineTest, RemembersEveryFrame) {
  now_ = kStart.addMSecs(1234);
  Exchange("<ID1A><RP007>\n");
  ASSERT_EQ(engine_.Frames().size(), 1);
  const FrameRecord record = engine_.Frames().first();
  EXPECT_EQ(record.time, kStart.addMSecs(1234));
  EXPECT_EQ(record.bytes, "<ID1A><RP007>\n");
  EXPECT_EQ(record.addressee, 26);
  EXPECT_EQ(record.meaning, Meaning::kRunPage);
  EXPECT_EQ(record.page, 7);
  EXPECT_TRUE(record.obeyed);
  EXPECT_EQ(record.answer, "<ID1A>\r\n");
}

TEST_F(EngineTest, RemembersOnlyTheLastFramesAndCountsAll) {
  for (int i = 0; i < 10'005; ++i) engine_.Receive("<ID1A><?>\r\n");
  EXPECT_EQ(engine_.Frames().size(), 10'000);
  EXPECT_EQ(engine_.FrameCount(), 10'005);

  const QByteArray large = QByteArray(60'000, 'x') + "\r\n";
  for (int i = 0; i < 1000; ++i) engine_.Receive(large);
  qint64 remembered = 0;
  for (const FrameRecord& record : engine_.Frames()) remembered += record.bytes.size();
  EXPECT_LE(remembered, 16 * 1024 * 1024);
  EXPECT_EQ(engine_.FrameCount(), 11'005);
}

TEST_F(EngineTest, SignalsFramesAndChanges) {
  const QSignalSpy frames(&engine_, &PanelEngine::FrameReceived);
  const QSignalSpy changes(&engine_, &PanelEngine::Changed);
  Exchange("<ID1A><?>\r\n");
  EXPECT_EQ(frames.count(), 1);
  EXPECT_EQ(changes.count(), 0);
  Exchange("<ID1A><L01><P001>x \r\n");
  EXPECT_EQ(frames.count(), 2);
  EXPECT_EQ(changes.count(), 1);
  Exchange("<ID1A><L05><P001>x \r\n");
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(EngineTest, BoundsAPanelsMemory) {
  for (int page = 0; page < 1100; ++page) {
    engine_.Receive("<ID1A><L01><P" + QByteArray::number(page) + ">x \r\n");
  }
  EXPECT_EQ(engine_.FindPanel(26)->Memory().Pages().size(), 1000);
  EXPECT_EQ(LastDescription(), u"page 1099, row 1: ignored, the memory of panel 26 is full"_s);
  // What is stored already can be replaced, and deleting makes room.
  Exchange("<ID1A><L01><P000>new \r\n");
  EXPECT_EQ(engine_.Page(26, 0).value(1), "new ");
  Exchange("<ID1A><D000>\r\n<ID1A><L01><P1099>x \r\n");
  EXPECT_EQ(engine_.Page(26, 1099).value(1), "x ");
}

TEST_F(EngineTest, BoundsTheBytesInAPanelsMemory) {
  // 258 rows of 65,000 bytes fit, one more does not.
  const QByteArray text(65'000, 'x');
  const auto store = [&](int page) {
    engine_.Receive("<ID1A><L01><P" + QByteArray::number(page) + ">" + text + "\r\n");
    return engine_.FindPanel(26)->Memory().Pages().contains(page);
  };
  for (int page = 1; page <= 258; ++page) ASSERT_TRUE(store(page)) << page;
  EXPECT_FALSE(store(259));
  EXPECT_EQ(LastDescription(), u"page 259, row 1: ignored, the memory of panel 26 is full"_s);
  // What replaces a row takes its place; what is deleted leaves room for as much.
  EXPECT_TRUE(store(258));
  EXPECT_FALSE(LastDescription().contains(u"full"_s));
  Exchange("<ID1A><D100>\r\n");
  EXPECT_TRUE(store(259));
  EXPECT_FALSE(store(260));
  Exchange("<ID1A><D*>\r\n");
  EXPECT_TRUE(store(260));
  EXPECT_EQ(engine_.FindPanel(26)->Memory().StoredBytes(), 65'000);
}

TEST_F(EngineTest, SurvivesRandomBytes) {
  std::mt19937 random(20'261'121);
  const QByteArray alphabet("<<<<IIDDLP0011122A>>>>?*RTSCG~ x,-\r\n\n\xFF\0", 40);
  std::uniform_int_distribution<qsizetype> choice(0, alphabet.size() - 1);
  std::uniform_int_distribution<qsizetype> length(1, 300);
  qsizetype unanswered_bytes = 0;
  for (int round = 0; round < 20'000; ++round) {
    QByteArray bytes(length(random), '\0');
    for (char& byte : bytes) byte = alphabet[choice(random)];
    for (const Answer& answer : engine_.Receive(bytes)) {
      EXPECT_TRUE(answer.bytes == "<ID1A>\r\n" || answer.bytes == "<ID03>\r\n");
    }
    unanswered_bytes += bytes.size();
  }
  EXPECT_GT(unanswered_bytes, 0);
  // And goes on working.
  engine_.Receive("\r\n");
  EXPECT_EQ(Exchange("<ID1A><?>\r\n"), "<ID1A>\r\n");
}

TEST_F(EngineTest, RecordsAFrameThatIsTooLongWithoutAnswer) {
  EXPECT_EQ(Exchange("<ID1A><L01><P001>" + QByteArray(70'000, 'x') + " \r\n"), "");
  EXPECT_EQ(engine_.Frames().last().meaning, Meaning::kTooLong);
  EXPECT_TRUE(engine_.Page(26, 1).isEmpty());
}

TEST_F(EngineTest, ReadsAFrameThatArrivesByteByByte) {
  QByteArray sent;
  for (const char byte : QByteArrayView("<ID1A><L01><P001><SA>x \r\n")) {
    sent += Exchange(QByteArrayView(&byte, 1));
  }
  EXPECT_EQ(sent, "<ID1A>\r\n");
  EXPECT_EQ(engine_.Page(26, 1), (QMap<int, QByteArray>{{1, "<SA>x "}}));
}

TEST_F(EngineTest, KeepsTheHalfFramesOfTwoConnectionsApart) {
  FrameSplitter first;
  FrameSplitter second;
  EXPECT_TRUE(engine_.Receive(&first, "<ID1A>", u"a"_s).isEmpty());
  EXPECT_TRUE(engine_.Receive(&second, "<ID03><D*", u"b"_s).isEmpty());
  EXPECT_EQ(engine_.Receive(&first, "<?>\r\n", u"a"_s),
            (QList<Answer>{{Answer::Step::kSend, "<ID1A>\r\n", 0}}));
  EXPECT_EQ(engine_.Frames().last().line, u"a"_s);
  EXPECT_EQ(engine_.Receive(&second, ">\r\n", u"b"_s),
            (QList<Answer>{{Answer::Step::kSend, "<ID03>\r\n", 0}}));
}

TEST_F(EngineTest, WritesALogLine) {
  now_ = QDateTime(QDate(2026, 11, 21), QTime(10, 30, 0, 5), QTimeZone::utc());
  FrameSplitter splitter;
  engine_.Receive(&splitter, "<ID1A><L01><P001>\xE9\r\n", u"tcp"_s);
  const QByteArray line = LogLine(engine_.Frames().last());
  EXPECT_EQ(line,
            "{\"answer\":\"<ID1A>\\r\\n\",\"answered\":true,\"frame\":\"<ID1A><L01><P001>"
            "\xC3\xA9\\r\\n\","
            "\"line\":\"tcp\",\"meaning\":\"page 1, row "
            "1\",\"panel\":26,\"time\":\"2026-11-21T10:30:00.005Z\"}\n");
  Exchange("<ID00><?>\r\n");
  EXPECT_TRUE(LogLine(engine_.Frames().last()).contains("\"panel\":\"all\""));
  Exchange("<T2503053140709>\r\n");
  EXPECT_TRUE(LogLine(engine_.Frames().last()).contains("\"panel\":null"));
}

TEST_F(EngineTest, WritesItsState) {
  Exchange("<ID1A><L01><P007><SA>x \r\n<ID1A><RP007>\r\n");
  now_ = now_.addSecs(60);
  const QJsonDocument expected = QJsonDocument::fromJson(R"({"panels": [
      {"id": 3, "rows": 2, "columns": 48, "colour": "mono", "running_page": null, "shown_page": null,
       "clock_offset_seconds": 0, "pages": {}, "schedules": {}, "playing": null, "scrolling": {}},
      {"id": 26, "rows": 4, "columns": 96, "colour": "tri", "running_page": 7, "shown_page": 7,
       "clock_offset_seconds": 0, "pages": {"7": {"1": "<SA>x "}}, "schedules": {}, "playing": null,
       "scrolling": {}}]})");
  EXPECT_EQ(QJsonDocument::fromJson(StateDocument(engine_)), expected);
  Exchange("<T2611211103200>\r\n");
  EXPECT_EQ(engine_.ClockOffset(26), 60'000);
}

}  // namespace
}  // namespace VirtualPanel
