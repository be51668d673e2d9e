// The model behind the schedule editor's table.
#include "schedule/sequence_model.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QSignalSpy>
#include <QWidget>

#include <gtest/gtest.h>

#include "support/program_folder.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::FixedField;
using Brivon1::Sequence;

QList<Sequence> Sequences(const QList<QByteArray>& files) {
  QList<Sequence> sequences;
  for (const QByteArray& file : files) {
    sequences.append({FixedField(file, 100), 7, FixedField("Flip", 20)});
  }
  return sequences;
}

class SequenceModelTest : public testing::Test {
 protected:
  QString Row(int row) {
    QStringList cells;
    for (int column = 0; column < 4; ++column) {
      cells.append(model_.index(row, column).data().toString());
    }
    return cells.join(u'|');
  }

  bool IsMissing(int row) {
    const QModelIndex file = model_.index(row, 1);
    const bool italic = file.data(Qt::FontRole).value<QFont>().italic();
    EXPECT_EQ(file.data(Qt::ForegroundRole).isValid(), italic);
    EXPECT_EQ(file.data(Qt::AccessibleDescriptionRole).toString(),
              italic ? u"File not found"_s : QString());
    return italic;
  }

  TemporaryProgramFolder folder_;
  QWidget table_;
  SequenceModel model_{&table_};
};

TEST_F(SequenceModelTest, KeepsTheRulesOfAModelWhileSequencesComeAndGo) {
  const QAbstractItemModelTester tester(&model_,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(Row(0), u"End|||"_s);
  QList<QByteArray> files;
  for (const int count : {3, 3, 1, 32, 0}) {
    files.resize(count, "a.msg");
    model_.Show(Sequences(files));
    ASSERT_EQ(model_.rowCount(), count + 1);
    EXPECT_EQ(model_.rowCount(model_.index(0, 0)), 0);
    EXPECT_EQ(Row(count), u"End|||"_s);
    if (count > 0) {
      EXPECT_EQ(Row(count - 1), QString::number(count) + u"|a.msg|7|Flip"_s);
    }
  }
}

TEST_F(SequenceModelTest, EverySequenceOfAMissingFileIsMarkedUntilTheFileIsThereOrIsNamedNoMore) {
  model_.Show(Sequences({"a.msg", "b.msg", "a.msg", ""}));
  const QString path = folder_.Path(u"a.msg"_s);
  EXPECT_EQ(model_.Paths(), QStringList({path, folder_.Path(u"b.msg"_s)}));
  QSignalSpy changes(&model_, &QAbstractItemModel::dataChanged);
  model_.NoteFile(path, true);
  EXPECT_EQ(changes.count(), 0);
  model_.NoteFile(path, false);
  EXPECT_EQ(changes.count(), 1);
  EXPECT_TRUE(IsMissing(0) && IsMissing(2));
  EXPECT_FALSE(IsMissing(1) || IsMissing(3) || IsMissing(4));
  model_.NoteFile(path, true);
  EXPECT_FALSE(IsMissing(0));
  model_.NoteFile(path, false);
  model_.Show(Sequences({"b.msg"}));
  model_.Show(Sequences({"a.msg"}));
  EXPECT_FALSE(IsMissing(0)) << "it is looked for anew";
}

TEST_F(SequenceModelTest, NumbersAndDelaysStandInTheMiddleAndNothingCanBeEdited) {
  model_.Show(Sequences({"a.msg"}));
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 4; ++column) {
      const QModelIndex cell = model_.index(row, column);
      const bool centred = column == 0 || column == 2;
      EXPECT_EQ(cell.data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
                centred ? Qt::AlignCenter : Qt::Alignment());
      EXPECT_EQ(cell.flags() & (Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable),
                Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    }
  }
}

TEST_F(SequenceModelTest, AColumnTakesAnotherHeadingAndThereIsNoFifthColumn) {
  QSignalSpy changes(&model_, &QAbstractItemModel::headerDataChanged);
  EXPECT_TRUE(model_.setHeaderData(2, Qt::Horizontal, u"Dauer"_s));
  EXPECT_EQ(model_.headerData(2, Qt::Horizontal), u"Dauer"_s);
  EXPECT_EQ(changes.count(), 1);
  EXPECT_FALSE(model_.setHeaderData(4, Qt::Horizontal, u"x"_s));
  EXPECT_FALSE(model_.setHeaderData(-1, Qt::Horizontal, u"x"_s));
  EXPECT_FALSE(model_.setHeaderData(2, Qt::Vertical, u"x"_s));
  EXPECT_FALSE(model_.setHeaderData(2, Qt::Horizontal, u"x"_s, Qt::ToolTipRole));
  EXPECT_EQ(model_.headerData(2, Qt::Horizontal), u"Dauer"_s);
  EXPECT_EQ(model_.headerData(4, Qt::Horizontal).toString(), QString());
  EXPECT_EQ(model_.headerData(-1, Qt::Horizontal).toString(), QString());
}

}  // namespace
