// What an editor says in words of the row that is being typed.
#include "row/row_status.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(RowStatus, SaysRowPlaceDotsAndAttributes) {
  const RowStatus status{.row = 2,
                         .place = 7,
                         .places = 19,
                         .dots = {{84, 96, 0}},
                         .attributes = {u"Green"_s, u"Normal Bold"_s, u"blinking"_s}};
  EXPECT_EQ(RowStatusWords().Line(status),
            u"Row 2, place 7 of 19, 84 of 96 dots, Green, Normal Bold, blinking"_s);
  EXPECT_EQ(RowStatusWords().Unseen(status), QString());
}

TEST(RowStatus, AMessageOfOneRowHasNoNumberAndNoDots) {
  EXPECT_EQ(RowStatusWords().Line({.place = 1, .places = 1000, .attributes = {u"Red"_s}}),
            u"Place 1 of 1000, Red"_s);
}

TEST(RowStatus, SaysHowManyCharactersWillNotBeSeen) {
  const RowStatus status{.row = 1, .place = 19, .places = 19, .dots = {{114, 96, 3}}};
  EXPECT_EQ(RowStatusWords().Unseen(status), u"the last 3 characters will not be seen"_s);
  EXPECT_EQ(RowStatusWords().Line(status),
            u"Row 1, place 19 of 19, 114 of 96 dots, the last 3 characters will not be seen"_s);
  EXPECT_EQ(RowStatusWords().Unseen({.dots = {{102, 96, 1}}}),
            u"the last character will not be seen"_s);
}

TEST(RowStatus, SaysWhySomethingWasLeftOut) {
  const RowStatusWords words;
  EXPECT_EQ(words.Refusal({}), QString());
  EXPECT_EQ(words.Refusal({.no_room = 1, .is_key = true}), u"The row is full."_s);
  EXPECT_EQ(words.Refusal({.no_room = 2, .is_key = true}), u"The row is full."_s);
  EXPECT_EQ(words.Refusal({.no_room = 1}), u"The row is full: one character was left out."_s);
  EXPECT_EQ(words.Refusal({.no_room = 12}), u"The row is full: 12 characters were left out."_s);
  EXPECT_EQ(words.Refusal({.no_row = 1}),
            u"There is no further row: one character was left out."_s);
  EXPECT_EQ(words.Refusal({.no_row = 4}),
            u"There is no further row: 4 characters were left out."_s);
  EXPECT_EQ(words.Refusal({.missing = u"\u65e5"_s}), u"The panels have no character \u65e5."_s);
  EXPECT_EQ(words.Refusal({.missing = u"\u65e5\u672c\u65e5"_s}),
            u"The panels do not have \u65e5 \u672c: 3 characters were left out."_s);
}

TEST(RowStatus, OfManyMissingCharactersEightAreNamed) {
  const RowStatusWords words;
  EXPECT_EQ(words.Refusal({.missing = u"\u4e00\u4e01\u4e02\u4e03\u4e04\u4e05\u4e06\u4e07\u4e00"_s}),
            u"The panels do not have \u4e00 \u4e01 \u4e02 \u4e03 \u4e04 \u4e05 \u4e06 \u4e07: "
            "9 characters were left out."_s);
  EXPECT_EQ(words.Refusal({.missing = u"\u4e00\u4e01\u4e02\u4e03\u4e04\u4e05\u4e06\u4e07\u4e08"_s}),
            u"The panels do not have \u4e00 \u4e01 \u4e02 \u4e03 \u4e04 \u4e05 \u4e06 \u4e07 ...: "
            "9 characters were left out."_s);
}

TEST(RowStatus, AMissingCharacterThatIsNotSeenByItselfIsNamedByItsNumber) {
  const RowStatusWords words;
  EXPECT_EQ(words.Refusal({.missing = u"\U0001F600"_s}),
            u"The panels have no character \U0001F600."_s);
  EXPECT_EQ(words.Refusal({.missing = u"\u200d\u0301\u2003\ue000"_s}),
            u"The panels do not have U+200D U+0301 U+2003 U+E000: 4 characters were left out."_s);
}

TEST(RowStatus, SaysEveryReason) {
  EXPECT_EQ(RowStatusWords().Refusal({.no_room = 2, .missing = u"\u65e5"_s, .no_row = 3}),
            u"The row is full: 2 characters were left out. There is no further row: 3 characters "
            "were left out. The panels have no character \u65e5."_s);
}

}  // namespace
}  // namespace Brivon1
