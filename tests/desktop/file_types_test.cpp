// What a file manager calls the program's files, by their first line. The folder that
// XDG_DATA_DIRS names holds the types as they are installed.
#include <string>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QMimeDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kPage = "application/x-brivon-page";
constexpr const char* kSchedule = "application/x-brivon-schedule";
constexpr const char* kScrolling = "application/x-brivon-scrolling-message";

class FileTypesTest : public testing::Test {
 protected:
  std::string TypeOf(const QString& name, const QByteArray& content) {
    const QString path = folder_.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    file.close();
    return types_.mimeTypeForFile(path).name().toStdString();
  }

  QStringList Samples(const QString& folder, const QString& ending) {
    const QDir samples(QStringLiteral(BRIVON_SAMPLES "/") + folder);
    QStringList paths;
    for (const QString& name : samples.entryList({ending})) paths.append(samples.filePath(name));
    EXPECT_FALSE(paths.isEmpty());
    return paths;
  }

  void ExpectSamples(const QString& folder, const QString& ending, const char* type,
                     const QString& comment) {
    for (const QString& path : Samples(folder, ending)) {
      const QMimeType found = types_.mimeTypeForFile(path);
      EXPECT_EQ(found.name().toStdString(), type) << qPrintable(path);
      EXPECT_EQ(found.comment(), comment) << qPrintable(path);
      EXPECT_EQ(found.iconName(), QString::fromLatin1(type).replace(u'/', u'-'))
          << qPrintable(path);
      EXPECT_TRUE(found.inherits(u"text/plain"_s)) << qPrintable(path);
    }
  }

  QTemporaryDir folder_;
  QMimeDatabase types_;
};

TEST_F(FileTypesTest, EverySampleIsCalledByWhatItIs) {
  ExpectSamples(u"messages"_s, u"*.msg"_s, kPage, u"Brivon page"_s);
  ExpectSamples(u"schedules"_s, u"*.sch"_s, kSchedule, u"Brivon schedule"_s);
  ExpectSamples(u"messages"_s, u"*.srl"_s, kScrolling, u"Brivon scrolling message"_s);
}

TEST_F(FileTypesTest, CommentsAreInGermanAndSpanishToo) {
  QLocale::setDefault(QLocale(QLocale::German));
  EXPECT_EQ(types_.mimeTypeForName(QLatin1String(kPage)).comment(), u"Brivon-Seite"_s);
  EXPECT_EQ(types_.mimeTypeForName(QLatin1String(kSchedule)).comment(), u"Brivon-Zeitplan"_s);
  QLocale::setDefault(QLocale(QLocale::Spanish));
  EXPECT_EQ(types_.mimeTypeForName(QLatin1String(kPage)).comment(), u"Página de Brivon"_s);
  EXPECT_EQ(types_.mimeTypeForName(QLatin1String(kScrolling)).comment(),
            u"Mensaje desplazable de Brivon"_s);
  QLocale::setDefault(QLocale::c());
}

TEST_F(FileTypesTest, TheFirstLineDecidesNotTheEnding) {
  EXPECT_EQ(TypeOf(u"a.sch"_s, "*** Brivon Message File ***\r\nRow = 4\r\n"), kPage);
  EXPECT_EQ(TypeOf(u"a.msg"_s, "*** Brivon Schedule File ***\r\nWeek =0\r\n"), kSchedule);
  EXPECT_EQ(TypeOf(u"a.msg"_s, "*** Brivon Shift Message File ***\r\n"), kScrolling);
}

TEST_F(FileTypesTest, ABlankBeforeTheFirstLineDoesNotHideIt) {
  EXPECT_EQ(TypeOf(u"a.msg"_s, " *** Brivon Message File ***\r\nRow = 4\r\n"), kPage);
}

TEST_F(FileTypesTest, FilesOfOtherProgramsAreNotCalledOurs) {
  for (const QByteArray& content :
       {"From: a@example.org\r\nSubject: x\r\n\r\nHello\r\n"_ba, "msgid \"Open\"\n"_ba,
        "(kicad_sch (version 1))\n"_ba, "*** Message File ***\r\n"_ba, "\x01\x02\x03"_ba, ""_ba,
        QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(1024, '\0')}) {
    for (const QString& name : {u"a.msg"_s, u"a.sch"_s, u"a.srl"_s}) {
      EXPECT_THAT(TypeOf(name, content), testing::Not(testing::HasSubstr("brivon")))
          << qPrintable(name) << ' ' << content.constData();
    }
  }
  EXPECT_EQ(TypeOf(u"letter.msg"_s, "Dear Sir or Madam,\r\n"), "text/plain");
}

}  // namespace
