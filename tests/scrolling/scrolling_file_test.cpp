#include "scrolling/scrolling_file.h"

#include <random>

#include <QFile>

#include <gtest/gtest.h>

#include "base/file_checks.h"
#include "base/files.h"
#include "support/full_disk.h"
#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

const QByteArray kHeader = "*** Brivon Shift Message File ***";

/// The four texts of a message, so that a failure shows them.
QByteArray Shown(const PageRow& row) {
  return row.Text() + '|' + row.Size() + '|' + row.Colour() + '|' + row.Blink();
}

class ScrollingFile : public testing::Test {
 protected:
  /// What is read of a file with this body; "refused" where nothing is.
  QByteArray ReadBody(const QByteArray& body) { return ReadFile(kHeader + "\r\n" + body + "\r\n"); }

  QByteArray ReadFile(const QByteArray& content) {
    const auto row = ReadScrollingMessage(folder_.Write(u"a.srl"_s, content));
    return row ? Shown(*row) : "refused";
  }

  /// The bytes that are written of a message.
  QByteArray Written(const PageRow& row) {
    const QString name = u"w.srl"_s;
    EXPECT_EQ(WriteScrollingMessage(folder_.Path(name), row), SaveResult::kSaved);
    return folder_.Read(name);
  }

  TemporaryProgramFolder folder_;
};

TEST_F(ScrollingFile, TheHeaderLineHas33Characters) {
  EXPECT_EQ(QByteArray(kScrollingHeader), kHeader);
  EXPECT_EQ(kHeader.size(), 33);
}

TEST_F(ScrollingFile, AFileWithTheCorrectHeaderButOnly29BytesInTotalIsRefused) {
  const QString path = folder_.Write(u"a.srl"_s, kHeader.first(29));
  EXPECT_FALSE(IsScrollingFile(path));
  EXPECT_FALSE(ReadScrollingMessage(path).has_value());
}

TEST_F(ScrollingFile, AHeaderLineWithBlanksAroundItIsAcceptedOneWithDifferentCaseIsRefused) {
  EXPECT_EQ(ReadFile(" \t" + kHeader + "  \r\n<SA><CA>x\r\n"), "x|A|A|N");
  EXPECT_EQ(ReadFile(kHeader.toUpper() + "\r\n<SA><CA>x\r\n"), "refused");
  EXPECT_EQ(ReadFile(kHeader.toLower() + "\r\n<SA><CA>x\r\n"), "refused");
}

TEST_F(ScrollingFile, TwoNeighbouringCharactersWithEqualAttributesProduceNoCodeBetweenThem) {
  PageRow row;
  row.Append('A', {'C', 'D', kSteady});
  row.Append('B', {'C', 'D', kSteady});
  EXPECT_EQ(Written(row), kHeader + "\r\n<SC><CD>AB\r\n");
}

TEST_F(ScrollingFile, AChangeOfBlinkAloneProducesANewSizeCode) {
  PageRow row;
  row.Append('A', {'A', 'B', kSteady});
  row.Append('B', {'A', 'B', kBlinking});
  row.Append('C', {'A', 'B', kSteady});
  EXPECT_EQ(Written(row), kHeader + "\r\n<SA><CB>A<SE>B<SA>C\r\n");
}

TEST_F(ScrollingFile, ABodyMadeOfSECAAndTheTextABReadsAsTwoBlinkingRedCharacters) {
  EXPECT_EQ(ReadBody("<SE><CA>AB"), "AB|AA|AA|BB");
}

TEST_F(ScrollingFile, ACodeBehindTheLastCharacterIsNoText) {
  EXPECT_EQ(ReadBody("<SB><CC>ab<CD>"), "ab|BB|CC|NN");
  EXPECT_EQ(ReadBody("<SA>"), "|||");
}

TEST_F(ScrollingFile, ABodyHoldingXInBracketsOrALoneBracketKeepsThoseCharactersAsText) {
  EXPECT_EQ(ReadBody("<SA><CA><X>"), "<X>|AAA|AAA|NNN");
  EXPECT_EQ(ReadBody("<SB><CC>a<b"), "a<b|BBB|CCC|NNN");
  EXPECT_EQ(ReadBody("<S"), "<S|AA|AA|NN");
  EXPECT_EQ(ReadBody("<SAA>"), "<SAA>|AAAAA|AAAAA|NNNNN");
  EXPECT_EQ(ReadBody("<sA>"), "<sA>|AAAA|AAAA|NNNN");
}

