// What is done with the selected characters of a page, with several lines that are pasted, and with
// a row as a whole.
#include <string>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "page/message_file.h"
#include "page/page_of.h"
#include "page/row_width.h"
#include "row/random_edits.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::LeftOut;
using Brivon1::MoveKey;
using Brivon1::PageMessage;
using Brivon1::PageRow;

/// Chosen attributes, by place in the lists.
void Choose(PageMessage& page, int size, int colour = 0) {
  page.ChooseSize(size);
  page.ChooseColour(colour);
}

QByteArrayList Texts(const PageMessage& page) {
  QByteArrayList texts;
  for (int number = 1; number <= page.Rows(); ++number) texts.append(page.Row(number).Text());
  return texts;
}

TEST(PageSelection, StepsThroughTheColoursOfTheSameCharactersAreOneEdit) {
  PageMessage page = PageOf(1, 200);
  page.TypeAll("abc");
  page.Select(1, 0, 2);
  for (const int colour : {3, 5, 7}) EXPECT_TRUE(page.ChooseColour(colour));
  EXPECT_EQ(page.Row(1).Colour(), "HHA");
  EXPECT_TRUE(page.ChooseSize(1));
  EXPECT_TRUE(page.Undo());
  EXPECT_EQ(page.Row(1).Size(), "AAA");
  EXPECT_EQ(page.Row(1).Colour(), "HHA");
  EXPECT_TRUE(page.Undo());
  EXPECT_EQ(page.Row(1).Colour(), "AAA");
  EXPECT_TRUE(page.Undo());
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_FALSE(page.CanUndo());
}

TEST(PageSelection, StepsBehindAThousandEditsForgetNoneOfThem) {
  PageMessage page = PageOf(1, 200);
  page.TypeAll("a");
  for (int edit = 1; edit < 999; ++edit) {
    page.TypeAll(edit % 2 == 1 ? "b" : "\b");
  }
  page.Select(1, 0, 1);
  for (const int colour : {3, 5, 7}) EXPECT_TRUE(page.ChooseColour(colour));
  int undone = 0;
  while (page.Undo()) ++undone;
  EXPECT_EQ(undone, 1000);
  EXPECT_EQ(page.Row(1).Text(), "");
}

TEST(PageSelection, BlinkingOnAndOffAreTwoEdits) {
  PageMessage page = PageOf(1, 200);
  page.TypeAll("a");
  page.Select(1, 0, 1);
  EXPECT_TRUE(page.ChooseBlink(true));
  EXPECT_TRUE(page.ChooseBlink(false));
  EXPECT_TRUE(page.Undo());
  EXPECT_EQ(page.Row(1).AttributesAt(0).blink, Brivon1::kBlinking);
  EXPECT_TRUE(page.Undo());
  EXPECT_EQ(page.Row(1).AttributesAt(0).blink, Brivon1::kSteady);
  EXPECT_EQ(page.Row(1).Text(), "a");
}

TEST(PageSelection, SeveralLinesGoOnIntoTheFollowingRowsAsOneEdit) {
  PageMessage page = PageOf(4, 40);
  page.SetCurrentRow(3);
  Type(page, "end");
  page.SetCurrentRow(2);
  Type(page, "[]");
  page.PressMoveKey(MoveKey::kLeft);
  const LeftOut left_out = page.Paste(u"one\r\ntwo \nthree\n"_s);
  EXPECT_EQ(left_out, LeftOut{});
  EXPECT_EQ(Texts(page), QByteArrayList({"", "[one]", "two end", "three"}));
  EXPECT_EQ(page.CurrentRow(), 4);
  EXPECT_EQ(page.Row(4).Cursor(), 5);
  EXPECT_TRUE(page.IsModified());
  page.Undo();
  EXPECT_EQ(Texts(page), QByteArrayList({"", "[]", "end", ""}));
  EXPECT_EQ(page.CurrentRow(), 2);
  EXPECT_EQ(page.Row(2).Cursor(), 1);
  page.Redo();
  EXPECT_EQ(Texts(page), QByteArrayList({"", "[one]", "two end", "three"}));
  EXPECT_EQ(page.CurrentRow(), 4);
}

