// Many panels side by side, over real sockets and a real pseudo-terminal, some of them faulty: each
// has the result that it has alone, and none is disturbed by its neighbours.
#include "orders/crew.h"

#include <pthread.h>

#include <map>
#include <set>

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include "brivonctl/site.h"
#include "support/wait_until.h"

using namespace Qt::StringLiterals;

namespace BrivonCtl {
namespace {

class CrewTest : public testing::Test {
 protected:
  static Assignment PageTo(const QString& path) {
    Assignment assignment;
    assignment.order = {Action::kSendPage, path, u"7"_s};
    assignment.configuration = Brivon1::Store();
    return assignment;
  }

  static QList<PanelsOfALine> Lines(const QList<int>& ids) {
    QList<Brivon1::PanelListEntry> panels;
    for (const int id : ids) {
      const auto& entry = Brivon1::Store().panels[static_cast<std::size_t>(id)];
      panels.append({id, entry.rows, entry.columns, Brivon1::ReadEndpoint(entry.address)});
    }
    return ByLine(panels, Brivon1::Store().Mode());
  }

  /// Runs a crew to its end while the panels of this thread answer. `at_step` is called after each.
  void Run(
      const Assignment& assignment, const QList<PanelsOfALine>& lines, int jobs, std::size_t panels,
      const std::function<void(Crew&)>& at_step = [](Crew&) {}) {
    EventQueue queue;
    Crew crew(assignment, lines, jobs, queue);
    const auto take_all = [&] {
      for (const Happening& happening : queue.TakeAll()) {
        if (const auto* transmission = std::get_if<Transmission>(&happening)) {
          results_[transmission->result.panel] = *transmission;
        } else {
          steps_.append(std::get<Step>(happening).panel);
          if (results_.empty()) begun_before_any_end_.insert(steps_.last());
          at_step(crew);
        }
      }
      return results_.size() == panels;
    };
    // Five attempts take a while, and the thread sanitizer makes them longer.
    EXPECT_TRUE(WaitUntil(take_all) || WaitUntil(take_all) || WaitUntil(take_all));
    crew.Stop();  // if it has not ended by now
  }

  Result Of(int panel) { return results_[panel].result.result; }

  std::map<int, Transmission> results_;
  QList<int> steps_;
  std::set<int> begun_before_any_end_;
};

TEST_F(CrewTest, FaultyPanelsFailAndDisturbNobody) {
  Site site(8);
  site.Fail(2, {.silent = true});
  site.Fail(3, {.late_ms = 600});
  site.Fail(4, {.garbage = true});
  site.Fail(5, {.close_after_frame = 1});
  site.Close(6);
  site.Fail(7, {.silent_answers = 2});
  site.Fail(8, {.flood = true});
  QElapsedTimer clock;
  clock.start();
  Run(PageTo(site.Page()), Lines({1, 2, 3, 4, 5, 6, 7, 8}), 8, 8);
  EXPECT_GE(clock.elapsed(), 500 + 5 * 1100);  // a connection, and five attempts in vain

  for (const int panel : {1, 3, 7}) EXPECT_EQ(Of(panel), Result::kOk) << panel;
  for (const int panel : {2, 4, 5, 6, 8}) EXPECT_EQ(Of(panel), Result::kFailed) << panel;
  EXPECT_EQ(site.Frames(1), Site::PageFrames(1));
  EXPECT_EQ(site.Frames(3), Site::PageFrames(3));
  EXPECT_EQ(site.Frames(2).size(), 5);
  EXPECT_EQ(site.Frames(7).size(), 4);
  EXPECT_EQ(results_[1].acknowledged_rows, 2);
  EXPECT_EQ(results_[5].acknowledged_rows, 1);
  EXPECT_EQ(results_[7].attempts, 4);
  EXPECT_TRUE(results_[6].result.reason.contains(u"Connection refused"_s))
      << results_[6].result.reason.toStdString();
}

TEST_F(CrewTest, AllPanelsAreInProgressAtOnce) {
  Site site(20);
  QList<int> ids;
  for (int id = 1; id <= 20; ++id) {
    ids.append(id);
    site.Fail(id, {.silent_answers = 1});
  }
  Run(PageTo(site.Page()), Lines(ids), 20, 20);
  EXPECT_EQ(begun_before_any_end_.size(), 20U);
  for (const int id : ids) EXPECT_EQ(Of(id), Result::kOk) << id;
}

TEST_F(CrewTest, WithOneJobOneLineIsServedAfterTheOther) {
  Site site(3);
  Run(PageTo(site.Page()), Lines({1, 2, 3}), 1, 3);
  EXPECT_EQ(steps_, (QList<int>{1, 1, 2, 2, 3, 3}));
}

TEST_F(CrewTest, PanelsOfOneAddressAreServedOneAfterTheOther) {
  OneLine line(false);
  Run(PageTo(line.Page()), Lines({1, 2, 3}), 64, 3);
  EXPECT_EQ(steps_, (QList<int>{1, 1, 2, 2, 3, 3}));
  for (const int id : {1, 2, 3}) EXPECT_EQ(Of(id), Result::kOk) << id;
  EXPECT_TRUE(line.IsReleased());
}

TEST_F(CrewTest, TheSerialLineServesOnePanelAfterTheOther) {
  OneLine line(true);
  Run(PageTo(line.Page()), Lines({1, 2, 3}), 64, 3);
  EXPECT_EQ(steps_, (QList<int>{1, 1, 2, 2, 3, 3}));
  for (const int id : {1, 2, 3}) EXPECT_EQ(Of(id), Result::kOk) << id;
  EXPECT_TRUE(line.IsReleased());
}

TEST_F(CrewTest, AnAdapterThatIsPulledFailsForEveryPanelThatIsLeft) {
  OneLine line(true);
  line.Fail({.silent = true});
  Run(PageTo(line.Page()), Lines({1, 2}), 64, 2, [&](Crew&) { line.Unplug(); });
  EXPECT_EQ(Of(1), Result::kFailed);
  EXPECT_EQ(Of(2), Result::kFailed);
  EXPECT_EQ(results_[2].result.text, u"Fail to initialize communication port!"_s);
}

TEST_F(CrewTest, AStopEndsEveryPanelAfterItsAttempt) {
  Site site(5);
  for (const int id : {1, 2, 3, 4, 5}) site.Fail(id, {.silent = true});
  Run(PageTo(site.Page()), Lines({1, 2, 3, 4, 5}), 3, 5, [&](Crew& crew) {
    if (steps_.size() == 3) crew.Stop();
  });
  for (const int id : {1, 2, 3, 4, 5}) {
    EXPECT_EQ(Of(id), Result::kStopped) << id;
    EXPECT_EQ(site.Frames(id).size(), id <= 3 ? 1 : 0) << id;
  }
  EXPECT_EQ(results_[5].result.reason, u"Nothing has been sent."_s);
}

#ifdef __GLIBC__
TEST_F(CrewTest, WithoutAThreadItIsEmptyAndNothingIsSent) {
  Site site(1);
  pthread_attr_t usual;
  ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
  pthread_attr_t huge;
  ASSERT_EQ(pthread_attr_init(&huge), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&huge, std::size_t{1} << 50), 0);  // more than can be had
  ASSERT_EQ(pthread_setattr_default_np(&huge), 0);
  EventQueue queue;
  const Crew crew(PageTo(site.Page()), Lines({1}), 1, queue);
  pthread_setattr_default_np(&usual);
  EXPECT_TRUE(crew.IsEmpty());
  EXPECT_TRUE(queue.TakeAll().empty());
}
#endif

}  // namespace
}  // namespace BrivonCtl
