#include <QApplication>
#include <QClipboard>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>
#include <QTextDocument>

#include <gtest/gtest.h>

#include "led_of.h"
#include "panel_lines.h"
#include "panel_window.h"
#include "support/use_code_page.h"
#include "wait_until.h"

namespace VirtualPanel {
namespace {

class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    window_.resize(900, 700);
    window_.show();
  }

  void Receive(QByteArrayView bytes) {
    const QSignalSpy refreshed(&window_, &PanelWindow::Refreshed);
    engine_.Receive(bytes);
    ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    Widget* widget = window_.findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  // How many dots of a row have an LED of this colour.
  static int Count(PanelView* view, int row, Led led) {
    const QImage image = view->grab().toImage();
    const PanelDescription& description = view->Picture().description;
    const QRectF place = RowRect(view->size(), description, row);
    const double dot = DotDistance(view->size(), description);
    int count = 0;
    for (int column = 0; column < description.columns; ++column) {
      for (int height = 0; height < kRowDots; ++height) {
        const QPointF middle = place.topLeft() + QPointF(column + 0.5, height + 0.5) * dot;
        if (LedOf(image.pixelColor(static_cast<int>(middle.x()), static_cast<int>(middle.y()))) ==
            led) {
          ++count;
        }
      }
    }
    return count;
  }

  QString Facts(const char* name) { return Find<QLabel>(name)->text(); }

  QDateTime now_{QDate(2026, 11, 21), QTime(10, 30, 0)};
  PanelEngine engine_{{{26, 4, 96, true}, {3, 2, 48, false}}, [this] { return now_; }};
  PanelWindow window_{&engine_};
};

TEST_F(WindowTest, NamesEveryPanelAndWhatItHolds) {
  EXPECT_EQ(window_.windowTitle(), QStringLiteral("Virtual panel"));
  EXPECT_EQ(Facts("facts_26"),
            QStringLiteral(
                "ID 026   \u00B7   4x96   \u00B7   Tri   \u00B7   Sat 21 Nov 2026 10:30   \u00B7   "
                "no page shown   \u00B7   0 pages stored"));
  EXPECT_TRUE(Facts("facts_3").contains(QStringLiteral("Mono")));
  Receive("<ID1A><L01><P007>x \r\n");
  EXPECT_TRUE(
      Facts("facts_26")
          .endsWith(QStringLiteral("showing page 7, last received   \u00B7   1 page stored")));
  Receive("<ID1A><RP007>\r\n<ID1A><L01><P008>x \r\n");
  EXPECT_TRUE(
      Facts("facts_26").endsWith(QStringLiteral("running page 7   \u00B7   2 pages stored")));
  Receive("<T2503053140709>\r\n");
  EXPECT_TRUE(Facts("facts_3").contains(QStringLiteral("Wed 05 Mar 2025 14:07")));
}

TEST_F(WindowTest, ShowsThePageInItsRowAndColour) {
  Receive("<ID1A><L02><P007><CK>HHHH \r\n<ID1A><RP007>\r\n");
  auto* view = Find<PanelView>("panel_26");
  // Four characters on red: an H has 17 dots.
  EXPECT_EQ(Count(view, 2, Led::kGreen), 4 * 17);
  EXPECT_EQ(Count(view, 2, Led::kRed), 4 * (6 * 8 - 17));
  for (const int row : {1, 3, 4}) EXPECT_EQ(Count(view, row, Led::kDark), 96 * 8) << row;
  EXPECT_EQ(view->accessibleDescription(), QStringLiteral("HHHH"));
}

TEST_F(WindowTest, RunsTheBlinkTimerOnlyWhileSomethingBlinks) {
  auto* timer = Find<QTimer>("blink_timer");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001><SA>steady \r\n");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001><SE>blinking \r\n");
  EXPECT_TRUE(timer->isActive());
  const QSignalSpy blinks(timer, &QTimer::timeout);
  EXPECT_TRUE(WaitUntil([&] { return blinks.count() >= 2; }));
  Receive("<ID1A><D001>\r\n");
  EXPECT_FALSE(timer->isActive());
}

TEST_F(WindowTest, ListsTheTrafficReadably) {
  auto* traffic = Find<QTableWidget>("traffic");
  now_ = now_.addMSecs(45);
  Receive("<ID1A><?>\r\n<ID00><D*>\n");
  ASSERT_EQ(traffic->rowCount(), 2);
  const auto text = [&](int row, int column) { return traffic->item(row, column)->text(); };
  EXPECT_EQ(text(0, 0), QStringLiteral("10:30:00.045"));
  EXPECT_EQ(text(0, 1), QStringLiteral("<ID1A><?><CR><LF>"));
  EXPECT_EQ(text(0, 2), QStringLiteral("<ID1A><CR><LF>"));
  EXPECT_EQ(text(0, 3), QStringLiteral("poll"));
  EXPECT_EQ(text(1, 1), QStringLiteral("<ID00><D*><LF>"));
  EXPECT_EQ(text(1, 2), QStringLiteral("-"));
}