TEST(PageSelection, APasteCountsWhatItLeavesOutAndWhy) {
  PageMessage page = PageOf(2, 25);  // five places
  EXPECT_EQ(page.Paste(u"1234567\nab\u9053cd\nno row\n"_s), (LeftOut{2, u"\u9053"_s, 6}));
  EXPECT_EQ(Texts(page), QByteArrayList({"12345", "abcd"}));
  page.SetModified(false);
  EXPECT_EQ(page.Paste(u"\u9053\u9053"_s), (LeftOut{0, u"\u9053\u9053"_s}));
  EXPECT_TRUE(page.IsModified());  // as a refused key
  page.Undo();
  EXPECT_EQ(Texts(page), QByteArrayList({"", ""}));
  EXPECT_EQ(PageOf(0, 25).Paste(u"a\nb"_s), (LeftOut{1, {}, 1}));
}

TEST(PageSelection, APasteTakesThePlaceOfTheSelectionAndCountsIt) {
  PageMessage page = PageOf(1, 25);
  Type(page, "abcde");
  page.Select(1, 1, 3);
  EXPECT_EQ(page.Paste(u"XYZ"_s), (LeftOut{1}));
  EXPECT_EQ(page.Row(1).Text(), "aXYde");
  page.Select(1, 1, 3);
  EXPECT_EQ(page.Paste(u"\u9053"_s), (LeftOut{0, u"\u9053"_s}));
  EXPECT_EQ(page.Row(1).SelectionLength(), 2);
}

TEST(PageSelection, AnEmptyFirstLineTakesThePlaceOfTheSelectionToo) {
  PageMessage page = PageOf(2, 40);
  Type(page, "abcde");
  page.Select(1, 1, 3);
  EXPECT_EQ(page.Paste(u"\nxy"_s), LeftOut{});
  EXPECT_EQ(Texts(page), QByteArrayList({"ade", "xy"}));
  page.Undo();
  EXPECT_EQ(Texts(page), QByteArrayList({"abcde", ""}));
}

TEST(PageSelection, WhatIsLeftOverIsCountedInCharacters) {
  PageMessage page = PageOf(1, 40);
  EXPECT_EQ(page.Paste(u"a\nb\U0001F600c"_s), (LeftOut{0, {}, 3}));
}

TEST(PageSelection, PastedCharactersKeepTheirAttributesAndObeyTheTypingRule) {
  PageMessage page = PageOf(2, 20);
  Choose(page, 3, 15);
  page.ChooseBlink(true);
  Type(page, "abc");
  const PageRow copied = page.Row(1);
  Choose(page, 0);
  page.ChooseBlink(false);
  EXPECT_EQ(page.Paste(copied), (LeftOut{2}));
  EXPECT_EQ(Shown(page.Row(1)), "abca|DDDD|PPPP|BBBB");
  page.Undo();
  EXPECT_EQ(page.Row(1).Text(), "abc");
  page.SetModified(false);
  EXPECT_EQ(page.Paste(Brivon1::PageRow()), (LeftOut{}));  // what held keys alone
  EXPECT_FALSE(page.IsModified());
}

TEST(PageSelection, AnotherRowEndsIt) {
  PageMessage page = PageOf(2, 80);
  Type(page, "abc");
  page.Select(1, 0, 2);
  page.SetCurrentRow(1);
  EXPECT_TRUE(page.Row(1).HasSelection());
  page.SetCurrentRow(2);
  EXPECT_FALSE(page.Row(1).HasSelection());
  page.Select(1, 0, 2);
  page.PressMoveKey(MoveKey::kUp);
  EXPECT_FALSE(page.Row(1).HasSelection());
}

TEST(PageSelection, DeletingItMarksThePageWhereDeleteAloneDoesNot) {
  PageMessage page = PageOf(1, 80);
  Type(page, "abcd");
  page.Select(1, 3, 1);
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kDelete);
  EXPECT_EQ(page.Row(1).Text(), "ad");
  EXPECT_TRUE(page.IsModified());
  page.SetModified(false);
  page.PressMoveKey(MoveKey::kDelete);
  EXPECT_EQ(page.Row(1).Text(), "a");
  EXPECT_FALSE(page.IsModified());
}

