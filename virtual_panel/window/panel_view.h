// One panel of the engine as a widget that scales with its window. A page that a schedule comes to
// or that is run enters by its effect; rows that arrive just appear.
#pragma once

#include <QWidget>

#include "engine/panel_engine.h"
#include "panel_dots/panel_drawing.h"

namespace VirtualPanel {

class PanelView : public QWidget {
  Q_OBJECT

 public:
  // The engine must outlive the view and have a panel with this ID.
  PanelView(const PanelEngine* engine, int id, QWidget* parent = nullptr);

  // Takes over what the panel shows at `now`.
  void Refresh(const QDateTime& now);
  // Draws again only where a text scrolls.
  void Scroll();
  // Draws a page that is entering once more, the last time when it is all there.
  void Enter(const QDateTime& now);
  // How long until Enter should be called again; no page is entering: nothing.
  std::optional<qint64> MsToNextFrame(const QDateTime& now) const;
  // How long until a scrolling text has moved; none scrolls: nothing.
  std::optional<qint64> MsToNextDot(const QDateTime& now) const;
  void SetScrollSpeed(int dots_per_second);
  const PanelDots::PanelPicture& Picture() const { return picture_; }
  bool IsBlinking() const { return is_blinking_; }
  bool IsScrolling() const { return !picture_.scrolling_texts.isEmpty(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // The entrance of what is shown from now on, by what was shown until now.
  std::optional<PanelDots::Entrance> NextEntrance(const QDateTime& now);

  const PanelEngine* engine_;
  int id_;
  int scroll_speed_ = PanelDots::kUsualScrollSpeed;
  PanelDots::PanelPicture picture_;
  std::optional<PageEntrance> last_entrance_;
  bool is_blinking_ = false;
};

}  // namespace VirtualPanel
