#include "engine/frame.h"

#include <QTimeZone>

#include <gtest/gtest.h>

namespace VirtualPanel {
namespace {

QList<QByteArray> Feed(FrameSplitter* splitter, QByteArrayView bytes) {
  QList<QByteArray> frames;
  for (const ReceivedFrame& frame : splitter->Feed(bytes)) frames.append(frame.bytes);
  return frames;
}

TEST(FrameSplitter, CutsAtEveryLineEnd) {
  FrameSplitter splitter;
  EXPECT_EQ(Feed(&splitter, "<ID01><?>\r\n<ID02><?>\n<ID0"),
            (QList<QByteArray>{"<ID01><?>\r\n", "<ID02><?>\n"}));
  EXPECT_EQ(Feed(&splitter, "3><?>\r"), QList<QByteArray>{});
  EXPECT_EQ(Feed(&splitter, "\n"), QList<QByteArray>{"<ID03><?>\r\n"});
}

TEST(FrameSplitter, TakesBytesOneByOne) {
  FrameSplitter splitter;
  QList<QByteArray> frames;
  for (const char byte : QByteArrayView("<ID01><D*>\r\n<ID01><?>\r\n")) {
    frames += Feed(&splitter, QByteArrayView(&byte, 1));
  }
  EXPECT_EQ(frames, (QList<QByteArray>{"<ID01><D*>\r\n", "<ID01><?>\r\n"}));
}

TEST(FrameSplitter, PassesOverEmptyLines) {
  FrameSplitter splitter;
  EXPECT_EQ(Feed(&splitter, "\r\n\n\r\n<ID01><?>\r\n"), QList<QByteArray>{"<ID01><?>\r\n"});
}

TEST(FrameSplitter, DropsAnEndlessLineUpToItsEndAndRecordsIt) {
  FrameSplitter splitter;
  const QByteArray piece(4096, 'x');
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(splitter.Feed(piece).isEmpty());
  const QList<ReceivedFrame> frames = splitter.Feed("\r\n<ID01><?>\r\n");
  ASSERT_EQ(frames.size(), 2);
  EXPECT_TRUE(frames[0].too_long);
  EXPECT_EQ(frames[0].bytes, QByteArray(256, 'x'));
  EXPECT_FALSE(frames[1].too_long);
  EXPECT_EQ(frames[1].bytes, "<ID01><?>\r\n");
}

TEST(FrameSplitter, TakesTheLongestFrameWhole) {
  FrameSplitter splitter;
  const QByteArray longest = QByteArray(64 * 1024 - 2, 'x') + "\r\n";
  const QList<ReceivedFrame> taken = splitter.Feed(longest);
  ASSERT_EQ(taken.size(), 1);
  EXPECT_FALSE(taken[0].too_long);
  EXPECT_EQ(taken[0].bytes, longest);
  const QList<ReceivedFrame> dropped = splitter.Feed('x' + longest);
  ASSERT_EQ(dropped.size(), 1);
  EXPECT_TRUE(dropped[0].too_long);
}

TEST(ParseFrame, ReadsEveryCommand) {
  const Frame poll = ParseFrame("<ID1A><?>\r\n");
  EXPECT_EQ(poll.meaning, Meaning::kPoll);
  EXPECT_EQ(poll.addressee, 26);
  EXPECT_EQ(ParseFrame("<IDFF><D*>\r\n").meaning, Meaning::kDeleteAll);
  EXPECT_EQ(ParseFrame("<IDFF><D*>\r\n").addressee, 255);

  const Frame deletion = ParseFrame("<IDC8><D007>\r\n");
  EXPECT_EQ(deletion.meaning, Meaning::kDeletePage);
  EXPECT_EQ(deletion.addressee, 200);
  EXPECT_EQ(deletion.page, 7);

  const Frame run = ParseFrame("<ID00><RP120>\r\n");
  EXPECT_EQ(run.meaning, Meaning::kRunPage);
  EXPECT_EQ(run.addressee, kEveryPanel);
  EXPECT_EQ(run.page, 120);
}

TEST(ParseFrame, ReadsTheClock) {
  const Frame frame = ParseFrame("<T2503053140709>\r\n");
  EXPECT_EQ(frame.meaning, Meaning::kSetClock);
  EXPECT_EQ(frame.addressee, kNobody);
  EXPECT_EQ(frame.clock, QDateTime(QDate(2025, 3, 5), QTime(14, 7, 9), QTimeZone::utc()));
}

TEST(ParseFrame, RefusesAClockThatCannotBe) {
  for (const char* text :
       {"<T2513053140709>", "<T2502303140709>", "<T2503057140709>", "<T2503053240709>",
        "<T2503053146009>", "<T2503053140760>", "<T250305314070>", "<T25030531407099>",
        "<T250305314070x>", "<T2503053140709"}) {
    EXPECT_EQ(ParseFrame(text).meaning, Meaning::kNotUnderstood) << text;
  }
}

TEST(ParseFrame, ReadsAMessageLine) {
  const Frame frame = ParseFrame("<ID03><L04><P007><SA><CB>Hello > <DD> \r\n");
  EXPECT_EQ(frame.meaning, Meaning::kMessageLine);
  EXPECT_EQ(frame.addressee, 3);
  EXPECT_EQ(frame.row, 4);
  EXPECT_EQ(frame.page, 7);
  EXPECT_EQ(frame.text, "<SA><CB>Hello > <DD> ");
}

TEST(ParseFrame, ReadsAMessageLineWithAOneDigitLineCode) {
  // The sender copies five characters, so the first one of the text stands in front of the page
  // code.
  const Frame frame = ParseFrame("<ID03><L1>A<P001>ABC \r\n");
  EXPECT_EQ(frame.meaning, Meaning::kMessageLine);
  EXPECT_EQ(frame.row, 1);
  EXPECT_EQ(frame.page, 1);
  EXPECT_EQ(frame.text, "ABC ");

  const Frame empty = ParseFrame("<ID03><L2><P001> \r\n");
  EXPECT_EQ(empty.row, 2);
  EXPECT_EQ(empty.text, " ");
}

TEST(ParseFrame, TakesAnyPageNumber) {
  EXPECT_EQ(ParseFrame("<ID03><L01><P000>x \r\n").page, 0);
  EXPECT_EQ(ParseFrame("<ID03><L01><P500>x \r\n").page, 500);
  EXPECT_EQ(ParseFrame("<ID03><L01><P1234>x \r\n").page, 1234);
  EXPECT_EQ(ParseFrame("<ID03><L01><P99999999999999999999>x \r\n").meaning,
            Meaning::kNotUnderstood);
}

TEST(ParseFrame, ReadsASchedule) {
  const Frame frame = ParseFrame("<ID1A><TC>3083002505A,02612D,027100H\r\n");
  EXPECT_EQ(frame.meaning, Meaning::kSchedule);
  EXPECT_EQ(frame.addressee, 26);
  EXPECT_EQ(frame.letter, 'C');
  EXPECT_EQ(frame.schedule, (Schedule{3, 8, 30, {{25, 5, 'A'}, {26, 12, 'D'}, {27, 100, 'H'}}}));

  const Frame every = ParseFrame("<ID00><TJ>*****10900A\r\n");
  EXPECT_EQ(every.addressee, kEveryPanel);
  EXPECT_EQ(every.letter, 'J');
  EXPECT_EQ(every.schedule, (Schedule{{}, {}, {}, {{109, 0, 'A'}}}));
}

TEST(ParseFrame, RefusesAScheduleThatCannotBe) {
  for (const char* text : {"<TK>*****00101A",
                           "<T@>*****00101A",
                           "<Ta>*****00101A",
                           "<T>*****00101A",
                           "<TA*****00101A",
                           "<TA>",
                           "<TA>*",
                           "<TA>*****",
                           "<TA>*****00101",
                           "<TA>*****0011A",
                           "<TA>*****00101a",
                           "<TA>*****00101I",
                           "<TA>*****00101A,",
                           "<TA>*****,00101A",
                           "<TA>*****00101A,,00201A",
                           "<TA>*****00101A;00201A",
                           "<TA>*****00101A ",
                           "<TA>7****00101A",
                           "<TA>-****00101A",
                           "<TA>*24**00101A",
                           "<TA>***6000101A",
                           "<TA>**8**00101A",
                           "<TA>*8***00101A",
                           "<TA>*-1**00101A",
                           "<TA>*****0x101A",
                           "<TA>*****001-1A",
                           "<TA>*****001123456A",
                           "<TAB>*****00101A",
                           "<T2503053140709>"}) {
    const Frame frame = ParseFrame(QByteArray("<ID0A>") + text);
    EXPECT_EQ(frame.meaning, Meaning::kNotUnderstood) << text;
    EXPECT_EQ(frame.addressee, 10) << text;
  }
}

TEST(ParseFrame, ReadsAScrollingLine) {
  const Frame frame = ParseFrame("<ID12><L2><SA><CB>Hello > <P1> \r\n");
  EXPECT_EQ(frame.meaning, Meaning::kScrollingLine);
  EXPECT_EQ(frame.addressee, 18);
  EXPECT_EQ(frame.row, 2);
  EXPECT_EQ(frame.text, "<SA><CB>Hello > <P1> ");
  EXPECT_EQ(ParseFrame("<ID12><L10>x\r\n").row, 10);
  EXPECT_EQ(ParseFrame("<ID12><L0>x\r\n").row, 0);
  EXPECT_EQ(ParseFrame("<ID12><L-3>x\r\n").row, -3);
  EXPECT_EQ(ParseFrame("<ID12><L12345>x\r\n").row, 12345);
  EXPECT_EQ(ParseFrame("<ID12><L1>\r\n").meaning, Meaning::kScrollingLine);
  EXPECT_EQ(ParseFrame("<ID12><L1>\r\n").text, "");
}

TEST(ParseFrame, TakesARowThatIsFollowedByAPageForAMessageLine) {
  for (const char* text : {"<ID03><L01><P007>x", "<ID03><L10><P007>x", "<ID03><L1>A<P007>x"}) {
    EXPECT_EQ(ParseFrame(text).meaning, Meaning::kMessageLine) << text;
    EXPECT_EQ(ParseFrame(text).text, "x") << text;
  }
}

TEST(ParseFrame, RefusesARowThatNobodyWrites) {
  for (const char* text : {"<L>x", "<L01>x", "<L00>x", "<L-0>x", "<L-01>x", "<L->x", "<L+1>x",
                           "<L1x", "<L 1>x", "<L1.5>x", "<L9999999999>x", "<L-9999999999>x"}) {
    const Frame frame = ParseFrame(QByteArray("<ID0A>") + text);
    EXPECT_EQ(frame.meaning, Meaning::kNotUnderstood) << text;
    EXPECT_EQ(frame.addressee, 10) << text;
  }
}

TEST(ParseFrame, KeepsTheAddressOfWhatItDoesNotUnderstand) {
  for (const char* text :
       {"<ID0A>", "<ID0A>hello", "<ID0A><?", "<ID0A><D>", "<ID0A><D1", "<ID0A><D12>x", "<ID0A><RP>",
        "<ID0A><P001>text", "<ID0A><L01><Pabc>x", "<ID0A><T2503053140709>"}) {
    const Frame frame = ParseFrame(text);
    EXPECT_EQ(frame.meaning, Meaning::kNotUnderstood) << text;
    EXPECT_EQ(frame.addressee, 10) << text;
  }
}

TEST(ParseFrame, IsForNobodyWithoutAnUpperCaseAddress) {
  for (const char* text :
       {"", "\r\n", "<", "<ID", "<ID0A", "<ID0a><?>", "<IDG0><?>", "<ID@0><?>", "<ID0:><?>",
        "<ID/0><?>", "<id0A><?>", "x<ID0A><?>", "<?>", "<ID0AA><?>"}) {
    EXPECT_EQ(ParseFrame(text).addressee, kNobody) << text;
  }
}

TEST(AddressPrefix, HasTwoUpperCaseDigits) {
  EXPECT_EQ(AddressPrefix(7), "<ID07>");
  EXPECT_EQ(AddressPrefix(15), "<ID0F>");
  EXPECT_EQ(AddressPrefix(16), "<ID10>");
  EXPECT_EQ(AddressPrefix(26), "<ID1A>");
  EXPECT_EQ(AddressPrefix(255), "<IDFF>");
}

}  // namespace
}  // namespace VirtualPanel
