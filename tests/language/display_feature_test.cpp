// The names and codes of the display features.
#include "language/display_feature.h"

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "support/program_folder.h"
#include "support/use_code_page.h"

namespace {

using Brivon1::FeatureNames;

QString Text(const char* text) { return QString::fromUtf8(text); }

TEST(DisplayFeatureTest, TheFeaturesStandInTheOrderInWhichTheyAreOffered) {
  const char* expected[] = {"Appear",     "Flip", "Open",  "Wipe Left",
                            "Wipe Right", "Fall", "Slide", "Shift"};
  ASSERT_EQ(Brivon1::kDisplayFeatures.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_STREQ(Brivon1::kDisplayFeatures[i].name, expected[i]);
  }
}

TEST(DisplayFeatureTest, ThePreselectedFeatureEqualsTheUpperCaseFormExactly) {
  EXPECT_EQ(FeatureNames().Preselected(Text("APPEAR")), 0);
  EXPECT_EQ(FeatureNames().Preselected(Text("WIPE LEFT")), 3);
  EXPECT_EQ(FeatureNames().Preselected(Text("WIPE RIGHT")), 4);
  EXPECT_EQ(FeatureNames().Preselected(Text("SHIFT")), 7);
  for (const char* text : {"Shift", "SHIFT ", "", "ROLL"}) {
    EXPECT_EQ(FeatureNames().Preselected(Text(text)), 0) << text;
  }
}

TEST(DisplayFeatureTest, EveryEnglishNameHasItsCodeInAnyCase) {
  const TemporaryProgramFolder folder;
  const std::pair<const char*, char> expected[] = {
      {"APPEAR", 'A'},    {"flip", 'B'}, {" Open ", 'C'}, {"Wipe Right", 'D'},
      {"wipe left", 'E'}, {"Fall", 'F'}, {"SLIDE", 'G'},  {"Shift", 'H'}};
  for (const auto& [name, code] : expected) {
    EXPECT_EQ(FeatureNames().Code(Text(name)), QLatin1Char(code)) << name;
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
  EXPECT_EQ(FeatureNames().Code(Text("Flip")), QChar(u'B'));
  EXPECT_EQ(FeatureNames().Code(Text(" Umklappen ")), QChar(u'B'));
  EXPECT_EQ(FeatureNames().Code(Text("Neun")), QChar(u'J'));
  EXPECT_EQ(FeatureNames().Code(Text("Zehn")), QChar(u'A'));
}

TEST(DisplayFeatureTest, WithoutALanguageTheFileIsNotAsked) {
  const TemporaryProgramFolder folder;
  folder.Write(Text("langSetting.INI"), "[frmDelay]\nListFeature.List(1)=Umklappen\n");
  EXPECT_EQ(FeatureNames().Code(Text("Umklappen")), QChar(u'A'));
}

// A language of which one name is too long for a schedule, one has a character that the code page
// lacks, one is the English name of another code, one would be trimmed and one is empty.
constexpr const char* kLanguage =
    "[frmDelay]\nListFeature.List(0)=Erscheinen\nListFeature.List(1)=Umklappen\n"
    "ListFeature.List(2)=Zwanzig Zeichen lang\nListFeature.List(3)=Einundzwanzig Zeichen\n"
    "ListFeature.List(4)=左へ\nListFeature.List(5)=Flip\nListFeature.List(6)=\" Gleiten \"\n"
    "ListFeature.List(7)=\nListFeature.List(8)=Acht\n"
    "ListFeature.List(9)=Neun, und viel zu lang\n";

TEST(DisplayFeatureTest, TheEntriesOfALanguageAreItsOwnElseTheEnglishNamesOfTheirCodes) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage("[frmDelay]\nListFeature.List(1)=Umklappen\nListFeature.List(8)=Acht\n");
  const FeatureNames names;
  EXPECT_EQ(names.Entry(0), Text("Appear"));
  EXPECT_EQ(names.Entry(1), Text("Umklappen"));
  EXPECT_EQ(names.Entry(3), Text("Wipe Right"));
  EXPECT_EQ(names.Entry(8), Text("Acht"));
  EXPECT_EQ(names.Entry(9), std::nullopt);
}

TEST(DisplayFeatureTest, TheDialogListsTheEntriesAndSelectsTheOneThatEqualsTheText) {
  const TemporaryProgramFolder folder;
  EXPECT_EQ(FeatureNames().Entries().join(u','),
            Text("Appear,Flip,Open,Wipe Left,Wipe Right,Fall,Slide,Shift"));
  folder.UseLanguage("[frmDelay]\nListFeature.List(1)=Umklappen\nListFeature.List(9)=Neun\n");
  EXPECT_EQ(FeatureNames().Entries().join(u','),
            Text("Appear,Umklappen,Open,Wipe Right,Wipe Left,Fall,Slide,Shift,Neun"));
  EXPECT_EQ(FeatureNames().Preselected(Text("Neun")), 8);
  EXPECT_EQ(FeatureNames().Preselected(Text("neun")), -1);
}

TEST(DisplayFeatureTest, TheNamesStayAsTheyWereReadWhateverBecomesOfTheFile) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage("[frmDelay]\nListFeature.List(1)=Umklappen\n");
  const FeatureNames names;
  folder.UseLanguage("[frmDelay]\nListFeature.List(1)=Kippen\n");
  EXPECT_EQ(names.Code(Text("Umklappen")), QChar(u'B'));
  EXPECT_EQ(names.Code(Text("Kippen")), QChar(u'A'));
  EXPECT_EQ(names.ToStore(Text("Umklappen"), QString()), Text("Umklappen"));
  EXPECT_EQ(FeatureNames().Code(Text("Kippen")), QChar(u'B'));
}

