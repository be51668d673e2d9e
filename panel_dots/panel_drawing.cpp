#include "panel_dots/panel_drawing.h"

#include <algorithm>
#include <cmath>
#include <map>

#include <QLinearGradient>
#include <QPainterPath>
#include <QTransform>

#include "panel_dots/dot_painter.h"

namespace PanelDots {
namespace {

// All measures are in dots.
constexpr int kFrame = 2;
constexpr int kRowGap = 1;
constexpr double kCorner = 1.2;
constexpr double kBezel = 0.75;  // of the frame's width that is dark

const QColor kFrameTop(86, 90, 98);
const QColor kFrameBottom(38, 40, 45);
const QColor kFrameEdge(20, 21, 24);
const QColor kBehindDots(0, 0, 0);
const QColor kCutMark(255, 176, 0);

// Where a panel is drawn.
struct Placing {
  double dot = 1;  // the distance between two dots, in units of size
  QPointF corner;  // of the frame
  int pitch = 1;   // the distance in pixels; 1 also where there is less room than that
};

Placing Place(const QSizeF& size, const PanelShape& shape, double pixels) {
  // Rounding errors must not take a pixel away.
  constexpr double kNearlyWhole = 1e-6;
  const QSizeF dots = SizeInDots(shape);
  const double room = qMin(size.width() / dots.width(), size.height() / dots.height()) * pixels;
  const int whole =
      static_cast<int>(qMin(std::floor(room + kNearlyWhole), double{DotPainter::kLargestPitch}));
  const double dot = (whole >= 1 ? whole : room) / pixels;
  const auto middle = [&](double place, double taken) {
    return std::floor((place - taken) / 2 * pixels + kNearlyWhole) / pixels;
  };
  return {
      dot,
      QPointF(middle(size.width(), dots.width() * dot), middle(size.height(), dots.height() * dot)),
      qMax(whole, 1)};
}

// Of a row, from the frame's corner.
int RowTop(int row) { return kFrame + (row - 1) * (kRowDots + kRowGap); }

const DotPainter& PainterOf(int pitch) {
  thread_local std::map<int, DotPainter> painters;  // one for each pitch at most
  return painters.try_emplace(pitch, pitch).first->second;
}

void DrawFrame(QPainter* painter, const QSizeF& dots) {
  const QRectF outline(QPointF(0, 0), dots);
  QLinearGradient metal(outline.topLeft(), outline.bottomLeft());
  metal.setColorAt(0, kFrameTop);
  metal.setColorAt(1, kFrameBottom);
  painter->setPen(Qt::NoPen);
  painter->setBrush(kFrameEdge);
  painter->drawRoundedRect(outline, kCorner, kCorner);
  painter->setBrush(metal);
  painter->drawRoundedRect(outline.adjusted(0.15, 0.15, -0.15, -0.15), kCorner, kCorner);
  painter->setBrush(kBehindDots);
  const double rim = kFrame - kBezel;
  painter->drawRoundedRect(outline.adjusted(rim, rim, -rim, -rim), kCorner / 3, kCorner / 3);
}

// An arrow that points to where the row would go on.
void DrawCutMark(QPainter* painter, double right, int row) {
  const double middle = RowTop(row) + kRowDots / 2.0;
  QPainterPath arrow(QPointF(right - kFrame + 0.35, middle - 1.9));
  arrow.lineTo(right - 0.3, middle);
  arrow.lineTo(right - kFrame + 0.35, middle + 1.9);
  arrow.closeSubpath();
  painter->fillPath(arrow, kCutMark);
}

// The dots of the panel's rows, without its frame: that part of them which lies in `part`, in
// pixels from the upper left dot.
QImage DotsImage(const PanelPicture& picture, qint64 now_ms, int pitch, const QRect& part) {
  QImage image(part.size(), QImage::Format_RGB32);
  image.fill(kBehindDots);
  const int row_height = (kRowDots + kRowGap) * pitch;
  const int first_row = part.top() / row_height + 1;
  const int last_row = qMin(part.bottom() / row_height + 1, picture.shape.rows);
  const DotMatrix dots = DotsOf(picture, now_ms, first_row, last_row);
  for (int row = first_row; row <= last_row; ++row) {
    const QPoint corner(-part.left(), (row - 1) * row_height - part.top());
    PainterOf(pitch).Paint(&image, corner, dots, (row - 1) * kRowDots, kRowDots);
  }
  return image;
}

}  // namespace

QSizeF SizeInDots(const PanelShape& shape) {
  return QSizeF(shape.columns + 2 * kFrame,
                shape.rows * (kRowDots + kRowGap) - kRowGap + 2 * kFrame);
}

double DotDistance(const QSizeF& size, const PanelShape& shape, double pixels) {
  return Place(size, shape, pixels).dot;
}

QRectF RowRect(const QSizeF& size, const PanelShape& shape, int row, double pixels) {
  const Placing placing = Place(size, shape, pixels);
  return {placing.corner.x() + kFrame * placing.dot, placing.corner.y() + RowTop(row) * placing.dot,
          shape.columns * placing.dot, kRowDots * placing.dot};
}

void DrawPanel(QPainter* painter, const QSizeF& size, const PanelPicture& picture, qint64 now_ms) {
  const PanelShape& shape = picture.shape;
  if (size.isEmpty() || shape.rows == 0 || shape.columns == 0) return;
  const QTransform& to_device = painter->deviceTransform();
  const double pixels = to_device.m11() > 0 ? to_device.m11() : 1;
  const Placing placing = Place(size, shape, pixels);
  const QSizeF dots = SizeInDots(shape);

  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  // On whole pixels, also where the painter's own place is not.
  const QPointF corner = to_device.map(placing.corner);
  painter->translate(placing.corner +
                     (QPointF(std::round(corner.x()), std::round(corner.y())) - corner) / pixels);
  painter->save();
  painter->scale(placing.dot, placing.dot);
  DrawFrame(painter, dots);
  for (int row = 1; row <= shape.rows; ++row) {
    if (IsCut(picture, row)) DrawCutMark(painter, dots.width(), row);
  }
  painter->restore();

  painter->translate(kFrame * placing.dot, kFrame * placing.dot);
  const QSize whole((shape.columns) * placing.pitch,
                    (shape.rows * (kRowDots + kRowGap) - kRowGap) * placing.pitch);
  // From here on a unit is a pixel of the dots.
  const double scale = placing.dot / placing.pitch;
  painter->scale(scale, scale);
  QRect part(QPoint(0, 0), whole);
  if (painter->hasClipping()) part &= painter->clipBoundingRect().toAlignedRect();
  if (!part.isEmpty()) {
    // Smaller than its dots: they melt together.
    const bool is_shrunk = placing.dot * pixels < 1;
    painter->setRenderHint(QPainter::SmoothPixmapTransform, is_shrunk);
    painter->drawImage(part.topLeft(), DotsImage(picture, now_ms, placing.pitch, part));
  }
  painter->restore();
}

}  // namespace PanelDots
