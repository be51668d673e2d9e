// The list of the traffic.

#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>

#include "support/use_code_page.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

TEST_F(WindowTest, ListsTheTrafficReadably) {
  auto* traffic = Find<QTableView>("traffic");
  now_ = now_.addMSecs(45);
  Receive("<ID1A><?>\r\n<ID00><D*>\n");
  ASSERT_EQ(traffic->model()->rowCount(), 2);
  EXPECT_EQ(Text(0, 0), u"10:30:00.045"_s);
  EXPECT_EQ(Text(0, 1), u"<ID1A><?><CR><LF>"_s);
  EXPECT_EQ(Text(0, 2), u"<ID1A><CR><LF>"_s);
  EXPECT_EQ(Text(0, 3), u"poll"_s);
  EXPECT_EQ(Text(1, 1), u"<ID00><D*><LF>"_s);
  EXPECT_EQ(Text(1, 2), u"-"_s);
}

TEST(TrafficBefore, WhatCameBeforeTheWindowIsListedToo) {
  PanelEngine engine({{26, 4, 96, true}});
  engine.Receive("<ID1A><?>\r\n<ID1A><RP007>\r\n");
  const PanelWindow window(&engine);
  const QAbstractItemModel* traffic = window.findChild<QTableView*>(u"traffic"_s)->model();
  ASSERT_EQ(traffic->rowCount(), 2);
  EXPECT_EQ(traffic->index(0, 3).data().toString(), u"poll"_s);
  EXPECT_EQ(traffic->index(1, 3).data().toString(), u"run page 7: an empty page"_s);
}

TEST_F(WindowTest, SaysHowLateAnAnswerIs) {
  Faults faults;
  faults.late_ms = 2000;
  faults.pieces = 3;
  engine_.SetFaults(faults);
  Receive("<ID1A><?>\r\n<ID00><?>\r\n");
  EXPECT_EQ(Text(0, 2), u"<ID1A><CR><LF> after 2000 ms"_s);
  EXPECT_EQ(Text(1, 2), u"-"_s);
}

TEST_F(WindowTest, ShowsTextThatLooksLikeHtmlAsItIs) {
  Receive("<b>a</b> &lt; <br>  b\r\n<ID1A><L01><P001><b>a</b> &lt; <br>  b \r\n");
  EXPECT_EQ(ShownText(Text(0, 1, Qt::ToolTipRole)), u"<b>a</b> &lt; <br>  b<CR><LF>"_s);
  const QModelIndex page = Find<PageStrip>("pages_26")->model()->index(0, 0);
  EXPECT_EQ(ShownText(page.data(Qt::ToolTipRole).toString()), u"1.  <b>a</b> &lt; <br>  b"_s);
}

TEST_F(WindowTest, ALongTextWithoutBlanksCanBeBrokenInAToolTip) {
  Receive(QByteArray(80, 'x') + ' ' + QByteArray(200, 'y') + "\r\n");
  const QString tool_tip = Text(0, 1, Qt::ToolTipRole);
  EXPECT_EQ(tool_tip.count(QChar(0x200B)), 2);
  for (const QString& word : tool_tip.split(QRegularExpression(u"[ \u200B]"_s))) {
    EXPECT_LE(word.size(), 80);
  }
  // What is copied has no breaks of its own.
  EXPECT_FALSE(Text(0, 1).contains(QChar(0x200B)));
}

TEST_F(WindowTest, FollowsTheTrafficUnlessItsReaderHasGoneBack) {
  auto* traffic = Find<QTableView>("traffic");
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
  auto* traffic = Find<QTableView>("traffic");
  Receive("<ID1A><?>\r\n<ID03><?>\r\n");
  traffic->selectRow(1);
  window_.activateWindow();
  traffic->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return traffic->hasFocus(); }));
  QTest::keyClick(traffic, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            u"10:30:00.000\t<ID03><?><CR><LF>\t<ID03><CR><LF>\tpoll"_s);
}

TEST_F(WindowTest, KeepsTheLastTrafficOnly) {
  auto* traffic = Find<QTableView>("traffic");
  for (int i = 0; i < 600; ++i) engine_.Receive("<ID1A><?>\r\n");
  Receive("<ID1A><RP042>\r\n");
  EXPECT_EQ(traffic->model()->rowCount(), 500);
  EXPECT_EQ(Text(499, 3), u"run page 42: an empty page"_s);
}

TEST(VisibleText, WritesControlCharactersOut) {
  EXPECT_EQ(VisibleText(QByteArray("a\r\n\0\x07\x7F\xE9", 7)), u"a<CR><LF><00><07><7F>\u00E9"_s);
  EXPECT_EQ(VisibleText(QByteArray(5000, 'x')), QString(2000, QLatin1Char('x')) + QChar(0x2026));
}

TEST(VisibleText, IsReadInTheCodePage) {
  const UseCodePage western(1252);
  EXPECT_EQ(VisibleText("\xCF\x80\x81"), u"Ï€<81>"_s);
  const UseCodePage russian(1251);
  EXPECT_EQ(VisibleText("\xCF\x80\x98"), u"ПЂ<98>"_s);
  const UseCodePage greek(1253);
  EXPECT_EQ(VisibleText("\xCF\xD2"), u"Ο<D2>"_s);
}

}  // namespace
}  // namespace VirtualPanel
