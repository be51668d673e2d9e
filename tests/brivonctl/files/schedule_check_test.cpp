// What a look through a schedule and its message files finds.
#include "brivonctl/files/checked_files.h"

using namespace Qt::StringLiterals;

namespace {

class ScheduleCheck : public CheckedFiles {
 protected:
  void SetUp() override { folder_.Write(u"a.msg"_s, Page(1, "<L01><SA><CA>a\r\n")); }
};

/// What is said of "a.msg" in line `line`.
std::string FineFile(int line) {
  return "  line " + std::to_string(line) + ": a.msg: page message, 1 row x 96 columns: ok\n";
}

TEST_F(ScheduleCheck, AScheduleThatIsFineIsToldWithItsStepsAndFiles) {
  folder_.Write(u"b.msg"_s, Page(1, "<L01>\r\n"));
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(3, Step("a.msg") + Step("b.msg") + Step("a.msg"))),
            "s.sch: schedule, 1 row x 96 columns, 3 steps, Monday, hour 8, minute 30: ok\n" +
                FineFile(8) + "  line 11: b.msg: page message, 1 row x 96 columns: ok\n");
}

TEST_F(ScheduleCheck, AValueThatNoScheduleHasIsRefusedInItsLine) {
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(33, "")),
            "s.sch: schedule, 1 row x 96 columns: refused\n"
            "  line 7: error: 33 steps; a schedule has 1 to 32\n");
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(1, Step("a.msg")).replace("Week =2", "Week =8")),
            "s.sch: schedule, 1 row x 96 columns: refused\n"
            "  line 2: error: day 8; expected was 0 (every day), or 1 (Sunday) to 7 (Saturday)\n");
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(1, Step("a.msg")).replace("Row =1", "Row =")),
            "s.sch: schedule, 0 rows x 96 columns: refused\n"
            "  line 5: error: 0 rows; expected were those of a panel\n");
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(2, Step("a.msg"))),
            "s.sch: schedule, 1 row x 96 columns: refused\n"
            "  line 11: error: the line is missing: the file ends before its last step does\n");
}

TEST_F(ScheduleCheck, TheDayOfTheWeekIsToldByItsName) {
  const auto told = [this](const QByteArray& day) {
    return Said(u"s.sch"_s, Schedule(1, Step("a.msg")).replace("Week =2", "Week =" + day));
  };
  const std::string begin = "s.sch: schedule, 1 row x 96 columns, 1 step, ";
  const std::string end = ", hour 8, minute 30: ok\n" + FineFile(8);
  EXPECT_EQ(told("0"), begin + "every day" + end);
  EXPECT_EQ(told("1"), begin + "Sunday" + end);
  EXPECT_EQ(told("7"), begin + "Saturday" + end);
}

TEST_F(ScheduleCheck, ATimeIsNothingButDigits) {
  for (const char* hour : {"", "-1", "1x", "/", ":"}) {
    const std::string said = Said(
        u"s.sch"_s, Schedule(1, Step("a.msg")).replace("Hour =8", QByteArray("Hour =") + hour));
    EXPECT_NE(said.find("  line 3: warning: hour \"" + std::string(hour) +
                        "\", which panels are sent as it stands; expected was 0 to 23 or **\n"),
              std::string::npos)
        << said;
  }
}

TEST_F(ScheduleCheck, AMessageFileThatCannotBeShownRefusesTheSchedule) {
  folder_.Write(u"wide.msg"_s, Page(1, "<L01>\r\n").replace("96", "192"));
  folder_.Write(u"bad.msg"_s, Page(1, "<L02>\r\n"));
  folder_.Write(u"text.srl"_s, "*** Brivon Shift Message File ***\r\n\r\n");
  EXPECT_EQ(
      Said(u"s.sch"_s, Schedule(6, Step("a.msg") + Step("gone.msg") + Step("wide.msg") +
                                       Step("bad.msg") + Step("text.srl") + Step(""))),
      "s.sch: schedule, 1 row x 96 columns, 6 steps, Monday, hour 8, minute 30: refused\n" +
          FineFile(8) +
          "  line 11: gone.msg: refused\n"
          "    error: there is no such file; check the name and its folder\n"
          "  line 14: wide.msg: page message, 1 row x 192 columns: refused\n"
          "    line 2: error: the page has 1 rows x 192 columns, the schedule is for 1 rows x "
          "96 columns\n"
          "  line 17: bad.msg: page message, 1 row x 96 columns: refused\n"
          "    line 4: error: the tag \"<L02>\" stands in row 1; expected was <L01>\n"
          "  line 20: text.srl: scrolling message: refused\n"
          "    line 1: error: this is no page message, and a schedule shows those alone\n"
          "  line 23: \"\": refused\n"
          "    error: no message file is named here\n");
}

TEST_F(ScheduleCheck, AScheduleThatNamesItselfIsNoPage) {
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(1, Step("s.sch"))),
            "s.sch: schedule, 1 row x 96 columns, 1 step, Monday, hour 8, minute 30: refused\n"
            "  line 8: s.sch: schedule: refused\n"
            "    line 1: error: this is no page message, and a schedule shows those alone\n");
}

TEST_F(ScheduleCheck, APathThatTheEditorCutsIsAWarning) {
  const QByteArray path = QByteArray("./").repeated(60) + "a.msg";
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(1, path + "\r\n5\r\nFlip\r\n")),
            "s.sch: schedule, 1 row x 96 columns, 1 step, Monday, hour 8, minute 30: ok, "
            "1 warning\n"
            "  line 8: warning: a path of 125 characters; the editor cuts it to 100\n"
            "  line 8: " +
                path.toStdString() + ": page message, 1 row x 96 columns: ok\n");
}

