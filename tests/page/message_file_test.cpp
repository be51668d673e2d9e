// What stands in a message file, and what is read of one that is not quite in order.
#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "page/message_file_fixture.h"

namespace {

using Brivon1::IsMessageFile;
using Brivon1::LoadMessageFile;
using Brivon1::PageMessage;

TEST_F(MessageFile, IsWrittenWithHeaderSizeAndOneLinePerRow) {
  PageMessage page = PageOf(4, 80);
  Type(page, "Hi");
  page.SetCurrentRow(3);
  page.ChooseSize(2);
  page.ChooseColour(15);
  Type(page, "X");
  EXPECT_EQ(Saved(page),
            "*** Brivon Message File ***\r\n"
            "Row = 4\r\n"
            "Col = 80\r\n"
            "<L01><SA><CA>Hi\r\n"
            "<L02>\r\n"
            "<L03><SC><CP>X\r\n"
            "<L04>\r\n");
}

TEST_F(MessageFile, APageOfTwelveRowsIsWrittenWithTwoDigitTags) {
  PageMessage page = PageOf(12, 3000);
  page.SetCurrentRow(12);
  Type(page, "~Z");
  EXPECT_EQ(Saved(page),
            "*** Brivon Message File ***\r\nRow = 12\r\nCol = 3000\r\n"
            "<L01>\r\n<L02>\r\n<L03>\r\n<L04>\r\n<L05>\r\n<L06>\r\n<L07>\r\n<L08>\r\n<L09>\r\n"
            "<L10>\r\n<L11>\r\n<L12><SA><CA>~Z\r\n");
}

TEST_F(MessageFile, APageOfNoRowsIsItsThreeFirstLines) {
  EXPECT_EQ(Saved(PageOf(0, 80)), "*** Brivon Message File ***\r\nRow = 0\r\nCol = 80\r\n");
}

TEST_F(MessageFile, ASteadyRedAbFollowedByBlinkingRedCInSizeAIsWrittenWithOneMoreSizeCode) {
  PageMessage page = PageOf(1, 80);
  Type(page, "AB");
  page.ChooseBlink(true);
  Type(page, "C");
  EXPECT_EQ(Saved(page),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CA>AB<SE>C\r\n");
}

TEST_F(MessageFile, EverySizeAndColourHasItsCodeAndTheSizeStandsFirst) {
  PageMessage page = PageOf(1, 200);
  for (int i = 0; i < 16; ++i) {
    page.ChooseSize(i % 4);
    page.ChooseBlink(i >= 8);
    page.ChooseColour(i);
    TypeKey(page, static_cast<char>('a' + i));
  }
  EXPECT_EQ(Saved(page),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 200\r\n<L01>"
            "<SA><CA>a<SB><CB>b<SC><CC>c<SD><CD>d<SA><CE>e<SB><CF>f<SC><CG>g<SD><CH>h"
            "<SE><CI>i<SF><CJ>j<SG><CK>k<SH><CL>l<SE><CM>m<SF><CN>n<SG><CO>o<SH><CP>p\r\n");
}

TEST_F(MessageFile, TheFirstCharacterGetsBothCodesEvenWhereAHandMadeFileGaveItAnUnknownLetter) {
  auto loaded = LoadRow("<L01><SA><CZ>x");
  ASSERT_TRUE(loaded);
  EXPECT_EQ(Shown(loaded->rows[0]), "x|A|Z|N");
  PageMessage page;
  page.TakeOver(loaded->dimension, loaded->rows);
  EXPECT_EQ(Saved(page),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CZ>x\r\n");
}

TEST_F(MessageFile, AFileOfFewerThan30BytesIsRefusedEvenIfItsHeaderIsRight) {
  const QString path = Write("*** Brivon Message File ***\r\n");  // 29 bytes
  EXPECT_FALSE(IsMessageFile(path));
  EXPECT_FALSE(LoadMessageFile(path));
}

TEST_F(MessageFile, AHeaderLineWithBlanksAroundItIsAcceptedOneInLowerCaseIsRefused) {
  EXPECT_TRUE(Load("  *** Brivon Message File ***\t \r\nRow = 1\r\nCol = 80\r\n<L01>\r\n"));
  EXPECT_FALSE(Load("*** brivon message file ***\r\nRow = 1\r\nCol = 80\r\n<L01>\r\n"));
}

TEST_F(MessageFile, RowEquals2IsReadAs2WithAndWithoutBlanksAndRowXIsReadAs0) {
  for (const char* row : {"Row=2", "Row = 2", "Row =2", "anything =  2 rows"}) {
    const auto page = Load(QByteArray("*** Brivon Message File ***\r\n") + row +
                           "\r\nCol = 80\r\n<L01>a\r\n<L02>b\r\n");
    ASSERT_TRUE(page) << row;
    EXPECT_EQ(page->dimension.rows, 2) << row;
    EXPECT_EQ(Shown(page->rows[1]), "b|A|A|N") << row;
  }
  const auto page = Load("*** Brivon Message File ***\r\nRow = x\r\nCol = 80\r\n<L01>a\r\n");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->dimension.rows, 0);
}

TEST_F(MessageFile, OfALineWithoutAnEqualsSignTheWholeLineIsTheValue) {
  const auto page = Load("*** Brivon Message File ***\r\n 2 rows\r\n80\r\n<L01>a\r\n<L02>b\r\n");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->dimension, (Brivon1::Dimension{2, 80}));
}

TEST_F(MessageFile, Row0WithCol9IsRefusedRow0WithCol10IsAcceptedAndGivesAnEmptyPage) {
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 0\r\nCol = 9\r\n"));
  const auto page = Load("*** Brivon Message File ***\r\nRow = 0\r\nCol = 10\r\n");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->dimension, (Brivon1::Dimension{0, 10}));
  for (const auto& row : page->rows) EXPECT_EQ(row.Length(), 0);
  EXPECT_TRUE(Load("*** Brivon Message File ***\r\nRow = 1\r\nCol = 0\r\n<L01>abc\r\n"));
}

