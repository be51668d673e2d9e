// Paints a panel's dots as round LEDs into an image, a dot of the same colour being the same few
// pixels everywhere.
#pragma once

#include <array>
#include <vector>

#include <QImage>
#include <QPoint>

#include "panel_dots/dot_matrix.h"

namespace PanelDots {

class DotPainter {
 public:
  static constexpr int kLargestPitch = 64;

  // `pitch` pixels from one dot to the next, 1 to kLargestPitch.
  explicit DotPainter(int pitch);

  int Pitch() const { return pitch_; }

  // Paints `rows` rows of dots from `first_row` on, their upper left corner at `corner`; dark dots
  // are dimly visible. `image` holds 32 bits a pixel. What lies outside of it is left out, a dot
  // at its edge in part.
  void Paint(QImage* image, QPoint corner, const DotMatrix& matrix, int first_row, int rows) const;

 private:
  using Picture = std::vector<QRgb>;  // pitch x pitch pixels

  int pitch_;
  std::array<Picture, 4> dots_;  // by Dot
};

}  // namespace PanelDots
