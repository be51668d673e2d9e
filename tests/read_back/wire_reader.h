// Frames as the reference of the wire has them, read by a hand of its own: neither the virtual
// panel's engine nor anything of the program is asked.
#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QByteArrayView>

#include "read_back/shown_character.h"

/// A row of a page or of a scrolling message.
struct WireRow {
  int panel = -1;
  int row = -1;
  int page = -1;  ///< -1 in a scrolling message.
  QByteArray text;
};

/// Nothing where the bytes are no such frame: with its line end and no other one, a page's row with
/// a blank before it.
std::optional<WireRow> ReadPageRow(QByteArrayView frame);
std::optional<WireRow> ReadScrollingRow(QByteArrayView frame);

struct WireStep {
  int page = -1;
  int delay = -1;
  char effect = 0;

  bool operator==(const WireStep&) const = default;
};

struct WireSchedule {
  int panel = -1;
  char letter = 0;
  QByteArray weekday;
  QByteArray hour;
  QByteArray minute;
  std::vector<WireStep> steps;
};

std::optional<WireSchedule> ReadSchedule(QByteArrayView frame);

/// What the text of a row says.
ShownRow ReadText(QByteArrayView text);
