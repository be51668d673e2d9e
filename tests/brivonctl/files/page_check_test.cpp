// What a look through a page message finds.
#include <algorithm>

#include "brivonctl/files/checked_files.h"

using namespace Qt::StringLiterals;

namespace {

class PageCheck : public CheckedFiles {
 protected:
  /// What is said of the one row of a page, below the first line.
  std::string SaidOfRow(const QByteArray& line) {
    const std::string said = Said(u"a.msg"_s, Page(1, line + "\r\n"));
    return said.substr(said.find('\n') + 1);
  }
};

TEST_F(PageCheck, APageThatIsFineIsToldWithItsSize) {
  EXPECT_EQ(Said(u"a.msg"_s, Page(2, "<L01><SA><CB>Drive\r\n<L02>\r\n")),
            "a.msg: page message, 2 rows x 96 columns: ok\n");
  EXPECT_EQ(Said(u"a.srl"_s, Page(1, "<L01>\r\n")),
            "a.srl: page message, 1 row x 96 columns: ok\n");
}

TEST_F(PageCheck, WhatIsNoFileIsRefused) {
  EXPECT_EQ(SaidOf(folder_.Path(u"gone.msg"_s)),
            "gone.msg: refused\n  error: there is no such file; check the name and its folder\n");
  EXPECT_EQ(SaidOf(u"/"_s), "/: refused\n  error: this is a folder; a file was expected\n");
  EXPECT_EQ(SaidOf(u"/dev/zero"_s),
            "/dev/zero: refused\n  error: this is a device or a pipe; a file was expected\n");
  ASSERT_TRUE(QFile::link(folder_.Path(u"gone.msg"_s), folder_.Path(u"link.msg"_s)));
  EXPECT_EQ(SaidOf(folder_.Path(u"link.msg"_s)),
            "link.msg: refused\n  error: this link leads to no file; name one that is there\n");
}

TEST_F(PageCheck, AFileOfAnotherKindIsRefusedByItsFirstLine) {
  EXPECT_EQ(Said(u"a.msg"_s, "*** Brivon Message File ***\r\n"),
            "a.msg: refused\n  error: the file has 29 bytes; one of Brivon has 30 at the least\n");
  EXPECT_EQ(
      Said(u"a.msg"_s, "*** brivon message file ***\r\nRow = 1\r\nCol = 96\r\n<L01>\r\n"),
      "a.msg: refused\n"
      "  line 1: error: \"*** brivon message file ***\" begins no file of Brivon; expected was "
      "*** Brivon Message File ***, *** Brivon Schedule File *** or "
      "*** Brivon Shift Message File ***\n");
  EXPECT_EQ(Said(u"a.msg"_s, QByteArray(1'048'577, 'x')),
            "a.msg: refused\n"
            "  line 1: error: a line of more than 1048576 bytes begins no file of Brivon; expected "
            "was *** Brivon Message File ***, *** Brivon Schedule File *** or "
            "*** Brivon Shift Message File ***\n");
}

TEST_F(PageCheck, ASizeThatIsNoneIsRefusedInItsLine) {
  EXPECT_EQ(Said(u"a.msg"_s, Page(13, "")),
            "a.msg: page message, 13 rows x 96 columns: refused\n"
            "  line 2: error: 13 rows; a page has 1 to 12\n");
  EXPECT_EQ(Said(u"a.msg"_s, "*** Brivon Message File ***\r\nRow = 1\r\nCol = -9\r\n<L01>\r\n"),
            "a.msg: page message, 1 row x -9 columns: refused\n"
            "  line 3: error: -9 dot columns; a page has 1 at the least\n");
}

TEST_F(PageCheck, AMissingRowIsToldByItsNumber) {
  EXPECT_EQ(Said(u"a.msg"_s, Page(3, "<L01>a\r\n<L02>b\r\n")),
            "a.msg: page message, 3 rows x 96 columns: refused\n"
            "  line 6: error: row 3 is missing: the file ends, and by its line 2 it has 3 rows\n");
  EXPECT_EQ(Said(u"a.msg"_s, Page(2, "<L01>a\r\n" + QByteArray(1'048'577, 'x') + "\r\n")),
            "a.msg: page message, 2 rows x 96 columns: refused\n"
            "  line 5: error: the line has more than 1048576 bytes\n");
}

TEST_F(PageCheck, ATagOutOfOrderIsToldWithTheOneThatWasExpected) {
  EXPECT_EQ(Said(u"a.msg"_s, Page(2, "<L01>a\r\n<L03>b\r\n")),
            "a.msg: page message, 2 rows x 96 columns: refused\n"
            "  line 5: error: the tag \"<L03>\" stands in row 2; expected was <L02>\n");
}

TEST_F(PageCheck, WhatTheEditorAcceptsAndNoPanelIsSentIsAWarning) {
  EXPECT_EQ(Said(u"a.msg"_s, Page(0, "")),
            "a.msg: page message, 0 rows x 96 columns: ok, 1 warning\n"
            "  line 2: warning: 0 rows: the editor opens an empty page, and it cannot be sent\n");
  EXPECT_EQ(Said(u"a.msg"_s, "*** Brivon Message File ***\r\nRow = 1\r\nCol = 4\r\n<L01>\r\n"),
            "a.msg: page message, 1 row x 4 columns: ok, 1 warning\n"
            "  line 3: warning: 4 dot columns: a page of fewer than 5 cannot be sent\n");
}

TEST_F(PageCheck, LinesBehindTheLastRowAreNotRead) {
  EXPECT_EQ(
      Said(u"a.msg"_s, Page(1, "<L01>a\r\n<L02>b\r\n")),
      "a.msg: page message, 1 row x 96 columns: ok, 1 warning\n"
      "  line 5: warning: this and what follows is not read: by line 2 the page has 1 rows\n");
  EXPECT_EQ(SaidOfRow("<L01>a\r\n"), "");
}

TEST_F(PageCheck, CharactersBehindThePanelsLastDotAreCounted) {
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>1234567890123456"), "");
  EXPECT_EQ(
      SaidOfRow("<L01><SA><CA>12345678901234567"),
      "  line 4: warning: the last character is not seen or not seen whole: 102 dots in 96\n");
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>1234567890123456789   "),
            "  line 4: warning: the last 3 characters are not seen or not seen whole: "
            "114 dots in 96\n");
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>1234567890123456   "), "");
  EXPECT_EQ(SaidOfRow("<L01><SB><CA>1234567890123456789"), "");
  // A date takes eleven characters.
  EXPECT_EQ(
      SaidOfRow("<L01><SA><CA>1234567DD MMM YYYY"),
      "  line 4: warning: the last character is not seen or not seen whole: 108 dots in 96\n");
}

