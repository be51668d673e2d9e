// Two panels with a clock that is driven by hand.
#pragma once

#include <ostream>

#include <QTimeZone>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"

namespace VirtualPanel {

inline void PrintTo(const Playing& playing, std::ostream* stream) {
  *stream << playing.letter << ", entry " << playing.entry << " of " << playing.entries << ", page "
          << playing.page << ", " << playing.feature;
}

inline constexpr qint64 kSecond = 1000;

inline QByteArray At(const QDateTime& time) {
  return time.toString(QStringLiteral("ddd HH:mm:ss.zzz")).toLatin1();
}

class ScheduleTest : public testing::Test {
 protected:
  // Sends frames to the first panel, and expects that it acknowledges every one.
  void Send(std::initializer_list<const char*> bodies) {
    for (const char* body : bodies) {
      const QList<Answer> answers = engine_.Receive(QByteArray("<ID1A>") + body + "\r\n");
      ASSERT_EQ(answers.size(), 1) << body;
      EXPECT_EQ(answers.first().bytes, "<ID1A>\r\n") << body;
    }
  }

  QString LastDescription() { return engine_.Frames().last().description; }

  std::optional<Playing> Now(int id = 26) { return engine_.PlayingAt(id, now_); }

  // The letter that plays, or "-".
  QByteArray Letter(int id = 26) {
    const auto playing = Now(id);
    return playing ? QByteArray(1, playing->letter) : QByteArray("-");
  }

  // When the panel next changes by itself, by its own clock.
  QByteArray Next() {
    const auto next = engine_.NextChange(26, now_);
    return next ? At(engine_.Clock(26, *next)) : QByteArray("never");
  }

  void GoTo(const QDate& date, const QTime& time) {
    now_ = QDateTime(date, time, QTimeZone::utc());
  }
  void GoTo(const QTime& time) { GoTo(now_.date(), time); }
  void Wait(qint64 ms) { now_ = now_.addMSecs(ms); }

  QDateTime now_{QDate(2026, 11, 21), QTime(8, 0), QTimeZone::utc()};  // a Saturday
  PanelEngine engine_{{{26, 4, 96, true}, {3, 2, 48, false}}, [this] { return now_; }};
};

}  // namespace VirtualPanel
