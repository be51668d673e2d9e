// A panel's dots in a terminal: two of them a character in their colours, or in the letters r, g
// and y where nothing is known of what reads them.
#pragma once

#include <QByteArray>

#include "panel_dots/panel_picture.h"

namespace BrivonCtl {

struct Screen {
  enum class Colours { kNone, k256, kEvery };

  bool draws_blocks = false;  ///< Shows block and Braille characters; else letters and points.
  Colours colours = Colours::kNone;
  int width = 0;  ///< In characters; 0: no end.
};

/// Standard output: letters without an end unless it is a terminal. There NO_COLOR, COLORTERM, TERM
/// and the language of its characters tell what it can do.
Screen StandardOutput();

/// The panel at the beginning of a blink, a line end behind each line. A row that goes on behind
/// the panel's last dot has a mark at its right. Of what is wider than the terminal the left part
/// is given; before that, where two dots a character do not fit, eight of them share one.
QByteArray TerminalPicture(const PanelDots::PanelPicture& picture, const Screen& terminal);

}  // namespace BrivonCtl