TEST_F(MessageFile, ARowLineL02AtThePlaceOfRow1MakesTheWholeLoadFail) {
  EXPECT_EQ(LoadedRow("<L02>abc"), "refused");
  EXPECT_EQ(LoadedRow("abc<L02>"), "refused");
  EXPECT_EQ(LoadedRow("<L2>abc"), "refused");
  EXPECT_EQ(LoadedRow("<L0>abc"), "refused");
  EXPECT_EQ(LoadedRow("<Lxy>abc"), "refused");
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n<L01>a\r\n<L03>b\r\n"));
}

TEST_F(MessageFile, L1AbcAndL01AbcLoadTheSameRow) {
  EXPECT_EQ(LoadedRow("<L1>ABC"), "ABC|AAA|AAA|NNN");
  EXPECT_EQ(LoadedRow("<L01>ABC"), "ABC|AAA|AAA|NNN");
  EXPECT_EQ(LoadedRow("<L 1>ABC"), "ABC|AAA|AAA|NNN");
  EXPECT_EQ(LoadedRow("ABC"), "ABC|AAA|AAA|NNN");
  EXPECT_EQ(LoadedRow("<L01>A<L01>B<L1>C"), "ABC|AAA|AAA|NNN");
}

TEST_F(MessageFile, ALessThanSignWithCAnyCharacterAndGreaterThanCannotBeToldFromAColourCode) {
  PageMessage page = PageOf(1, 80);
  Type(page, "a<C9>b");
  EXPECT_EQ(Saved(page),
            "*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01><SA><CA>a<C9>b\r\n");
  const auto loaded = LoadMessageFile(Path());
  ASSERT_TRUE(loaded);
  EXPECT_EQ(Shown(loaded->rows[0]), "ab|AA|A9|NN");
}

TEST_F(MessageFile, ALessThanSignNearTheEndOfARowIsReadAsText) {
  EXPECT_EQ(LoadedRow("<L01>a<CB"), "a<CB|AAAA|AAAA|NNNN");
  EXPECT_EQ(LoadedRow("<L01>a<"), "a<|AA|AA|NN");
  EXPECT_EQ(LoadedRow("<L01>a<L1"), "a<L1|AAAA|AAAA|NNNN");
}

TEST_F(MessageFile, ALessThanSignThatBeginsNoCodeIsText) {
  EXPECT_EQ(LoadedRow("<L01><X><SAB><"), "<X><SAB><|AAAAAAAAA|AAAAAAAAA|NNNNNNNNN");
  EXPECT_EQ(LoadedRow("<L01><sA>"), "<sA>|AAAA|AAAA|NNNN");
}

TEST_F(MessageFile, EveryDigitMakesATagAndNoOtherCharacterDoes) {
  for (const char digit : QByteArrayView("0234567890")) {
    EXPECT_EQ(LoadedRow(QByteArray("<L01>a<L") + digit + '>'), "refused") << digit;
  }
  EXPECT_EQ(LoadedRow("<L01>a<L1>b"), "ab|AA|AA|NN");
  for (const char other : QByteArrayView("/:;x")) {
    EXPECT_EQ(LoadedRow(QByteArray("<L01><L") + other + '>'),
              std::string("<L") + other + ">|AAAA|AAAA|NNNN");
  }
}

