#include "panel_line/framing.h"

#include <QTimeZone>

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

TEST(Framing, Id15YieldsId0FAndId16YieldsId10AndId255YieldsIdFF) {
  EXPECT_EQ(AckPrefix(15), "<ID0F>");
  EXPECT_EQ(AckPrefix(16), "<ID10>");
  EXPECT_EQ(AckPrefix(255), "<IDFF>");
}

TEST(Framing, APrefixHasTwoUpperCaseHexadecimalDigits) {
  EXPECT_EQ(AckPrefix(0), "<ID00>");
  EXPECT_EQ(AckPrefix(7), "<ID07>");
  EXPECT_EQ(AckPrefix(10), "<ID0A>");
  EXPECT_EQ(AckPrefix(26), "<ID1A>");
  EXPECT_EQ(AckPrefix(200), "<IDC8>");
}

TEST(Framing, EveryPanelHasItsOwnPrefixOfSixBytes) {
  const QByteArray digits = "0123456789ABCDEF";
  for (int id = 0; id < 256; ++id) {
    EXPECT_EQ(AckPrefix(id), QByteArray("<ID") + digits[id / 16] + digits[id % 16] + '>');
  }
}

TEST(Framing, AnAcknowledgementIsThePrefixAndCrLf) {
  EXPECT_EQ(Acknowledgement(26), "<ID1A>\r\n");
  EXPECT_EQ(Acknowledgement(0), "<ID00>\r\n");
}

TEST(Framing, ThePollFrameHasElevenBytes) {
  EXPECT_EQ(PollFrame(1), "<ID01><?>\r\n");
  EXPECT_EQ(PollFrame(255).size(), 11);
}

TEST(Framing, TheDeleteAllFrameHasTwelveBytes) {
  EXPECT_EQ(DeleteAllFrame(171), "<IDAB><D*>\r\n");
  EXPECT_EQ(DeleteAllFrame(0).size(), 12);
}

TEST(Framing, Panel200IsAddressedAsIdC8AndDeletingItsPage7SendsD007) {
  EXPECT_EQ(DeletePageFrame(200, 7), "<IDC8><D007>\r\n");
  EXPECT_EQ(DeletePageFrame(200, 7).size(), 14);
}

TEST(Framing, ThePageOfARunFrameHasThreeDigits) {
  EXPECT_EQ(RunPageFrame(1, 1), "<ID01><RP001>\r\n");
  EXPECT_EQ(RunPageFrame(1, 20), "<ID01><RP020>\r\n");
  EXPECT_EQ(RunPageFrame(1, 120), "<ID01><RP120>\r\n");
  EXPECT_EQ(RunPageFrame(1, 1).size(), 15);
}

QDateTime At(int year, int month, int day, int hour, int minute, int second) {
  return QDateTime(QDate(year, month, day), QTime(hour, minute, second), QTimeZone::utc());
}

TEST(Framing, Wednesday5March2025At140709SetsTheClockByT2503053140709) {
  EXPECT_EQ(SetClockFrame(At(2025, 3, 5, 14, 7, 9)), "<T2503053140709>\r\n");
  EXPECT_EQ(SetClockFrame(At(2025, 3, 5, 14, 7, 9)).size(), 18);
}

TEST(Framing, TheWeekBeginsWithSunday0AndEndsWithSaturday6) {
  EXPECT_EQ(SetClockFrame(At(2025, 3, 2, 0, 0, 0)), "<T2503020000000>\r\n");
  EXPECT_EQ(SetClockFrame(At(2025, 3, 3, 0, 0, 0)), "<T2503031000000>\r\n");
  EXPECT_EQ(SetClockFrame(At(2025, 3, 8, 0, 0, 0)), "<T2503086000000>\r\n");
}

TEST(Framing, TheYearHasTwoDigitsAlsoAtTheTurnOfACentury) {
  EXPECT_EQ(SetClockFrame(At(1999, 12, 31, 23, 59, 59)), "<T9912315235959>\r\n");
  EXPECT_EQ(SetClockFrame(At(2000, 2, 29, 0, 0, 0)), "<T0002292000000>\r\n");
  EXPECT_EQ(SetClockFrame(At(2109, 1, 1, 9, 8, 7)), "<T0901012090807>\r\n");
}

TEST(Framing, TheClockIsSetToTheLocalTimeThatItIsGiven) {
  EXPECT_EQ(SetClockFrame(QDateTime(QDate(2025, 3, 5), QTime(23, 30), QTimeZone(7200))),
            "<T2503053233000>\r\n");
}

TEST(StripColourCodes, OnALoneColourBeginOnAbcAndOnAnUnfinishedCodeReturnsThemUnchanged) {
  EXPECT_EQ(StripColourCodes("<C"), "<C");
  EXPECT_EQ(StripColourCodes("ABC"), "ABC");
  EXPECT_EQ(StripColourCodes("<C1"), "<C1");
}

TEST(StripColourCodes, OnTwoCodesReturnsAnEmptyText) {
  EXPECT_EQ(StripColourCodes("<C1><C2>"), "");
  EXPECT_EQ(StripColourCodes("<C1>"), "");
}

TEST(StripColourCodes, DropsTheCodesAndKeepsTheText) {
  EXPECT_EQ(StripColourCodes("AB<C2>CD"), "ABCD");
  EXPECT_EQ(StripColourCodes("<C1>X<C3>"), "X");
  EXPECT_EQ(StripColourCodes("AB<C2>"), "AB");
  EXPECT_EQ(StripColourCodes(""), "");
}

TEST(StripColourCodes, KeepsWhatIsNoCode) {
  EXPECT_EQ(StripColourCodes("A<CX"), "A<CX");
  EXPECT_EQ(StripColourCodes("A<CXY"), "A<CXY");
  EXPECT_EQ(StripColourCodes("<SA>A<c1>B"), "<SA>A<c1>B");
  EXPECT_EQ(StripColourCodes("<C12>A"), "<C12>A");
  EXPECT_EQ(StripColourCodes("<C><C1>A"), "<C>A");
}

TEST(StripColourCodes, ACodeMayBeginBehindABrokenOne) {
  EXPECT_EQ(StripColourCodes("<C<C1>X"), "<CX");
  EXPECT_EQ(StripColourCodes("<CX<C1>Y<C2"), "<CXY<C2");
}

TEST(StripColourCodes, TheCharacterOfACodeMayBeAnyByte) {
  for (int value = 0; value < 256; ++value) {
    EXPECT_EQ(StripColourCodes(QByteArray("a<C") + static_cast<char>(value) + ">b"), "ab");
  }
}

TEST(StripColourCodes, AKeptPieceAndALaterOneNeverJoinIntoACodeThatIsDropped) {
  EXPECT_EQ(StripColourCodes("<C<CA>1>"), "<C1>");
  EXPECT_EQ(StripColourCodes("<<C1>C2>X"), "<C2>X");
}

TEST(StripColourCodes, ARowOfAHundredThousandCodesIsStrippedWhole) {
  EXPECT_EQ(StripColourCodes(QByteArray("<C1>").repeated(100000) + 'x'), "x");
  EXPECT_EQ(StripColourCodes(QByteArray("<C").repeated(100000)), QByteArray("<C").repeated(100000));
}

}  // namespace
}  // namespace Brivon1
