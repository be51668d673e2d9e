#include "row/blink_timers.h"

#include <QSignalSpy>
#include <QTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class BlinkTimersTest : public testing::Test {
 protected:
  /// One tick, without waiting for it.
  void Tick(const QString& timer) {
    QMetaObject::invokeMethod(window_.findChild<QTimer*>(timer), "timeout");
  }

  static QList<bool> Values(const QSignalSpy& spy) {
    QList<bool> values;
    for (const QList<QVariant>& arguments : spy) values.append(arguments[0].toBool());
    return values;
  }

  QObject window_;
  BlinkTimers timers_{&window_};
  QSignalSpy cursor_{&timers_, &BlinkTimers::CursorBlinked};
  QSignalSpy characters_{&timers_, &BlinkTimers::CharactersBlinked};
};

TEST_F(BlinkTimersTest, BothTickEvery500MsTheCursorsOnceItIsShown) {
  const auto* cursor = window_.findChild<QTimer*>(u"Timer1"_s);
  const auto* characters = window_.findChild<QTimer*>(u"Timer2"_s);
  EXPECT_EQ(cursor->interval(), 500);
  EXPECT_EQ(characters->interval(), 500);
  EXPECT_FALSE(cursor->isActive());
  EXPECT_TRUE(characters->isActive());
  timers_.ShowCursor();
  EXPECT_TRUE(cursor->isActive());
}

TEST_F(BlinkTimersTest, TheCursorIsShownAtOnceAndBlinksFromThereOn) {
  timers_.ShowCursor();
  Tick(u"Timer1"_s);
  Tick(u"Timer1"_s);
  timers_.ShowCursor();
  Tick(u"Timer1"_s);
  EXPECT_EQ(Values(cursor_), QList<bool>({true, false, true, true, false}));
  EXPECT_TRUE(characters_.isEmpty());
}

TEST_F(BlinkTimersTest, TheCharactersAreHiddenAndShownInTurn) {
  for (int tick = 0; tick < 3; ++tick) Tick(u"Timer2"_s);
  EXPECT_EQ(Values(characters_), QList<bool>({true, false, true}));
  EXPECT_TRUE(cursor_.isEmpty());
}

}  // namespace
