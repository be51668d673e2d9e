// The dialog that sends a schedule, in front of its panel.
#pragma once

#include <memory>

#include <QComboBox>

#include <gtest/gtest.h>

#include "schedule/frmSendSch.h"
#include "support/panel_bench.h"
#include "support/send_dialog.h"

class ScheduleDialog : public SendDialog {
 public:
  explicit ScheduleDialog(const QString& path, const Brivon1::PanelPorts* ports = nullptr)
      : SendDialog(std::make_unique<frmSendSch>(nullptr, path, ports),
                   {"butSend", "butDone", "ComboSchID", "butBrowse", "txtSchNo"}) {}

  void ChoosePanel(int index) { Find<QComboBox>("ComboSchID")->setCurrentIndex(index); }
  void TypeLetter(const QString& letter) { TypeInto("txtSchNo", letter); }
};

struct ScheduleStep {
  QString path;
  QByteArray delay;
  QByteArray feature;
};

/// A schedule for Saturdays, every minute from 8 o'clock on; `dimension` are its two lines.
inline QByteArray ScheduleFile(const QByteArray& dimension, const QList<ScheduleStep>& steps) {
  QByteArray file = "*** Brivon Schedule File ***\r\nWeek =7\r\nHour =8\r\nMin =**\r\n" +
                    dimension + "No of Sequence =" + QByteArray::number(steps.size()) + "\r\n";
  for (const ScheduleStep& step : steps) {
    file += step.path.toLocal8Bit().leftJustified(100, ' ') + "\r\n" + step.delay + "\r\n" +
            step.feature.leftJustified(20, ' ') + "\r\n";
  }
  return file;
}

/// A panel that shows schedules, over each link.
class ScheduleOverLine : public testing::TestWithParam<LineKind> {
 protected:
  explicit ScheduleOverLine(int rows) : bench_(GetParam(), {{26, rows, 96, true}}) {}

  QString Finished() const {
    return GetParam() == LineKind::kTcp
               ? QStringLiteral("Schedules file is sent successfully through network")
               : QStringLiteral("Transmission finished!");
  }

  /// The texts of a send that failed at `file`.
  QStringList FailedAt(const QString& file) {
    return {QStringLiteral("Error in sending ") + bench_.Folder().Path(file) + QLatin1Char('!'),
            QStringLiteral("Transmission failure!")};
  }

  void ExpectAtRest(ScheduleDialog& dialog) {
    EXPECT_TRUE(dialog.IsReady());
    EXPECT_TRUE(bench_.IsReleased());
  }

  VirtualBench bench_;
};