TEST_F(ScrollingFile, TheEightSizeCodesSetSizeAndBlinking) {
  EXPECT_EQ(ReadBody("<SA>a<SB>b<SC>c<SD>d<SE>e<SF>f<SG>g<SH>h"),
            "abcdefgh|ABCDABCD|AAAAAAAA|NNNNBBBB");
}

TEST_F(ScrollingFile, TheSixteenColourCodesSetTheColour) {
  EXPECT_EQ(ReadBody("<CA>a<CB>b<CC>c<CD>d<CE>e<CF>f<CG>g<CH>h<CI>i<CJ>j<CK>k<CL>l<CM>m<CN>n"
                     "<CO>o<CP>p"),
            "abcdefghijklmnop|AAAAAAAAAAAAAAAA|ABCDEFGHIJKLMNOP|NNNNNNNNNNNNNNNN");
}

TEST_F(ScrollingFile, ASizeCodeWhoseThirdCharacterIsNoLetterAToHIsDroppedAndChangesNothing) {
  EXPECT_EQ(ReadBody("<SG><SI>x<Sa>y<S>>z"), "xyz|CCC|AAA|BBB");
}

TEST_F(ScrollingFile, TheFirstCharacterGetsBothCodesEvenWithAnUnknownColour) {
  PageRow row;
  row.Append('x', {'A', 'Z', kSteady});
  EXPECT_EQ(Written(row), kHeader + "\r\n<SA><CZ>x\r\n");
}

TEST_F(ScrollingFile, TheSizeCodeComesBeforeTheColourCodeAtTheSamePosition) {
  PageRow row;
  row.Append('1', {'A', 'A', kBlinking});
  row.Append('2', {'D', 'P', kBlinking});
  EXPECT_EQ(Written(row), kHeader + "\r\n<SE><CA>1<SH><CP>2\r\n");
}

TEST_F(ScrollingFile, AnEmptyMessageGivesAnEmptySecondLine) {
  EXPECT_EQ(Written(PageRow()), kHeader + "\r\n\r\n");
  EXPECT_EQ(ReadFile(kHeader + "\r\n\r\n"), "|||");
}

TEST_F(ScrollingFile, AScrollingFileWithoutASecondLineIsAFailedRead) {
  EXPECT_EQ(ReadFile(kHeader), "refused");
  EXPECT_EQ(ReadFile(kHeader + "\r\n"), "refused");
  EXPECT_TRUE(IsScrollingFile(folder_.Path(u"a.srl"_s)));
}

TEST_F(ScrollingFile, LinesMayEndWithLineFeedAloneOrWithTheFile) {
  EXPECT_EQ(ReadFile(kHeader + "\n<CB>x\n"), "x|A|B|N");
  EXPECT_EQ(ReadFile(kHeader + "\r\n<CB>x"), "x|A|B|N");
}

TEST_F(ScrollingFile, WhatFollowsTheSecondLineDoesNotCount) {
  EXPECT_EQ(ReadFile(kHeader + "\r\nx\r\n<CB>y\r\nz\r\n"), "x|A|A|N");
}

TEST_F(ScrollingFile, WhatIsNoFileIsRefused) {
  EXPECT_FALSE(ReadScrollingMessage(folder_.Path(u"gone.srl"_s)).has_value());
  EXPECT_FALSE(ReadScrollingMessage(folder_.Path(QString())).has_value());
  EXPECT_FALSE(ReadScrollingMessage(QString()).has_value());
}

TEST_F(ScrollingFile, WhyAFileIsRefusedIsTold) {
  Brivon1::FileFailure why;
  EXPECT_FALSE(ReadScrollingMessage(folder_.Path(u"gone.srl"_s), &why));
  EXPECT_EQ(why.fault, Brivon1::FileFault::kNoFile);
  EXPECT_FALSE(ReadScrollingMessage(folder_.Write(u"a.srl"_s, kHeader + "\r\n"), &why));
  EXPECT_EQ(why.fault, Brivon1::FileFault::kEndsEarly);
  EXPECT_EQ(why.line, 2);
}

