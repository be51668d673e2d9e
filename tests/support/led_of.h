// Telling in a picture of a panel which LED a pixel is part of.
#pragma once

#include <QColor>

enum class Led { kDark, kRed, kGreen, kYellow, kNone };

// By the pixel's colour; near an LED's middle it is that of the LED.
inline Led LedOf(const QColor& colour) {
  const bool is_red = colour.red() > 150;
  const bool is_green = colour.green() > 150;
  if (is_red && is_green) return Led::kYellow;
  if (is_red) return Led::kRed;
  if (is_green) return Led::kGreen;
  return colour.value() > 40 && colour.value() < 80 ? Led::kDark : Led::kNone;
}
