#include "panel_dots/dot_painter.h"

#include <algorithm>
#include <cstddef>

#include <QColor>
#include <QPainter>
#include <QRadialGradient>

namespace PanelDots {
namespace {

const QColor kGround(15, 13, 13);
// How much of a lit dot's colour its surroundings have.
constexpr double kGlow = 0.22;
// Of the distance between two dots.
constexpr double kRadius = 0.44;

QColor ColourOf(Dot dot) {
  switch (dot) {
    case kRedDot:
      return QColor(255, 40, 24);
    case kGreenDot:
      return QColor(64, 232, 44);
    case kYellowDot:
      return QColor(255, 200, 20);
    case kDarkDot:
      break;
  }
  return QColor(50, 42, 40);
}

QColor Mixed(const QColor& colour, const QColor& other, double share) {
  const auto mix = [share](int one, int two) { return qRound(one + (two - one) * share); };
  return {mix(colour.red(), other.red()), mix(colour.green(), other.green()),
          mix(colour.blue(), other.blue())};
}

// One LED with the ground around it. Where there is no room for a round one, it fills its place.
QImage DotPicture(Dot dot, int pitch) {
  QImage picture(pitch, pitch, QImage::Format_RGB32);
  const bool is_lit = dot != kDarkDot;
  const QColor colour = ColourOf(dot);
  if (pitch == 1) {
    picture.fill(is_lit ? colour : Mixed(colour, kGround, 0.4));
    return picture;
  }
  if (pitch == 2) {
    picture.fill(Mixed(colour, kGround, is_lit ? 0.3 : 0.7));
    picture.setPixelColor(0, 0, colour);
    return picture;
  }
  const QPointF middle(pitch / 2.0, pitch / 2.0);
  const double radius = kRadius * pitch;
  picture.fill(is_lit ? Mixed(kGround, colour, kGlow) : kGround);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  if (pitch >= 5) {
    // A lit LED is brightest in its middle; on a dark one the room is seen at its upper left.
    QRadialGradient light(is_lit ? middle : middle - QPointF(radius, radius) * 0.4, radius * 1.2);
    light.setColorAt(0, is_lit ? Mixed(colour, Qt::white, 0.35) : colour.lighter(125));
    light.setColorAt(is_lit ? 0.55 : 1, is_lit ? colour : colour.darker(115));
    if (is_lit) light.setColorAt(1, colour.darker(125));
    painter.setBrush(light);
  } else {
    painter.setBrush(colour);
  }
  painter.drawEllipse(middle, radius, radius);
  return picture;
}

// The pixels of one picture line of the dots `first` to before `last`. The usual distances are
// known when this is compiled: such a copy is a move or two.
template <int known_pitch>
void CopyLine(const Dot* dots, int first, int last, const std::array<const QRgb*, 4>& pictures,
              int pitch, QRgb* out) {
  const int size = known_pitch > 0 ? known_pitch : pitch;
  for (int column = first; column < last; ++column) {
    out = std::copy_n(pictures[dots[column]], size, out);
  }
}

using LineCopier = void (*)(const Dot*, int, int, const std::array<const QRgb*, 4>&, int, QRgb*);
constexpr std::array<LineCopier, 11> kLineCopiers = {
    CopyLine<0>, CopyLine<1>, CopyLine<2>, CopyLine<3>, CopyLine<4>, CopyLine<5>,
    CopyLine<6>, CopyLine<7>, CopyLine<8>, CopyLine<9>, CopyLine<10>};

}  // namespace

DotPainter::DotPainter(int pitch) : pitch_(std::clamp(pitch, 1, kLargestPitch)) {
  for (const Dot dot : {kDarkDot, kRedDot, kGreenDot, kYellowDot}) {
    const QImage picture = DotPicture(dot, pitch_);
    for (int y = 0; y < pitch_; ++y) {
      const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
      dots_[dot].insert(dots_[dot].end(), line, line + pitch_);
    }
  }
}

void DotPainter::Paint(QImage* image, QPoint corner, const DotMatrix& matrix, int first_row,
                       int rows) const {
  // The dots that lie in the image, those at its edges maybe in part.
  const int first = std::max(0, -corner.x() / pitch_);
  const int last = std::min(matrix.Columns(), (image->width() - corner.x() + pitch_ - 1) / pitch_);
  if (first >= last) return;
  const auto known = static_cast<std::size_t>(pitch_);
  const LineCopier copy = kLineCopiers[known < kLineCopiers.size() ? known : 0];
  std::vector<QRgb> whole(static_cast<std::size_t>(last - first) * known);
  const int begin = corner.x() + first * pitch_;  // of the whole dots, in the image
  const int left = std::max(0, begin);
  const int width = std::min(begin + static_cast<int>(whole.size()), image->width()) - left;
  for (int row = 0; row < rows; ++row) {
    const Dot* dots = matrix.Line(first_row + row);
    for (int y = 0; y < pitch_; ++y) {
      const int image_y = corner.y() + row * pitch_ + y;
      if (image_y < 0 || image_y >= image->height()) continue;
      std::array<const QRgb*, 4> pictures{};
      for (std::size_t dot = 0; dot < pictures.size(); ++dot) {
        pictures[dot] = dots_[dot].data() + static_cast<std::ptrdiff_t>(y) * pitch_;
      }
      copy(dots, first, last, pictures, pitch_, whole.data());
      std::copy_n(whole.data() + (left - begin), width,
                  reinterpret_cast<QRgb*>(image->scanLine(image_y)) + left);
    }
  }
}

}  // namespace PanelDots