TEST_F(WindowTest, SaysHowLateAnAnswerIs) {
  Faults faults;
  faults.late_ms = 2000;
  faults.pieces = 3;
  engine_.SetFaults(faults);
  Receive("<ID1A><?>\r\n<ID00><?>\r\n");
  auto* traffic = Find<QTableWidget>("traffic");
  EXPECT_EQ(traffic->item(0, 2)->text(), QStringLiteral("<ID1A><CR><LF> after 2000 ms"));
  EXPECT_EQ(traffic->item(1, 2)->text(), QStringLiteral("-"));
}

// What a tool tip of this text says when it is shown.
QString ShownText(const QString& tool_tip) {
  QTextDocument document;
  if (Qt::mightBeRichText(tool_tip)) {
    document.setHtml(tool_tip);
  } else {
    document.setPlainText(tool_tip);
  }
  return document.toPlainText();
}

TEST_F(WindowTest, ShowsTextThatLooksLikeHtmlAsItIs) {
  Receive("<b>a</b> &lt; <br>  b\r\n<ID1A><L01><P001><b>a</b> &lt; <br>  b \r\n");
  EXPECT_EQ(ShownText(Find<QTableWidget>("traffic")->item(0, 1)->toolTip()),
            QStringLiteral("<b>a</b> &lt; <br>  b<CR><LF>"));
  const QModelIndex page = Find<PageStrip>("pages_26")->model()->index(0, 0);
  EXPECT_EQ(ShownText(page.data(Qt::ToolTipRole).toString()),
            QStringLiteral("1.  <b>a</b> &lt; <br>  b"));
}

TEST_F(WindowTest, ALongTextWithoutBlanksCanBeBrokenInAToolTip) {
  Receive(QByteArray(80, 'x') + ' ' + QByteArray(200, 'y') + "\r\n");
  const QString tool_tip = Find<QTableWidget>("traffic")->item(0, 1)->toolTip();
  EXPECT_EQ(tool_tip.count(QChar(0x200B)), 2);
  for (const QString& word : tool_tip.split(QRegularExpression(QStringLiteral("[ \u200B]")))) {
    EXPECT_LE(word.size(), 80);
  }
  // What is copied has no breaks of its own.
  EXPECT_FALSE(Find<QTableWidget>("traffic")->item(0, 1)->text().contains(QChar(0x200B)));
}

TEST_F(WindowTest, FollowsTheTrafficUnlessItsReaderHasGoneBack) {
  auto* traffic = Find<QTableWidget>("traffic");
  const QScrollBar* bar = traffic->verticalScrollBar();
  for (int i = 0; i < 100; ++i) engine_.Receive("<ID1A><?>\r\n");
  Receive("<ID1A><?>\r\n");
  EXPECT_GT(bar->maximum(), 0);
  EXPECT_EQ(bar->value(), bar->maximum());
  traffic->scrollToTop();
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(bar->value(), 0);
  traffic->scrollToBottom();
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(bar->value(), bar->maximum());
}

TEST_F(WindowTest, CopiesTheSelectedTraffic) {
  auto* traffic = Find<QTableWidget>("traffic");
  Receive("<ID1A><?>\r\n<ID03><?>\r\n");
  traffic->selectRow(1);
  window_.activateWindow();
  traffic->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return traffic->hasFocus(); }));
  QTest::keyClick(traffic, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            QStringLiteral("10:30:00.000\t<ID03><?><CR><LF>\t<ID03><CR><LF>\tpoll"));
}

TEST_F(WindowTest, KeepsTheLastTrafficOnly) {
  auto* traffic = Find<QTableWidget>("traffic");
  for (int i = 0; i < 600; ++i) engine_.Receive("<ID1A><?>\r\n");
  Receive("<ID1A><RP042>\r\n");
  EXPECT_EQ(traffic->rowCount(), 500);
  EXPECT_EQ(traffic->item(499, 3)->text(), QStringLiteral("run page 42: an empty page"));
}

TEST_F(WindowTest, NamesItsLines) {
  window_.SetLines(QStringLiteral("listening on tcp 127.0.0.1:2101"));
  EXPECT_EQ(Find<QLabel>("lines")->text(), QStringLiteral("listening on tcp 127.0.0.1:2101"));
}

