#include "schedule/sequence_table.h"

#include <array>

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include "base/code_page.h"
#include "base/files.h"
#include "language/module_language.h"
#include "schedule/schedule_file.h"
#include "store/configuration_store.h"
#include "widgets/plain_tool_tip.h"

using namespace Qt::StringLiterals;

namespace {

enum Column { kNumber, kFile, kDelay, kFeature, kColumns };

// In twips, of which 15 are a pixel: the least widths, and the shares of a wider table.
constexpr std::array<int, kColumns> kTwips = {500, 3500, 700, 1000};
constexpr int kAllTwips = 500 + 3500 + 700 + 1000;
constexpr int kTwipsPerPixel = 15;

constexpr int kRowsInSight = 10;
constexpr int kRowMargin = 8;

// Of a path that is too long, the file's name stays in sight.
class PathDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
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

/// The file that a cell names; empty for a cell that names none.
QString PathIn(const QTableWidgetItem& cell) {
  return cell.text().isEmpty() ? QString() : Brivon1::InProgramFolder(cell.text());
}

/// Whether a cell's message file was missing when it was looked for.
bool IsMissing(const QTableWidgetItem& cell) {
  return cell.data(Qt::AccessibleDescriptionRole).isValid();
}

}  // namespace

SequenceTable::SequenceTable(QWidget* parent)
    : QTableWidget(parent),
      is_there_(&Brivon1::IsMessageFileThere),
      look_([this](const QString& path, bool is_there) { NoteFile(path, is_there); }) {
  setColumnCount(kColumns);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);  // Tab goes on to the next control
  setWordWrap(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerItem);
  setItemDelegateForColumn(kFile, new PathDelegate(this));
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
  setMinimumSize(
      kAllTwips / kTwipsPerPixel + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
      horizontalHeader()->sizeHint().height() + kRowsInSight * row_height + 2 * frameWidth());

  connect(this, &QTableWidget::cellDoubleClicked, this, [this](int row, int column) {
    if (column == kFile) {
      Q_EMIT FileWanted(row + 1);
    } else {
      Q_EMIT PropertiesWanted(row + 1);
    }
  });
}

void SequenceTable::keyPressEvent(QKeyEvent* event) {
  const bool is_plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  // A key that is held too long takes one row out, not all.
  if (is_plain && !event->isAutoRepeat() && PressKey(event->key())) return;
  QTableWidget::keyPressEvent(event);
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
  const Brivon1::CodePage& code_page = Brivon1::CodePage::System();
  setRowCount(schedule.Count() + 1);
  for (int row = 0; const Brivon1::Sequence& sequence : schedule.Sequences()) {
    SetCell(row, kNumber, QString::number(row + 1));
    SetCell(row, kFile, Brivon1::FieldPath(sequence.path));
    SetCell(row, kDelay, QString::number(sequence.delay));
    SetCell(row, kFeature, code_page.ToText(sequence.feature).trimmed());
    ++row;
  }
  SetCell(schedule.Count(), kNumber, u"End"_s);
  for (int column = kNumber + 1; column < kColumns; ++column) {
    SetCell(schedule.Count(), column, QString());
  }
  MarkMissingFiles();
  LookForFiles();
  setCurrentCell(position - 1, kFile);
  if (schedule.Count() == 0) clearSelection();  // "End" alone is no choice
  // "End" belongs to the last sequence.
  if (position == schedule.Count()) scrollToItem(item(position, kNumber));
  scrollToItem(item(position - 1, kNumber));
}

void SequenceTable::SetCell(int row, int column, const QString& text) {
  auto* cell = new QTableWidgetItem(text);
  cell->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  if (column == kNumber || column == kDelay) cell->setTextAlignment(Qt::AlignCenter);
  setItem(row, column, cell);
}

void SequenceTable::LookForFiles() {
  QStringList paths;
  for (int row = 0; row < rowCount(); ++row) {
    const QString path = PathIn(*item(row, kFile));
    if (!path.isEmpty() && !paths.contains(path)) paths.append(path);
  }
  missing_.intersect({paths.begin(), paths.end()});
  look_.Begin(paths, is_there_);
}

void SequenceTable::NoteFile(const QString& path, bool is_there) {
  if (missing_.contains(path) != is_there) return;  // as it was known
  if (is_there) {
    missing_.remove(path);
  } else {
    missing_.insert(path);
  }
  MarkMissingFiles();
}

void SequenceTable::MarkMissingFiles() {
  const QString missing_text = ModuleLanguage::TranslateMessage(u"File not found"_s);
  for (int row = 0; row < rowCount(); ++row) {
    QTableWidgetItem* cell = item(row, kFile);
    const bool missing = missing_.contains(PathIn(*cell));
    QFont font = this->font();
    font.setItalic(missing);  // for those who do not see the grey
    cell->setFont(font);
    cell->setData(Qt::ForegroundRole,
                  missing ? QVariant(palette().brush(QPalette::PlaceholderText)) : QVariant());
    cell->setData(Qt::AccessibleDescriptionRole, missing ? QVariant(missing_text) : QVariant());
  }
}

void SequenceTable::resizeEvent(QResizeEvent* event) {
  QTableWidget::resizeEvent(event);
  const int width = viewport()->width();
  int left = width;
  for (const Column column : {kNumber, kDelay, kFeature}) {
    const auto twips = kTwips[static_cast<std::size_t>(column)];
    const int share = std::max(width * twips / kAllTwips, twips / kTwipsPerPixel);
    setColumnWidth(column, share);
    left -= share;
  }
  setColumnWidth(kFile, left);
}

void SequenceTable::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) QTableWidget::mouseDoubleClickEvent(event);
}

bool SequenceTable::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableWidget::eventFilter(object, event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const int column = horizontalHeader()->logicalIndexAt(help.pos());
  const QTableWidgetItem* heading = column < 0 ? nullptr : horizontalHeaderItem(column);
  ShowToolTip(help, heading == nullptr ? QString() : heading->text(), horizontalHeader());
  return true;
}

bool SequenceTable::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTableWidget::viewportEvent(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QTableWidgetItem* cell = itemAt(help.pos());
  QString text = cell == nullptr ? QString() : cell->text();
  if (cell != nullptr && IsMissing(*cell)) {
    text += u'\n' + cell->data(Qt::AccessibleDescriptionRole).toString();
  }
  ShowToolTip(help, text, viewport());
  return true;
}
