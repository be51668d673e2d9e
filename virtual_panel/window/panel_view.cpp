#include "window/panel_view.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

using PanelDots::Entrance;
using PanelDots::PageRows;
using PanelDots::PanelPicture;
using PanelDots::PanelShape;
using PanelDots::ScrollingTexts;

PanelShape ShapeOf(const PanelDescription& description) {
  return {description.rows, description.columns, description.tri_colour};
}

PageRows RowsOf(const StoredPage& page) {
  PageRows rows;
  for (auto row = page.cbegin(); row != page.cend(); ++row) rows.insert(row.key(), row->cells);
  return rows;
}

ScrollingTexts TextsOf(const ScrollingLines& lines) {
  ScrollingTexts texts;
  for (auto line = lines.cbegin(); line != lines.cend(); ++line) {
    texts.insert(line.key(), {line->row.cells, line->began_ms});
  }
  return texts;
}

}  // namespace

PanelView::PanelView(const PanelEngine* engine, int id, QWidget* parent)
    : PictureView([engine] { return engine->Now(); }, parent), engine_(engine), id_(id) {
  setObjectName(u"panel_%1"_s.arg(id));
  setAccessibleName(u"Panel %1"_s.arg(id));
  for (QTimer* timer : findChildren<QTimer*>(Qt::FindDirectChildrenOnly)) {
    timer->setObjectName(timer->objectName() + QString::number(id));
  }
  Refresh(engine_->Now());
}

void PanelView::Refresh(const QDateTime& now) {
  const Panel& panel = *engine_->FindPanel(id_);
  PanelPicture picture{ShapeOf(panel.Description()), RowsOf(panel.ShownRows(now)), panel.Clock(now),
                       TextsOf(panel.Memory().Scrolling())};
  picture.entrance = NextEntrance(now);
  Show(std::move(picture), now);
}

std::optional<Entrance> PanelView::NextEntrance(const QDateTime& now) {
  const auto last = engine_->LastEntrance(id_, now);
  const bool is_other =
      last.has_value() != last_entrance_.has_value() ||
      (last && (last->page != last_entrance_->page || last->began_ms != last_entrance_->began_ms));
  last_entrance_ = last;
  // The effect of a page that has entered already may become another one: that comes too late.
  if (!is_other) return Picture().entrance;
  if (!last) return std::nullopt;
  return PanelDots::EntranceInto(PanelDots::DotsOf(Picture(), now.toMSecsSinceEpoch()),
                                 last->effect, last->began_ms);
}

}  // namespace VirtualPanel
