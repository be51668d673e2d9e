#include "base/files.h"

#include <cstring>

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include "base/folder_of_files.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

/// The lines of `content`, up to the first that the reader refuses.
QByteArrayList LinesOf(QByteArray content) {
  QBuffer buffer(&content);
  EXPECT_TRUE(buffer.open(QIODevice::ReadOnly));
  LineReader reader(buffer);
  QByteArrayList lines;
  while (const auto line = reader.Next()) lines.append(*line);
  EXPECT_FALSE(reader.Next()) << "a reader that has ended stays so";
  return lines;
}

TEST(LineReader, ALineEndsWithCrLfOrLf) {
  EXPECT_EQ(LinesOf("one\r\ntwo\nthree\r\n"), (QByteArrayList{"one", "two", "three"}));
}

TEST(LineReader, TheLastLineMayLackItsEnd) {
  EXPECT_EQ(LinesOf("one\r\ntwo"), (QByteArrayList{"one", "two"}));
  EXPECT_EQ(LinesOf("one"), (QByteArrayList{"one"}));
}

TEST(LineReader, EmptyLinesAreLines) {
  EXPECT_EQ(LinesOf("\r\n\n\r\na\r\n\r\n"), (QByteArrayList{"", "", "", "a", ""}));
}

TEST(LineReader, AnEmptyFileHasNoLine) { EXPECT_EQ(LinesOf(""), QByteArrayList()); }

TEST(LineReader, ALoneCarriageReturnIsACharacterOfItsLine) {
  EXPECT_EQ(LinesOf("a\rb\r\nc\r\r\n\rd\n"), (QByteArrayList{"a\rb", "c\r", "\rd"}));
}

TEST(LineReader, EveryOtherByteIsACharacterOfItsLine) {
  QByteArray bytes;
  for (int value = 0; value < 256; ++value) {
    if (value != '\n' && value != '\r') bytes.append(static_cast<char>(value));
  }
  EXPECT_EQ(LinesOf(bytes + "\r\n" + bytes), (QByteArrayList{bytes, bytes}));
}

TEST(LineReader, ALineOfExactlyTheLongestLengthIsRead) {
  const QByteArray longest(1048576, 'x');
  EXPECT_EQ(LinesOf(longest + "\r\nb\r\n"), (QByteArrayList{longest, "b"}));
  EXPECT_EQ(LinesOf(longest + "\nb\n"), (QByteArrayList{longest, "b"}));
  EXPECT_EQ(LinesOf(longest), (QByteArrayList{longest}));
}

TEST(LineReader, AFileIsRefusedFromItsFirstLongerLineOn) {
  const QByteArray too_long(1048577, 'x');
  EXPECT_EQ(LinesOf("a\r\n" + too_long + "\r\nb\r\n"), (QByteArrayList{"a"}));
  EXPECT_EQ(LinesOf("a\n" + too_long + "\nb\n"), (QByteArrayList{"a"}));
  EXPECT_EQ(LinesOf("a\n" + too_long), (QByteArrayList{"a"}));
  EXPECT_EQ(LinesOf("a\n" + too_long.first(1048576) + "\rxx"), (QByteArrayList{"a"}));
}

class Files : public FolderOfFiles {};

TEST_F(Files, AHundredMegabytesWithoutALineEndAreRefusedAfterTheLongestLine) {
  QFile file(Path("endless"));
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  ASSERT_TRUE(file.resize(qint64{100} << 20));
  LineReader reader(file);
  EXPECT_FALSE(reader.Next());
  EXPECT_LE(file.pos(), kLongestLine + 2);
  EXPECT_FALSE(reader.Next());
}

TEST_F(Files, AFileThatCannotBeReadHasNoLine) {
  QFile file(Path("."));
  LineReader reader(file);
  EXPECT_FALSE(reader.Next());
}

TEST_F(Files, AMissingFileDoesNotExist) {
  EXPECT_FALSE(FileExists(Path("missing")));
  EXPECT_FALSE(FileExists(QString()));
}

TEST_F(Files, APathBelowAFileDoesNotExist) {
  Write("file", "x");
  EXPECT_FALSE(FileExists(Path("file/below")));
}

TEST_F(Files, ASavedFileHoldsExactlyTheContent) {
  const QByteArray content("a\r\n\0b\xFF", 6);
  EXPECT_EQ(SaveWholeFile(Path("new.msg"), content), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("new.msg")), content);
  EXPECT_EQ(Names(), QStringList{u"new.msg"_s});
}

