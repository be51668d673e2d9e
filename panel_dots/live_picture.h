// A panel's picture in a window that has no panel: date and time are those of the machine, and it
// moves while it is visible. Nothing is done while it is not.
#pragma once

#include "panel_dots/picture_view.h"

namespace PanelDots {

class LivePicture : public PictureView {
  Q_OBJECT

 public:
  explicit LivePicture(QWidget* parent = nullptr);

  // At first the machine's own.
  void SetTimeSource(TimeSource now);

  // Shows the picture with the date and time as they are, from now on. A page that is on its way in
  // goes on where `picture` has its entrance.
  void ShowNow(PanelPicture picture);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void ShowClock();
  void StartClockTimer(const QDateTime& now);

  TimeSource time_source_ = [] { return QDateTime::currentDateTime(); };
  QTimer clock_timer_;
};

}  // namespace PanelDots
