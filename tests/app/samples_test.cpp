// The files that are shipped as samples: complete, and read by the program as they are meant.
#include <map>
#include <string>
#include <vector>

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QSet>
#include <QStringList>

#include <gtest/gtest.h>

#include "language/caption_tables.h"
#include "language/display_feature.h"
#include "language/further_texts.h"
#include "language/module_language.h"
#include "page/message_file.h"
#include "schedule/schedule_file.h"
#include "scrolling/scrolling_file.h"
#include "store/configuration_store.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using ModuleLanguage::CaptionKeys;
using ModuleLanguage::CaptionTables;

QByteArray Sample(const QString& name) {
  QFile file(QStringLiteral(BRIVON_SAMPLES "/") + name);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return file.readAll();
}

// The keys of a file by section, each as often as it stands there.
std::map<QString, QStringList> KeysIn(const QByteArray& content) {
  std::map<QString, QStringList> keys;
  QString section;
  for (const QString& whole : QString::fromUtf8(content).split(u'\n')) {
    const QString line = whole.trimmed();
    if (line.startsWith(u'[')) section = line.mid(1, line.size() - 2);
    if (line.isEmpty() || line.startsWith(u'[') || line.startsWith(u';')) continue;
    keys[section].append(line.section(u'=', 0, 0));
  }
  for (auto& [name, list] : keys) list.sort();
  return keys;
}

std::map<QString, QStringList> ExpectedKeys() {
  std::map<QString, QStringList> keys;
  for (const auto& table : CaptionTables()) {
    for (const QString& key : CaptionKeys(table)) {
      // No feature has a ninth or tenth code.
      if (key == "ListFeature.List(8)"_L1) continue;
      if (key == "ListFeature.List(9)"_L1) continue;
      keys[QString::fromLatin1(table.window)].append(key);
    }
  }
  for (const auto& table : ModuleLanguage::FurtherCaptions())
    keys[u"Texts"_s] += CaptionKeys(table);
  for (const auto& text : ModuleLanguage::FurtherTexts()) {
    keys[u"Texts"_s].append(QString::fromLatin1(text.key));
  }
  keys[u"Texts"_s].removeDuplicates();  // some spellings share a key
  keys[u"Language"_s] = QStringList{u"Locale"_s};
  for (const auto& message : ModuleLanguage::Messages()) {
    QStringList& list = keys[QString::fromLatin1(message.section)];
    list.append(QString::fromLatin1(message.key));
    list.removeDuplicates();  // some messages share a key with a caption
  }
  for (auto& [name, list] : keys) list.sort();
  return keys;
}

class SampleLanguageTest : public testing::TestWithParam<std::string> {
 protected:
  QByteArray Content() const {
    return Sample(u"languages/%1/langSetting.INI"_s.arg(QString::fromStdString(GetParam())));
  }
};

TEST_P(SampleLanguageTest, NoKeyIsMissingAndNoneIsUnknown) {
  const auto expected = ExpectedKeys();
  const auto found = KeysIn(Content());
  EXPECT_EQ(expected.size(), 13U);
  EXPECT_EQ(found.size(), expected.size());
  for (const auto& [section, keys] : expected) {
    ASSERT_TRUE(found.contains(section)) << section.toStdString();
    EXPECT_EQ(found.at(section).join(u'\n').toStdString(), keys.join(u'\n').toStdString());
  }
}

TEST_P(SampleLanguageTest, EveryValueIsTextThatIsNotCut) {
  TemporaryProgramFolder folder;
  folder.UseLanguage(Content());
  ASSERT_TRUE(Content().isValidUtf8());
  const ModuleLanguage::LanguageFile file;
  for (const auto& [section, keys] : ExpectedKeys()) {
    for (const QString& key : keys) {
      const QString value = file.Value(section, key, QString());
      EXPECT_FALSE(value.isEmpty()) << key.toStdString();
      EXPECT_LT(value.size(), 255) << key.toStdString();
    }
  }
}

