// Pages on their way in, as the window shows them.

#include "window_fixture.h"

namespace VirtualPanel {
namespace {

class EntranceTest : public WindowTest {
 protected:
  static constexpr int kLit = 6 * 8;  // dots of a blank on a lit background

  void SetUp() override {
    WindowTest::SetUp();
    // Page 1 is red along row 1, page 2 green along row 1.
    Receive("<ID1A><L01><P001><CK>" + QByteArray(16, ' ') + " \r\n<ID1A><L01><P002><CJ>" +
            QByteArray(16, ' ') + " \r\n");
  }

  PanelView* View() { return Find<PanelView>("panel_26"); }

  // Dots of row 1 of each colour.
  std::pair<int, int> RedAndGreen() {
    return {Count(View(), 1, Led::kRed), Count(View(), 1, Led::kGreen)};
  }

  void Pass(int ms) { now_ = now_.addMSecs(ms); }
};

TEST_F(EntranceTest, AScheduleShowsEachPageByItsEffect) {
  Receive("<ID1A><RP001>\r\n");
  Receive("<ID1A><TA>*****00203D,00103E\r\n");
  EXPECT_TRUE(Find<QTimer>("entrance_timer_26")->isActive());
  // Wipe Right: page 2 comes from the left.
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
  Pass(400);
  EXPECT_EQ(RedAndGreen(), std::pair(8 * kLit, 8 * kLit));
  const QRectF row = PanelDots::RowRect(View()->size(), View()->Picture().shape, 1);
  const QImage image = View()->grab().toImage();
  const double dot = PanelDots::DotDistance(View()->size(), View()->Picture().shape);
  EXPECT_EQ(LedOf(image.pixelColor((row.topLeft() + QPointF(dot / 2, dot / 2)).toPoint())),
            Led::kGreen);
  Pass(400);
  EXPECT_EQ(RedAndGreen(), std::pair(0, 16 * kLit));
  EXPECT_TRUE(WaitUntil([&] { return !Find<QTimer>("entrance_timer_26")->isActive(); }));
  // Wipe Left brings page 1 back, from the right.
  Pass(2200);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(RedAndGreen(), std::pair(0, 16 * kLit));
  Pass(200);
  EXPECT_EQ(RedAndGreen(), std::pair(4 * kLit, 12 * kLit));
}

TEST_F(EntranceTest, APageThatIsRunEntersByTheEffectThatAScheduleGivesIt) {
  Receive("<ID1A><TC>1083000105A,00205C\r\n<ID1A><RP001>\r\n");
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
  EXPECT_FALSE(Find<QTimer>("entrance_timer_26")->isActive());
  Receive("<ID1A><RP002>\r\n");
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
  Pass(400);
  EXPECT_EQ(RedAndGreen(), std::pair(8 * kLit, 8 * kLit));
  // A row that arrives meanwhile is part of the page that enters.
  Receive("<ID1A><L02><P002><CK>" + QByteArray(16, ' ') + " \r\n");
  EXPECT_EQ(Count(View(), 2, Led::kRed), 8 * kLit);
  // Another one that is run meanwhile begins with what is seen now.
  Receive("<ID1A><TC>1083000105C,00205C\r\n");
  EXPECT_EQ(RedAndGreen(), std::pair(8 * kLit, 8 * kLit));
  Receive("<ID1A><RP001>\r\n");
  EXPECT_EQ(RedAndGreen(), std::pair(8 * kLit, 8 * kLit));
  Pass(800);
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
}

TEST_F(EntranceTest, RowsThatArriveJustAppear) {
  Receive("<ID1A><TC>1083000105C,00305C\r\n");
  Receive("<ID1A><L01><P003><CK>" + QByteArray(16, ' ') + " \r\n");
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
  EXPECT_FALSE(Find<QTimer>("entrance_timer_26")->isActive());
}

TEST_F(EntranceTest, TheSamePageEntersAnewInTheNextEntry) {
  Receive("<ID1A><TA>*****00103A,00103B\r\n");
  Pass(3000);
  Receive("<ID1A><?>\r\n");
  Pass(400);  // Flip: half way it is seen from its edge
  EXPECT_EQ(RedAndGreen(), std::pair(0, 0));
  Pass(400);
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
}

TEST_F(EntranceTest, DeletingAllPagesEndsIt) {
  Receive("<ID1A><TA>*****00103C\r\n");
  Pass(400);
  Receive("<ID1A><D*>\r\n");
  EXPECT_EQ(Count(View(), 1, Led::kDark), 96 * 8);
  EXPECT_FALSE(Find<QTimer>("entrance_timer_26")->isActive());
}

TEST_F(EntranceTest, DrawsAboutThirtyTimesASecond) {
  Receive("<ID1A><TA>*****00105F\r\n");
  EXPECT_EQ(Find<QTimer>("entrance_timer_26")->interval(), 33);
  const QSignalSpy frames(Find<QTimer>("entrance_timer_26"), &QTimer::timeout);
  EXPECT_TRUE(WaitUntil([&] { return frames.count() >= 3; }));
  Pass(790);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(Find<QTimer>("entrance_timer_26")->interval(), 10);
}

}  // namespace
}  // namespace VirtualPanel
