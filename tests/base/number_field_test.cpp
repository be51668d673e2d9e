// Numbers that are typed into fields with bounds.
#include "base/number_field.h"

#include <gtest/gtest.h>

#include "support/text.h"

namespace {

using Brivon1::NumberField;
using Brivon1::WholeNumber;

TEST(WholeNumberTest, DigitsAloneWithinTheBoundsAreANumber) {
  EXPECT_EQ(WholeNumber(Text("0"), 0, 255), 0);
  EXPECT_EQ(WholeNumber(Text("255"), 0, 255), 255);
  EXPECT_EQ(WholeNumber(Text("007"), 0, 255), 7);
  EXPECT_EQ(WholeNumber(Text("65535"), 1, 65535), 65535);
}

TEST(WholeNumberTest, AnythingElseIsNone) {
  for (const char* text :
       {"", " ", "256", "-1", "+1", " 1", "1 ", "1,5", "1.", "0x1", "1e1", "abc", "4294967297",
        "18446744073709551617", "340282366920938463463374607431768211457", "٣", "１"}) {
    EXPECT_EQ(WholeNumber(Text(text), 0, 255), std::nullopt) << text;
  }
  EXPECT_EQ(WholeNumber(Text("0"), 1, 12), std::nullopt);
  EXPECT_EQ(WholeNumber(QString(100000, u'9'), 0, 65535), std::nullopt);
}

TEST(NumberFieldTest, AValidTextStaysAsItIsLeadingZerosIncluded) {
  NumberField field(0, 255);
  for (const char* text : {"0", "00", "007", "12", "255"}) {
    EXPECT_EQ(field.Changed(Text(text)), Text(text));
    EXPECT_EQ(field.LastValidText(), Text(text));
  }
}

TEST(NumberFieldTest, OutOfRangeTheLastValidTextComesBack) {
  NumberField field(1, 12);
  EXPECT_EQ(field.Changed(Text("0")), QString());
  EXPECT_EQ(field.Changed(Text("12")), Text("12"));
  for (const char* text : {"13", "0", "120", "-1", "x", "1 "}) {
    EXPECT_EQ(field.Changed(Text(text)), Text("12")) << text;
  }
}

TEST(NumberFieldTest, AnEmptyTextStaysAndForgetsNothing) {
  NumberField field(1, 12, Text("4"));
  EXPECT_EQ(field.Changed(QString()), QString());
  EXPECT_EQ(field.Changed(Text("99")), Text("4"));
}

}  // namespace
