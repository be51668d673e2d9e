// What the tests of the preview beside the schedule's table share: the schedule editor at a time
// that is moved by hand.
#pragma once

#include <QLabel>
#include <QSplitter>
#include <QTimer>

#include "panel_dots/live_picture.h"
#include "schedule/schedule_editor.h"
#include "schedule/schedule_pane.h"
#include "support/wait_until.h"

class SchedulePreviewWindow : public ScheduleEditor {
 protected:
  // The window reads the time to its end.
  ~SchedulePreviewWindow() override { window_.reset(); }

  std::unique_ptr<frmSchedule> MakeWindow() override {
    return std::make_unique<frmSchedule>(nullptr, is_there_, [this] { return now_; });
  }

  PanelDots::LivePicture* Picture() { return Find<PanelDots::LivePicture>("picPreview"); }
  QLabel* Note() { return Find<QLabel>("lblPreview"); }
  QTimer* Timer(const char* name) { return Find<QTimer>(name); }
  static std::string Name(const QWidget* widget) { return widget->accessibleName().toStdString(); }

  /// What row 1 of the shown page says; of the steps that NewPages() makes "1", "2" and so on.
  QString Row(int row = 1) {
    const PanelDots::PanelPicture& picture = Picture()->Picture();
    return PanelDots::RowText(picture.rows.value(row), picture.clock);
  }

  bool IsPlaying() { return Table()->PlayingPosition() > 0; }

  /// Lets `ms` pass; a step that is due then comes.
  void Pass(int ms) {
    now_ = now_.addMSecs(ms);
    since_step_ += ms;
    QTimer* timer = Timer("step_timer_");
    if (!timer->isActive() || since_step_ < timer->interval()) return;
    since_step_ = 0;
    QMetaObject::invokeMethod(timer, "timeout", Qt::DirectConnection);
  }

  void Play() {
    since_step_ = 0;
    Press("butPlay");
    ASSERT_TRUE(IsPlaying());
  }

  QString Page(const char* name, const QByteArray& row) {
    return folder_.Write(Text(name), "*** Brivon Message File ***\r\nRow = 2\r\nCol = 80\r\n<L01>" +
                                         row + "\r\n<L02><SA><CA>of two\r\n");
  }

  /// Moves the line between the table and the preview.
  void MoveSplitter(int table, int preview) {
    auto* splitter = Find<QSplitter>("tableAndPicture");
    splitter->setSizes({table, preview});
    Q_EMIT splitter->splitterMoved(table, 1);
  }

  struct Step {
    const char* file;
    int delay;
    const char* feature;
  };

  /// Opens a schedule of these steps, saved as it is.
  void OpenSteps(std::initializer_list<Step> steps) {
    QByteArray content = QByteArray("*** Brivon Schedule File ***\r\n") + kHead +
                         "No of Sequence =" + QByteArray::number(qsizetype(steps.size())) + "\r\n";
    for (const Step& step : steps) {
      content += Field(step.file, 100) + "\r\n" + QByteArray::number(step.delay) + "\r\n" +
                 Field(step.feature, 20) + "\r\n";
    }
    schedule_ = folder_.Write(Text("a.sch"), content);
    Open(schedule_);
  }

  /// Opens a schedule of three pages, "1" to "3", and waits until they are read.
  void OpenThreePages() {
    for (const char* number : {"1", "2", "3"}) {
      Page(QByteArray(number).append(".msg").constData(), QByteArray("<SA><CB>") + number);
    }
    OpenSteps({{"1.msg", 5, "Appear"}, {"2.msg", 2, "Wipe Right"}, {"3.msg", 1, "Fall"}});
    ASSERT_TRUE(WaitUntil([this] { return Row() == Text("1"); }));
    // The others are read beside it.
    for (const int position : {3, 2, 1}) {
      Click(position);
      ASSERT_TRUE(WaitUntil([&] { return Row() == QString::number(position); }));
    }
  }

  Brivon1::FileLook::IsThere is_there_ = &Brivon1::IsMessageFileThere;
  QDateTime now_{QDate(2026, 11, 21), QTime(10, 30, 0)};
  int since_step_ = 0;
  QString schedule_;
};
