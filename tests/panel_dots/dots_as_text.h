// Dots written as text, so that a test shows what it expects.
#pragma once

#include <string>

#include <QTimeZone>

#include "panel_dots/dot_matrix.h"

namespace PanelDots {

/// One line of text per row of dots: "." dark, "r" red, "g" green, "y" yellow.
inline std::string Shown(const DotMatrix& matrix) {
  std::string shown;
  for (int y = 0; y < matrix.Rows(); ++y) {
    for (int x = 0; x < matrix.Columns(); ++x) shown += ".rgy"[matrix.At(x, y)];
    shown += '\n';
  }
  return shown;
}

inline DotMatrix Matrix(const std::string& shown) {
  const auto columns = static_cast<int>(shown.find('\n'));
  const auto rows = static_cast<int>(shown.size()) / (columns + 1);
  DotMatrix matrix(columns, rows);
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < columns; ++x) {
      const char dot = shown[static_cast<std::size_t>(y * (columns + 1) + x)];
      matrix.Set(x, y, static_cast<Dot>(std::string(".rgy").find(dot)));
    }
  }
  return matrix;
}

inline RowLook Look() {
  return {true, true, QDateTime(QDate(2026, 3, 5), QTime(14, 7, 9), QTimeZone::utc())};
}

inline std::string Row(const QByteArray& text, int columns, const RowLook& look = Look(),
                       int left = 0) {
  DotMatrix matrix(columns, kRowDots);
  PutCells(&matrix, 0, left, ParseCells(text), look);
  return Shown(matrix);
}

}  // namespace PanelDots