TEST(DisplayFeatureTest, ANewStepStartsWithAppearWithALanguageWithItsEntry2) {
  const TemporaryProgramFolder folder;
  EXPECT_EQ(FeatureNames().First(), Text("APPEAR"));
  folder.UseLanguage("[frmDelay]\nListFeature.List(0)=Erscheinen\nListFeature.List(2)=Auf\n");
  EXPECT_EQ(FeatureNames().First(), Text("Auf"));
  folder.UseLanguage("[frmDelay]\nListFeature.List(0)=Erscheinen\n");
  EXPECT_EQ(FeatureNames().First(), Text("Open"));
}

TEST(DisplayFeatureTest, PreselectedTheSlotsFeatureTrimmedInUpperCaseWithoutALanguage) {
  const TemporaryProgramFolder folder;
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Wipe Left           ")), Text("WIPE LEFT"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Umklappen")), Text("UMKLAPPEN"));
  EXPECT_EQ(FeatureNames().ToPreselect(QString()), QString());
}

TEST(DisplayFeatureTest, PreselectedWithALanguageTheEntryOfTheSlotsCode) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage(kLanguage);
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Umklappen           ")), Text("Umklappen"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Flip")), Text("Umklappen"));  // not entry 5
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Open                ")), Text("Zwanzig Zeichen lang"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("wipe right")), Text("Einundzwanzig Zeichen"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Wipe Left")), Text("左へ"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Slide")), Text(" Gleiten "));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Plegar")), Text("Erscheinen"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Acht")), Text("Acht"));
}

TEST(DisplayFeatureTest, WithoutALanguageTheChosenNameIsStored) {
  const TemporaryProgramFolder folder;
  EXPECT_EQ(FeatureNames().ToStore(Text("Appear"), QString()), Text("Appear"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Wipe Left"), Text("Shift")), Text("Wipe Left"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Appear"), Text("SHIFT")), Text("Appear"));
}

