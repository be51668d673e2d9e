// The panel beside the table of a schedule: it shows the page of the selected step, and plays the
// schedule from there on as a panel plays it. Where a step has no page, it says why.
#pragma once

#include <functional>
#include <optional>

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>

#include "panel_dots/panel_picture.h"
#include "schedule/schedule.h"
#include "schedule/schedule_page.h"
#include "schedule/schedule_play.h"

class NextInput;
class QAbstractButton;
class QLabel;
class QSplitter;
class SchedulePane;
class SequenceTable;

class SchedulePreview : public QObject {
  Q_OBJECT

 public:
  using TimeSource = std::function<QDateTime()>;

  /// The preview of the schedule that `table` shows. The panel has the date and time of `now`, and
  /// its schedule plays by it.
  SchedulePreview(SequenceTable* table, SchedulePane* pane, TimeSource now, QWidget* window);

  /// To be called when the table has another schedule, or it was edited. A play ends.
  void Show(const Brivon1::Schedule& schedule);

  bool IsPlaying() const { return play_.has_value(); }
  void Stop();

 private:
  void PressButton();
  void Play();
  /// Goes on to the step that is due.
  void Proceed();
  void ShowSelected();
  void TakePage(const QString& path, const Brivon1::SchedulePage& page);
  void ShowPage(std::optional<PanelDots::Entrance> entrance);
  void ShowPicture(const PanelDots::PageRows& rows, std::optional<PanelDots::Entrance> entrance);
  PanelDots::PanelShape Shape() const;
  qint16 ColourType() const;

  SequenceTable& table_;
  SchedulePane& pane_;
  TimeSource now_;
  Brivon1::Schedule schedule_;
  QHash<QString, Brivon1::SchedulePage> pages_;  // those read so far, by their paths
  int position_ = 0;                             // of the step that is shown; 0: none
  std::optional<Brivon1::SchedulePlay> play_;
  qint64 entered_ms_ = 0;  // of the playing step
  QTimer step_timer_;
  NextInput* next_input_;
};