TEST_F(WindowTest, TakesNoTimeWhileNothingMoves) {
  Receive("<ID1A><L01><P001>steady \r\n<ID1A><RP001>\r\n");
  for (const char* name : {"blink_timer", "scroll_timer", "entrance_timer", "play_timer"}) {
    EXPECT_FALSE(Find<QTimer>(name)->isActive()) << name;
  }
  // Only the panels' clocks, once a minute.
  EXPECT_EQ(Find<QTimer>("clock_timer")->interval(), 60'000);
}

TEST_F(WindowTest, MovesNothingWhileItIsHiddenOrMinimised) {
  Receive("<ID1A><L01><P001><SE>blinking \r\n<ID1A><L2>scrolling\r\n<ID1A><TA>*****00105C\r\n");
  const auto moving = [this] {
    QStringList names;
    for (const char* name : {"blink_timer", "scroll_timer", "entrance_timer"}) {
      if (Find<QTimer>(name)->isActive()) names.append(QLatin1String(name));
    }
    return names;
  };
  EXPECT_EQ(moving().size(), 3);
  window_.hide();
  EXPECT_TRUE(moving().isEmpty());
  Receive("<ID1A><L2>another\r\n");
  EXPECT_TRUE(moving().isEmpty());
  window_.show();
  EXPECT_EQ(moving().size(), 3);
  window_.showMinimized();
  EXPECT_TRUE(moving().isEmpty());
  window_.showNormal();
  EXPECT_EQ(moving().size(), 3);
}

// ---- pages that enter ---------------------------------------------------------------------------

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
  EXPECT_TRUE(Find<QTimer>("entrance_timer")->isActive());
  // Wipe Right: page 2 comes from the left.
  EXPECT_EQ(RedAndGreen(), std::pair(16 * kLit, 0));
  Pass(400);
  EXPECT_EQ(RedAndGreen(), std::pair(8 * kLit, 8 * kLit));
  const QRectF row = RowRect(View()->size(), View()->Picture().description, 1);
  const QImage image = View()->grab().toImage();
  const double dot = DotDistance(View()->size(), View()->Picture().description);
  EXPECT_EQ(LedOf(image.pixelColor((row.topLeft() + QPointF(dot / 2, dot / 2)).toPoint())),
            Led::kGreen);
  Pass(400);
  EXPECT_EQ(RedAndGreen(), std::pair(0, 16 * kLit));
  EXPECT_TRUE(WaitUntil([&] { return !Find<QTimer>("entrance_timer")->isActive(); }));
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
  EXPECT_FALSE(Find<QTimer>("entrance_timer")->isActive());
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
  EXPECT_FALSE(Find<QTimer>("entrance_timer")->isActive());
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
  EXPECT_FALSE(Find<QTimer>("entrance_timer")->isActive());
}

TEST_F(EntranceTest, DrawsAboutThirtyTimesASecond) {
  Receive("<ID1A><TA>*****00105F\r\n");
  EXPECT_EQ(Find<QTimer>("entrance_timer")->interval(), 33);
  const QSignalSpy frames(Find<QTimer>("entrance_timer"), &QTimer::timeout);
  EXPECT_TRUE(WaitUntil([&] { return frames.count() >= 3; }));
  Pass(790);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(Find<QTimer>("entrance_timer")->interval(), 10);
}

// ---- stored pages -------------------------------------------------------------------------------

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
  EXPECT_EQ(Captions(), (QStringList{QStringLiteral("7"), QStringLiteral("12")}));
  const QModelIndex twelve = Pages()->model()->index(1, 0);
  EXPECT_EQ(twelve.data(Qt::ToolTipRole).toString(), QStringLiteral("1.  one [A]\n2.  two"));
  // The last one that was received is shown.
  EXPECT_EQ(Pages()->model()->index(0, 0).data(Qt::AccessibleTextRole).toString(),
            QStringLiteral("Page 7, shown"));
  EXPECT_EQ(twelve.data(Qt::AccessibleTextRole).toString(), QStringLiteral("Page 12"));
  // Of an endless row as much as can be read.
  Receive("<ID1A><L03><P012>" + QByteArray("some ").repeated(12'000) + "\r\n");
  EXPECT_EQ(twelve.data(Qt::ToolTipRole).toString().section(QLatin1Char('\n'), 2),
            QStringLiteral("3.  ") + QStringLiteral("some ").repeated(120) + QChar(0x2026));
  Receive("<ID1A><D012>\r\n");
  EXPECT_EQ(Captions(), QStringList{QStringLiteral("7")});
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
  EXPECT_TRUE(Facts("facts_26").contains(QStringLiteral("running page 12")));
  EXPECT_EQ(Find<PanelView>("panel_26")->accessibleDescription(), QStringLiteral("twelve"));
  EXPECT_EQ(engine_.RunningPage(3), std::nullopt);
}

TEST_F(StoredPagesTest, TheKeyboardShowsAPage) {
  Receive("<ID1A><L01><P007>x \r\n<ID1A><L01><P012>x \r\n<ID1A><L01><P120>x \r\n<ID1A><RP012>\r\n");
  window_.activateWindow();
  Find<QTableWidget>("traffic")->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Find<QTableWidget>("traffic")->hasFocus(); }));
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
  // Also when the pages become others.
  Receive("<ID1A><L01><P001>x \r\n");
  EXPECT_EQ(Pages()->currentIndex().data().toString(), QStringLiteral("101"));
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
  QTest::keyClicks(Pages(), QStringLiteral("512"));
  QTest::keyClick(Pages(), Qt::Key_Return);
  EXPECT_EQ(engine_.RunningPage(26), 512);
}

