#include "page/page_dots.h"

#include "panel_dots/dot_matrix.h"

namespace Brivon1 {

void PageDots::Refresh(const PageMessage& page, const RowPanel& panel) {
  const bool is_other = panel.columns != panel_.columns || panel.colour_type != panel_.colour_type;
  panel_ = panel;
  places_ = page.MaxCharsPerRow();
  for (int number = 1; number <= kMaxRows; ++number) {
    const PageRow& row = page.Row(number);
    KnownRow& known = rows_[static_cast<std::size_t>(number - 1)];
    if (!is_other && row.ShowsTheSameAs(known.row)) continue;
    known.row = row;
    known.use = {DotsOfCharacters(row, row.Length(), panel), SeenCharacters(row, panel)};
  }
}

std::optional<qsizetype> PageDots::EndOf(int number, char size) const {
  const KnownRow& known = Known(number);
  if (known.use.seen < known.row.Length()) return known.use.seen;
  PanelDots::Cell next;
  next.size = size;
  const int width = PanelDots::ColumnsOf({next}, panel_.clock);
  const int left = panel_.columns - known.use.dots;
  // Blanks may lie beyond the last dot.
  const qsizetype end = known.row.Length() + (left >= 0 ? left : left - width + 1) / width;
  if (end >= places_) return std::nullopt;
  return end;
}

}  // namespace Brivon1
