// The strip of the pages that a panel has stored.

#include <QApplication>
#include <QTest>

#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

class StoredPagesTest : public WindowTest {
 protected:
  PageStrip* Pages() { return Find<PageStrip>("pages_26"); }

  QStringList Captions() {
    QStringList captions;
    const QAbstractItemModel* model = Pages()->model();
    for (int row = 0; row < model->rowCount(); ++row) {
      captions.append(model->index(row, 0).data().toString());
    }
    return captions;
  }

  void Click(int row) {
    const QRect place = Pages()->visualRect(Pages()->model()->index(row, 0));
    QTest::mouseClick(Pages()->viewport(), Qt::LeftButton, {}, place.center());
  }

  void WaitForRefresh() {
    const QSignalSpy refreshed(&window_, &PanelWindow::Refreshed);
    ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  }
};

TEST_F(StoredPagesTest, ListsThePagesAndWhatIsOnThem) {
  EXPECT_FALSE(Pages()->isVisible());
  Receive("<ID1A><L02><P012><CA>two \r\n<ID1A><L01><P012><CB>one <GA> \r\n<ID1A><L01><P007>x \r\n");
  EXPECT_TRUE(Pages()->isVisible());
  EXPECT_FALSE(Find<PageStrip>("pages_3")->isVisible());
  EXPECT_EQ(Captions(), (QStringList{u"7"_s, u"12"_s}));
  const QModelIndex twelve = Pages()->model()->index(1, 0);
  EXPECT_EQ(twelve.data(Qt::ToolTipRole).toString(), u"1.  one [A]\n2.  two"_s);
  // The last one that was received is shown.
  EXPECT_EQ(Pages()->model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
            u"Page 7, shown"_s);
  EXPECT_EQ(twelve.data(Qt::AccessibleTextRole).toString(), u"Page 12"_s);
  // Of an endless row as much as can be read.
  Receive("<ID1A><L03><P012>" + QByteArray("some ").repeated(12'000) + "\r\n");
  EXPECT_EQ(twelve.data(Qt::ToolTipRole).toString().section(QLatin1Char('\n'), 2),
            u"3.  "_s + u"some "_s.repeated(120) + QChar(0x2026));
  Receive("<ID1A><D012>\r\n");
  EXPECT_EQ(Captions(), QStringList{u"7"_s});
  Receive("<ID1A><D*>\r\n");
  EXPECT_FALSE(Pages()->isVisible());
}

TEST_F(StoredPagesTest, AClickShowsAPage) {
  Receive("<ID1A><L01><P007>seven \r\n<ID1A><L01><P012>twelve \r\n<ID1A><TA>*****00705A\r\n");
  EXPECT_TRUE(WaitUntil([&] { return Pages()->width() > 20; }));
  Click(1);
  EXPECT_EQ(engine_.RunningPage(26), 12);
  EXPECT_EQ(engine_.PlayingAt(26, now_), std::nullopt);
  WaitForRefresh();
  EXPECT_TRUE(Facts("facts_26").contains(u"running page 12"_s));
  EXPECT_EQ(Find<PanelView>("panel_26")->accessibleDescription(), u"twelve"_s);
  EXPECT_EQ(engine_.RunningPage(3), std::nullopt);
}

TEST_F(StoredPagesTest, TheKeyboardShowsAPage) {
  Receive("<ID1A><L01><P007>x \r\n<ID1A><L01><P012>x \r\n<ID1A><L01><P120>x \r\n<ID1A><RP012>\r\n");
  window_.activateWindow();
  Find<QTableView>("traffic")->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Find<QTableView>("traffic")->hasFocus(); }));
  for (int i = 0; i < 10 && !Pages()->hasFocus(); ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  ASSERT_TRUE(Pages()->hasFocus());
  // From the page that is shown.
  QTest::keyClick(Pages(), Qt::Key_Right);
  QTest::keyClick(Pages(), Qt::Key_Return);
  EXPECT_EQ(engine_.RunningPage(26), 120);
  WaitForRefresh();
  EXPECT_TRUE(Pages()->hasFocus());
  QTest::keyClick(Pages(), Qt::Key_Home);
  EXPECT_EQ(engine_.RunningPage(26), 120);
  QTest::keyClick(Pages(), Qt::Key_Space);
  EXPECT_EQ(engine_.RunningPage(26), 7);
  // A page that arrives does not take the place away.
  Receive("<ID1A><L01><P003>x \r\n");
  QTest::keyClick(Pages(), Qt::Key_Enter);
  EXPECT_EQ(engine_.RunningPage(26), 7);
}