// ---- faults -------------------------------------------------------------------------------------

class FaultMenuTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    QString error;
    ASSERT_TRUE(lines_.OpenTcp(QStringLiteral("0"), &error)) << error.toStdString();
    QObject::connect(&window_, &PanelWindow::Plugged, &lines_, &PanelLines::SetPlugged);
    port_ = lines_.Descriptions().first().section(QLatin1Char(':'), -1).toUShort();
    Connect();
  }

  void Connect() {
    socket_.connectToHost(QStringLiteral("127.0.0.1"), port_);
    ASSERT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::ConnectedState; }));
  }

  QAction* Fault(const char* name) {
    return Find<QAction>((QByteArray("fault_") + name).constData());
  }

  // Opens the menu and clicks the entry.
  void Click(const char* name) {
    auto* menu = Find<QMenu>("faults");
    menu->popup(window_.mapToGlobal(QPoint(10, 10)));
    ASSERT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Fault(name)).center());
    EXPECT_FALSE(menu->isVisible());
  }

  // What the panel answers to a poll, as far as it has come when `size` bytes are there.
  QByteArray Poll(qsizetype size) {
    const qint64 count = engine_.FrameCount();
    socket_.write("<ID1A><?>\r\n");
    QByteArray answer;
    EXPECT_TRUE(WaitUntil([&] {
      answer += socket_.readAll();
      return engine_.FrameCount() > count && answer.size() >= size;
    }));
    return answer;
  }

  QString StatusLine() {
    const auto* label = Find<QLabel>("fault_names");
    return label->isVisible() ? label->text() : QString();
  }

  QStringList Checked() {
    QStringList names;
    for (const QAction* action : Find<QMenu>("faults")->actions()) {
      if (action->isChecked()) names.append(action->objectName().mid(6));
    }
    return names;
  }

  PanelLines lines_{&engine_};
  QTcpSocket socket_;
  quint16 port_ = 0;
};

TEST_F(FaultMenuTest, AFaultIsChosenByTheMouseAndSeenAtTheOtherEnd) {
  EXPECT_EQ(Checked(), QStringList{QStringLiteral("none")});
  EXPECT_EQ(StatusLine(), QString());
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
  Click("lower-case");
  EXPECT_EQ(Poll(8), "<ID1a>\r\n");
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: lower-case"));
  Click("stray-byte");
  EXPECT_EQ(Poll(9), "\xFF<ID1a>\r\n");
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: lower-case, stray-byte"));
  EXPECT_EQ(Checked(), (QStringList{QStringLiteral("lower-case"), QStringLiteral("stray-byte")}));
  Click("lower-case");
  EXPECT_EQ(Poll(9), "\xFF<ID1A>\r\n");
  Click("none");
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
  EXPECT_EQ(Checked(), QStringList{QStringLiteral("none")});
  EXPECT_EQ(StatusLine(), QString());
}

