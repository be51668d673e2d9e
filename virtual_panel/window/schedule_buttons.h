// The schedules that a panel holds, a button for each, side by side in one line that is scrolled
// when they are many: a click plays one.
#pragma once

#include <optional>

#include <QMap>
#include <QPushButton>
#include <QScrollArea>

#include "engine/panel.h"

namespace VirtualPanel {

class ScheduleButtons : public QScrollArea {
  Q_OBJECT

 public:
  // `id` is the panel's.
  explicit ScheduleButtons(int id, QWidget* parent = nullptr);

  // The schedules and the one that plays. Whether there are other buttons now, or other captions:
  // they are to be arranged anew.
  bool SetSchedules(const Schedules& schedules, const std::optional<Playing>& playing);

  int WidthOfButtons() const;
  // Without the scroll bar.
  int HeightOfButtons() const;
  // As wide as the buttons need, at most `width`. A scroll bar, if it needs one, lies below them.
  void Arrange(int width);

 Q_SIGNALS:
  void Chosen(char letter);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  // Scrolls to the button that has the keyboard, else to that of the one that plays.
  void ShowFocusedOrPlaying();

  QMap<char, QPushButton*> letters_;  // one for each schedule that a panel may have
  QString captions_;                  // of the buttons as they are arranged
  std::optional<char> playing_;
};

}  // namespace VirtualPanel