TEST_F(Files, ASaveReplacesALongerFile) {
  Write("a.msg", QByteArray(100000, 'x'));
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), "short"), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("a.msg")), "short");
  EXPECT_EQ(Names(), QStringList{u"a.msg"_s});
}

TEST_F(Files, EmptyContentIsSavedAsAnEmptyFile) {
  Write("a.msg", "x");
  EXPECT_EQ(SaveWholeFile(Path("a.msg"), ""), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("a.msg")), "");
  EXPECT_EQ(SaveWholeFile(Path("b.msg"), QByteArray()), SaveResult::kSaved);
  EXPECT_EQ(Read(Path("b.msg")), "");
}

TEST_F(Files, StrangeNamesThatEverySystemHasAreSavedUnderExactlyThatName) {
  for (const char* name : {"page XXXXXX.msg", "%1 50% #.msg", "'name'.msg", "-rf", " leading",
                           "\xC3\xA4\xE2\x82\xAC.msg", "noextension"}) {
    ASSERT_EQ(SaveWholeFile(Path(name), name), SaveResult::kSaved) << name;
    EXPECT_EQ(Read(Path(name)), name);
    EXPECT_EQ(Names(), QStringList{QString::fromUtf8(name)});
    ASSERT_TRUE(QFile::remove(Path(name)));
  }
}

TEST_F(Files, ANameAsLongAsTheSystemAllowsIsReplaced) {
  const QByteArray name(255, 'n');
  const QString file = Write(name.constData(), "old");
  EXPECT_EQ(SaveWholeFile(file, "new"), SaveResult::kSaved);
  EXPECT_EQ(Read(file), "new");
  EXPECT_EQ(Names(), QStringList{QString::fromLatin1(name)});
}

TEST_F(Files, ANameLongerThanTheSystemAllowsIsAnInvalidPath) {
  const QByteArray name(256, 'n');
  EXPECT_EQ(SaveWholeFile(Path(name.constData()), "new"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, ASaveIntoAMissingFolderIsAnInvalidPath) {
  EXPECT_EQ(SaveWholeFile(Path("missing/a.msg"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, ASaveWithoutANameIsAnInvalidPath) {
  EXPECT_EQ(SaveWholeFile(QString(), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveWholeFile(Path("missing/"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(Files, ASaveOntoAFolderIsAnInvalidPathAndLeavesIt) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir(u"folder"_s));
  EXPECT_EQ(SaveWholeFile(Path("folder"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(SaveWholeFile(Path("folder/"), "x"), SaveResult::kInvalidPath);
  EXPECT_TRUE(QFileInfo(Path("folder")).isDir());
  EXPECT_EQ(Names(), QStringList{u"folder"_s});
}

TEST_F(Files, ASaveBelowAFileIsAnInvalidPath) {
  Write("file", "old");
  EXPECT_EQ(SaveWholeFile(Path("file/a.msg"), "x"), SaveResult::kInvalidPath);
  EXPECT_EQ(Read(Path("file")), "old");
}

TEST_F(Files, AFailedSaveHasAMessageAndASuccessfulOneNone) {
  EXPECT_EQ(SaveFailureText(SaveResult::kSaved), QString());
  EXPECT_EQ(SaveFailureText(SaveResult::kInvalidPath), u"Invalid path!"_s);
  EXPECT_EQ(SaveFailureText(SaveResult::kDriveNotAvailable), u"Drive not available!"_s);
}

TEST_F(Files, AFileIsFoundInWhicheverFormItsLettersAreWritten) {
  const QString composed = Write("Caf\u00E9.msg", "1");
  const QString decomposed = Path("Cafe\u0301.msg");
  EXPECT_EQ(FindFile(composed), composed);
  EXPECT_EQ(FindFile(decomposed), composed);
  EXPECT_EQ(Write("Cafe\u0301.msg", "2"), decomposed);
  EXPECT_EQ(FindFile(decomposed), decomposed) << "the name itself comes first";
  ASSERT_TRUE(QFile::remove(composed));
  EXPECT_EQ(FindFile(composed), decomposed);
  const QString half = Path("Vi\u00EA\u0323t.msg");
  EXPECT_EQ(FindFile(half), half) << "there is none";
  const QString whole = Write("Vi\u1EC7t.msg", "3");
  EXPECT_EQ(FindFile(half), whole);
}

TEST_F(Files, ANameLongerThanAnyIsNotLookedFor) {
  const QString name = Path("a") + QString(1000000, QChar(0x0301));
  EXPECT_EQ(FindFile(name), name);
}

}  // namespace
}  // namespace Brivon1