TEST_F(FaultMenuTest, AFaultIsChosenByTheKeyboard) {
  auto* menu = Find<QMenu>("faults");
  const auto choose = [&](Qt::Key key) {
    window_.activateWindow();
    ASSERT_TRUE(WaitUntil([&] { return QApplication::activeWindow() == &window_; }));
    QTest::keyClick(&window_, Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
    QTest::keyClick(menu, key);
    EXPECT_FALSE(menu->isVisible());
  };
  choose(Qt::Key_G);
  const QByteArray answer = Poll(8);
  EXPECT_EQ(answer.size(), 8);
  EXPECT_NE(answer, "<ID1A>\r\n");
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: garbage"));
  choose(Qt::Key_N);
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, SilenceIsSeenAtTheOtherEnd) {
  Click("silent");
  Poll(0);
  Click("silent");
  // Nothing had been answered before.
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, TheLineIsCutAfterTheNextFrame) {
  Click("close-after:1");
  socket_.write("<ID1A><?>\r\n");
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_EQ(socket_.readAll(), "<ID1A>\r\n");
  Connect();
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, UnpluggedNobodyReachesThePanelsUntilTheyArePluggedInAgain) {
  Click("unplugged");
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: unplugged"));
  EXPECT_EQ(Checked(), QStringList{QStringLiteral("unplugged")});
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  socket_.connectToHost(QStringLiteral("127.0.0.1"), port_);
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  Click("unplugged");
  EXPECT_EQ(StatusLine(), QString());
  Connect();
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
  // "None" plugs in, too.
  Click("unplugged");
  Click("silent");
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: silent, unplugged"));
  Click("none");
  EXPECT_TRUE(WaitUntil([&] { return socket_.state() == QAbstractSocket::UnconnectedState; }));
  Connect();
  EXPECT_EQ(Poll(8), "<ID1A>\r\n");
}

TEST_F(FaultMenuTest, OffersTheFaultsOfTheCommandLine) {
  Faults all;
  for (const QAction* action : Find<QMenu>("faults")->actions()) {
    const QString name = action->objectName().mid(6);
    if (name.isEmpty() || name == QLatin1String("none") || name == QLatin1String("other") ||
        name == QLatin1String("unplugged")) {
      continue;
    }
    EXPECT_TRUE(ParseFault(name, &all, nullptr)) << name.toStdString();
  }
  EXPECT_EQ(NamesOf(all).size(), 9);
}

TEST_F(FaultMenuTest, AnAnswerIsLateByOneTimeOnly) {
  Click("late:500");
  Click("late:2000");
  EXPECT_EQ(Checked(), QStringList{QStringLiteral("late:2000")});
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: late:2000"));
  Click("late:2000");
  EXPECT_EQ(Checked(), QStringList{QStringLiteral("none")});
}

TEST_F(FaultMenuTest, AnyOtherOneCanBeEntered) {
  const auto enter = [&](const QString& text) {
    QTimer::singleShot(0, [&, text] {
      auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      QTest::keyClicks(dialog->findChild<QLineEdit*>(), text);
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    Fault("other")->trigger();
  };
  enter(QStringLiteral("late:7"));
  EXPECT_EQ(engine_.CurrentFaults().late_ms, 7);
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: late:7"));
  EXPECT_TRUE(Checked().isEmpty());
  QString warning;
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    warning = box->text();
    box->accept();
  });
  closer.start(1);
  enter(QStringLiteral("nonsense"));
  EXPECT_TRUE(warning.startsWith(QStringLiteral("fault \"nonsense\": expected one of silent")));
  EXPECT_EQ(engine_.CurrentFaults().late_ms, 7);
}

TEST_F(FaultMenuTest, ShowsFaultsThatWereSetElsewhere) {
  Faults faults;
  faults.flood = true;
  faults.late_ms = 500;
  engine_.SetFaults(faults);
  EXPECT_EQ(Checked(), (QStringList{QStringLiteral("late:500"), QStringLiteral("flood")}));
  EXPECT_EQ(StatusLine(), QStringLiteral("Fault: late:500, flood"));
}

TEST_F(WindowTest, QuitsByItsStandardKey) {
  window_.activateWindow();
  ASSERT_TRUE(WaitUntil([&] { return window_.isActiveWindow(); }));
  QTest::keyClick(&window_, Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(window_.isVisible());
}

class SchedulesTest : public WindowTest {
 protected:
  // The captions of a panel's schedules that can be seen, in their order.
  QStringList Schedules(int id) {
    QStringList captions;
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      const QPushButton* button = Button(id, letter);
      if (button->isVisible()) captions.append(button->text());
    }
    return captions;
  }

  QPushButton* Button(int id, char letter) {
    const QByteArray name = "schedule_" + QByteArray::number(id) + '_' + QByteArray(1, letter);
    return Find<QPushButton>(name.constData());
  }

  // Whether the layout has given a button all the room that its caption needs.
  static bool HasItsPlace(const QPushButton* button) {
    return button->isVisible() && button->width() >= button->sizeHint().width() &&
           button->height() >= button->sizeHint().height();
  }

  // The letters whose buttons are pressed down.
  QByteArray PressedDown(int id) {
    QByteArray letters;
    for (char letter = 'A'; letter <= 'J'; ++letter) {
      if (Button(id, letter)->isChecked()) letters += letter;
    }
    return letters;
  }

  QString PlayingLine(int id) {
    return Find<QLabel>(("playing_" + QByteArray::number(id)).constData())->text();
  }

  void WaitForRefresh() {
    const QSignalSpy refreshed(&window_, &PanelWindow::Refreshed);
    ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  }
};

TEST_F(SchedulesTest, ListsThePanelsSchedules) {
  EXPECT_TRUE(Schedules(26).isEmpty());
  EXPECT_FALSE(Find<QLabel>("playing_26")->isVisible());
  Receive("<ID1A><TJ>1083000105A,01207D\r\n<ID1A><TB>*22**00105A\r\n<ID03><TA>6**1500205B\r\n");
  EXPECT_EQ(Schedules(26),
            (QStringList{QStringLiteral("B  \u00B7  daily 22:**  \u00B7  1 entry"),
                         QStringLiteral("J  \u00B7  Mon 08:30  \u00B7  2 entries")}));
  EXPECT_EQ(Schedules(3), QStringList{QStringLiteral("A  \u00B7  Sat **:15  \u00B7  1 entry")});
  EXPECT_EQ(Button(26, 'J')->toolTip(),
            QStringLiteral("1. page 1, 5 s, Appear\n2. page 12, 7 s, Wipe Right"));
  EXPECT_EQ(Button(26, 'J')->accessibleDescription(),
            QStringLiteral("Plays schedule J of panel 26"));
  EXPECT_EQ(PlayingLine(26), QStringLiteral("no schedule is playing"));
  Receive("<ID1A><D*>\r\n");
  EXPECT_TRUE(Schedules(26).isEmpty());
  EXPECT_FALSE(Find<QLabel>("playing_26")->isVisible());
  EXPECT_EQ(Schedules(3).size(), 1);
}

TEST_F(SchedulesTest, SaysWhatIsPlaying) {
  Receive("<ID1A><TB>*10**01305A,01407D,01503H\r\n");
  EXPECT_EQ(PlayingLine(26), QStringLiteral("playing schedule B   \u00B7   entry 1 of 3   \u00B7   "
                                            "page 13   \u00B7   Appear"));
  EXPECT_TRUE(Facts("facts_26").contains(QStringLiteral("showing page 13   \u00B7   0 pages")));
  EXPECT_EQ(PressedDown(26), "B");
  now_ = now_.addSecs(6);
  Receive("<ID1A><L01><P014><CK>HH \r\n");
  EXPECT_EQ(PlayingLine(26), QStringLiteral("playing schedule B   \u00B7   entry 2 of 3   \u00B7   "
                                            "page 14   \u00B7   Wipe Right"));
  EXPECT_EQ(Find<PanelView>("panel_26")->accessibleDescription(), QStringLiteral("HH"));
  Receive("<ID1A><RP014>\r\n");
  EXPECT_EQ(PlayingLine(26), QStringLiteral("no schedule is playing"));
  EXPECT_EQ(PressedDown(26), "");
}

TEST_F(SchedulesTest, PlaysAScheduleByAClick) {
  Receive("<ID1A><TB>1083001305A\r\n<ID1A><TC>1083001405E\r\n<ID03><TC>1083001505E\r\n");
  EXPECT_EQ(PressedDown(26), "");
  ASSERT_TRUE(WaitUntil([&] { return HasItsPlace(Button(26, 'C')); }));
  QTest::mouseClick(Button(26, 'C'), Qt::LeftButton);
  WaitForRefresh();
  EXPECT_EQ(engine_.PlayingAt(26, now_), (Playing{'C', 1, 1, 14, 'E'}));
  EXPECT_TRUE(PlayingLine(26).startsWith(QStringLiteral("playing schedule C")));
  EXPECT_EQ(PressedDown(26), "C");
  EXPECT_EQ(engine_.PlayingAt(3, now_), std::nullopt);
  // Once more is from its first page again, and it stays pressed down.
  QTest::mouseClick(Button(26, 'C'), Qt::LeftButton);
  EXPECT_EQ(PressedDown(26), "C");
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "C");
  QTest::mouseClick(Button(26, 'B'), Qt::LeftButton);
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "B");
}

