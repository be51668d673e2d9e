// The schedules that a panel holds, a button for each: a click plays it.
#pragma once

#include <optional>

#include <QMap>
#include <QPushButton>
#include <QWidget>

#include "engine/panel.h"

namespace VirtualPanel {

class ScheduleButtons : public QWidget {
  Q_OBJECT

 public:
  // `id` is the panel's.
  explicit ScheduleButtons(int id, QWidget* parent = nullptr);

  // The schedules and the one that plays. Whether there are other buttons now, or other captions:
  // they are to be arranged anew.
  bool SetSchedules(const Schedules& schedules, const std::optional<Playing>& playing);
  // Lays the buttons out in as many columns as fit, and returns their height.
  int Arrange(int width);

 Q_SIGNALS:
  void Chosen(char letter);

 private:
  QMap<char, QPushButton*> letters_;  // one for each schedule that a panel may have
  QString captions_;                  // of the buttons as they are arranged
};

}  // namespace VirtualPanel