TEST_F(MessageFile, SzIsDroppedWithoutChangingTheSize) {
  EXPECT_EQ(LoadedRow("<L01><SG>a<SZ>b<SI>c<Sa>d"), "abcd|CCCC|AAAA|BBBB");
}

TEST_F(MessageFile, ASizeCodeWhoseThirdCharacterIsNoLetterAToHIsDroppedAndChangesNothing) {
  EXPECT_EQ(LoadedRow("<L01><SB>a<S1>b<S >c<S>>d"), "abcd|BBBB|AAAA|NNNN");
}

TEST_F(MessageFile, ACodeBehindTheLastCharacterOfARowIsNoText) {
  EXPECT_EQ(LoadedRow("<L01><SB>ab<CD>"), "ab|BB|AA|NN");
}

TEST_F(MessageFile, TheEightSizeCodesSetSizeAndBlinking) {
  EXPECT_EQ(LoadedRow("<L01><SA>a<SB>b<SC>c<SD>d<SE>e<SF>f<SG>g<SH>h<SA>i"),
            "abcdefghi|ABCDABCDA|AAAAAAAAA|NNNNBBBBN");
}

TEST_F(MessageFile, AttributesReadOnRow1ApplyToTheStartOfRow2) {
  const auto page = Load(
      "*** Brivon Message File ***\r\nRow = 3\r\nCol = 80\r\n"
      "<L01><SH><CK>a\r\n<L02>b<CB>c\r\n<L03><SA>d\r\n");
  ASSERT_TRUE(page);
  EXPECT_EQ(Shown(page->rows[0]), "a|D|K|B");
  EXPECT_EQ(Shown(page->rows[1]), "bc|DD|KB|BB");
  EXPECT_EQ(Shown(page->rows[2]), "d|A|B|N");
}

TEST_F(MessageFile, ANegativeRowOrColumnValueIsAFailedRead) {
  const QString path = Write("*** Brivon Message File ***\r\nRow = -1\r\nCol = 80\r\n<L01>a\r\n");
  EXPECT_TRUE(IsMessageFile(path));
  EXPECT_FALSE(LoadMessageFile(path));
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 1\r\nCol = -80\r\n<L01>a\r\n"));
}

TEST_F(MessageFile, MoreThanTwelveRowsAreAFailedRead) {
  QByteArray thirteen = "*** Brivon Message File ***\r\nRow = 13\r\nCol = 80\r\n";
  for (int i = 0; i < 13; ++i) thirteen += "a\r\n";
  EXPECT_FALSE(Load(thirteen));
  EXPECT_TRUE(Load(thirteen.replace("Row = 13", "Row = 12")));
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 99999\r\nCol = 80\r\n<L01>a\r\n"));
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 65537\r\nCol = 80\r\n<L01>a\r\n"));
}

TEST_F(MessageFile, FewerRowLinesThanRowsAreAFailedRead) {
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n<L01>a\r\n"));
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n"));
  EXPECT_FALSE(Load("*** Brivon Message File ***\r\nRow = 12"));
}

TEST_F(MessageFile, LinesBehindTheLastRowAreLeftAlone) {
  const auto page =
      Load("*** Brivon Message File ***\r\nRow = 1\r\nCol = 80\r\n<L01>a\r\n<L07>b\r\n");
  ASSERT_TRUE(page);
  EXPECT_EQ(Shown(page->rows[0]), "a|A|A|N");
  EXPECT_EQ(page->rows[1].Length(), 0);
}

TEST_F(MessageFile, LinesMayEndWithALineFeedAloneAndTheLastOneWithTheFile) {
  const auto page = Load("*** Brivon Message File ***\nRow = 2\nCol = 80\n<L01>a\n<L02>b");
  ASSERT_TRUE(page);
  EXPECT_EQ(Shown(page->rows[0]), "a|A|A|N");
  EXPECT_EQ(Shown(page->rows[1]), "b|A|A|N");
}

TEST_F(MessageFile, ARowLineThatIsTooLongForTheColumnsIsLoadedInFull) {
  const auto page = Load("*** Brivon Message File ***\r\nRow = 1\r\nCol = 10\r\n<L01>abcdefgh\r\n");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->rows[0].Text(), "abcdefgh");
}

}  // namespace