TEST_F(StoredPagesTest, WithoutAShownPageTheKeyboardBeginsNowhere) {
  Receive("<ID1A><L01><P007>x \r\n<ID1A><L01><P012>x \r\n<ID1A><D012>\r\n");
  ASSERT_EQ(engine_.ShownPage(26), std::nullopt);
  window_.activateWindow();
  Pages()->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Pages()->hasFocus(); }));
  Pages()->setCurrentIndex({});
  QTest::keyClick(Pages(), Qt::Key_Return);
  EXPECT_EQ(engine_.RunningPage(26), std::nullopt);
  QTest::keyClick(Pages(), Qt::Key_Right);
  QTest::keyClick(Pages(), Qt::Key_Return);
  EXPECT_EQ(engine_.RunningPage(26), 7);
}

TEST_F(StoredPagesTest, ThePageThatIsShownCanBeSeenAmongTheOthers) {
  QByteArray frames;
  for (int page = 100; page < 200; ++page) {
    frames += "<ID1A><L01><P" + QByteArray::number(page) + ">x \r\n";
  }
  Receive(frames);
  const auto is_seen = [this](int row) {
    const QRect place = Pages()->visualRect(Pages()->model()->index(row, 0));
    return Pages()->viewport()->rect().contains(place.center());
  };
  ASSERT_TRUE(WaitUntil([&] { return Pages()->width() > 700; }));
  Receive("<ID1A><RP199>\r\n");
  EXPECT_TRUE(is_seen(99));
  EXPECT_FALSE(is_seen(0));
  Receive("<ID1A><RP100>\r\n");
  EXPECT_TRUE(is_seen(0));
}

TEST_F(StoredPagesTest, WhoeverLooksForAPageWithTheKeyboardIsNotLedAway) {
  QByteArray frames;
  for (int page = 100; page < 200; ++page) {
    frames += "<ID1A><L01><P" + QByteArray::number(page) + ">x \r\n";
  }
  Receive(frames + "<ID1A><RP100>\r\n");
  ASSERT_TRUE(WaitUntil([&] { return Pages()->width() > 700; }));
  window_.activateWindow();
  Pages()->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Pages()->hasFocus(); }));
  QTest::keyClick(Pages(), Qt::Key_Right);
  Receive("<ID1A><RP199>\r\n");
  const QRect place = Pages()->visualRect(Pages()->currentIndex());
  EXPECT_TRUE(Pages()->viewport()->rect().contains(place.center()));
  EXPECT_EQ(Pages()->currentIndex().row(), 1);
  // Also when it looks elsewhere and comes back.
  Find<QTableView>("traffic")->setFocus();
  Pages()->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Pages()->hasFocus(); }));
  EXPECT_EQ(Pages()->currentIndex().row(), 1);
  // Also when the pages become others.
  Receive("<ID1A><L01><P001>x \r\n");
  EXPECT_EQ(Pages()->currentIndex().data().toString(), u"101"_s);
}

TEST_F(StoredPagesTest, AThousandPagesTakeOneLine) {
  window_.resize(800, 600);
  QByteArray frames;
  for (int page = 0; page < 1000; ++page) {
    frames += "<ID1A><L01><P" + QByteArray::number(page).rightJustified(3, '0') + ">x \r\n";
  }
  Receive(frames);
  EXPECT_EQ(Captions().size(), 1000);
  EXPECT_EQ(window_.width(), 800);
  EXPECT_TRUE(WaitUntil([&] { return Pages()->width() > 700 && Pages()->width() < 800; }));
  EXPECT_LT(Pages()->height(), 60);
  window_.activateWindow();
  Pages()->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Pages()->hasFocus(); }));
  QTest::keyClick(Pages(), Qt::Key_End);
  QTest::keyClick(Pages(), Qt::Key_Return);
  EXPECT_EQ(engine_.RunningPage(26), 999);
  // And it can be seen there.
  EXPECT_TRUE(
      Pages()->viewport()->rect().contains(Pages()->visualRect(Pages()->currentIndex()).center()));
  QTest::keyClicks(Pages(), u"512"_s);
  QTest::keyClick(Pages(), Qt::Key_Return);
  EXPECT_EQ(engine_.RunningPage(26), 512);
}

}  // namespace
}  // namespace VirtualPanel