TEST_F(PageCheck, SymbolsColoursSizesAndCharactersThatThereAreNoneOfAreNamed) {
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>~A~Z~a"),
            "  line 4: warning: there is no symbol \"~a\"; there are ~A to ~Z\n");
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>~<CB>A"),
            "  line 4: warning: a code behind \"~\" makes no symbol\n");
  EXPECT_EQ(SaidOfRow("<L01><SA><CQ>x<CP>y"),
            "  line 4: warning: there is no colour \"<CQ>\"; there are <CA> to <CP>\n");
  EXPECT_EQ(SaidOfRow("<L01><SI><CA>x<SI>y"),
            "  line 4: warning: there is no size \"<SI>\"; there are <SA> to <SH>\n");
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>a\x07"
                      "b\x07"),
            "  line 4: warning: \"\\x07\" is no character; the panel shows a blank\n");
  EXPECT_EQ(SaidOfRow("<L01><SA><CA>\x01\x02\x03\x04\x05\x06\x07"),
            "  line 4: warning: \"\\x01\" is no character; the panel shows a blank\n"
            "  line 4: warning: \"\\x02\" is no character; the panel shows a blank\n"
            "  line 4: warning: \"\\x03\" is no character; the panel shows a blank\n"
            "  line 4: warning: \"\\x04\" is no character; the panel shows a blank\n"
            "  line 4: warning: \"\\x05\" is no character; the panel shows a blank\n"
            "  line 4: warning: and 2 more of that kind\n");
}