TEST_P(SampleLanguageTest, EveryFeatureNameLeadsToItsOwnCode) {
  TemporaryProgramFolder folder;
  folder.UseLanguage(Content());
  const ModuleLanguage::LanguageFile file;
  const Brivon1::FeatureNames features;
  for (int n = 0; n < 8; ++n) {
    const QString name = file.Value(u"frmDelay"_s, u"ListFeature.List(%1)"_s.arg(n), QString());
    EXPECT_EQ(features.Code(name), QChar(u'A' + n)) << name.toStdString();
  }
}

TEST_P(SampleLanguageTest, EveryLineEndsWithCrLf) {
  EXPECT_GT(Content().count('\n'), 300);
  EXPECT_EQ(Content().count('\n'), Content().count("\r\n"));
}

TEST_P(SampleLanguageTest, EveryTextHasThePlacesOfItsValues) {
  TemporaryProgramFolder folder;
  folder.UseLanguage(Content());
  const ModuleLanguage::LanguageFile file;
  for (const auto& text : ModuleLanguage::FurtherTexts()) {
    const QString english = QString::fromLatin1(text.text);
    const QString value = file.Value(u"Texts"_s, QString::fromLatin1(text.key), QString());
    for (const QString& place : {u"%1"_s, u"%2"_s}) {
      EXPECT_EQ(value.count(place), english.count(place)) << text.key;
    }
    EXPECT_EQ(value.count(u'%'), english.count(u'%')) << text.key;
  }
}

TEST_P(SampleLanguageTest, TheLocaleIsALanguage) {
  TemporaryProgramFolder folder;
  folder.UseLanguage(Content());
  const QString name = ModuleLanguage::ReadLangString(u"Language"_s, u"Locale"_s, QString());
  EXPECT_NE(QLocale(name).language(), QLocale::C) << name.toStdString();
}

// The lines of the template that stand above the keys.
std::map<QString, QString> CommentsIn(const QByteArray& content) {
  std::map<QString, QString> comments;
  QString above;
  for (const QString& whole : QString::fromUtf8(content).split(u'\n')) {
    const QString line = whole.trimmed();
    if (line.contains(u'=') && !line.startsWith(u';')) {
      comments[line.section(u'=', 0, 0)] = above.startsWith(u"; "_s) ? above.mid(2) : QString();
    }
    above = line;
  }
  return comments;
}

TEST(LanguageTemplateTest, EveryKeySaysWhereItsTextIsSeen) {
  const auto comments = CommentsIn(Sample(u"languages/english/langSetting.INI"_s));
  EXPECT_GT(comments.size(), 300U);
  for (const auto& [key, comment] : comments) EXPECT_FALSE(comment.isEmpty()) << key.toStdString();
  for (const auto& text : ModuleLanguage::FurtherTexts()) {
    EXPECT_EQ(comments.at(QString::fromLatin1(text.key)), QLatin1String(text.seen)) << text.key;
  }
}

TEST(LanguageTemplateTest, EveryFurtherTextStandsThereAsTheProgramHasIt) {
  TemporaryProgramFolder folder;
  folder.UseLanguage(Sample(u"languages/english/langSetting.INI"_s));
  const ModuleLanguage::LanguageFile file;
  QSet<QString> seen;
  for (const auto& text : ModuleLanguage::FurtherTexts()) {
    const QString key = QString::fromLatin1(text.key);
    if (seen.contains(key)) continue;  // another spelling of the same text
    seen.insert(key);
    EXPECT_EQ(file.Value(u"Texts"_s, key, QString()), QLatin1String(text.text));
  }
}

// Whatever languages there are.
std::vector<std::string> Languages() {
  std::vector<std::string> names;
  const QDir folder(QStringLiteral(BRIVON_SAMPLES "/languages"));
  for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    names.push_back(name.toStdString());
  }
  return names;
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleLanguageTest, testing::ValuesIn(Languages()),
                         [](const auto& test) { return test.param; });