TEST_F(ScrollingFile, EveryByteOfABodySurvivesReadingAndWriting) {
  PageRow row;
  for (int value = 0; value < 256; ++value) {
    if (value == '\r' || value == '\n') continue;
    row.Append(static_cast<char>(value), {'B', 'C', kSteady});
  }
  const QByteArray written = Written(row);
  EXPECT_EQ(ReadFile(written), Shown(row));
}

TEST_F(ScrollingFile, RandomMessagesAreReadBackAsTheyWereWritten) {
  std::mt19937 random(20240611);
  const auto below = [&](unsigned bound) { return static_cast<char>(random() % bound); };
  for (int round = 0; round < 100; ++round) {
    PageRow row;
    const int length = static_cast<int>(random() % 1001);
    for (int at = 0; at < length; ++at) {
      // Any character that a code page has, except "<", which may begin what is a code.
      const char character =
          static_cast<char>(random() % 3 == 0 ? 0xA0 + below(96) : '=' + below(60));
      row.Append(character, {static_cast<char>('A' + below(4)), static_cast<char>('A' + below(16)),
                             below(2) == 0 ? kSteady : kBlinking});
    }
    ASSERT_EQ(ReadFile(Written(row)), Shown(row)) << "round " << round;
  }
}

TEST_F(ScrollingFile, AnyBytesAtAllGiveAMessageOrARefusal) {
  std::mt19937 random(20240612);
  constexpr char kLetters[] = "<>SCAEIZ\r\n x";
  for (int round = 0; round < 500; ++round) {
    QByteArray body;
    const auto length = random() % 60;
    for (std::size_t at = 0; at < length; ++at) {
      body.append(random() % 4 == 0 ? static_cast<char>(random() % 256)
                                    : kLetters[random() % (sizeof kLetters - 1)]);
    }
    const auto row = ReadScrollingMessage(folder_.Write(u"a.srl"_s, kHeader + "\r\n" + body));
    if (body.isEmpty()) {
      EXPECT_FALSE(row.has_value());
      continue;
    }
    ASSERT_TRUE(row.has_value());
    EXPECT_LE(row->Length(), body.size());
    EXPECT_EQ(row->Size().size(), row->Length());
    EXPECT_EQ(row->Colour().size(), row->Length());
    EXPECT_EQ(row->Blink().size(), row->Length());
    // What was read once is written in a form that reads the same, unless text looks like a code.
    if (!row->Text().contains('<')) {
      ASSERT_EQ(ReadFile(Written(*row)), Shown(*row));
    }
  }
}

// A pass over the whole text for each of its characters would take many minutes.
TEST_F(ScrollingFile, ABodyOfTheLongestLineIsReadWhole) {
  const auto row = ReadScrollingMessage(
      folder_.Write(u"a.srl"_s, kHeader + "\r\n" + QByteArray(kLongestLine, 'x') + "\r\n"));
  ASSERT_TRUE(row.has_value());
  EXPECT_EQ(row->Length(), kLongestLine);
}

TEST_F(ScrollingFile, ALineThatIsLongerThanAnyMessageIsAFailedRead) {
  QFile huge(folder_.Write(u"a.srl"_s, kHeader + "\r\n"));
  ASSERT_TRUE(huge.resize(200 * 1024 * 1024));
  EXPECT_FALSE(ReadScrollingMessage(huge.fileName()).has_value());
}

TEST_F(ScrollingFile, WritingReplacesAnExistingFile) {
  folder_.Write(u"w.srl"_s, QByteArray(5000, 'o'));
  PageRow row;
  row.Append('n', {});
  EXPECT_EQ(Written(row), kHeader + "\r\n<SA><CA>n\r\n");
}

TEST_F(ScrollingFile, ASaveThatFailsLeavesTheOldFile) {
  const QString path = folder_.Write(u"w.srl"_s, "the old file");
  PageRow row;
  for (int at = 0; at < 100; ++at) row.Append('n', {});
  {
    const FullDisk full_disk(20);
    EXPECT_EQ(WriteScrollingMessage(path, row), SaveResult::kDriveNotAvailable);
  }
  EXPECT_EQ(folder_.Read(u"w.srl"_s), "the old file");
  EXPECT_EQ(WriteScrollingMessage(folder_.Path(u"no/such/folder.srl"_s), row),
            SaveResult::kInvalidPath);
}

}  // namespace
}  // namespace Brivon1
