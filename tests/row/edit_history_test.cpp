#include "row/edit_history.h"

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

PageRow RowOf(qsizetype length) {
  PageRow row(PageRow::kEveryColumn);
  for (qsizetype at = 0; at < length; ++at) row.Append('x', {'A', 'A', kSteady});
  return row;
}

int UndoesAll(EditHistory& history) {
  PageRow row;
  int undone = 0;
  for (; history.CanUndo(); ++undone) history.Undo(row);
  return undone;
}

int UndoesAfter(int edits, const PageRow& row) {
  EditHistory history;
  for (int edit = 0; edit < edits; ++edit) history.Record({1, row});
  return UndoesAll(history);
}

TEST(EditHistoryTest, AThousandEditsCanBeTakenBack) {
  EXPECT_EQ(UndoesAfter(999, RowOf(1)), 999);
  EXPECT_EQ(UndoesAfter(1000, RowOf(1)), 1000);
  EXPECT_EQ(UndoesAfter(1001, RowOf(1)), 1000);
}

TEST(EditHistoryTest, OfEditsOfLongRowsFourMillionCharactersAreKept) {
  EXPECT_EQ(UndoesAfter(3, RowOf(2'000'000)), 2);
  EXPECT_EQ(UndoesAfter(3, RowOf(2'000'001)), 1);
  EditHistory history;
  history.Record({1, RowOf(2'000'000)});
  history.Record({2, RowOf(2'000'001)});
  EXPECT_EQ(UndoesAll(history), 1);
}

TEST(EditHistoryTest, TheLastEditCanBeTakenBackHoweverLongItsRowIs) {
  EXPECT_EQ(UndoesAfter(3, RowOf(4'000'001)), 1);
}

TEST(EditHistoryTest, AnEditThatHasNoneToJoinIsOneOfItsOwn) {
  EditHistory history;
  history.JoinNext();
  history.Record({1, RowOf(1)});
  EXPECT_EQ(UndoesAll(history), 1);
}

TEST(EditHistoryTest, AnEditThatIsJoinedForgetsNoOther) {
  EditHistory history;
  history.Record({7, RowOf(1)});
  for (int edit = 1; edit < 1000; ++edit) history.Record({1, RowOf(1)});
  for (int step = 0; step < 3; ++step) {
    history.JoinNext();
    history.Record({1, RowOf(2)});
  }
  PageRow row;
  for (int edit = 1; edit < 1000; ++edit) {
    ASSERT_EQ(history.UndoRow(), 1);
    history.Undo(row);
    EXPECT_EQ(row.Length(), 1);
  }
  ASSERT_TRUE(history.CanUndo());
  EXPECT_EQ(history.UndoRow(), 7);
}

TEST(EditHistoryTest, TheOldestEditsAreForgottenFirst) {
  EditHistory history;
  history.Record({1, RowOf(10)});
  history.Record({2, RowOf(4'000'000)});
  ASSERT_TRUE(history.CanUndo());
  EXPECT_EQ(history.UndoRow(), 2);
  EXPECT_EQ(UndoesAll(history), 1);
}

}  // namespace
}  // namespace Brivon1