TEST_F(SchedulesTest, PlaysAScheduleByTheKeyboard) {
  // Whatever their order of arrival, the tab key goes by letter.
  Receive("<ID1A><TJ>1083001605A\r\n<ID1A><TC>1083001405E\r\n<ID1A><TB>1083001305A\r\n");
  window_.activateWindow();
  Button(26, 'B')->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Button(26, 'B')->hasFocus(); }));
  QTest::keyClick(&window_, Qt::Key_Tab);
  EXPECT_TRUE(Button(26, 'C')->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "C");
  EXPECT_TRUE(Button(26, 'C')->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Button(26, 'J')->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  WaitForRefresh();
  EXPECT_EQ(PressedDown(26), "J");
}

TEST_F(SchedulesTest, CanBeReachedFromTheTrafficByTheTabKey) {
  Receive("<ID03><TA>1083001605A\r\n<ID1A><TC>1083001405E\r\n");
  window_.activateWindow();
  Find<QTableWidget>("traffic")->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Find<QTableWidget>("traffic")->hasFocus(); }));
  QWidgetList met;
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    met.append(QApplication::focusWidget());
  }
  const qsizetype first = met.indexOf(Button(3, 'A'));
  EXPECT_GE(first, 0);
  EXPECT_GT(met.indexOf(Button(26, 'C')), first);
}

