// One panel of the engine as a widget. A page that a schedule comes to or that is run enters by its
// effect; rows that arrive just appear.
#pragma once

#include <optional>

#include "engine/panel_engine.h"
#include "panel_dots/picture_view.h"

namespace VirtualPanel {

class PanelView : public PanelDots::PictureView {
  Q_OBJECT

 public:
  // The engine must outlive the view and have a panel with this ID.
  PanelView(const PanelEngine* engine, int id, QWidget* parent = nullptr);

  // Takes over what the panel shows at `now`.
  void Refresh(const QDateTime& now);

 private:
  // The entrance of what is shown from now on, by what was shown until now.
  std::optional<PanelDots::Entrance> NextEntrance(const QDateTime& now);

  const PanelEngine* engine_;
  int id_;
  std::optional<PageEntrance> last_entrance_;
};

}  // namespace VirtualPanel
