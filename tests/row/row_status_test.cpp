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
  EXPECT_EQ(words.Refusal(LeftOut::kNoRoom, 1), u"The row is full."_s);
  EXPECT_EQ(words.Refusal(LeftOut::kNoRoom, 12),
            u"The row is full: 12 characters were left out."_s);
  EXPECT_EQ(words.Refusal(LeftOut::kNoCharacter, 1, u"\u65e5"_s),
            u"The panels have no character \u65e5."_s);
}

}  // namespace
}  // namespace Brivon1
