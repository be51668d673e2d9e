#include "store/ini_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "store/ini_values.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

TEST(IniFile, AValueStandsUnderItsSectionAndKey) {
  const QByteArray content = "[A]\r\nx=1\r\ny=2\r\n[B]\r\nx=3\r\n";
  EXPECT_EQ(ValueIn(content, "A", "x"), "1");
  EXPECT_EQ(ValueIn(content, "A", "y"), "2");
  EXPECT_EQ(ValueIn(content, "B", "x"), "3");
}

TEST(IniFile, AMissingSectionOrKeyHasNoValue) {
  EXPECT_EQ(IniFile().Value("A", "x"), std::nullopt);
  EXPECT_EQ(IniFile("[A]\r\nx=1\r\n").Value("A", "y"), std::nullopt);
  EXPECT_EQ(IniFile("[A]\r\nx=1\r\n").Value("B", "x"), std::nullopt);
  EXPECT_EQ(IniFile("[A]\r\nx=1\r\n[B]\r\n").Value("B", "x"), std::nullopt);
}

TEST(IniFile, AKeyWithNothingBehindItsEqualsSignHasAnEmptyValue) {
  EXPECT_EQ(ValueIn("[A]\r\nx=\r\ny=  \r\nz=\"\"", "A", "x"), "");
  EXPECT_EQ(ValueIn("[A]\r\nx=\r\ny=  \r\nz=\"\"", "A", "y"), "");
  EXPECT_EQ(ValueIn("[A]\r\nx=\r\ny=  \r\nz=\"\"", "A", "z"), "");
}

TEST(IniFile, NamesAreMatchedWithoutRegardToCase) {
  EXPECT_EQ(ValueIn("[DIMENSION config]\r\niD007=8x96\r\n", "Dimension Config", "ID007"), "8x96");
  EXPECT_EQ(ValueIn("[Communication]\r\nDelay Period=5\r\n", "communication", "DELAY PERIOD"), "5");
}

TEST(IniFile, TheFirstMatchWins) { EXPECT_EQ(ValueIn("[A]\r\nx=1\r\nX=2\r\n", "A", "x"), "1"); }

TEST(IniFile, OfTwoSectionsOfTheSameNameTheFirstCounts) {
  const QByteArray content = "[A]\r\nx=1\r\n[B]\r\n[a]\r\nx=2\r\ny=3\r\n[B]\r\nz=4\r\n";
  EXPECT_EQ(ValueIn(content, "A", "x"), "1");
  EXPECT_EQ(ValueIn(content, "A", "y"), "(none)");
  EXPECT_EQ(ValueIn(content, "B", "z"), "(none)");
}

TEST(IniFile, BlanksAroundNamesAndValuesDoNotCount) {
  EXPECT_EQ(ValueIn(" \t[ A ] \r\n \tx \t= \t1 2\t \r\n", "A", "x"), "1 2");
  EXPECT_EQ(ValueIn("[A]\r\nDelay Period  =300\r\n", "A", "Delay Period"), "300");
  EXPECT_EQ(ValueIn("[A]\r\nDelay  Period=300\r\n", "A", "Delay Period"), "(none)");
}

TEST(IniFile, OnePairOfEnclosingQuotesIsRemoved) {
  const auto value = [](const char* text) {
    return ValueIn(QByteArray("[A]\r\nx=") + text + "\r\n", "A", "x");
  };
  EXPECT_EQ(value("\"1 2\""), "1 2");
  EXPECT_EQ(value("'1 2'"), "1 2");
  EXPECT_EQ(value("  \"  kept  \"  "), "  kept  ");
  EXPECT_EQ(value("\"\"twice\"\""), "\"twice\"");
  EXPECT_EQ(value("\"mixed'"), "\"mixed'");
  EXPECT_EQ(value("\"open"), "\"open");
  EXPECT_EQ(value("open\""), "open\"");
  EXPECT_EQ(value("\""), "\"");
  EXPECT_EQ(value("'\"'"), "\"");
}

TEST(IniFile, ALineThatBeginsWithASemicolonIsAComment) {
  EXPECT_EQ(ValueIn("[A]\r\n;x=1\r\n  ;x=2\r\nx=3\r\n", "A", "x"), "3");
  EXPECT_EQ(ValueIn("[A]\r\n;x=1\r\n", "A", ";x"), "(none)");
  EXPECT_EQ(ValueIn("[A]\r\n;[B]\r\nx=3\r\n", "A", "x"), "3");
}

