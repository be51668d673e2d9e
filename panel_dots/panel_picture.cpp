#include "panel_dots/panel_picture.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace PanelDots {
namespace {

constexpr qint64 kSecondMs = 1000;
constexpr qint64 kFrameMs = 33;

// How much of a scrolling text's current second has gone.
qint64 MsIntoSecond(const ScrollingText& text, qint64 now_ms) {
  return ((now_ms - text.began_ms) % kSecondMs + kSecondMs) % kSecondMs;
}

RowLook LookOf(const PanelPicture& picture, qint64 now_ms) {
  return {picture.shape.tri_colour, (now_ms / kBlinkMs) % 2 == 0, picture.clock};
}

int TopOf(int row) { return (row - 1) * kRowDots; }

// The page's rows alone.
DotMatrix PageDots(const PanelPicture& picture, const RowLook& look, int first_row, int last_row) {
  DotMatrix dots(picture.shape.columns, picture.shape.rows * kRowDots);
  for (auto row = picture.rows.cbegin(); row != picture.rows.cend(); ++row) {
    if (row.key() < first_row || row.key() > last_row) continue;
    PutCells(&dots, TopOf(row.key()), 0, *row, look);
  }
  return dots;
}

// Whether a cell that is shown is of the kind that `is` says.
template <typename Is>
bool ShowsCell(const PanelPicture& picture, Is is) {
  const auto shows = [&](const QList<Cell>& row) {
    return std::any_of(row.cbegin(), row.cend(), is);
  };
  for (auto row = picture.rows.cbegin(); row != picture.rows.cend(); ++row) {
    if (!picture.scrolling_texts.contains(row.key()) && shows(*row)) return true;
  }
  return std::any_of(picture.scrolling_texts.cbegin(), picture.scrolling_texts.cend(),
                     [&](const ScrollingText& text) { return shows(text.cells); });
}

// How far an entering page has come, above 0 and below 1; none: nothing is entering. Should the
// machine's clock have been set back to before the beginning, the page is all there.
std::optional<double> EntranceProgress(const PanelPicture& picture, qint64 now_ms) {
  if (!picture.entrance) return std::nullopt;
  const qint64 gone = now_ms - picture.entrance->began_ms;
  if (gone < 0 || gone >= kEntranceMs) return std::nullopt;
  return static_cast<double>(gone) / kEntranceMs;
}

}  // namespace

DotMatrix DotsOf(const PanelPicture& picture, qint64 now_ms, int first_row, int last_row) {
  first_row = qMax(first_row, 1);
  last_row = qMin(last_row, picture.shape.rows);
  const RowLook look = LookOf(picture, now_ms);
  DotMatrix dots;
  if (const auto progress = EntranceProgress(picture, now_ms)) {
    // Its rows move through each other's places.
    const DotMatrix page = PageDots(picture, look, 1, picture.shape.rows);
    dots = Transition(picture.entrance->before, page, picture.entrance->effect, *progress);
  } else {
    dots = PageDots(picture, look, first_row, last_row);
  }
  const ScrollingTexts& texts = picture.scrolling_texts;
  for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
    if (text.key() < first_row || text.key() > last_row) continue;
    dots.DarkenRows(TopOf(text.key()), kRowDots);
    const auto gone = static_cast<int>(ScrolledDots(*text, picture, now_ms));
    PutCells(&dots, TopOf(text.key()), picture.shape.columns - gone, text->cells, look);
  }
  return dots;
}

DotMatrix DotsOf(const PanelPicture& picture, qint64 now_ms) {
  return DotsOf(picture, now_ms, 1, picture.shape.rows);
}

bool HasBlinkingCells(const PanelPicture& picture) {
  return ShowsCell(picture, [](const Cell& cell) { return cell.blinking; });
}

bool HasClockCells(const PanelPicture& picture) {
  return ShowsCell(picture, [](const Cell& cell) {
    return cell.kind == Cell::Kind::kDate || cell.kind == Cell::Kind::kTime;
  });
}

bool IsCut(const PanelPicture& picture, int row) {
  const auto stored = picture.rows.constFind(row);
  if (stored == picture.rows.constEnd() || picture.scrolling_texts.contains(row)) return false;
  return HasLightBehind(*stored, picture.shape.columns,
                        {picture.shape.tri_colour, true, picture.clock});
}

QString RowText(const QList<Cell>& row, const QDateTime& clock) {
  QString text;
  for (const Cell& cell : row) {
    const QString part = TextOf(cell, clock);
    text += cell.kind == Cell::Kind::kGraphic ? u"[%1]"_s.arg(part) : part;
  }
  return text;
}

qint64 ScrolledDots(const ScrollingText& text, const PanelPicture& picture, qint64 now_ms) {
  const qint64 way = picture.shape.columns + ColumnsOf(text.cells, picture.clock);
  // Whole seconds and the rest apart: a whole number of dots is gone after every second. The
  // machine's clock may have been set back to before the beginning.
  const qint64 into_second = MsIntoSecond(text, now_ms);
  const qint64 seconds = (now_ms - text.began_ms - into_second) / kSecondMs;
  const qint64 dots =
      seconds * picture.scroll_speed + into_second * picture.scroll_speed / kSecondMs;
  return (dots % way + way) % way;
}

qint64 MsToNextDot(const ScrollingText& text, const PanelPicture& picture, qint64 now_ms) {
  const qint64 into_second = MsIntoSecond(text, now_ms);
  const qint64 next_dot = into_second * picture.scroll_speed / kSecondMs + 1;
  const qint64 due = (next_dot * kSecondMs + picture.scroll_speed - 1) / picture.scroll_speed;
  return qMax(due - into_second, qint64{1});
}

std::optional<qint64> MsToNextFrame(const PanelPicture& picture, qint64 now_ms) {
  if (!EntranceProgress(picture, now_ms)) return std::nullopt;
  return qMin(kFrameMs, picture.entrance->began_ms + kEntranceMs - now_ms);
}

}  // namespace PanelDots
