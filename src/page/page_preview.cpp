#include "page/page_preview.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QPaintEvent>
#include <QPainter>

#include "page/page_picture.h"
#include "page/row_dots.h"
#include "panel_dots/panel_drawing.h"

namespace {

using Brivon1::kCellWidth;
using PanelDots::Cell;

/// From this distance of two dots on a letter is read at a glance: a wide panel gets no smaller to
/// be seen whole.
constexpr double kReadablePitch = 3;

/// The distance that is asked for.
constexpr int kUsualPitch = 3;
constexpr int kUsualPitchOfMany = 2;
constexpr int kManyRows = 6;

/// What stays in sight beside the cursor, in dots.
constexpr int kSight = 12;

/// A size that is no bound.
constexpr double kEndless = 1e6;

bool AnyOf(const QList<Cell>& cells, bool (*is)(const Cell&)) {
  return std::any_of(cells.begin(), cells.end(), is);
}

bool SameMinute(const QDateTime& one, const QDateTime& other) {
  return one.date() == other.date() && one.time().hour() == other.time().hour() &&
         one.time().minute() == other.time().minute();
}

}  // namespace

PagePreview::PagePreview(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
}

void PagePreview::Build(const Brivon1::PageMessage& page, TimeSource now) {
  page_ = &page;
  now_ = std::move(now);
}

void PagePreview::Refresh() {
  if (page_ == nullptr) return;
  const PanelDots::PanelShape shape = Shape();
  if (shape.rows != asked_for_rows_) {
    asked_for_rows_ = shape.rows;
    updateGeometry();
  }
  if (!isVisible()) return;
  const bool is_other = !(shape == picture_.shape);
  if (is_other) {
    picture_ = {shape};
    picture_.clock = now_();
    update();
  }
  for (int number = 1; number <= shape.rows; ++number) {
    const Brivon1::PageRow& row = page_->Row(number);
    Shown& shown = shown_[static_cast<std::size_t>(number - 1)];
    if (!is_other && row.ShowsTheSameAs(shown.row)) continue;
    shown.row = row;
    MakeRow(number);
    update(StripOf(number));
  }
  SetLeft(left_);
}

void PagePreview::MakeRow(int number) {
  Shown& shown = shown_[static_cast<std::size_t>(number - 1)];
  const QList<Cell> cells =
      Brivon1::SeenCells(shown.row, {picture_.shape.columns, colour_type_, picture_.clock});
  shown.blinks = AnyOf(cells, [](const Cell& cell) { return cell.blinking; });
  shown.has_clock = AnyOf(cells, [](const Cell& cell) {
    return cell.kind == Cell::Kind::kDate || cell.kind == Cell::Kind::kTime;
  });
  picture_.rows.insert(number, cells);
}

void PagePreview::SetColourType(qint16 colour_type) {
  colour_type_ = colour_type;
  Refresh();
}

void PagePreview::SetBlinkingHidden(bool hidden) {
  blinking_hidden_ = hidden;
  if (page_ == nullptr || !isVisible()) return;
  UpdateRows(&Shown::blinks);
  const QDateTime now = now_();
  if (SameMinute(now, picture_.clock)) return;
  picture_.clock = now;
  UpdateRows(&Shown::has_clock);
}

void PagePreview::UpdateRows(bool Shown::*which) {
  for (int number = 1; number <= picture_.shape.rows; ++number) {
    if (shown_[static_cast<std::size_t>(number - 1)].*which) update(StripOf(number));
  }
}

double PagePreview::Pitch() const {
  const PanelDots::PanelShape& shape = picture_.shape;
  const double pixels = devicePixelRatioF();
  const double by_height = PanelDots::DotDistance(QSizeF(kEndless, height()), shape, pixels);
  const double by_width = PanelDots::DotDistance(QSizeF(width(), kEndless), shape, pixels);
  return std::min(by_height, std::max(by_width, kReadablePitch));
}

QSizeF PagePreview::PanelSize() const { return PanelDots::SizeInDots(picture_.shape) * Pitch(); }

QRect PagePreview::StripOf(int number) const {
  const QSizeF size = PanelSize();
  QRectF strip = PanelDots::RowRect(size, picture_.shape, number, devicePixelRatioF());
  // With the mark of a row that is cut, which stands in the frame beside it.
  strip.setRight(size.width());
  return strip.translated(Corner()).toAlignedRect();
}

double PagePreview::CursorPlace() const {
  const Brivon1::PageRow& row = page_->Row(page_->CurrentRow());
  const int dots = Brivon1::DotsOfCharacters(
      row, row.Cursor(), {picture_.shape.columns, colour_type_, picture_.clock});
  return std::min(dots, picture_.shape.columns) * Pitch();
}

void PagePreview::Follow(const Sight& sight) {
  const bool has_moved = !(sight == sight_);
  sight_ = sight;
  if (page_ == nullptr || !isVisible()) return;
  const double hidden = PanelSize().width() - width();
  if (hidden <= 0) return SetLeft(0);
  double left = left_;
  const int way = sight.rows_width - sight.width;
  if (has_moved) left = way > 0 ? hidden * std::clamp(1.0 * sight.left / way, 0.0, 1.0) : 0;
  const qsizetype cursor = page_->Row(page_->CurrentRow()).Cursor() * kCellWidth - sight.left;
  if (cursor >= 0 && cursor <= sight.width) {
    const double room = std::min(kSight * Pitch(), width() / 2.0);
    const double place = CursorPlace();
    left = std::clamp(left, place + room - width(), std::max(place - room, 0.0));
  }
  SetLeft(left);
}

void PagePreview::SetLeft(double left) {
  // On whole pixels, or every row would change.
  const double pixels = devicePixelRatioF();
  const double most = std::max(PanelSize().width() - width(), 0.0);
  left = std::round(std::clamp(left, 0.0, most) * pixels) / pixels;
  if (left == left_) return;
  left_ = left;
  update();
}

QSize PagePreview::sizeHint() const {
  const PanelDots::PanelShape shape = Shape().rows > 0 ? Shape() : PanelDots::PanelShape();
  const int pitch = shape.rows > kManyRows ? kUsualPitchOfMany : kUsualPitch;
  return (PanelDots::SizeInDots(shape) * pitch).toSize();
}

QSize PagePreview::minimumSizeHint() const {
  if (Shape().rows == 0) return {0, 0};
  return {0, qCeil(PanelDots::SizeInDots(Shape()).height())};
}

PanelDots::PanelShape PagePreview::Shape() const {
  return page_ == nullptr ? PanelDots::PanelShape{0, 0}
                          : Brivon1::PanelShapeOf(PageDimension(), colour_type_);
}

void PagePreview::paintEvent(QPaintEvent* event) {
  if (picture_.shape.rows == 0 || picture_.shape.columns == 0) return;
  const qint64 phase = blinking_hidden_ ? PanelDots::kBlinkMs : 0;
  for (const QRect& part : event->region()) {
    QPainter painter(this);
    painter.setClipRect(part);
    painter.translate(Corner());
    PanelDots::DrawPanel(&painter, PanelSize(), picture_, phase);
  }
}

void PagePreview::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Follow(std::exchange(sight_, {}));
}

void PagePreview::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  picture_.clock = now_ ? now_() : QDateTime();
  Refresh();
  Follow(std::exchange(sight_, {}));
}
