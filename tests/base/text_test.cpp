#include "base/text.h"

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

TEST(Text, BlanksAreSpacesAndTabs) {
  EXPECT_EQ(TrimBlanks(" \t a \t b\t "), "a \t b");
  EXPECT_EQ(TrimBlanks("ab"), "ab");
  EXPECT_EQ(TrimBlanks("\r\n"), "\r\n");
  EXPECT_EQ(TrimBlanks(" \t "), "");
  EXPECT_EQ(TrimBlanks(""), "");
  EXPECT_EQ(TrimBlanks(QByteArrayView()), "");
}

TEST(Text, ANumberIsReadUpToTheFirstOtherCharacter) {
  EXPECT_EQ(LeadingNumber("12", 0, 100), 12);
  EXPECT_EQ(LeadingNumber("12abc", 0, 100), 12);
  EXPECT_EQ(LeadingNumber("1.9", 0, 100), 1);
  EXPECT_EQ(LeadingNumber("1 2", 0, 100), 1);
  EXPECT_EQ(LeadingNumber("007", 0, 100), 7);
  EXPECT_EQ(LeadingNumber("0x10", 0, 100), 0);
  EXPECT_EQ(LeadingNumber("5\r", 0, 100), 5);
  EXPECT_EQ(LeadingNumber(QByteArrayView("5\0006", 3), 0, 100), 5);
}

TEST(Text, BlanksBeforeANumberAreSkipped) {
  EXPECT_EQ(LeadingNumber("  \t 42", 0, 100), 42);
  EXPECT_EQ(LeadingNumber("\n42", 0, 100), 0);
}

TEST(Text, ANumberMayHaveOneSign) {
  EXPECT_EQ(LeadingNumber("-5", -10, 10), -5);
  EXPECT_EQ(LeadingNumber("+5", -10, 10), 5);
  EXPECT_EQ(LeadingNumber(" -5", -10, 10), -5);
  EXPECT_EQ(LeadingNumber("- 5", -10, 10), 0);
  EXPECT_EQ(LeadingNumber("--5", -10, 10), 0);
  EXPECT_EQ(LeadingNumber("+-5", -10, 10), 0);
}

TEST(Text, NoDigitsGiveZero) {
  EXPECT_EQ(LeadingNumber("", -10, 10), 0);
  EXPECT_EQ(LeadingNumber("   ", -10, 10), 0);
  EXPECT_EQ(LeadingNumber("x5", -10, 10), 0);
  EXPECT_EQ(LeadingNumber("-", -10, 10), 0);
  EXPECT_EQ(LeadingNumber("**", -10, 10), 0);
}

TEST(Text, NoDigitsGiveTheNearestBoundWhereZeroLiesOutside) {
  EXPECT_EQ(LeadingNumber("x", 1, 12), 1);
}

TEST(Text, ANumberThatDoesNotFitIsClampedToTheNearestBound) {
  EXPECT_EQ(LeadingNumber("256", 0, 255), 255);
  EXPECT_EQ(LeadingNumber("-1", 0, 255), 0);
  EXPECT_EQ(LeadingNumber("4294967297", 0, 255), 255);
  EXPECT_EQ(LeadingNumber("18446744073709551617", 0, 255), 255);
  EXPECT_EQ(LeadingNumber("-18446744073709551617", -7, 255), -7);
  EXPECT_EQ(LeadingNumber(QByteArray(100000, '9'), 0, 2147483647), 2147483647);
  EXPECT_EQ(LeadingNumber('-' + QByteArray(100000, '9'), -2147483647, 0), -2147483647);
}

TEST(Text, AHugeNumberNeverWrapsIntoAPlausibleOne) {
  EXPECT_EQ(LeadingNumber16("32767"), 32767);
  EXPECT_EQ(LeadingNumber16("32768"), 32767);
  EXPECT_EQ(LeadingNumber16("65540"), 32767);
  EXPECT_EQ(LeadingNumber16("-32768"), -32768);
  EXPECT_EQ(LeadingNumber16("-32769"), -32768);
  EXPECT_EQ(LeadingNumber16("99999999999999999999"), 32767);
}

TEST(Text, AValueStandsRightOfTheFirstEqualsSign) {
  EXPECT_EQ(ValueAfterEquals("Row = 4"), " 4");
  EXPECT_EQ(ValueAfterEquals("Row=4"), "4");
  EXPECT_EQ(ValueAfterEquals("a=b=c"), "b=c");
  EXPECT_EQ(ValueAfterEquals("a="), "");
  EXPECT_EQ(ValueAfterEquals("=4"), "4");
  EXPECT_EQ(ValueAfterEquals(""), "");
}

TEST(Text, AKeyValueLineWithoutEqualsIsWhollyTheValue) {
  EXPECT_EQ(ValueAfterEquals("4"), "4");
  EXPECT_EQ(ValueAfterEquals("Row 4"), "Row 4");
}

TEST(Text, LeadingZerosFillUpToTheGivenPlaces) {
  EXPECT_EQ(ZeroPadded(7, 3), "007");
  EXPECT_EQ(ZeroPadded(0, 2), "00");
  EXPECT_EQ(ZeroPadded(255, 3), "255");
  EXPECT_EQ(ZeroPadded(1234, 3), "1234");
  EXPECT_EQ(ZeroPadded(-5, 2), "-05");
}

}  // namespace
}  // namespace Brivon1