TEST(DisplayFeatureTest, AChosenNameThatTheFileCannotHoldOrThatReadsAsAnotherIsStoredInEnglish) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage(kLanguage);
  const std::pair<const char*, const char*> expected[] = {
      {"Erscheinen", "Erscheinen"},
      {"Zwanzig Zeichen lang", "Zwanzig Zeichen lang"},
      {"Einundzwanzig Zeichen", "Wipe Right"},
      {"左へ", "Wipe Left"},
      {"Flip", "Fall"},
      {" Gleiten ", "Slide"},
      {"", "Shift"},
      {"Acht", "Acht"},
      {"Neun, und viel zu lang", "Appear"}};  // no English name has its code
  for (const auto& [chosen, stored] : expected) {
    EXPECT_EQ(FeatureNames().ToStore(Text(chosen), QString()), Text(stored)) << chosen;
    EXPECT_EQ(FeatureNames().ToStore(Text(chosen), Text("Flip")), Text(stored)) << chosen;
  }
  EXPECT_EQ(FeatureNames().ToStore(Text("no entry"), QString()), Text("Appear"));
}

TEST(DisplayFeatureTest, TheTenthNameOfALanguageIsStoredAndFoundAgain) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage("[frmDelay]\nListFeature.List(0)=Erscheinen\nListFeature.List(9)=Neun\n");
  EXPECT_EQ(FeatureNames().ToStore(Text("Neun"), QString()), Text("Neun"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Neun"), Text("Plegar")), Text("Neun"));
  EXPECT_EQ(FeatureNames().ToPreselect(Text("Neun")), Text("Neun"));
}

TEST(DisplayFeatureTest, ADecomposedNameIsStoredAndFoundAgain) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage("[frmDelay]\nListFeature.List(2)=O\u0308ffnen\n");
  const UseCodePage western(1252);
  const QString stored = FeatureNames().ToStore(Text("O\u0308ffnen"), QString());
  EXPECT_EQ(Brivon1::CodePage::System().ToBytes(stored),
            "\xD6"
            "ffnen");
  EXPECT_EQ(FeatureNames().Code(Text("Öffnen")), QChar(u'C'));
}

TEST(DisplayFeatureTest, ANameThatTheCodePageHasInPartsIsStoredAndFoundAgain) {
  const TemporaryProgramFolder folder;
  folder.UseLanguage("[frmDelay]\nListFeature.List(1)=Lật\n");
  const UseCodePage vietnamese(1258);
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  const QString stored = FeatureNames().ToStore(Text("Lật"), QString());
  EXPECT_EQ(code_page.ToBytes(stored), "L\xE2\xF2t");
  EXPECT_EQ(FeatureNames().Code(code_page.ToText("L\xE2\xF2t")), QChar(u'B'));
  EXPECT_EQ(FeatureNames().ToPreselect(code_page.ToText("L\xE2\xF2t    ")), Text("Lật"));
}

TEST(DisplayFeatureTest, ANameInALanguageNotInUseIsKeptWhereTheDialogLeavesItAtCodeA) {
  const TemporaryProgramFolder folder;
  EXPECT_EQ(FeatureNames().ToStore(Text("Appear"), Text("Plegar")), Text("Plegar"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Flip"), Text("Plegar")), Text("Flip"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Appear"), Text("  ")), Text("Appear"));
  folder.UseLanguage(kLanguage);
  EXPECT_EQ(FeatureNames().ToStore(Text("Erscheinen"), Text("Plegar")), Text("Plegar"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Umklappen"), Text("Plegar")), Text("Umklappen"));
  EXPECT_EQ(FeatureNames().ToStore(Text("Erscheinen"), Text("Umklappen")), Text("Erscheinen"));
}

TEST(DisplayFeatureTest, ADialogThatIsLeftWithOkAloneLeavesTheCode) {
  const TemporaryProgramFolder folder;
  for (const bool with_language : {false, true}) {
    if (with_language) folder.UseLanguage(kLanguage);
    for (const Brivon1::DisplayFeature& feature : Brivon1::kDisplayFeatures) {
      const QString name = Text(feature.name);
      const QString shown = FeatureNames().ToPreselect(name);
      const QString stored = FeatureNames().ToStore(shown, name);
      EXPECT_EQ(FeatureNames().Code(stored), QLatin1Char(feature.code)) << feature.name;
    }
  }
}

}  // namespace
