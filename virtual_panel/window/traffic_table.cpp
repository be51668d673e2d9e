#include "window/traffic_table.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

constexpr int kLeastLines = 5;

}  // namespace

TrafficTable::TrafficTable(QWidget* parent) : QTableView(parent), model_(new TrafficModel(this)) {
  setModel(model_);
  setObjectName(u"traffic"_s);
  setAccessibleName(u"Traffic"_s);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  verticalHeader()->hide();
  const int line_height = fontMetrics().height() + 6;
  verticalHeader()->setDefaultSectionSize(line_height);
  setMinimumHeight((kLeastLines + 2) * line_height);
  QHeaderView* header = horizontalHeader();
  header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header->setHighlightSections(false);
  header->setStretchLastSection(true);
  const int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
  header->resizeSection(TrafficModel::kTimeColumn, 14 * character);
  header->resizeSection(TrafficModel::kFrameColumn, 48 * character);
  header->resizeSection(TrafficModel::kAnswerColumn, 17 * character);

  auto* copy = new QAction(u"Copy"_s, this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &TrafficTable::CopySelection);
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TrafficTable::Add(const FrameRecord& record) {
  const QScrollBar* bar = verticalScrollBar();
  const bool was_at_end = bar->value() == bar->maximum();
  model_->Add(record);
  if (was_at_end) scrollToBottom();
}

void TrafficTable::CopySelection() {
  QStringList lines;
  for (int row = 0; row < model_->rowCount(); ++row) {
    if (selectionModel()->isRowSelected(row)) lines.append(model_->Line(row));
  }
  // What is on the clipboard stays if there is nothing to copy.
  if (lines.isEmpty()) return;
  QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

}  // namespace VirtualPanel
