// What the delay box of the property dialog takes.
#include "schedule/delay_field.h"

#include <gtest/gtest.h>

namespace {

using Brivon1::DelayField;

QString Text(const char* text) { return QString::fromUtf8(text); }

TEST(DelayFieldTest, AValidNumberIsRememberedAndRewrittenWithoutZerosAndBlanks) {
  DelayField field(10);
  EXPECT_EQ(field.Changed(Text("07")), Text("7"));
  EXPECT_EQ(field.LastValid(), 7);
  EXPECT_EQ(field.Changed(Text(" 99 ")), Text("99"));
  EXPECT_EQ(field.LastValid(), 99);
  EXPECT_EQ(field.Changed(Text("1")), Text("1"));
}

TEST(DelayFieldTest, AnythingElseGivesWayToTheLastValidDelay) {
  DelayField field(10);
  for (const char* text : {"0", "100", "-5", "abc", "99999999999", "00"}) {
    EXPECT_EQ(field.Changed(Text(text)), Text("10")) << text;
    EXPECT_EQ(field.LastValid(), 10);
  }
}

TEST(DelayFieldTest, AnEmptyTextStays) {
  DelayField field(10);
  EXPECT_EQ(field.Changed(QString()), QString());
  EXPECT_EQ(field.Changed(Text("  ")), Text("  "));
  EXPECT_EQ(field.LastValid(), 10);
}

TEST(DelayFieldTest, AStoredDelayOutside1To99StartsAtTheNearestValidOne) {
  EXPECT_EQ(DelayField(0).LastValid(), 1);
  EXPECT_EQ(DelayField(-32768).LastValid(), 1);
  EXPECT_EQ(DelayField(100).LastValid(), 99);
  EXPECT_EQ(DelayField(32767).LastValid(), 99);
  EXPECT_EQ(DelayField(1).LastValid(), 1);
  EXPECT_EQ(DelayField(99).LastValid(), 99);
}

}  // namespace
