#include "row/row_editing.h"

#include <gtest/gtest.h>

#include "page/page_of.h"
#include "support/use_code_page.h"

namespace {

using Brivon1::BytesOf;
using Brivon1::PageMessage;

QByteArray Typed(const char* text) { return BytesOf(QString::fromUtf8(text)).bytes; }

bool Refuses(const char* text) { return BytesOf(QString::fromUtf8(text)).refused; }

TEST(TypedText, ADecomposedLetterIsComposed) {
  const UseCodePage western(1252);
  EXPECT_EQ(Typed("Cafe\u0301 u\u0308"), "Caf\xE9 \xFC");
  EXPECT_FALSE(Refuses("Cafe\u0301 u\u0308"));
}

TEST(TypedText, AVietnameseLetterIsTakenApart) {
  const UseCodePage vietnamese(1258);
  EXPECT_EQ(Typed("ế"), "\xEA\xEC");
  EXPECT_EQ(Typed("Việt"), "Vi\xEA\xF2t");
  EXPECT_EQ(Typed("Vie\u0323\u0302t"), "Vi\xEA\xF2t");
  EXPECT_FALSE(Refuses("Vie\u0323\u0302t"));
}

TEST(TypedText, ALetterTakesOnePlaceWhereTheCodePageHasItWhole) {
  const UseCodePage vietnamese(1258);
  EXPECT_EQ(Typed("e\u0301"), "\xE9");
  EXPECT_EQ(Typed("\u0301"), "\xEC");  // a mark alone is one
}

TEST(TypedText, MarksKeepTheOrderInWhichTheyAreTyped) {
  const UseCodePage hebrew(1255);
  // Bet, dagesh, qamats.
  EXPECT_EQ(Typed("\u05D1\u05BC\u05B8"), "\xE1\xCC\xC8");
}

TEST(TypedText, OfWhatTheCodePageLacksTheRestIsTyped) {
  const UseCodePage western(1252);
  EXPECT_EQ(Typed("a道b"), "ab");
  EXPECT_TRUE(Refuses("a道b"));
  EXPECT_EQ(Typed("q\u0301x"), "qx");
  EXPECT_TRUE(Refuses("q\u0301x"));
  // The same letter is refused in whichever form it comes.
  for (const char* letter : {"ế", "ê\u0301", "e\u0302\u0301"}) {
    EXPECT_EQ(Typed(letter), "") << letter;
    EXPECT_TRUE(Refuses(letter)) << letter;
  }
}

TEST(TypedText, EveryCharacterOfTheCodePageIsTypedAsItsByte) {
  for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
    const UseCodePage code_page(number);
    for (int value = 0; value < 256; ++value) {
      const QByteArray byte(1, static_cast<char>(value));
      EXPECT_EQ(BytesOf(Brivon1::CodePage::System().ToText(byte)).bytes, byte)
          << number << ' ' << value;
    }
  }
}

TEST(TypedText, ALetterOfTwoBytesNeedsTwoPlacesInARow) {
  const UseCodePage vietnamese(1258);
  PageMessage page = PageOf(1, 20);  // four places
  page.TypeAll(Typed("Viế"));
  EXPECT_EQ(page.Row(1).Text(), "Vi\xEA\xEC");

  page = PageOf(1, 15);  // three
  page.TypeAll(Typed("Vi"));
  page.SetModified(false);
  page.TypeAll(Typed("ế"));
  EXPECT_EQ(page.Row(1).Text(), "Vi") << "no other letter in place of the one that was typed";
  EXPECT_TRUE(page.IsModified());
  page.TypeAll(Typed("é"));
  EXPECT_EQ(page.Row(1).Text(), "Vi\xE9");
}

TEST(TypedText, ATextIsCutAtItsEndNotInItsMiddle) {
  const UseCodePage vietnamese(1258);
  PageMessage page = PageOf(1, 15);
  page.TypeAll(Typed("Việt"));
  EXPECT_EQ(page.Row(1).Text(), "Vi");
  page = PageOf(1, 15);
  // Backspace makes room again.
  page.TypeAll(Typed("Viế\bế"));
  EXPECT_EQ(page.Row(1).Text(), "V\xEA\xEC");
}

TEST(TypedText, ALetterThatFitsIsInsertedAtTheCursorAndTakenBackAsOne) {
  const UseCodePage vietnamese(1258);
  PageMessage page = PageOf(1, 80);
  page.TypeAll("ab");
  page.PressMoveKey(Brivon1::MoveKey::kLeft);
  page.TypeAll(Typed("ế"));
  EXPECT_EQ(page.Row(1).Text(),
            "a\xEA\xEC"
            "b");
  EXPECT_EQ(page.Row(1).Cursor(), 3);
  ExpectEqualLengths(page.Row(1));
  EXPECT_TRUE(page.Undo());
  EXPECT_EQ(page.Row(1).Text(), "ab");
}

}  // namespace
