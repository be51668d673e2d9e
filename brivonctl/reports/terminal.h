// The two streams of the program: what a terminal can show.
#pragma once

#include <QString>

#include "usage/output.h"

namespace BrivonCtl {

/// What a stream shows.
struct Terminal {
  bool is_terminal = false;
  bool has_colours = false;
  int columns = 80;
  int lines = 24;
  bool has_size = false;          ///< Whether it has so many columns; so has one that is "dumb".
  bool has_every_colour = false;  ///< Not only the 256 of a palette.
  bool shows_every_character = false;
};

/// Asked for at every use: a window changes its size. A terminal that calls itself "dumb" is none,
/// nor is a console of Windows that knows no escape sequences.
Terminal LookAt(Stream stream);

enum class Colour { kGreen = 32, kRed = 31, kYellow = 33, kGrey = 90 };

/// `text` in a colour, where the terminal has some.
QString Coloured(const QString& text, Colour colour, const Terminal& terminal);

/// `text` cut to so many columns, with "..." in place of its end.
QString Cut(const QString& text, int columns);

}  // namespace BrivonCtl
