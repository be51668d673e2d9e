// What a selection does to a row, and what of it goes onto the clipboard and back.
#include <random>

#include <gtest/gtest.h>

#include "row/edit_history.h"
#include "row/row_clip.h"
#include "row/row_editing.h"
#include "row/shown_row.h"
#include "support/use_code_page.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::Attributes;
using Brivon1::MoveKey;
using Brivon1::PageRow;
using Brivon1::PastedLines;
using Brivon1::ReadRowClip;
using Brivon1::RowClip;

constexpr Attributes kPlain{'A', 'A', Brivon1::kSteady};
constexpr Attributes kLoud{'C', 'P', Brivon1::kBlinking};

PageRow RowOf(QByteArrayView text, const Attributes& attributes = kPlain) {
  PageRow row;
  for (const char character : text) row.Append(character, attributes);
  return row;
}

/// The text with the selection in brackets and the cursor as a bar.
std::string Selected(const PageRow& row) {
  QByteArray text = row.Text();
  text.insert(row.Cursor(), '|');
  if (!row.HasSelection()) return text.toStdString();
  const bool cursor_first = row.Cursor() < row.Anchor();
  text.insert(row.SelectionEnd() + (cursor_first ? 1 : 0), ']');
  text.insert(row.SelectionBegin() + (cursor_first ? 1 : 0), '[');
  return text.toStdString();
}

TEST(RowSelection, LiesBetweenItsAnchorAndTheCursorWithinTheText) {
  PageRow row = RowOf("abcdef");
  row.Select(1, 3);
  EXPECT_EQ(Selected(row), "a[bc]|def");
  row.Select(5, 2);
  EXPECT_EQ(Selected(row), "ab|[cde]f");
  EXPECT_EQ(row.SelectionLength(), 3);
  row.Select(-4, 99);
  EXPECT_EQ(Selected(row), "[abcdef]|");
  row.Left();
  EXPECT_EQ(Selected(row), "abcde|f");
}

TEST(RowSelection, EveryEditOfTheRowEndsIt) {
  PageRow row = RowOf("abcdef");
  row.Select(1, 3);
  row.Insert('X', kLoud);
  EXPECT_EQ(Selected(row), "abcX|def");
  row.Select(5, 0);
  row.Delete(2);
  EXPECT_EQ(Selected(row), "|cXdef");
  row.Select(4, 1);
  row.RemoveSelection();
  EXPECT_EQ(Selected(row), "c|f");
  row.RemoveSelection();
  EXPECT_EQ(Selected(row), "c|f");
}

TEST(RowSelection, TypingReplacesItAndBackspaceRemovesIt) {
  PageRow row = RowOf("abcdef");
  row.Select(1, 4);
  EXPECT_TRUE(TypeAllInto(row, "XY", kLoud, 6).is_typing);
  EXPECT_EQ(Shown(row), "aXYef|ACCAA|APPAA|NBBNN");
  row.Select(5, 3);
  EXPECT_TRUE(TypeAllInto(row, "\b", kPlain, 6).is_typing);
  EXPECT_EQ(Selected(row), "aXY|");
}

TEST(RowSelection, WhatIsRefusedLeavesIt) {
  PageRow row = RowOf("abcdef");
  row.Select(1, 3);
  EXPECT_TRUE(TypeAllInto(row, "\r", kPlain, 6).is_typing);
  EXPECT_FALSE(TypeAllInto(row, "\t\x1b\x7f", kPlain, 6).is_typing);
  EXPECT_TRUE(TypeAllInto(row, "X", kPlain, 4).is_typing);  // the row is longer than it may be
  EXPECT_EQ(Selected(row), "a[bc]|def");
  EXPECT_TRUE(TypeAllInto(row, "X", kPlain, 5).is_typing);
  EXPECT_EQ(Selected(row), "aX|def");
}

TEST(RowSelection, AFullRowTakesAsMuchAsWasSelected) {
  PageRow row = RowOf("abcdef");
  row.Select(0, 2);
  EXPECT_EQ(TypeAllInto(row, "12345", kPlain, 6).left_out, 3);
  EXPECT_EQ(Selected(row), "12|cdef");
}

TEST(RowSelection, GrowsAndShrinksByKey) {
  PageRow row = RowOf("one two");
  row.End();
  SelectByKeyIn(row, MoveKey::kWordLeft);
  EXPECT_EQ(Selected(row), "one |[two]");
  SelectByKeyIn(row, MoveKey::kRight);
  EXPECT_EQ(Selected(row), "one t|[wo]");
  SelectByKeyIn(row, MoveKey::kHome);
  EXPECT_EQ(Selected(row), "|[one two]");
  SelectByKeyIn(row, MoveKey::kUp);
  SelectByKeyIn(row, MoveKey::kDelete);
  EXPECT_EQ(Selected(row), "|[one two]");
  PressKeyIn(row, MoveKey::kRight);
  EXPECT_EQ(Selected(row), "one two|");
}

