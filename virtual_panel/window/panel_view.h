// One panel of the engine as a widget that scales with its window. A page that a schedule comes to
// or that is run enters by its effect; rows that arrive just appear. What blinks, scrolls or enters
// moves by itself, as long as somebody sees it.
#pragma once

#include <optional>

#include <QTimer>
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
  // Whether anybody can see it; nobody, until it is said.
  void SetSeen(bool is_seen);
  // 1 to PanelDots::kMostScrollSpeed.
  void SetScrollSpeed(int dots_per_second);
  const PanelDots::PanelPicture& Picture() const { return picture_; }

 Q_SIGNALS:
  // The page that was on its way in is all there.
  void Entered();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  // The entrance of what is shown from now on, by what was shown until now.
  std::optional<PanelDots::Entrance> NextEntrance(const QDateTime& now);
  void Blink();
  void Enter();
  void StartTimers(const QDateTime& now);
  void StartBlinkTimer(const QDateTime& now);
  void StartScrollTimer(const QDateTime& now);
  void StartEntranceTimer(const QDateTime& now);
  // Starts the timer, or stops it where there is nothing to wait for or nobody to see it.
  void StartTimer(QTimer* timer, std::optional<qint64> wait_ms) const;

  const PanelEngine* engine_;
  int id_;
  int scroll_speed_ = PanelDots::kUsualScrollSpeed;
  PanelDots::PanelPicture picture_;
  std::optional<PageEntrance> last_entrance_;
  bool is_blinking_ = false;
  bool is_seen_ = false;
  QTimer blink_timer_;
  QTimer scroll_timer_;
  QTimer entrance_timer_;
};

}  // namespace VirtualPanel