TEST(IniFile, ASemicolonInsideALineIsPartOfIt) {
  EXPECT_EQ(ValueIn("[A]\r\nx=1;2\r\n", "A", "x"), "1;2");
  EXPECT_EQ(ValueIn("[A]\r\nx=;\r\n", "A", "x"), ";");
}

TEST(IniFile, AValueMayHoldAnEqualsSignAndBrackets) {
  EXPECT_EQ(ValueIn("[A]\r\nx=[1]=2=\r\n", "A", "x"), "[1]=2=");
}

TEST(IniFile, ALineWithoutAnEqualsSignHasNoValue) {
  EXPECT_EQ(ValueIn("[A]\r\nx\r\nx=1\r\n", "A", "x"), "1");
  EXPECT_EQ(ValueIn("[A]\r\nx\r\n", "A", "x"), "(none)");
}

TEST(IniFile, AMarkOfUtf8BeforeTheFirstLineIsSkipped) {
  EXPECT_EQ(ValueIn("\xEF\xBB\xBF[A]\r\nx=1\r\n", "A", "x"), "1");
  EXPECT_EQ(ValueIn("\xEF\xBB\xBF;comment\r\n[A]\r\nx=1\r\n", "A", "x"), "1");
  EXPECT_EQ(ValueIn("\r\n\xEF\xBB\xBF[A]\r\nx=1\r\n", "A", "x"), "(none)");
  EXPECT_EQ(IniFile("\xEF\xBB\xBF").Content(), "\xEF\xBB\xBF");
}

TEST(IniFile, TheLastLineMayLackItsEnd) {
  EXPECT_EQ(ValueIn("[A]\r\nx=1", "A", "x"), "1");
  EXPECT_EQ(ValueIn("[A]\r\nx=1\r\ny=2\r", "A", "y"), "2");
}

TEST(IniFile, LinesMayEndWithLfAlone) {
  EXPECT_EQ(ValueIn("[A]\nx=1\ny=2\n", "A", "x"), "1");
  EXPECT_EQ(ValueIn("[A]\nx=1\ny=2\n", "A", "y"), "2");
}

TEST(IniFile, KeysBeforeAnySectionBelongToNone) {
  EXPECT_EQ(ValueIn("x=1\r\n[A]\r\ny=2\r\n", "A", "x"), "(none)");
  EXPECT_EQ(ValueIn("x=1\r\n[A]\r\ny=2\r\n", "", "x"), "(none)");
  EXPECT_EQ(ValueIn("x=1\r\n[]\r\nx=2\r\n", "", "x"), "2");
}

TEST(IniFile, ASectionLineWithoutItsClosingBracketNamesTheSectionAllTheSame) {
  EXPECT_EQ(ValueIn("[A\r\nx=1\r\n", "A", "x"), "1");
  EXPECT_EQ(ValueIn("[\r\nx=1\r\n", "", "x"), "1");
  EXPECT_EQ(ValueIn("[", "", "x"), "(none)");
  EXPECT_EQ(ValueIn("[A\r\nx=1\r\n[B]\r\nx=2\r\n", "B", "x"), "2");
}

TEST(IniFile, WhatStandsBehindTheClosingBracketDoesNotCount) {
  EXPECT_EQ(ValueIn("[A] ;comment\r\nx=1\r\n", "A", "x"), "1");
  EXPECT_EQ(ValueIn("[A]x=5\r\n", "A", "x"), "(none)");
  EXPECT_EQ(ValueIn("[A]B]\r\nx=1\r\n", "A", "x"), "1");
}

TEST(IniFile, AValueIsCutToTheLengthOfTheCallersBuffer) {
  const IniFile file("[A]\r\nx=  12345  \r\ny=\"12345\"\r\n");
  EXPECT_EQ(file.Value("A", "x", 4), QByteArray("1234"));
  EXPECT_EQ(file.Value("A", "x", 5), QByteArray("12345"));
  EXPECT_EQ(file.Value("A", "x", 0), QByteArray(""));
  EXPECT_EQ(file.Value("A", "y", 4), QByteArray("1234"));
}

