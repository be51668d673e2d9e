// How the commands stand in their list.
#pragma once

#include <QStyledItemDelegate>

/// Draws the rows far enough apart to be hit, those of the commands that delete set off by a line
/// above and below. The selected row is seen as well while the keyboard is elsewhere.
class CommandRows : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
