// A panel's picture as a widget that scales with its window. What blinks, scrolls or enters moves
// by itself, as long as somebody sees it.
#pragma once

#include <functional>
#include <optional>

#include <QDateTime>
#include <QTimer>
#include <QWidget>

#include "panel_dots/panel_drawing.h"

namespace PanelDots {

// The entrance of a page by effect `code` into a panel that shows `before` until then; none for
// Appear, by which a page is there at once.
std::optional<Entrance> EntranceInto(const DotMatrix& before, char code, qint64 began_ms);

class PictureView : public QWidget {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  explicit PictureView(TimeSource now, QWidget* parent = nullptr);

  // Takes over what the panel shows at `now`. Its speed of scrolling is the one that is set.
  void Show(PanelPicture picture, const QDateTime& now);
  // Draws again only where a text scrolls.
  void Scroll();
  // Whether anybody can see it; nobody, until it is said.
  void SetSeen(bool is_seen);
  // 1 to kMostScrollSpeed.
  void SetScrollSpeed(int dots_per_second);
  const PanelPicture& Picture() const { return picture_; }

 Q_SIGNALS:
  // The page that was on its way in is all there.
  void Entered();

 protected:
  QDateTime Now() const { return now_(); }
  void paintEvent(QPaintEvent* event) override;

 private:
  void Blink();
  void Enter();
  void StartTimers(const QDateTime& now);
  void StartBlinkTimer(const QDateTime& now);
  void StartScrollTimer(const QDateTime& now);
  void StartEntranceTimer(const QDateTime& now);
  // Starts the timer, or stops it where there is nothing to wait for or nobody to see it.
  void StartTimer(QTimer* timer, std::optional<qint64> wait_ms) const;

  TimeSource now_;
  PanelPicture picture_;
  bool is_blinking_ = false;
  bool is_seen_ = false;
  QTimer blink_timer_;
  QTimer scroll_timer_;
  QTimer entrance_timer_;
};

}  // namespace PanelDots
