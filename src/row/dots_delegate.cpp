#include "row/dots_delegate.h"

#include <algorithm>
#include <utility>

#include <QAbstractItemView>
#include <QComboBox>
#include <QPixmap>
#include <QScrollBar>

#include "panel_dots/dot_glyphs.h"
#include "panel_dots/dot_matrix.h"
#include "panel_dots/dot_painter.h"
#include "panel_dots/message_text.h"

namespace {

/// Around the characters, in dots.
constexpr int kMargin = 1;

QByteArray Code(char kind, int entry) {
  return QByteArray("<") + kind + static_cast<char>('A' + entry) + '>';
}

/// The closed list may be narrower than its entries with their pictures.
void GiveRoom(QComboBox* list) {
  QAbstractItemView* view = list->view();
  view->setMinimumWidth(view->sizeHintForColumn(0) + view->verticalScrollBar()->sizeHint().width());
}

void ShowInDots(QComboBox* list, std::function<QByteArray(int)> text_of) {
  list->setItemDelegate(new DotsDelegate(list, std::move(text_of)));
  // Its captions may come later.
  QObject::connect(list->model(), &QAbstractItemModel::dataChanged, list,
                   [list] { GiveRoom(list); });
  GiveRoom(list);
}

}  // namespace

DotsDelegate::DotsDelegate(QComboBox* list, std::function<QByteArray(int entry)> text_of)
    : QStyledItemDelegate(list), text_of_(std::move(text_of)) {}

void DotsDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const double pixels = option->widget != nullptr ? option->widget->devicePixelRatioF() : 1;
  const QPixmap picture = InDots(text_of_(index.row()), option->fontMetrics, pixels);
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->icon = QIcon(picture);
  option->icon.addPixmap(picture, QIcon::Selected);  // in its own colours there too
  option->decorationSize = picture.deviceIndependentSize().toSize();
}

QPixmap InDots(const QByteArray& text, const QFontMetrics& font, double pixels) {
  const QList<PanelDots::Cell> cells = PanelDots::ParseCells(text);
  // As wide as in the widest size, so that the names stand in one line.
  const auto columns = static_cast<int>(cells.size()) * PanelDots::kNormalColumns;
  PanelDots::DotMatrix dots(columns + 2 * kMargin, PanelDots::kRowDots + 2 * kMargin);
  PanelDots::PutCells(&dots, kMargin, kMargin, cells, {});
  const PanelDots::DotPainter painter(
      std::max(2, static_cast<int>(font.height() * pixels / dots.Rows())));
  QImage image(QSize(dots.Columns(), dots.Rows()) * painter.Pitch(), QImage::Format_RGB32);
  painter.Paint(&image, QPoint(0, 0), dots, 0, dots.Rows());
  image.setDevicePixelRatio(pixels);
  return QPixmap::fromImage(image);
}

QByteArray ColourInDots(int entry) { return Code('C', entry) + "Abc"; }

QByteArray SizeInDots(int entry) { return Code('S', entry) + "<CC>Abc"; }

void ShowColoursInDots(QComboBox* colours) { ShowInDots(colours, &ColourInDots); }

void ShowSizesInDots(QComboBox* sizes) { ShowInDots(sizes, &SizeInDots); }

void ShowSymbolsInDots(QComboBox* symbols) {
  ShowInDots(symbols, [](int entry) { return "<CC>" + Code('G', entry); });
}
