// The message files that a schedule names: their paths as fields, and which files may enter.
#include <gtest/gtest.h>

#include "base/files.h"
#include "schedule/schedule_file.h"
#include "schedule/schedule_file_fixture.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Dimension;
using Brivon1::FixedField;
using Brivon1::MessageFileRefusal;
using Brivon1::PathField;

TEST(PathFieldTest, APathOf100CharactersIsTakenAndALongerOneRefused) {
  EXPECT_EQ(PathField(QString(100, QLatin1Char('x'))), QByteArray(100, 'x'));
  EXPECT_FALSE(PathField(QString(101, QLatin1Char('x'))));
}

TEST(PathFieldTest, ALetterIsComposedOrTakenApartAsTheCodePageHasIt) {
  const UseCodePage western(1252);
  EXPECT_EQ(PathField(u"/a/Cafe\u0301.msg"_s), FixedField("/a/Caf\xE9.msg", 100));
  EXPECT_FALSE(PathField(u"/a/Việt.msg"_s));
  const UseCodePage vietnamese(1258);
  EXPECT_EQ(PathField(u"/a/Việt.msg"_s), FixedField("/a/Vi\xEA\xF2t.msg", 100));
  EXPECT_FALSE(PathField(QString(99, u'x') + u"ệ"_s)) << "two bytes";
}

TEST(PathFieldTest, ACharacterIsOneByteOfTheCodePage) {
  const UseCodePage western(1252);
  EXPECT_EQ(PathField(u"/a/Straße.msg"_s),
            "/a/Stra\xDF"
            "e.msg" +
                QByteArray(87, ' '));
  EXPECT_FALSE(PathField(u"/a/道路.msg"_s));
}

TEST(PathFieldTest, APathThatWouldNotComeBackTheSameIsRefused) {
  EXPECT_FALSE(PathField(u"/a/b.msg "_s));
  EXPECT_FALSE(PathField(u" a.msg"_s));
  EXPECT_FALSE(PathField(u"/a/b\n5.msg"_s));
  EXPECT_FALSE(PathField(u"/a/b\r5.msg"_s));
}

TEST(PathFieldTest, AFieldGivesThePathBack) {
  const UseCodePage western(1252);
  EXPECT_EQ(Brivon1::FieldPath("/a/Stra\xDF"
                               "e.msg" +
                               QByteArray(87, ' ')),
            u"/a/Straße.msg"_s);
  EXPECT_EQ(Brivon1::FieldPath(QByteArray(100, ' ')), QString());
}

TEST_F(ScheduleFile, AMessageFileOfTheSameSizeMayEnterTheSchedule) {
  const QString path =
      Write("*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n", u"page.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), QString());
}

TEST_F(ScheduleFile, AFileWhoseNameIsDecomposedMayEnterTheScheduleAndIsFoundAgain) {
  const UseCodePage western(1252);
  const QByteArray page = "*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n";
  const QString path = Write(page, u"Cafe\u0301.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), QString());
  const auto field = PathField(path);
  ASSERT_TRUE(field);
  EXPECT_EQ(Brivon1::FindFile(Brivon1::FieldPath(*field)), path);
  // Beside another one whose name the field has, it would be mistaken for that.
  Write(page, u"Caf\u00E9.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), u"Invalid path!"_s);
  EXPECT_EQ(MessageFileRefusal(Path(u"Caf\u00E9.msg"_s), {2, 96}), QString());
}

TEST_F(ScheduleFile, AnotherFileMayNotEnterTheSchedule) {
  EXPECT_EQ(MessageFileRefusal(Write(FileOf(1)), {16, 96}), u"Not Message File Format!"_s);
  EXPECT_EQ(MessageFileRefusal(Path(u"nowhere"_s), {16, 96}), u"Not Message File Format!"_s);
}

TEST_F(ScheduleFile, AMessageFileOfAnotherDimensionIsRefusedEvenIfItIsOtherwiseValid) {
  const QString path =
      Write("*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n", u"page.msg"_s);
  EXPECT_EQ(MessageFileRefusal(path, {2, 128}), u"Dimension not matched!"_s);
  EXPECT_EQ(MessageFileRefusal(path, {4, 96}), u"Dimension not matched!"_s);
}

TEST_F(ScheduleFile, APathLongerThanIts100CharacterFieldIsRefusedWhenItIsChosen) {
  const QString path = Write("*** Brivon Message File ***\r\nRow = 2\r\nCol = 96\r\n",
                             QString(100, QLatin1Char('x')));
  EXPECT_EQ(MessageFileRefusal(path, {2, 96}), u"Invalid path!"_s);
  EXPECT_EQ(MessageFileRefusal(path, {4, 96}), u"Dimension not matched!"_s);
}

}  // namespace