TEST(PageSelection, AChoiceForItIsOneEditThatKeepsIt) {
  PageMessage page = PageOf(1, 80);
  Type(page, "abcd");
  page.Select(1, 1, 3);
  page.SetModified(false);
  EXPECT_TRUE(page.ChooseColour(1));
  EXPECT_TRUE(page.IsModified());
  EXPECT_EQ(Shown(page.Row(1)), "abcd|AAAA|ABBA|NNNN");
  EXPECT_EQ(page.Row(1).SelectionLength(), 2);
  EXPECT_TRUE(page.ChooseBlink(true));
  EXPECT_TRUE(page.ChooseSize(2));
  EXPECT_EQ(Shown(page.Row(1)), "abcd|ACCA|ABBA|NBBN");
  EXPECT_EQ(page.CurrentAttributes(), (Brivon1::Attributes{'C', 'B', 'B'}));
  page.Undo();
  page.Undo();
  EXPECT_EQ(Shown(page.Row(1)), "abcd|AAAA|ABBA|NNNN");
  EXPECT_FALSE(page.Row(1).HasSelection());
}

TEST(PageSelection, ASizeThatThePanelHasNoRoomForIsRefusedWhole) {
  PageMessage page = PageOf(1, 40);  // eight places of five dots
  Choose(page, 1);
  Type(page, "12345678");
  page.Select(1, 0, 8);
  page.SetModified(false);
  EXPECT_FALSE(page.ChooseSize(0));
  EXPECT_EQ(Shown(page.Row(1)), "12345678|BBBBBBBB|AAAAAAAA|NNNNNNNN");
  EXPECT_EQ(page.CurrentAttributes().size, 'B');
  EXPECT_EQ(page.Row(1).SelectionLength(), 8);
  EXPECT_FALSE(page.IsModified());
  EXPECT_TRUE(page.ChooseSize(3));
  EXPECT_TRUE(page.ChooseColour(9));
  EXPECT_EQ(page.Row(1).Size(), "DDDDDDDD");
}

TEST(PageSelection, ARowThatIsTooWideMayBeMadeNarrowerButNotWider) {
  PageMessage page = PageOf(1, 40);
  Type(page, "1234567");  // 42 dots
  page.ChooseSize(1);
  Type(page, "8");
  page.Select(1, 7, 8);
  EXPECT_FALSE(page.ChooseSize(0));
  page.Select(1, 0, 1);
  EXPECT_TRUE(page.ChooseSize(2));
  page.Select(1, 0, 8);
  EXPECT_TRUE(page.ChooseSize(3));
  EXPECT_EQ(page.Row(1).Size(), "DDDDDDDD");
}

TEST(PageSelection, ClearingARowIsOneEdit) {
  PageMessage page = PageOf(1, 80);
  EXPECT_FALSE(page.ClearRow());
  EXPECT_FALSE(page.IsModified());
  Type(page, "abc");
  page.SetModified(false);
  EXPECT_TRUE(page.ClearRow());
  EXPECT_EQ(page.Row(1).Text(), "");
  EXPECT_TRUE(page.IsModified());
  page.Undo();
  EXPECT_EQ(page.Row(1).Text(), "abc");
}

TEST(PageSelection, CentringTakesTheDotsOfTheSizes) {
  PageMessage page = PageOf(3, 96);
  Type(page, "abcd");  // 24 of 96 dots: 36 in front, six normal blanks
  EXPECT_TRUE(page.CanCentreRow());
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(page.Row(1).Text(), "      abcd");
  EXPECT_EQ(page.Row(1).Cursor(), 10);
  EXPECT_FALSE(page.CanCentreRow());
  EXPECT_FALSE(page.CentreRow());
  page.Undo();
  EXPECT_EQ(page.Row(1).Text(), "abcd");

  page.SetCurrentRow(2);
  Choose(page, 3, 9);
  Type(page, "   abcd");  // lit ground: the blanks are seen, 35 dots of 96
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(Shown(page.Row(2)), "         abcd|DDDDDDDDDDDDD|AAAAAAJJJJJJJ|NNNNNNNNNNNNN");

  page.SetCurrentRow(3);
  Choose(page, 0);
  page.InsertGraphic('A');  // six dots: 45 in front are seven or eight blanks
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(page.Row(3).Text(), "        ~A");
}

TEST(PageSelection, CentringReplacesTheDarkBlanksInFrontAndCountsNoneBehind) {
  PageMessage page = PageOf(1, 60);
  Type(page, "         ab ");  // twelve places: all taken
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(page.Row(1).Text(), "    ab ");
  EXPECT_EQ(page.Row(1).Cursor(), 7);
}

