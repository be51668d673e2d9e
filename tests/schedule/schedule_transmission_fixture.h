// A schedule that is sent over a scripted link in virtual time.
#pragma once

#include <gtest/gtest.h>

#include "schedule/schedule_transmission.h"
#include "support/program_folder.h"
#include "support/virtual_time.h"

namespace Brivon1 {

/// A step of a schedule file.
struct Step {
  QString path;
  QByteArray delay = "5";
  QByteArray feature = "Appear";
};

/// A schedule file for a panel of 1 x 96; `slot` are its lines for weekday, hour and minute.
inline QByteArray ScheduleOf(const QList<Step>& steps,
                             const QByteArray& slot = "Week =0\r\nHour =**\r\nMin =**\r\n") {
  QByteArray content = "*** Brivon Schedule File ***\r\n" + slot +
                       "Row =1\r\nCol =96\r\nNo of Sequence =" + QByteArray::number(steps.size()) +
                       "\r\n";
  for (const Step& step : steps) {
    content += step.path.toLatin1().leftJustified(100, ' ') + "\r\n" + step.delay + "\r\n" +
               step.feature.leftJustified(20, ' ') + "\r\n";
  }
  return content;
}

class ScheduleTransmission : public testing::Test {
 protected:
  ScheduleTransmission() {
    folder_.Configure(
        "[Dimension Config]\r\n"
        "ID000=1x96,Tri,10.0.0.0:80\r\n"
        "ID003=1x96,Mono,10.0.0.3:80\r\n"
        "ID010=1x96,Tri,10.0.0.10:80\r\n"
        "[Communication]\r\nDelay Period=200\r\n");
  }

  /// A message file of one row of 96 dot columns that says `text`.
  QString Message(const QString& name, const QByteArray& text) {
    return folder_.Write(
        name, "*** Brivon Message File ***\r\nRow = 1\r\nCol = 96\r\n<L01>" + text + "\r\n");
  }

  QString Path(const QString& name) { return folder_.Path(name); }

  bool Send(const QByteArray& content, int id = 10, const QString& letter = QStringLiteral("A")) {
    return SendFile(folder_.Write(QStringLiteral("week.sch"), content), id, letter);
  }

  bool SendFile(const QString& path, int id = 10, const QString& letter = QStringLiteral("A")) {
    OpenLine line{link_, timer_, clock_, Store(), [this](const QString& text) {
                    time_.Note(QStringLiteral("status \"%1\"").arg(text));
                  }};
    return SendScheduleFile(line, path, id, letter,
                            [this](const Refusal& refusal) { shown_.append(refusal.text); });
  }

  /// Panel 10 acknowledges the next frames.
  void Answer(int frames) {
    for (int i = 0; i < frames; ++i) link_.AnswerAfter(1, "<ID0A>\r\n");
  }

  /// The frame that follows the one message file of a schedule whose lines for the time are `slot`.
  QByteArray ScheduleFrame(const QByteArray& slot, const Step& step) {
    Answer(2);
    EXPECT_TRUE(Send(ScheduleOf({step}, slot)));
    return link_.Written().value(1);
  }

  /// Expects that the schedule is refused with `text`, or without one, and that nothing was sent.
  void ExpectRefused(const QByteArray& content, const QString& text) {
    EXPECT_FALSE(Send(content));
    EXPECT_EQ(shown_, text.isEmpty() ? QStringList() : QStringList(text));
    EXPECT_TRUE(link_.Written().isEmpty());
    EXPECT_EQ(time_.Now(), 0);
    shown_.clear();
  }

  TemporaryProgramFolder folder_;
  VirtualTime time_;
  VirtualTickTimer timer_{time_};
  VirtualClock clock_{time_};
  ScriptedLink link_{time_};
  QStringList shown_;
};

}  // namespace Brivon1
