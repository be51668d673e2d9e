#include "command/command_rows.h"

#include <algorithm>

#include <QPainter>

#include "command/commands.h"

namespace {

constexpr int kRowHeight = 28;
constexpr int kRoomOfLine = 9;  // above the first row of a group

bool Deletes(int row) { return Brivon1::Deletes(static_cast<Brivon1::PanelCommand>(row)); }

bool BeginsGroup(int row) { return row > 0 && Deletes(row) != Deletes(row - 1); }

}  // namespace

QSize CommandRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QSize size = QStyledItemDelegate::sizeHint(option, index);
  size.setHeight(std::max(size.height(), kRowHeight));
  if (BeginsGroup(index.row())) size.rheight() += kRoomOfLine;
  return size;
}

void CommandRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  if (BeginsGroup(index.row())) {
    const int line = option.rect.top() + kRoomOfLine / 2;
    const QPen pen = painter->pen();
    painter->setPen(option.palette.color(QPalette::PlaceholderText));
    painter->drawLine(option.rect.left(), line, option.rect.right(), line);
    painter->setPen(pen);
    row.rect.setTop(option.rect.top() + kRoomOfLine);
  }
  QStyledItemDelegate::paint(painter, row, index);
}

void CommandRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (option->state.testFlag(QStyle::State_Selected)) option->state |= QStyle::State_Active;
}
