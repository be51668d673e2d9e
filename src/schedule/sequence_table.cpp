#include "schedule/sequence_table.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "base/twips.h"
#include "schedule/sequence_model.h"
#include "widgets/plain_tool_tip.h"

using namespace Qt::StringLiterals;

namespace {

using Brivon1::kTwipsPerPixel;
using Column = SequenceModel::Column;

// The least widths in twips, which are also the shares of a wider table.
constexpr std::array<int, SequenceModel::kColumns> kTwips = {500, 3500, 700, 1000};
constexpr int kAllTwips = std::accumulate(kTwips.begin(), kTwips.end(), 0);

constexpr int kRowsInSight = 10;
constexpr int kRowMargin = 8;

// While a schedule is played, its row looks like the selected one.
class SequenceDelegate : public QStyledItemDelegate {
 public:
  explicit SequenceDelegate(SequenceTable* table) : QStyledItemDelegate(table), table_(*table) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (table_.PlayingPosition() == 0) return;
    const bool is_playing = index.row() + 1 == table_.PlayingPosition();
    option->state.setFlag(QStyle::State_Selected, is_playing);
    option->state.setFlag(QStyle::State_HasFocus, false);
    // Some styles have painted the selected row's ground already.
    option->backgroundBrush =
        option->palette.brush(is_playing ? QPalette::Highlight : QPalette::Base);
  }

 private:
  const SequenceTable& table_;
};

// Of a path that is too long, the file's name stays in sight.
class PathDelegate : public SequenceDelegate {
 public:
  using SequenceDelegate::SequenceDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    SequenceDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideLeft;
  }
};

void ShowToolTip(const QHelpEvent& help, const QString& text, QWidget* widget) {
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    ShowPlainToolTip(help, text, widget);
  }
}

}  // namespace

SequenceTable::SequenceTable(QWidget* parent)
    : QTableView(parent),
      model_(new SequenceModel(this)),
      is_there_(&Brivon1::IsMessageFileThere),
      look_([this](const QString& path, const FoundFile& found) {
        model_->NoteFile(path, found.is_there);
        if (found.page) Q_EMIT PageRead(path, *found.page);
      }) {
  setModel(model_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);  // Tab goes on to the next control
  setWordWrap(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerItem);
  setItemDelegate(new SequenceDelegate(this));
  setItemDelegateForColumn(Column::kFile, new PathDelegate(this));
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setSectionsClickable(false);
  // Of a heading that is too long, its start is seen, and its tool tip shows it all.
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  horizontalHeader()->viewport()->installEventFilter(this);
  horizontalHeader()->setHighlightSections(false);
  const int row_height = fontMetrics().height() + kRowMargin;
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(row_height);
  verticalHeader()->setDefaultSectionSize(row_height);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  SetLeastRows(kRowsInSight);

  connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
    if (cell.column() == Column::kFile) {
      Q_EMIT FileWanted(cell.row() + 1);
    } else {
      Q_EMIT PropertiesWanted(cell.row() + 1);
    }
  });
}

void SequenceTable::SetLeastRows(int rows) {
  const int width = kAllTwips / kTwipsPerPixel + verticalScrollBar()->sizeHint().width();
  const int height =
      horizontalHeader()->sizeHint().height() + rows * verticalHeader()->defaultSectionSize();
  setMinimumSize(QSize(width, height) + 2 * QSize(frameWidth(), frameWidth()));
}

void SequenceTable::keyPressEvent(QKeyEvent* event) {
  const bool is_plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  // A key that is held too long takes one row out, not all.
  if (is_plain && !event->isAutoRepeat() && PressKey(event->key())) return;
  QTableView::keyPressEvent(event);
}

bool SequenceTable::PressKey(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Q_EMIT PropertiesWanted(SelectedPosition());
      return true;
    case Qt::Key_F2:
      Q_EMIT FileWanted(SelectedPosition());
      return true;
    case Qt::Key_Insert:
      Q_EMIT InsertPressed();
      return true;
    case Qt::Key_Delete:
      Q_EMIT DeletePressed();
      return true;
    default:
      return false;
  }
}

int SequenceTable::SelectedPosition() const {
  const QModelIndexList rows = selectionModel()->selectedRows();
  return rows.isEmpty() ? 0 : rows.first().row() + 1;
}

void SequenceTable::ShowSequences(const Brivon1::Schedule& schedule, int position) {
  dimension_ = schedule.dimension;
  model_->Show(schedule.Sequences());
  LookForFiles();
  setCurrentIndex(model_->index(position - 1, Column::kFile));
  if (schedule.Count() == 0) clearSelection();  // "End" alone is no choice
  // "End" belongs to the last sequence.
  if (position == schedule.Count()) scrollTo(model_->index(position, Column::kNumber));
  scrollTo(model_->index(position - 1, Column::kNumber));
}

void SequenceTable::LookForFiles() {
  const auto look = [is_there = is_there_, reads = reads_pages_,
                     dimension = dimension_](const QString& path) -> FoundFile {
    if (!is_there(path)) return {false, Brivon1::MissingPage()};
    if (!reads) return {true, std::nullopt};
    return {true, Brivon1::ReadSchedulePage(path, dimension)};
  };
  look_.Begin(model_->Paths(), look);
}

void SequenceTable::ReadPages(bool reads) {
  if (reads == std::exchange(reads_pages_, reads) || !reads) return;
  LookForFiles();
}

QString SequenceTable::PathAt(int position) const {
  const bool is_sequence = position >= 1 && position < model_->rowCount();
  return is_sequence ? model_->PathIn(position - 1) : QString();
}

void SequenceTable::ShowPlaying(int position) {
  if (position == std::exchange(playing_, position)) return;
  viewport()->update();
  scrollTo(position == 0 ? currentIndex() : model_->index(position - 1, Column::kFile));
}

void SequenceTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  const int width = viewport()->width();
  int left = width;
  for (const Column column : {Column::kNumber, Column::kDelay, Column::kFeature}) {
    const int twips = kTwips[column];
    const int share = std::max(width * twips / kAllTwips, twips / kTwipsPerPixel);
    setColumnWidth(column, share);
    left -= share;
  }
  setColumnWidth(Column::kFile, left);
}

void SequenceTable::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) QTableView::mouseDoubleClickEvent(event);
}

bool SequenceTable::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::eventFilter(object, event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const int column = horizontalHeader()->logicalIndexAt(help.pos());
  ShowToolTip(help, model_->headerData(column, Qt::Horizontal).toString(), horizontalHeader());
  return true;
}

bool SequenceTable::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableView::viewportEvent(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QModelIndex cell = indexAt(help.pos());
  QString text = cell.data().toString();
  const QVariant missing = cell.data(Qt::AccessibleDescriptionRole);
  if (missing.isValid()) text += u'\n' + missing.toString();
  ShowToolTip(help, text, viewport());
  return true;
}