TEST_F(PageCheck, OfManySymbolsColoursOrSizesTheFirstFiveAreNamed) {
  const std::string more = "  line 4: warning: and 1 more of that kind\n";
  const auto expect_five = [&](const QByteArray& line, const std::string& last) {
    const std::string said = SaidOfRow("<L01><SA><CA>" + line);
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 6) << said;
    EXPECT_NE(said.find(last + '\n' + more), std::string::npos) << said;
  };
  expect_five("~a~b~c~d~e~f", "there is no symbol \"~e\"; there are ~A to ~Z");
  expect_five("<Ca>a<Cb>a<Cc>a<Cd>a<Ce>a<Cf>a",
              "there is no colour \"<Ce>\"; there are <CA> to <CP>");
  expect_five("<SI>a<SJ>a<SK>a<SL>a<SM>a<SN>a",
              "there is no size \"<SM>\"; there are <SA> to <SH>");
}

TEST_F(PageCheck, ARowThatThePanelMissesIsToldTheTagThatItNeeds) {
  EXPECT_EQ(SaidOfRow("<L1>abc"),
            "  line 4: warning: with a tag of one digit the panel misses the row; write <L01>\n");
  EXPECT_EQ(SaidOfRow("abc"),
            "  line 4: warning: without its tag in front the panel misses the row; write <L01>\n");
}

TEST_F(PageCheck, ARowThatGoesOnInTheColourOfTheRowAboveIsToldApart) {
  EXPECT_EQ(Said(u"a.msg"_s, Page(2, "<L01><SA><CB>a\r\n<L02>b\r\n")),
            "a.msg: page message, 2 rows x 96 columns: ok, 1 warning\n"
            "  line 5: warning: the row begins without a size or a colour: the editor goes on as "
            "the row above ends, the panel begins with <SA><CA>\n");
  for (const char* begin : {"<SB><CA>", "<SE><CA>"}) {
    const std::string said =
        Said(u"a.msg"_s, Page(2, QByteArray("<L01>") + begin + "a\r\n<L02>b\r\n"));
    EXPECT_NE(said.find("  line 5: warning: the row begins without a size or a colour: "),
              std::string::npos)
        << begin << said;
  }
  EXPECT_EQ(Said(u"a.msg"_s, Page(2, "<L01><SA><CB>a<CA>x\r\n<L02>b\r\n")),
            "a.msg: page message, 2 rows x 96 columns: ok\n");
}

TEST_F(PageCheck, WhatWouldMoveTheTerminalsCursorIsWrittenOut) {
  EXPECT_EQ(Said(u"a\x1B[2J\n.msg"_s, Page(1, "<L01>\r\n")),
            "a\\x1B[2J\\x0A.msg: page message, 1 row x 96 columns: ok\n");
  const std::string said = Said(u"a.msg"_s, "\x1B]0;title\x07 and more than thirty bytes\r\n");
  const std::string beginning =
      "a.msg: refused\n  line 1: error: \"\\x1B]0;title\\x07 and more than thirty bytes\" begins ";
  EXPECT_EQ(said.substr(0, beginning.size()), beginning);
}

TEST_F(PageCheck, ANameIsCutWhereItIsLongAndSeenWhereItIsEmpty) {
  EXPECT_EQ(SaidOf(QString()),
            "\"\": refused\n  error: there is no such file; check the name and its folder\n");
  EXPECT_EQ(SaidOf(QString(301, u'x')),
            std::string(300, 'x') +
                "...: refused\n  error: there is no such file; check the name and its folder\n");
}

}  // namespace
