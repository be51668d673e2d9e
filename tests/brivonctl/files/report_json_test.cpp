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
            R"({"event":"file","file":"a.msg","kind":"page","rows":1,"columns":96,"result":"ok",)"
            R"("problems":[]})"
            "\n");
}

TEST_F(ReportJson, EveryProblemHasItsLineOrNone) {
  EXPECT_EQ(Json(u"a.msg"_s, Page(1, "<L02>\r\n")),
            R"({"event":"file","file":"a.msg","kind":"page","rows":1,"columns":96,)"
            R"("result":"refused","problems":[{"line":4,"severity":"error",)"
            R"("text":"the tag \"<L02>\" stands in row 1; expected was <L01>"}]})"
            "\n");
  EXPECT_EQ(Json(u"a.msg"_s, "short"),
            R"({"event":"file","file":"a.msg","kind":"unknown","result":"refused",)"
            R"("problems":[{"line":null,"severity":"error",)"
            R"("text":"the file has 5 bytes; one of Brivon has 30 at the least"}]})"
            "\n");
}

TEST_F(ReportJson, AScrollingMessageHasItsLength) {
  EXPECT_EQ(Json(u"a.srl"_s, "*** Brivon Shift Message File ***\r\n<SA><CA>~\r\n"),
            R"({"event":"file","file":"a.srl","kind":"scrolling","length":1,"result":"ok",)"
            R"("problems":[{"line":2,"severity":"warning",)"
            R"("text":"\"~\" scrolls as it stands; only a page shows symbols"}]})"
            "\n");
}

TEST_F(ReportJson, AScheduleHasItsFiles) {
  EXPECT_EQ(Json(u"s.sch"_s, Schedule(1, Step("gone.msg"))),
            R"({"event":"file","file":"s.sch","kind":"schedule","rows":1,"columns":96,"steps":1,)"
            R"("result":"refused","problems":[],"files":[{"line":8,"file":"gone.msg",)"
            R"("kind":"unknown","result":"refused","problems":[{"line":null,"severity":"error",)"
            R"("text":"there is no such file; check the name and its folder"}]}]})"
            "\n");
}

TEST_F(ReportJson, BeginningAndEnd) {
  EXPECT_EQ(BrivonCtl::StartJson(3).toStdString(),
            R"({"event":"start","version":1,"action":"check","files":3})"
            "\n");
  EXPECT_EQ(BrivonCtl::SummaryJson({3, 1, 2, QString()}, 3).toStdString(),
            R"({"event":"summary","files":3,"refused":1,"warnings":2,"status":3})"
            "\n");
}

}  // namespace