TEST(IniFile, All256ByteValuesSurvive) {
  QByteArray bytes;
  for (int value = 0; value < 256; ++value) bytes.append(static_cast<char>(value));
  EXPECT_EQ(IniFile(bytes).Content(), bytes);
  QByteArray in_value = bytes;
  in_value.remove(in_value.indexOf('\n'), 1);
  in_value = "|" + in_value + "|";
  EXPECT_EQ(ValueIn("[A]\r\nx=" + in_value + "\r\n", "A", "x"), in_value);
  EXPECT_EQ(AfterSet(bytes + "\r\n[A]\r\nx=1\r\n" + bytes, "A", "x", in_value),
            bytes + "\r\n[A]\r\nx=" + in_value + "\r\n" + bytes);
}

TEST(IniFile, AnIntegerIsTheLeadingDigitsOfItsValue) {
  const auto integer = [](const char* text) {
    return IniFile(QByteArray("[A]\r\nx=") + text + "\r\n").Integer("A", "x", 9600);
  };
  EXPECT_EQ(integer("300"), 300);
  EXPECT_EQ(integer("  300  "), 300);
  EXPECT_EQ(integer("\"300\""), 300);
  EXPECT_EQ(integer("300 ms"), 300);
  EXPECT_EQ(integer("007"), 7);
  EXPECT_EQ(integer("0x10"), 0);
  EXPECT_EQ(integer("1e3"), 1);
  EXPECT_EQ(integer("2147483647"), 2147483647);
  EXPECT_EQ(integer("4294967301"), 2147483647);
  EXPECT_EQ(integer("99999999999999999999999"), 2147483647);
}

TEST(IniFile, AValueWithoutLeadingDigitsReadsAsZero) {
  const auto integer = [](const char* text) {
    return IniFile(QByteArray("[A]\r\nx=") + text + "\r\n").Integer("A", "x", 9600);
  };
  EXPECT_EQ(integer(""), 0);
  EXPECT_EQ(integer("abc"), 0);
  EXPECT_EQ(integer("-5"), 0);
  EXPECT_EQ(integer("+5"), 0);
  EXPECT_EQ(integer("\" 5\""), 0);
}

TEST(IniFile, AMissingIntegerHasItsDefault) {
  EXPECT_EQ(IniFile().Integer("A", "x", 9600), 9600);
  EXPECT_EQ(IniFile("[A]\r\ny=1\r\n").Integer("A", "x", -1), -1);
}

class IniFileOnDisk : public testing::Test {
 protected:
  QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }

  QString Write(const QByteArray& content) const {
    QFile file(Path("file.ini"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return file.fileName();
  }

  QTemporaryDir folder_;
};

TEST_F(IniFileOnDisk, AFileIsLoadedWhole) {
  const QByteArray content("[A]\r\nx=1\r\n\0\xFF\n\ny=2", 18);
  EXPECT_EQ(IniFile::Load(Write(content)).Content(), content);
}

TEST_F(IniFileOnDisk, AFileOf4MebibytesIsReadAndALargerOneIsAnEmptyOne) {
  QByteArray content = "[A]\r\nx=1\r\n;";
  content += QByteArray((4 << 20) - content.size(), '.');
  EXPECT_EQ(IniFile::Load(Write(content)).Value("A", "x"), QByteArray("1"));
  EXPECT_EQ(IniFile::Load(Write(content + '.')).Content(), "");
}

TEST_F(IniFileOnDisk, AHundredMegabytesWithoutALineEndAreAnEmptyFile) {
  QFile file(Path("endless.ini"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  ASSERT_TRUE(file.resize(qint64{100} << 20));
  file.close();
  EXPECT_EQ(IniFile::Load(file.fileName()).Content(), "");
}

TEST_F(IniFileOnDisk, AFileMayConsistOfTheShortestLinesOnly) {
  QByteArray content = "[A]\n";
  while (content.size() < (4 << 20) - 4) content += "=\n[\n";
  const IniFile file = IniFile::Load(Write(content));
  EXPECT_EQ(file.Content(), content);
  EXPECT_EQ(file.Value("A", ""), QByteArray(""));
}

TEST_F(IniFileOnDisk, AFileToBeChangedIsReadWholeOrNotAtAll) {
  EXPECT_EQ(IniFile::Read(Write("[A]\r\n"))->Content(), "[A]\r\n");
  EXPECT_EQ(IniFile::Read(Path("missing"))->Content(), "");
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  EXPECT_FALSE(IniFile::Read(Path("folder")));
  EXPECT_FALSE(IniFile::Read(Write(QByteArray((4 << 20) + 1, '.'))));
}

}  // namespace
}  // namespace Brivon1
