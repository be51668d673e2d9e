// The texts beside the published format: where they come from, and that the table is whole.
#include "language/further_texts.h"

#include <QSet>

#include <gtest/gtest.h>

#include "language/module_language.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::CaptionKeys;
using ModuleLanguage::FurtherCaptions;
using ModuleLanguage::FurtherTexts;
using ModuleLanguage::TranslateMessage;
using ModuleLanguage::TranslateText;

class FurtherTextsTest : public testing::Test {
 protected:
  TemporaryProgramFolder folder_;
};

TEST_F(FurtherTextsTest, WithoutALanguageEveryTextIsEnglish) {
  folder_.Write(u"langSetting.INI"_s, "[Texts]\r\ntxtEmptyID=Keine Anzeige!\r\n");
  for (const auto& text : FurtherTexts()) {
    EXPECT_EQ(TranslateText(QString::fromLatin1(text.text)), QLatin1String(text.text));
  }
}

TEST_F(FurtherTextsTest, AFileWithoutTheSectionLeavesEveryTextEnglish) {
  folder_.UseLanguage(
      "[Message]\r\ntxtEmptyID=X\r\ntxtMonday=X\r\n[frmSchedule]\r\nTableTag1=X\r\n");
  for (const auto& text : FurtherTexts()) {
    EXPECT_EQ(TranslateText(QString::fromLatin1(text.text)), QLatin1String(text.text));
  }
}

TEST_F(FurtherTextsTest, EveryTextComesFromItsKey) {
  QByteArray content = "[Texts]\r\n";
  for (const auto& text : FurtherTexts()) {
    content += QByteArray(text.key) + "=<" + text.key + ">\r\n";
  }
  folder_.UseLanguage(content);
  for (const auto& text : FurtherTexts()) {
    EXPECT_EQ(TranslateText(QString::fromLatin1(text.text)),
              u"<%1>"_s.arg(QLatin1String(text.key)));
  }
}

TEST_F(FurtherTextsTest, AMessageWithoutAPublishedKeyIsLookedUpHere) {
  folder_.UseLanguage("[Texts]\r\ntxtEmptyID=Keine Anzeige!\r\n");
  EXPECT_EQ(TranslateMessage(u"Empty ID!"_s), u"Keine Anzeige!"_s);
  EXPECT_EQ(TranslateMessage(u"Empty ID!"_s, u"None"_s), u"Keine Anzeige!"_s);
  EXPECT_EQ(TranslateMessage(u"No ID Selected!"_s, u"None"_s), u"None"_s);
}

TEST_F(FurtherTextsTest, APublishedMessageKeepsItsKey) {
  folder_.UseLanguage("[Texts]\r\ntxtTypeSchedule=Further\r\n[Message]\r\nmsgSchF=Published\r\n");
  EXPECT_EQ(TranslateMessage(u"Schedule File"_s), u"Published"_s);
  EXPECT_EQ(TranslateText(u"Schedule File"_s), u"Further"_s);
}

TEST_F(FurtherTextsTest, AnEmptyValueIsAnEmptyTextAndAnUnknownTextStaysAsItIs) {
  folder_.UseLanguage("[Texts]\r\ntxtEmptyID=\r\n");
  EXPECT_EQ(TranslateText(u"Empty ID!"_s), QString());
  EXPECT_EQ(TranslateText(u"empty ID!"_s), u"empty ID!"_s);
}

TEST_F(FurtherTextsTest, BothSpellingsOfAWeekdayHaveOneTranslation) {
  folder_.UseLanguage("[Texts]\r\ntxtWednesday=Mittwoch\r\n");
  EXPECT_EQ(TranslateText(u"Wednesday"_s), u"Mittwoch"_s);
  EXPECT_EQ(TranslateText(u"Wenesday"_s), u"Mittwoch"_s);
  EXPECT_EQ(TranslateText(u"Thurday"_s), u"Thurday"_s);
}

TEST_F(FurtherTextsTest, NoTextStandsInTheTableTwiceAndNoneIsUnexplained) {
  QSet<QString> texts;
  for (const auto& text : FurtherTexts()) {
    EXPECT_FALSE(texts.contains(QLatin1String(text.text))) << text.text;
    texts.insert(QLatin1String(text.text));
    EXPECT_NE(*text.seen, '\0') << text.key;
  }
}

// A message is looked up in the published table first, which would hide a text of the same wording.
TEST_F(FurtherTextsTest, OnlyTwoFileTypesHaveTheWordingOfAPublishedMessage) {
  QStringList both;
  for (const auto& text : FurtherTexts()) {
    for (const auto& message : ModuleLanguage::Messages()) {
      if (QLatin1String(message.text) == QLatin1String(text.text)) {
        both.append(QLatin1String(text.text));
      }
    }
  }
  EXPECT_EQ(both, QStringList({u"Message File"_s, u"Schedule File"_s}));
}

TEST_F(FurtherTextsTest, EveryCaptionsKeyNamesItsWindowAndStandsThereOnce) {
  QSet<QString> keys;
  for (const auto& table : FurtherCaptions()) {
    for (const QString& key : CaptionKeys(table)) {
      EXPECT_TRUE(key.startsWith(QLatin1String(table.window) + u'.')) << key.toStdString();
      EXPECT_FALSE(keys.contains(key)) << key.toStdString();
      keys.insert(key);
    }
  }
}

TEST_F(FurtherTextsTest, PanelLinesAreShownWithTheColourTypesOfTheLanguage) {
  const QList<QByteArray> lines = {"ID001     4x96     Tri-Color     192.168.0.1:80",
                                   "ID002     1x60     Mono-Color     Mono"};
  EXPECT_EQ(ModuleLanguage::ShownPanelLines(lines),
            QStringList({u"ID001     4x96     Tri-Color     192.168.0.1:80"_s,
                         u"ID002     1x60     Mono-Color     Mono"_s}));
  folder_.UseLanguage("[Texts]\r\ntxtTriColor=Dreifarbig\r\n");
  EXPECT_EQ(ModuleLanguage::ShownPanelLines(lines),
            QStringList({u"ID001     4x96     Dreifarbig     192.168.0.1:80"_s,
                         u"ID002     1x60     Mono-Color     Mono"_s}));
}

}  // namespace