TEST_F(SchedulesTest, WakesOnlyWhenSomethingChanges) {
  auto* play_timer = Find<QTimer>("play_timer");
  EXPECT_FALSE(play_timer->isActive());
  Receive("<ID1A><TA>6103200105A,00207B\r\n");  // in two minutes
  EXPECT_EQ(play_timer->interval(), 120'000);
  now_ = now_.addSecs(122);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(play_timer->interval(), 3000);
  now_ = now_.addSecs(3);
  Receive("<ID1A><?>\r\n");
  EXPECT_EQ(play_timer->interval(), 7000);
  // A page alone follows itself: until next week.
  Receive("<ID1A><TA>6103200105A\r\n");
  EXPECT_EQ(play_timer->interval(), 24 * 3600 * 1000);
  Receive("<ID1A><D*>\r\n");
  EXPECT_FALSE(play_timer->isActive());
}

TEST_F(SchedulesTest, FollowsAScheduleWithoutAnyFrame) {
  Receive("<ID1A><TA>*****00101A,00201B\r\n");
  EXPECT_TRUE(PlayingLine(26).contains(QStringLiteral("page 1 ")));
  now_ = now_.addSecs(1);
  // The timer runs in real time: within a second it asks for the page of now.
  EXPECT_TRUE(WaitUntil([&] { return PlayingLine(26).contains(QStringLiteral("page 2 ")); }));
}

TEST_F(SchedulesTest, ShowsAScrollingText) {
  auto* timer = Find<QTimer>("scroll_timer");
  auto* view = Find<PanelView>("panel_26");
  EXPECT_FALSE(timer->isActive());
  Receive("<ID1A><L01><P001>one \r\n<ID1A><L02><P001>two \r\n<ID1A><L2><CK>HHHH\r\n");
  EXPECT_TRUE(timer->isActive());
  EXPECT_GE(timer->interval(), 20);
  EXPECT_EQ(view->accessibleDescription(), QStringLiteral("one\nHHHH"));
  const auto green = [&] { return Count(view, 2, Led::kGreen); };
  EXPECT_EQ(green(), 0);
  now_ = now_.addSecs(2);  // 60 dots of the 96 + 24
  EXPECT_EQ(green(), 4 * 17);
  const QSignalSpy scrolls(timer, &QTimer::timeout);
  EXPECT_TRUE(WaitUntil([&] { return scrolls.count() >= 3; }));
  now_ = now_.addSecs(2);
  EXPECT_EQ(green(), 0);

  window_.hide();
  EXPECT_FALSE(timer->isActive());
  window_.show();
  EXPECT_TRUE(timer->isActive());
  Receive("<ID1A><L2>\r\n");
  EXPECT_FALSE(timer->isActive());
}

TEST_F(SchedulesTest, ScrollsAtTheSpeedThatIsSet) {
  Receive("<ID1A><L2>text\r\n");
  auto* timer = Find<QTimer>("scroll_timer");
  window_.SetScrollSpeed(1);
  EXPECT_EQ(timer->interval(), 1000);
  window_.SetScrollSpeed(10);
  EXPECT_EQ(timer->interval(), 100);
  window_.SetScrollSpeed(1000);
  EXPECT_EQ(timer->interval(), 20);
  EXPECT_EQ(Find<PanelView>("panel_26")->Picture().scroll_speed, 1000);
}

TEST_F(SchedulesTest, TakesAnySchedulesInANarrowWindow) {
  window_.resize(800, 600);
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    engine_.Receive(QByteArray("<ID00><T") + letter + ">*12**00105A,00205A,00305A\r\n");
  }
  WaitForRefresh();
  EXPECT_EQ(window_.width(), 800);
  const auto lies_in_the_window = [&](const QWidget* widget) {
    const int left = widget->mapTo(&window_, QPoint()).x();
    return left >= 0 && left + widget->width() <= window_.width();
  };
  EXPECT_TRUE(WaitUntil([&] { return HasItsPlace(Button(26, 'J')); }));
  for (char letter = 'A'; letter <= 'J'; ++letter) {
    EXPECT_TRUE(lies_in_the_window(Button(26, letter))) << letter;
    EXPECT_TRUE(HasItsPlace(Button(26, letter))) << letter;
  }
  EXPECT_GT(Button(26, 'J')->y(), Button(26, 'A')->y());
}

