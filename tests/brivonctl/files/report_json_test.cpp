// Reports as lines of JSON.
#include "brivonctl/files/checked_files.h"

using namespace Qt::StringLiterals;

namespace {

class ReportJson : public CheckedFiles {
 protected:
  std::string Json(const QString& name, const QByteArray& content) {
    BrivonCtl::FileReport report = BrivonCtl::CheckFile(folder_.Write(name, content));
    report.path = name;
    return BrivonCtl::ReportJson(report).toStdString();
  }
};

TEST_F(ReportJson, APageHasItsSize) {
  EXPECT_EQ(Json(u"a.msg"_s, Page(1, "<L01>\r\n")),
            R"({"columns":96,"event":"file","file":"a.msg","kind":"page","problems":[],)"
            R"("result":"ok","rows":1})"
            "\n");
}

TEST_F(ReportJson, EveryProblemHasItsLineOrNone) {
  EXPECT_EQ(
      Json(u"a.msg"_s, Page(1, "<L02>\r\n")),
      R"({"columns":96,"event":"file","file":"a.msg","kind":"page","problems":[{"line":4,)"
      R"("severity":"error","text":"the tag \"<L02>\" stands in row 1; expected was <L01>"}],)"
      R"("result":"refused","rows":1})"
      "\n");
  EXPECT_EQ(Json(u"a.msg"_s, "short"),
            R"({"event":"file","file":"a.msg","kind":"unknown","problems":[{"line":null,)"
            R"("severity":"error","text":"the file has 5 bytes; one of Brivon has 30 at the )"
            R"(least"}],"result":"refused"})"
            "\n");
}

TEST_F(ReportJson, AScrollingMessageHasItsLength) {
  EXPECT_EQ(Json(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n<SA><CA>~\r\n"),
            R"({"event":"file","file":"a.srl","kind":"scrolling","length":1,"problems":[{"line":2,)"
            R"("severity":"warning","text":"\"~\" scrolls as it stands; only a page shows )"
            R"(symbols"}],"result":"ok"})"
            "\n");
}

TEST_F(ReportJson, AScheduleHasItsFiles) {
  EXPECT_EQ(Json(u"s.sch"_s, Schedule(1, Step("gone.msg"))),
            R"({"columns":96,"event":"file","file":"s.sch","files":[{"file":"gone.msg",)"
            R"("kind":"unknown","line":8,"problems":[{"line":null,"severity":"error","text":)"
            R"("there is no such file"}],"result":"refused"}],"kind":"schedule","problems":[],)"
            R"("result":"refused","rows":1,"steps":1})"
            "\n");
}

TEST_F(ReportJson, TheSummaryCounts) {
  EXPECT_EQ(BrivonCtl::SummaryJson(3, 1, 2).toStdString(),
            R"({"event":"summary","files":3,"refused":1,"warnings":2})"
            "\n");
}

}  // namespace
