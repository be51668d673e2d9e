#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>

#include <gtest/gtest.h>

#include "reports/json_events.h"
#include "reports/json_report.h"
#include "support/text.h"
#include "usage/json_line.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

TEST(Json, MembersStandInTheOrderInWhichTheyWereAdded) {
  EXPECT_EQ(JsonLine()
                .Add("z", u"text"_s)
                .Add("a", -7)
                .Add("list", QList<int>{1, 2})
                .AddFlag("flag", true)
                .AddSeconds("seconds", 12034)
                .Text(),
            R"({"z":"text","a":-7,"list":[1,2],"flag":true,"seconds":12.034})");
}

TEST(Json, EveryTextIsOneLineAndComesBackAsItWas) {
  const QString text = Text("\"\\\n\r\t\x01\x7f/ü€😀");
  const QByteArray line = JsonLine().Add("text", text).Text();
  EXPECT_EQ(line.count('\n'), 0);
  EXPECT_EQ(QJsonDocument::fromJson(line).object()[u"text"_s].toString(), text);
}

Order PageOrder() { return {Action::kSendPage, u"/tmp/a.msg"_s, u"7"_s}; }

TEST(JsonEvents, AStartSaysWhatIsSentToWhom) {
  EXPECT_EQ(StartEvent({PageOrder(), {1, 4}, "abcd", Brivon1::SendMode::kTcp, false}),
            R"({"event":"start","version":1,"action":"send page","file":"/tmp/a.msg",)"
            R"("sha256":"abcd","page":7,"panels":[1,4],"link":"tcp","dry_run":false})");
  EXPECT_EQ(StartEvent({{Action::kSendSchedule, u"/tmp/a.sch"_s, u"b"_s},
                        {1},
                        "ef",
                        Brivon1::SendMode::kSerial,
                        true}),
            R"({"event":"start","version":1,"action":"send schedule","file":"/tmp/a.sch",)"
            R"("sha256":"ef","letter":"B","panels":[1],"link":"serial","dry_run":true})");
}

TEST(JsonEvents, EveryActionHasItsName) {
  const auto name = [](Action action) { return ActionName(action).toStdString(); };
  EXPECT_EQ(name(Action::kSendPage), "send page");
  EXPECT_EQ(name(Action::kSendSchedule), "send schedule");
  EXPECT_EQ(name(Action::kSendScrolling), "send scrolling");
  EXPECT_EQ(name(Action::kPoll), "poll");
  EXPECT_EQ(name(Action::kRunPage), "run");
  EXPECT_EQ(name(Action::kDeletePage), "delete");
  EXPECT_EQ(name(Action::kDeleteAll), "delete-all");
  EXPECT_EQ(name(Action::kSetClock), "clock");
}

TEST(JsonEvents, ThatTheLastBytesLeaveIsNoStepAndAQuietReportHasNone) {
  JsonReport report(false);
  JsonReport quiet(true);
  testing::internal::CaptureStdout();
  quiet.TakeIn(Step{4, {.row = 2, .rows = 12, .attempt = 1}});
  report.TakeIn(Step{4, {.row = 2, .rows = 12, .attempt = 1}});
  report.TakeIn(Step{4, {.row = 2, .rows = 12, .attempt = 1, .milliseconds_left = 0}});
  report.TakeIn(Step{4, {.row = 2, .rows = 12, .attempt = 1, .milliseconds_left = 70}});
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            R"({"event":"row","panel":4,"row":2,"rows":12,"attempt":1,"attempts":5})"
            "\n");
}

TEST(JsonEvents, AStepIsARowWhereItIsOneOfAPage) {
  EXPECT_EQ(StepEvent({4, {.row = 2, .rows = 12, .attempt = 3}}),
            R"({"event":"row","panel":4,"row":2,"rows":12,"attempt":3,"attempts":5})");
  EXPECT_EQ(StepEvent({4, {.attempt = 1}}),
            R"({"event":"attempt","panel":4,"attempt":1,"attempts":5})");
  EXPECT_EQ(
      StepEvent(
          {4, {.file = 2, .files = 2, .file_name = u"b.msg"_s, .is_schedule = true, .attempt = 1}}),
      R"({"event":"attempt","panel":4,"file":2,"files":2,"name":"b.msg",)"
      R"("is_schedule":true,"attempt":1,"attempts":5})");
}

Transmission Failed() {
  Transmission transmission;
  transmission.result = {9, Result::kFailed, u"Transmission failure!"_s, u"Silent.\nNothing."_s};
  transmission.begun =
      QDateTime(QDate(2024, 5, 6), QTime(7, 8, 9, 10), Qt::OffsetFromUTC, -(3 * 3600 + 30 * 60));
  transmission.digest = "abcd";
  transmission.acknowledged_rows = 2;
  transmission.attempts = 7;
  transmission.number = 3;
  return transmission;
}

TEST(JsonEvents, APanelHasItsResultAndItsReason) {
  EXPECT_EQ(PanelEvent(Failed()),
            R"({"event":"panel","panel":9,"result":"failed","text":"Transmission failure!",)"
            R"("reason":"Transmission failure! Silent. Nothing.","rows":2,"attempts":7,)"
            R"("transmissions":3})");
  EXPECT_EQ(PanelEvent(PanelResult{1, Result::kOk, u"Done!"_s, {}}),
            R"({"event":"panel","panel":1,"result":"ok","text":"Done!"})");
}

TEST(JsonEvents, TheLogHasTheTimeWithItsOffset) {
  EXPECT_EQ(LogLine(PageOrder(), Failed()),
            R"({"time":"2024-05-06T07:08:09.010-03:30","action":"send page","panel":9,)"
            R"("file":"/tmp/a.msg","sha256":"abcd","page":7,"rows":2,"attempts":7,)"
            R"("result":"failed","reason":"Transmission failure! Silent. Nothing."})");
  Transmission utc = Failed();
  utc.begun = QDateTime(QDate(2024, 5, 6), QTime(7, 8), Qt::UTC);
  EXPECT_TRUE(
      LogLine({Action::kPoll, {}, {}}, utc)
          .startsWith(R"({"time":"2024-05-06T07:08:00.000+00:00","action":"poll","panel":9,)"
                      R"("rows":2,)"));
}

TEST(JsonEvents, ASummaryCountsTheResults) {
  Summary summary;
  for (const Result result : {Result::kOk, Result::kOk, Result::kFailed, Result::kRefused}) {
    summary.results.append({1, result, {}, {}});
  }
  summary.milliseconds = 1500;
  summary.status = 1;
  EXPECT_EQ(SummaryEvent(summary),
            R"({"event":"summary","ok":2,"failed":1,"refused":1,"stopped":0,"seconds":1.500,)"
            R"("status":1})");
}

}  // namespace
}  // namespace BrivonCtl