TEST(SampleLanguagesTest, ThereAreAtLeastThree) { EXPECT_GE(Languages().size(), 3U); }

TEST(SampleConfigurationTest, TheSampleConfiguresTwoPanelsOnOneAddress) {
  TemporaryProgramFolder folder;
  folder.Configure(Sample(u"brivon.ini"_s));
  const Brivon1::Configuration& store = Brivon1::Store();
  EXPECT_EQ(store.panels[1].rows, 4);
  EXPECT_EQ(store.panels[1].columns, 96);
  EXPECT_EQ(store.panels[1].colour_type, Brivon1::kTri);
  EXPECT_EQ(store.panels[1].address, "127.0.0.1:2101");
  EXPECT_EQ(store.panels[2].rows, 12);
  EXPECT_EQ(store.panels[2].columns, 192);
  EXPECT_EQ(store.panels[2].colour_type, Brivon1::kMono);
  EXPECT_EQ(store.panels[2].address, "127.0.0.1:2101");
  int configured = 0;
  for (const auto& panel : store.panels) configured += panel.IsConfigured() ? 1 : 0;
  EXPECT_EQ(configured, 2);
  EXPECT_EQ(store.Mode(), Brivon1::SendMode::kTcp);
  EXPECT_EQ(store.baud_rate, 9600);
  EXPECT_EQ(store.com_port, 2);
  EXPECT_EQ(store.delay_period, 300);
  EXPECT_TRUE(store.serial_devices.empty());
}

TEST(SampleMessagesTest, EveryMessageIsAPageWithCrLfLineEnds) {
  const QDir folder(QStringLiteral(BRIVON_SAMPLES "/messages"));
  const QStringList names = folder.entryList({u"*.msg"_s});
  EXPECT_EQ(names.size(), 3);
  for (const QString& name : names) {
    EXPECT_TRUE(Brivon1::LoadMessageFile(folder.filePath(name))) << name.toStdString();
    const QByteArray content = Sample(u"messages/"_s + name);
    EXPECT_EQ(content.count('\n'), content.count("\r\n")) << name.toStdString();
  }
}

TEST(SampleMessagesTest, EveryScrollingMessageIsReadAndWrittenAgainByteByByte) {
  const TemporaryProgramFolder folder;
  const QStringList names =
      QDir(QStringLiteral(BRIVON_SAMPLES "/messages")).entryList({u"*.srl"_s});
  EXPECT_EQ(names.size(), 1);
  for (const QString& name : names) {
    const QByteArray content = Sample(u"messages/"_s + name);
    const auto message = Brivon1::ReadScrollingMessage(folder.Write(name, content));
    ASSERT_TRUE(message.has_value()) << name.toStdString();
    EXPECT_GT(message->Length(), 30) << "long enough to scroll";
    EXPECT_LE(message->Length(), 1000);
    Brivon1::WriteScrollingMessage(folder.Path(name), *message);
    EXPECT_EQ(folder.Read(name), content) << name.toStdString();
  }
}

TEST(SampleSchedulesTest, TheScheduleNamesMessagesOfItsSizeThatAreThere) {
  const QString path = QStringLiteral(BRIVON_SAMPLES "/schedules/every_day.sch");
  const auto schedule = Brivon1::LoadScheduleFile(path);
  ASSERT_TRUE(schedule);
  Brivon1::SetProgramFolder(QStringLiteral(BRIVON_SAMPLES));
  EXPECT_EQ(schedule->Count(), 3);
  for (const Brivon1::Sequence& sequence : schedule->Sequences()) {
    const QString name = Brivon1::FieldPath(sequence.path);
    EXPECT_EQ(Brivon1::MessageFileRefusal(Brivon1::InProgramFolder(name), schedule->dimension),
              QString())
        << name.toStdString();
  }
  Brivon1::SetProgramFolder({});
  const QByteArray content = Sample(u"schedules/every_day.sch"_s);
  EXPECT_EQ(content.count('\n'), content.count("\r\n"));
}

}  // namespace
