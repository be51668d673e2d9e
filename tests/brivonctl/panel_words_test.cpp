#include "orders/panel_words.h"

#include <gtest/gtest.h>

namespace BrivonCtl {
namespace {

using Brivon1::kMono;
using Brivon1::kTri;

/// ID 0, three panels of 4x96 and two of 12x192.
Brivon1::Configuration Configured() {
  Brivon1::Configuration configuration;
  configuration.panels[0] = {4, 96, kTri, {}};
  configuration.panels[1] = {4, 96, kTri, {}};
  configuration.panels[4] = {4, 96, kMono, {}};
  configuration.panels[5] = {12, 192, kMono, {}};
  configuration.panels[26] = {12, 192, kTri, {}};
  configuration.panels[255] = {4, 96, kMono, {}};
  return configuration;
}

QList<int> Chosen(const char* text) {
  const PanelWords words = ReadPanelWords(text);
  EXPECT_EQ(words.wrong.toStdString(), "") << text;
  return Choose(words, Configured()).ids;
}

std::string Wrong(const char* text) { return ReadPanelWords(text).wrong.toStdString(); }

TEST(PanelWords, NumbersAndRangesChooseThesePanelsOnceEachInAscendingOrder) {
  EXPECT_EQ(Chosen("26,1,4-5"), (QList<int>{1, 4, 5, 26}));
  EXPECT_EQ(Chosen("5,4-5,5,4"), (QList<int>{4, 5}));
  EXPECT_EQ(Chosen("001"), (QList<int>{1}));
}

TEST(PanelWords, ANumberChoosesItsPanelAlsoWhereNoneIsConfigured) {
  EXPECT_EQ(Chosen("3-5"), (QList<int>{3, 4, 5}));
}

TEST(PanelWords, AllSizesAndColoursChooseConfiguredPanelsButNeverId0) {
  EXPECT_EQ(Chosen("all"), (QList<int>{1, 4, 5, 26, 255}));
  EXPECT_EQ(Chosen("4x96"), (QList<int>{1, 4, 255}));
  EXPECT_EQ(Chosen("mono"), (QList<int>{4, 5, 255}));
  EXPECT_EQ(Chosen("tri"), (QList<int>{1, 26}));
}

TEST(PanelWords, Id0IsChosenWhereItIsWrittenDown) {
  EXPECT_EQ(Chosen("0"), (QList<int>{0}));
  EXPECT_EQ(Chosen("0,1"), (QList<int>{0, 1}));
}

TEST(PanelWords, ACommaAddsAndAPlusNarrowsDown) {
  EXPECT_EQ(Chosen("12x192,1"), (QList<int>{1, 5, 26}));
  EXPECT_EQ(Chosen("4x96,tri"), (QList<int>{1, 4, 26, 255}));
  EXPECT_EQ(Chosen("4x96+mono"), (QList<int>{4, 255}));
  EXPECT_EQ(Chosen("1-100+mono,26"), (QList<int>{4, 5, 26}));
}

TEST(PanelWords, AGroupThatNoPanelBelongsToIsNamed) {
  EXPECT_EQ(Choose(ReadPanelWords("1,8x96"), Configured()).empty.toStdString(), "8x96");
  EXPECT_EQ(Choose(ReadPanelWords("8x96,9x96"), Configured()).empty.toStdString(), "8x96");
  EXPECT_EQ(Choose(ReadPanelWords("all"), {}).empty.toStdString(), "all");
  EXPECT_EQ(Choose(ReadPanelWords("7"), {}).empty.toStdString(), "");
}

TEST(PanelWords, AWordThatIsNoneIsNamedWithWhatWouldBeRight) {
  const std::string right =
      "; panels are named by numbers from 0 to 255, as in 1,4-9, or by all, 4x96, mono, tri";
  for (const char* word : {"256", "7x", "+7", " 7", "7 ", "-7", "7-", "1-2-3", "0x1f", "ALL", "foo",
                           "99999999999999999999", "x96", "4x", "1.5"}) {
    const bool begins_with_plus = word[0] == '+';
    EXPECT_EQ(Wrong(word), begins_with_plus ? "a panel is missing" + right
                                            : '"' + std::string(word) + "\" is no panel" + right);
  }
  EXPECT_EQ(Wrong(""), "a panel is missing" + right);
  EXPECT_EQ(Wrong("1,,2"), "a panel is missing" + right);
  EXPECT_EQ(Wrong("1,"), "a panel is missing" + right);
  EXPECT_EQ(Wrong("1,foo,2"), "\"foo\" is no panel" + right);
}

TEST(PanelWords, ARangeThatRunsBackwardsAndASizeThatNoPanelHasAreRefused) {
  EXPECT_EQ(Wrong("9-4"), "\"9-4\" runs backwards; write 4-9");
  EXPECT_EQ(Wrong("13x96"), "\"13x96\" is no size; a panel has 1 to 12 rows, as in 4x96");
  EXPECT_EQ(Wrong("0x96"), "\"0x96\" is no size; a panel has 1 to 12 rows, as in 4x96");
  EXPECT_EQ(Wrong("4x0"), "\"4x0\" is no size; a panel has 1 to 12 rows, as in 4x96");
}

TEST(PanelWords, ARangeNeverReachesToId0) {
  const std::string right =
      " reaches to ID 0, which is all panels at once; write 0 alone, or a range from 1";
  for (const std::string word : {"0-9", "0-0", "9-0", "000-1"}) {
    EXPECT_EQ(Wrong(word.c_str()), '"' + word + '"' + right);
  }
}

TEST(PanelWords, AllOfThemAreMeantByAllAndById0) {
  EXPECT_TRUE(ReadPanelWords("1,all").NamesAll());
  EXPECT_TRUE(ReadPanelWords("0").NamesAll());
  EXPECT_TRUE(ReadPanelWords("4,0").NamesAll());
  EXPECT_FALSE(ReadPanelWords("all+mono").NamesAll());
  EXPECT_FALSE(ReadPanelWords("1-255").NamesAll());
}

TEST(PanelWords, AllPanelsAreThoseThatAreConfiguredHoweverTheyWereChosen) {
  const auto are_all = [](const char* text) { return AreAll(Chosen(text), Configured()); };
  for (const char* text : {"all", "0", "mono,tri", "1-255", "1,4,5,26,255", "4x96,12x192", "7,0"}) {
    EXPECT_TRUE(are_all(text)) << text;
  }
  for (const char* text : {"mono", "1-254", "4x96,26", "1"}) EXPECT_FALSE(are_all(text)) << text;
}

}  // namespace
}  // namespace BrivonCtl