TEST(RowSelection, AWordIsWhatTheMoveByWordsTakesForOne) {
  PageRow row = RowOf("ab--cd  e");
  for (const auto& [position, expected] :
       {std::pair(1, "[ab]|--cd  e"), std::pair(2, "ab[--]|cd  e"), std::pair(7, "ab--cd[  ]|e"),
        std::pair(8, "ab--cd  [e]|")}) {
    SelectWordIn(row, position);
    EXPECT_EQ(Selected(row), expected);
  }
  for (const int outside : {-1, 9}) SelectWordIn(row, outside);
  EXPECT_EQ(Selected(row), "ab--cd  [e]|");
}

TEST(PastedLines, AreCutAtEveryLineEndAndHaveNoKeys) {
  const auto lines = [](const QString& text) { return PastedLines(text, 99).lines; };
  EXPECT_EQ(lines(u"a\tb\r\nc\rd\ne\u2028f\u2029g"_s),
            QList<QString>({u"ab"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s, u"g"_s}));
  EXPECT_EQ(lines(u"a\n\nb\r\n"_s), QList<QString>({u"a"_s, QString(), u"b"_s}));
  EXPECT_EQ(lines(QString()), QList<QString>({QString()}));
}

TEST(PastedLines, EachLineEndEndsALineInTheMiddleAndBeginsNoneAtTheEnd) {
  for (const QString& line_end : {u"\n"_s, u"\r"_s, u"\r\n"_s, u"\u2028"_s, u"\u2029"_s}) {
    SCOPED_TRACE(line_end.toUtf8().toHex().toStdString());
    for (const QString& text : {u"ab"_s + line_end, u"a\tb"_s + line_end}) {
      const auto pasted = PastedLines(text, 1);
      EXPECT_EQ(pasted.lines, QList<QString>({u"ab"_s}));
      EXPECT_EQ(pasted.left_over, 0);
    }
    EXPECT_EQ(PastedLines(u"ab"_s + line_end, 99).lines, QList<QString>({u"ab"_s}));
    EXPECT_EQ(PastedLines(line_end, 99).lines, QList<QString>({QString()}));
    const QString two = u"ab"_s + line_end + u"cd"_s;
    EXPECT_EQ(PastedLines(two, 99).lines, QList<QString>({u"ab"_s, u"cd"_s}));
    EXPECT_EQ(PastedLines(two + line_end, 99).lines, QList<QString>({u"ab"_s, u"cd"_s}));
    EXPECT_EQ(PastedLines(two + line_end, 1).left_over, 2);
  }
}

TEST(PastedLines, KeepLettersBeyondLatin1) {
  const QString text = u"\u20AC\u0416\u0E01"_s;
  EXPECT_EQ(PastedLines(text, 1).lines, QList<QString>({text}));
  EXPECT_EQ(PastedLines(u"x\n"_s + text, 1).left_over, 3);
}

TEST(PastedLines, BehindTheLastOneTheCharactersAreCounted) {
  const auto pasted = PastedLines(u"ab\r\nc\td\r\ne\n\nfg"_s, 2);
  EXPECT_EQ(pasted.lines, QList<QString>({u"ab"_s, u"cd"_s}));
  EXPECT_EQ(pasted.left_over, 3);
  EXPECT_EQ(PastedLines(u"ab\n"_s, 1).left_over, 0);
}

TEST(RowClip, CarriesCharactersWithTheirAttributes) {
  PageRow row = RowOf("ab", kLoud);
  row.Append('\xE4', {'B', '9', Brivon1::kSteady});
  const UseCodePage western(1252);
  EXPECT_EQ(RowClip(row),
            "Brivon row 1 1252\naCPBbCPB\xE4"
            "B9N");
  const auto read = ReadRowClip(RowClip(row));
  ASSERT_TRUE(read);
  EXPECT_EQ(Shown(*read), Shown(row));
  EXPECT_EQ(Brivon1::ClipText(row), u"abä"_s);
}

TEST(RowClip, HoldsAMillionCharactersAndNoMore) {
  const UseCodePage western(1252);
  PageRow row(PageRow::kEveryColumn);
  for (int at = 0; at < 1'000'000; ++at) row.Append('x', kPlain);
  const QByteArray longest = RowClip(row);
  EXPECT_EQ(longest.size(), 18 + 4'000'000);
  const auto read = ReadRowClip(longest);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->Length(), 1'000'000);
  EXPECT_FALSE(ReadRowClip(longest + "xAAN"));
  row.Append('x', kPlain);
  EXPECT_EQ(RowClip(row), QByteArray());
}