TEST_F(ScheduleCheck, TimesDelaysAndEffectsThatThereAreNoneOfAreWarnings) {
  EXPECT_EQ(
      Said(u"s.sch"_s, Schedule(2, Step("a.msg", "0") + Step("a.msg", "100", "Zoom"))
                           .replace("Hour =8", "Hour =24")
                           .replace("Min =30", "Min =x")),
      "s.sch: schedule, 1 row x 96 columns, 2 steps, Monday, hour 24, minute x: ok, "
      "5 warnings\n"
      "  line 3: warning: hour \"24\", which panels are sent as it stands; expected was 0 to "
      "23 or **\n"
      "  line 4: warning: minute \"x\", which panels are sent as it stands; expected was 0 to "
      "59 or **\n" +
          FineFile(8) +
          "  line 9: warning: a delay of 0 s; expected was 1 to 99\n"
          "  line 12: warning: a delay of 100 s; expected was 1 to 99\n"
          "  line 13: warning: there is no entry effect \"Zoom\"; the panel takes Appear\n");
}

TEST_F(ScheduleCheck, AnEffectInTheLanguageInUseIsOne) {
  folder_.UseLanguage("[frmDelay]\r\nListFeature.List(0)=Da\r\nListFeature.List(1)=Drehen\r\n");
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(3, Step("a.msg", "5", "Drehen") + Step("a.msg", "5", "Da") +
                                             Step("a.msg", "5", "appear"))),
            "s.sch: schedule, 1 row x 96 columns, 3 steps, Monday, hour 8, minute 30: ok\n" +
                FineFile(8));
}

TEST_F(ScheduleCheck, StepsBehindTheLastAreNeverShown) {
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(1, Step("a.msg") + Step("a.msg"))),
            "s.sch: schedule, 1 row x 96 columns, 1 step, Monday, hour 8, minute 30: ok, "
            "1 warning\n" +
                FineFile(8) +
                "  line 11: warning: this and what follows is not read, and never shown: by line 7 "
                "there are 1 steps\n");
}

TEST_F(ScheduleCheck, ANameInOtherCapitalsThatIsNoFileOfItsOwnIsNotAskedFor) {
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(2, Step("a.msg") + Step("A.MSG"))),
            "s.sch: schedule, 1 row x 96 columns, 2 steps, Monday, hour 8, minute 30: ok\n" +
                FineFile(8));
}

TEST_F(ScheduleCheck, OfTwoFilesWhoseNamesDifferInCapitalsAloneOneIsNeverShown) {
  const QByteArray content = Schedule(2, Step("a.msg") + Step("A.MSG"));
  folder_.Write(u"A.MSG"_s, Page(1, "<L01>\r\n"));
  EXPECT_EQ(
      Said(u"s.sch"_s, content),
      "s.sch: schedule, 1 row x 96 columns, 2 steps, Monday, hour 8, minute 30: ok, "
      "1 warning\n" +
          FineFile(8) +
          "  line 11: warning: this page is never shown: the name differs from that of line 8 "
          "in capital letters alone, and that page is shown in its place\n");
}

TEST_F(ScheduleCheck, TwoNamesOfOneFileShowTheSamePage) {
  ASSERT_TRUE(QFile::link(folder_.Path(u"a.msg"_s), folder_.Path(u"A.MSG"_s)));
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(2, Step("a.msg") + Step("A.MSG"))),
            "s.sch: schedule, 1 row x 96 columns, 2 steps, Monday, hour 8, minute 30: ok\n" +
                FineFile(8));
}

TEST_F(ScheduleCheck, AScheduleWithoutFilesCannotBeSent) {
  EXPECT_EQ(Said(u"s.sch"_s, Schedule(1, Step(""))),
            "s.sch: schedule, 1 row x 96 columns, 1 step, Monday, hour 8, minute 30: ok, "
            "1 warning\n"
            "  warning: no step names a message file: the schedule cannot be sent\n");
}

TEST_F(ScheduleCheck, WithMoreThan12FilesThePagesRunIntoTheNextLetter) {
  QByteArray steps;
  for (char name = 'a'; name < 'a' + 27; ++name) {
    const QByteArray file = "page" + QByteArray::number(name - 'a' + 1) + ".msg";
    folder_.Write(QString::fromLatin1(file), Page(1, "<L01>\r\n"));
    steps += Step(file);
  }
  const std::string said = Said(u"s.sch"_s, Schedule(13, steps.first(13 * steps.size() / 27)));
  EXPECT_NE(
      said.find("  line 44: warning: more than 12 different message files: this one takes the "
                "place of the next schedule letter's first page\n"),
      std::string::npos)
      << said;
  // The editor reads up to the 27th; what it does not read may be missing.
  const QByteArray cut = Schedule(30, steps);
  const std::string of_27 = Said(u"s.sch"_s, cut);
  EXPECT_NE(of_27.find("minute 30: ok, 2 warnings\n"), std::string::npos) << of_27;
  EXPECT_NE(of_27.find("  line 86: warning: more than 26 different message files: the editor reads "
                       "nothing from here on, and the schedule cannot be sent\n"),
            std::string::npos)
      << of_27;
}

}  // namespace
