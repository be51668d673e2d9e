// The rules behind the launcher and the small dialogs.
#include <gtest/gtest.h>

#include "app/launcher_layout.h"
#include "page/delay_field.h"
#include "page/dimension_list.h"
#include "page/display_feature.h"
#include "support/program_folder.h"

namespace {

using Brivon1::DelayField;
using Brivon1::Dimension;
using Brivon1::FeatureCode;

QString Text(const char* text) { return QString::fromUtf8(text); }

TEST(LauncherLayoutTest, AWidthOf9000TwipsGivesButtonsOf1780) {
  EXPECT_EQ(Brivon1::LauncherButtonWidth(9000), 1780);
}

TEST(LauncherLayoutTest, PixelsAreTheNearestOnesAndTheRowStaysInsideTheWindow) {
  EXPECT_EQ(Brivon1::LauncherButtonPixels(600), 119);  // 1780 twips are 118.67 pixels
  EXPECT_EQ(Brivon1::LauncherButtonPixels(560), 111);  // 1660 twips are 110.67
  for (int width = 0; width <= 8000; ++width) {
    ASSERT_LE(5 * Brivon1::LauncherButtonPixels(width), width);
  }
}

TEST(LauncherLayoutTest, AWindowTooNarrowForTheRuleGivesNoNegativeWidth) {
  EXPECT_EQ(Brivon1::LauncherButtonWidth(0), 0);
  EXPECT_EQ(Brivon1::LauncherButtonWidth(99), 0);
}

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

TEST(DimensionListTest, EachDistinctSizeOnceInTheOrderOfTheLowestId) {
  TemporaryProgramFolder folder;
  folder.Configure(
      "[Dimension Config]\r\nID000=8x128,Mono\r\nID003=4x96,Tri\r\nID004=8x128,Tri\r\n"
      "ID100=0x96,Mono\r\nID101=4x0,Mono\r\nID102=96x4,Mono\r\nID255=4x97,Mono\r\n");
  const QList<Dimension> expected = {{8, 128}, {4, 96}, {96, 4}, {4, 97}};
  EXPECT_EQ(Brivon1::DistinctDimensions(Brivon1::Store()), expected);
}

TEST(DimensionListTest, ASizeReadsWithABlankBeforeBothNumbers) {
  EXPECT_EQ(Brivon1::DimensionText({4, 96}), Text(" 4x 96"));
  EXPECT_EQ(Brivon1::DimensionText({12, 192}), Text(" 12x 192"));
}

TEST(DisplayFeatureTest, TheFeaturesStandInTheOrderInWhichTheyAreOffered) {
  const char* expected[] = {"Appear",     "Flip", "Open",  "Wipe Left",
                            "Wipe Right", "Fall", "Slide", "Shift"};
  ASSERT_EQ(Brivon1::kDisplayFeatures.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_STREQ(Brivon1::kDisplayFeatures[i].name, expected[i]);
  }
}

TEST(DisplayFeatureTest, ThePreselectedFeatureEqualsTheUpperCaseFormExactly) {
  EXPECT_EQ(Brivon1::PreselectedFeature(Text("APPEAR")), 0);
  EXPECT_EQ(Brivon1::PreselectedFeature(Text("WIPE LEFT")), 3);
  EXPECT_EQ(Brivon1::PreselectedFeature(Text("WIPE RIGHT")), 4);
  EXPECT_EQ(Brivon1::PreselectedFeature(Text("SHIFT")), 7);
  for (const char* text : {"Shift", "SHIFT ", "", "ROLL"}) {
    EXPECT_EQ(Brivon1::PreselectedFeature(Text(text)), 0) << text;
  }
}

TEST(DisplayFeatureTest, EveryEnglishNameHasItsCodeInAnyCase) {
  const TemporaryProgramFolder folder;
  const std::pair<const char*, char> expected[] = {
      {"APPEAR", 'A'},    {"flip", 'B'}, {" Open ", 'C'}, {"Wipe Right", 'D'},
      {"wipe left", 'E'}, {"Fall", 'F'}, {"SLIDE", 'G'},  {"Shift", 'H'}};
  for (const auto& [name, code] : expected) {
    EXPECT_EQ(FeatureCode(Text(name)), QLatin1Char(code)) << name;
  }
}

TEST(DisplayFeatureTest, TheEnglishNameOfACodesPlace) {
  const char* expected[] = {"Appear",    "Flip", "Open",  "Wipe Right",
                            "Wipe Left", "Fall", "Slide", "Shift"};
  for (int place = 0; place < 8; ++place) {
    EXPECT_EQ(Brivon1::FeatureNameAtCode(place), Text(expected[place]));
  }
  EXPECT_EQ(Brivon1::FeatureNameAtCode(8), QString());
  EXPECT_EQ(Brivon1::FeatureNameAtCode(9), QString());
  EXPECT_EQ(Brivon1::FeatureNameAtCode(-1), QString());
}

TEST(DisplayFeatureTest, AFeatureNameInTheUsersLanguageTheEnglishNamesFirstThenTheLookupElseA) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage(
      "[frmDelay]\nListFeature.List(1)=Umklappen\nListFeature.List(5)=Flip\n"
      "ListFeature.List(9)=Neun\n");
  EXPECT_EQ(FeatureCode(Text("Flip")), QChar(u'B'));
  EXPECT_EQ(FeatureCode(Text(" Umklappen ")), QChar(u'B'));
  EXPECT_EQ(FeatureCode(Text("Neun")), QChar(u'J'));
  EXPECT_EQ(FeatureCode(Text("Zehn")), QChar(u'A'));
}

TEST(DisplayFeatureTest, WithoutALanguageTheFileIsNotAsked) {
  const TemporaryProgramFolder folder;
  folder.Write(Text("langSetting.INI"), "[frmDelay]\nListFeature.List(1)=Umklappen\n");
  EXPECT_EQ(FeatureCode(Text("Umklappen")), QChar(u'A'));
}

}  // namespace