TEST(RowClip, WhatIsNoneIsRefused) {
  const UseCodePage western(1252);
  const QByteArray start = "Brivon row 1 1252\n";
  EXPECT_TRUE(ReadRowClip(start + "xAAN"));
  for (const QByteArray& bytes :
       {QByteArray(), start, start + "x", start + "xAANy", start + "xEAN", start + "x AN",
        start + "xA\nN", start + "xAAX", start + "xAA\0", QByteArray("Brivon row 2 1252\nxAAN"),
        QByteArray("Brivon row 1 1251\nxAAN"), QByteArray("Brivon row 1 1252\r\nxAAN"),
        start + QByteArray("xAAN").repeated(1'000'001)}) {
    EXPECT_FALSE(ReadRowClip(bytes)) << bytes.first(std::min<qsizetype>(bytes.size(), 30)).data();
  }
}

TEST(RowClip, KeysAreNoCharacters) {
  const UseCodePage western(1252);
  const auto row = ReadRowClip(
      "Brivon row 1 1252\na"
      "AAN\bAANbAAN\x7f"
      "AAN");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->Text(), "ab");
}

TEST(RowClip, AnyBytesGiveARowThatCouldBeTypedOrNothing) {
  const UseCodePage western(1252);
  std::mt19937 random(99);
  const QByteArray start = "Brivon row 1 1252\n";
  int read = 0;
  for (int round = 0; round < 20000; ++round) {
    QByteArray bytes = random() % 16 == 0 ? QByteArray() : start;
    const int characters = static_cast<int>(random() % 4);
    for (int at = 0; at < characters; ++at) bytes += "zBKB";
    const int changes = static_cast<int>(random() % 4);
    for (int change = 0; change < changes && !bytes.isEmpty(); ++change) {
      bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
          static_cast<char>(random() % 256);
    }
    const auto row = ReadRowClip(bytes);
    if (!row) continue;
    ++read;
    ExpectEqualLengths(*row);
    for (qsizetype at = 0; at < row->Length(); ++at) {
      const Attributes attributes = row->AttributesAt(at);
      ASSERT_TRUE(attributes.size >= 'A' && attributes.size <= 'D');
      ASSERT_TRUE(attributes.blink == 'N' || attributes.blink == 'B');
      for (const char c : {row->Text()[at], attributes.colour}) {
        ASSERT_TRUE(static_cast<unsigned char>(c) >= 0x20 && c != 0x7F);
      }
    }
  }
  EXPECT_GT(read, 1000);
}

TEST(EditHistory, AnEditOfSeveralRowsIsTakenBackAndMadeAgainWhole) {
  Brivon1::EditHistory history;
  PageRow rows[] = {RowOf("a"), RowOf("b"), RowOf("c")};
  history.Record({1, RowOf("old")});
  history.Record({{1, RowOf("1")}, {2, RowOf("2")}, {3, RowOf("3")}});
  const auto row = [&](int number) -> PageRow& { return rows[number - 1]; };
  const auto all = [&] { return rows[0].Text() + rows[1].Text() + rows[2].Text(); };
  for (int time = 0; time < 2; ++time) {
    while (history.Undo(row(history.UndoRow()))) {
    }
    EXPECT_EQ(all(), "123");
    EXPECT_EQ(history.UndoRow(), 1);
    while (history.Redo(row(history.RedoRow()))) {
    }
    EXPECT_EQ(all(), "abc");
    EXPECT_FALSE(history.CanRedo());
  }
  while (history.Undo(row(history.UndoRow()))) {
  }
  EXPECT_FALSE(history.Undo(row(history.UndoRow())));
  EXPECT_EQ(all(), "old23");
  EXPECT_FALSE(history.CanUndo());
}

TEST(EditHistory, TheOldestEditsAreForgottenWholeAndTheLastOneNever) {
  Brivon1::EditHistory history;
  history.Record({{1, RowOf("1")}, {2, RowOf("2")}});
  for (int edit = 0; edit < 999; ++edit) history.Record({1, RowOf("x")});
  PageRow row;
  int undone = 0;
  for (; history.CanUndo(); ++undone) EXPECT_FALSE(history.Undo(row));
  EXPECT_EQ(undone, 999);
  const PageRow long_row = RowOf(QByteArray(3'000'000, 'x'));
  history.Record({{1, long_row}, {2, long_row}});
  ASSERT_TRUE(history.CanUndo());
  EXPECT_TRUE(history.Undo(row));
  EXPECT_FALSE(history.Undo(row));
}

}  // namespace