TEST(WidePanel, IsScrolledInsteadOfWideningTheWindow) {
  PanelEngine engine({{1, 12, 3000, true}, {2, 4, 96, true}});
  PanelWindow window(&engine);
  window.resize(800, 600);
  window.show();
  EXPECT_EQ(window.width(), 800);
  const auto width = [&](const char* name) {
    return window.findChild<PanelView*>(QLatin1String(name))->width();
  };
  EXPECT_TRUE(WaitUntil([&] { return width("panel_1") >= 6000; }));
  EXPECT_LE(width("panel_2"), 800);
  // The keyboard can scroll the wide one, and does not stop at the other.
  const auto focus_policy = [&](const char* name) {
    return window.findChild<QScrollArea*>(QLatin1String(name))->focusPolicy();
  };
  EXPECT_EQ(focus_policy("scroll_1"), Qt::StrongFocus);
  EXPECT_EQ(focus_policy("scroll_2"), Qt::NoFocus);
  auto* wide = window.findChild<QScrollArea*>(QStringLiteral("scroll_1"));
  QTest::keyClick(wide, Qt::Key_Right);
  EXPECT_GT(wide->horizontalScrollBar()->value(), 0);
}

TEST(SeveralPanels, ShrinkAndGrowWithTheWindow) {
  PanelEngine engine({{1, 4, 96, true}, {2, 4, 96, true}, {3, 8, 96, true}});
  PanelWindow window(&engine);
  window.show();
  const auto is_shown_whole = [&] {
    const auto* last = window.findChild<QLabel*>(QStringLiteral("facts_3"));
    return last->visibleRegion().boundingRect().height() == last->height();
  };
  const auto height = [&] {
    return window.findChild<PanelView*>(QStringLiteral("panel_3"))->height();
  };
  window.resize(700, 700);
  EXPECT_TRUE(WaitUntil(is_shown_whole));
  const int small = height();
  window.resize(1400, 1400);
  EXPECT_TRUE(WaitUntil([&] { return height() > small * 3 / 2 && is_shown_whole(); }));
}

TEST(SeveralPanels, HaveLargerDotsWhereTheyMustBeScrolledAnyway) {
  PanelEngine engine({{1, 12, 192, true}, {2, 12, 192, false}, {3, 12, 3000, true}});
  PanelWindow window(&engine);
  window.resize(800, 600);
  window.show();
  const auto distance = [&](int id) {
    const auto* view = window.findChild<PanelView*>(QStringLiteral("panel_%1").arg(id));
    return DotDistance(view->size(), view->Picture().description);
  };
  EXPECT_TRUE(WaitUntil([&] { return distance(1) == 3 && distance(2) == 3 && distance(3) == 2; }))
      << distance(1) << ' ' << distance(2) << ' ' << distance(3);
}

TEST(VisibleText, WritesControlCharactersOut) {
  EXPECT_EQ(VisibleText(QByteArray("a\r\n\0\x07\x7F\xE9", 7)),
            QStringLiteral("a<CR><LF><00><07><7F>\u00E9"));
  EXPECT_EQ(VisibleText(QByteArray(5000, 'x')), QString(2000, QLatin1Char('x')) + QChar(0x2026));
}

TEST(VisibleText, IsReadInTheCodePage) {
  const UseCodePage western(1252);
  EXPECT_EQ(VisibleText("\xCF\x80\x81"), QStringLiteral("Ï€<81>"));
  const UseCodePage russian(1251);
  EXPECT_EQ(VisibleText("\xCF\x80\x98"), QStringLiteral("ПЂ<98>"));
  const UseCodePage greek(1253);
  EXPECT_EQ(VisibleText("\xCF\xD2"), QStringLiteral("Ο<D2>"));
}

}  // namespace
}  // namespace VirtualPanel
