// A schedule that is played, beside a virtual panel that was sent it.
#include "schedule/schedule_play.h"

#include <random>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"

using namespace Qt::StringLiterals;

namespace Brivon1 {
namespace {

constexpr qint64 kBegin = 1'700'000'000'123;

Sequence Step(int delay, const QByteArray& feature) {
  Sequence sequence;
  sequence.delay = static_cast<qint16>(delay);
  sequence.feature = FixedField(feature, kFeatureField);
  return sequence;
}

TEST(SchedulePlay, EachStepIsShownForItsSecondsFromTheChosenOneOn) {
  const QList<Sequence> steps = {Step(5, "Wipe Left"), Step(2, "flip"), Step(0, "any other")};
  const SchedulePlay play(steps, 2, FeatureNames(), kBegin);
  struct Case {
    qint64 after;
    int position;
    char effect;
    qint64 entered;
    qint64 to_next;
  };
  for (const Case& c : {Case{0, 2, 'B', 0, 2000}, Case{1999, 2, 'B', 0, 1},
                        Case{2000, 3, 'A', 2000, 1000}, Case{3000, 1, 'E', 3000, 5000},
                        Case{8000, 2, 'B', 8000, 2000}, Case{8001, 2, 'B', 8000, 1999}}) {
    const SchedulePlay::Shown shown = play.At(kBegin + c.after);
    EXPECT_EQ(shown.position, c.position) << c.after;
    EXPECT_EQ(shown.effect, c.effect) << c.after;
    EXPECT_EQ(shown.entered_ms, kBegin + c.entered) << c.after;
    EXPECT_EQ(shown.ms_to_next, c.to_next) << c.after;
  }
}

TEST(SchedulePlay, ASingleStepEntersOnceAndStays) {
  const SchedulePlay play({Step(2, "Fall")}, 1, FeatureNames(), kBegin);
  const SchedulePlay::Shown shown = play.At(kBegin + 5000);
  EXPECT_EQ(shown.position, 1);
  EXPECT_EQ(shown.effect, 'F');
  EXPECT_EQ(shown.entered_ms, kBegin);
  EXPECT_EQ(shown.ms_to_next, std::nullopt);
}

TEST(SchedulePlay, ANegativeDelayOfAHandWrittenFileIsOneSecond) {
  const SchedulePlay play({Step(-5, "Open"), Step(3, "Open")}, 1, FeatureNames(), kBegin);
  EXPECT_EQ(play.At(kBegin).ms_to_next, 1000);
}

TEST(SchedulePlay, AnyScheduleIsPlayedAsAVirtualPanelPlaysIt) {
  std::mt19937 random(5);
  const auto below = [&](int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
  };
  for (int n = 0; n < 100; ++n) {
    QList<Sequence> steps;
    QByteArray frame;
    for (int step = 0; step <= below(12); ++step) {
      const DisplayFeature& feature = kDisplayFeatures[static_cast<std::size_t>(below(8))];
      const int delay = below(10);
      steps.append(Step(delay, feature.name));
      frame += (frame.isEmpty() ? "" : ",") + QByteArray("00") + QByteArray::number(step % 9 + 1) +
               '0' + QByteArray::number(delay) + feature.code;
    }
    QDateTime now = QDateTime::fromMSecsSinceEpoch(kBegin);
    VirtualPanel::PanelEngine engine({{7, 4, 96, true}}, [&] { return now; });
    engine.Receive("<ID07><TA>*****" + frame + "\r\n");
    ASSERT_TRUE(engine.PlayingAt(7, now)) << frame.constData();
    const SchedulePlay play(steps, 1, FeatureNames(), kBegin);
    for (int moment = 0; moment < 50; ++moment) {
      now = now.addMSecs(below(3000));
      const SchedulePlay::Shown shown = play.At(now.toMSecsSinceEpoch());
      const auto playing = engine.PlayingAt(7, now);
      const auto entrance = engine.LastEntrance(7, now);
      ASSERT_TRUE(playing && entrance);
      ASSERT_EQ(shown.position, playing->entry);
      ASSERT_EQ(shown.effect, entrance->effect);
      ASSERT_EQ(shown.entered_ms, entrance->began_ms);
    }
  }
}

}  // namespace
}  // namespace Brivon1
