// What is done with the selected characters of a scrolling message, and what of it is in sight.
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "row/random_edits.h"
#include "row/shown_row.h"
#include "scrolling/scrolling_file.h"
#include "scrolling/scrolling_message.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::LeftOut;
using Brivon1::MoveKey;
using Brivon1::PageRow;
using Brivon1::ScrollingMessage;

ScrollingMessage MessageOf(const QByteArray& text) {
  ScrollingMessage message;
  message.TypeAll(text);
  message.SetModified(false);
  return message;
}

TEST(ScrollingSelection, TheSpanFollowsTheCursorThatSelects) {
  ScrollingMessage message = MessageOf(QByteArray(100, 'a'));
  ASSERT_EQ(message.FirstVisible(), 70);
  message.SelectByKey(1, MoveKey::kHome);
  EXPECT_EQ(message.FirstVisible(), 0);
  EXPECT_EQ(message.Row().SelectionLength(), 100);
  EXPECT_FALSE(message.IsModified());
}

TEST(ScrollingSelection, AMouseBesideTheSpanReachesOneCharacterMore) {
  ScrollingMessage message = MessageOf(QByteArray(100, 'a'));
  message.Click(120);
  ASSERT_EQ(message.Row().Cursor(), 80);
  message.SelectTo(1, -1000);
  EXPECT_EQ(message.Row().Cursor(), 69);
  EXPECT_EQ(message.Row().Anchor(), 80);
  EXPECT_EQ(message.FirstVisible(), 69);
  message.SelectTo(1, 1000);
  EXPECT_EQ(message.Row().Cursor(), 100);
  EXPECT_EQ(message.FirstVisible(), 70);
  message.SelectByKey(1, MoveKey::kHome);
  message.SelectTo(1, 1000);
  EXPECT_EQ(message.Row().Cursor(), 31);
  EXPECT_EQ(message.FirstVisible(), 1);
}

TEST(ScrollingSelection, ADoubleClickFindsTheWordInTheSpan) {
  ScrollingMessage message = MessageOf("one two " + QByteArray(40, 'a') + " end");
  message.SelectWord(1, 29 * 12 + 1);
  EXPECT_EQ(message.Row().SelectionBegin(), 49);
  EXPECT_EQ(message.Row().SelectionEnd(), 52);
}

TEST(ScrollingSelection, RemovingItMarksTheMessageAndShowsWhatComesBeforeIt) {
  ScrollingMessage message = MessageOf(QByteArray(100, 'a'));
  for (int step = 0; step < 30; ++step) message.SelectByKey(1, MoveKey::kLeft);
  message.PressMoveKey(MoveKey::kDelete);
  EXPECT_EQ(message.Row().Length(), 70);
  EXPECT_LT(message.FirstVisible(), 70);
  EXPECT_TRUE(message.IsModified());
  message.Undo();
  EXPECT_EQ(message.Row().Length(), 100);
}

TEST(ScrollingSelection, OfSeveralPastedLinesTheFirstIsTakenAndTheOthersAreCounted) {
  ScrollingMessage message = MessageOf("ab");
  EXPECT_EQ(message.Paste(u"cd\nefg\nh"_s), (LeftOut{0, {}, 4}));
  EXPECT_EQ(message.Row().Text(), "abcd");
  message = MessageOf(QByteArray(999, 'x'));
  EXPECT_EQ(message.Paste(u"yz\u9053"_s), (LeftOut{1, u"\u9053"_s}));
  EXPECT_EQ(message.Row().Length(), 1000);
}

TEST(ScrollingSelection, ACharacterWithoutAByteAloneIsNoEdit) {
  ScrollingMessage message = MessageOf("ab");
  EXPECT_EQ(message.Paste(u"\u9053"_s), (LeftOut{0, u"\u9053"_s}));
  EXPECT_FALSE(message.IsModified());
}

TEST(ScrollingSelection, AnySizeFitsAndThereIsNoMiddle) {
  ScrollingMessage message = MessageOf(QByteArray(1000, 'x'));
  message.Select(1, 0, 1000);
  EXPECT_TRUE(message.ChooseSize(2));
  EXPECT_EQ(message.Row().Size(), QByteArray(1000, 'C'));
  EXPECT_FALSE(message.CanCentreRow());
  EXPECT_FALSE(message.CentreRow());
}

TEST(ScrollingSelection, RandomEditsStayWithinTheirRoomAndAllCanBeTakenBack) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"random.srl"_s);
  for (unsigned number = 1; number <= 40; ++number) {
    RandomEdits edits(number);
    ScrollingMessage message;
    PageRow start(PageRow::kEveryColumn);
    for (int at = 0; at < 980; ++at) start.Append('s', {'A', 'A', Brivon1::kSteady});
    message.TakeOver(start);
    const auto first = Shown(message.Row());
    for (int edit = 0; edit < 400; ++edit) {
      switch (edits.Below(4)) {
        case 0:
          message.PressMoveKey(edits.Key());
          break;
        case 1:
          message.TypeAll(QByteArray(1, static_cast<char>(edits.Below(256))));
          break;
        case 2:
          message.Click(edits.Below(400));
          break;
        default:
          edits.Edit(message, 1);
      }
      const PageRow& row = message.Row();
      ExpectEqualLengths(row);
      ASSERT_LE(row.Length(), 1000);
      ASSERT_LE(row.SelectionEnd(), row.Length());
      ASSERT_LE(message.FirstVisible(), row.Cursor());
      ASSERT_LE(row.Cursor() - message.FirstVisible(), ScrollingMessage::kSpan);
    }
    ASSERT_EQ(Brivon1::WriteScrollingMessage(path, message.Row()), Brivon1::SaveResult::kSaved);
    EXPECT_EQ(Shown(*Brivon1::ReadScrollingMessage(path)), Shown(message.Row()));
    while (message.Redo()) {
    }
    const auto redone = Shown(message.Row());
    int undone = 0;
    while (message.Undo()) ++undone;
    EXPECT_EQ(Shown(message.Row()), first) << number;
    EXPECT_GT(undone, 20);
    while (message.Redo()) {
    }
    EXPECT_EQ(Shown(message.Row()), redone) << number;
  }
}

}  // namespace