TEST(PageSelection, CentringCountsBlanksOfRainbowAsDark) {
  PageMessage page = PageOf(1, 96);
  Choose(page, 0, 15);
  Type(page, "  ab");  // 12 of 96 dots: 42 in front, seven normal blanks
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(page.Row(1).Text(), "       ab");
}

TEST(PageSelection, CentringReplacesAsManyBlanksOfAnotherSize) {
  PageMessage page = PageOf(1, 96);
  Choose(page, 1);
  Type(page, "       ");
  Choose(page, 0);
  Type(page, "ab");
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(page.Row(1).Text(), "       ab");
  EXPECT_EQ(page.Row(1).Size(), "AAAAAAAAA");
}

TEST(PageSelection, CentringNeverGoesBeyondWhatTheRowHolds) {
  PageMessage page = PageOf(2, 60);
  Type(page, "123456789012");
  EXPECT_FALSE(page.CanCentreRow());
  EXPECT_FALSE(page.CentreRow());
  EXPECT_EQ(page.Row(1).Text(), "123456789012");
  page.SetCurrentRow(2);
  Type(page, "a         b");  // eleven characters, 66 of 60 dots
  EXPECT_FALSE(page.CentreRow());
  page.ClearRow();
  Type(page, "a         ");
  EXPECT_TRUE(page.CentreRow());
  EXPECT_EQ(page.Row(2).Text(), "  a         ");
  page.ClearRow();
  Type(page, "   ");
  EXPECT_FALSE(page.CentreRow());
}

// The rows of a page, each with its attributes.
std::string AllRows(const PageMessage& page) {
  std::string rows;
  for (int number = 1; number <= Brivon1::kMaxRows; ++number) {
    rows += Shown(page.Row(number)) + '/';
  }
  return rows;
}

TEST(PageSelection, RandomEditsStayWithinTheirRoomAndAllCanBeTakenBack) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"random.msg"_s);
  for (unsigned start = 1; start <= 40; ++start) {
    RandomEdits edits(start);
    PageMessage page = PageOf(3, 48);  // nine places
    Type(page, "first");
    const Brivon1::PageRows rows = {page.Row(1), page.Row(1), page.Row(1)};
    page.TakeOver({3, 48}, rows);
    const std::string first = AllRows(page);
    for (int edit = 0; edit < 400; ++edit) {
      const QByteArray sizes = page.EditedRow().Size();
      const bool fitted = DotsOf(page.EditedRow()) <= 48;
      const QByteArray text = page.EditedRow().Text();
      const int number = page.CurrentRow();
      switch (edits.Below(4)) {
        case 0:
          page.PressMoveKey(edits.Key());
          break;
        case 1:
          page.TypeAll(QByteArray(1, static_cast<char>(edits.Below(256))));
          break;
        case 2:
          page.Click(1 + edits.Below(3), edits.Below(200));
          break;
        default:
          edits.Edit(page, 3);
      }
      for (int row = 1; row <= Brivon1::kMaxRows; ++row) {
        ExpectEqualLengths(page.Row(row));
        ASSERT_LE(page.Row(row).Length(), row <= 3 ? 9 : 0);
        ASSERT_TRUE(row == page.CurrentRow() || !page.Row(row).HasSelection());
      }
      ASSERT_LE(page.EditedRow().SelectionEnd(), page.EditedRow().Length());
      // Another size of the same characters alone never makes a row that fits too wide.
      const bool resized = page.CurrentRow() == number && page.EditedRow().Text() == text &&
                           page.EditedRow().Size() != sizes;
      if (resized && fitted) {
        ASSERT_LE(DotsOf(page.EditedRow()), 48) << start << ' ' << edit;
      }
    }
    const std::string last = AllRows(page);
    ASSERT_EQ(Brivon1::SaveMessageFile(path, page), Brivon1::SaveResult::kSaved);
    PageMessage saved;
    saved.TakeOver({3, 48}, Brivon1::LoadMessageFile(path)->rows);
    EXPECT_EQ(AllRows(saved), last) << "what is saved is what is shown";
    while (page.Redo()) {
    }
    const std::string redone = AllRows(page);
    int undone = 0;
    while (page.Undo()) ++undone;
    EXPECT_EQ(AllRows(page), first) << start;
    EXPECT_GT(undone, 20);
    while (page.Redo()) {
    }
    EXPECT_EQ(AllRows(page), redone) << start;
  }
}

}  // namespace
