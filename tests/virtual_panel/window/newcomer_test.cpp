// What somebody meets who opens the window for the first time, on a small screen or without a
// mouse.

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>

#include "window/elided_label.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

namespace VirtualPanel {
namespace {

Faults AllFaults() {
  Faults all;
  for (const char* name : {"silent", "silent:3", "garbage", "lower-case", "pieces:3", "late:2000",
                           "stray-byte", "close-after:1", "flood"}) {
    EXPECT_TRUE(ParseFault(QLatin1String(name), &all, nullptr)) << name;
  }
  return all;
}

TEST_F(WindowTest, WhatIsTooLongForTheStatusLineIsCutVisiblyAndSaidInItsToolTip) {
  const QString lines =
      u"listening on tcp 127.0.0.1:2101   \u00B7   pty /home/<b>x</b>/"_s + u"long/"_s.repeated(30);
  window_.SetLines(lines);
  engine_.SetFaults(AllFaults());
  window_.resize(500, 400);
  for (const char* name : {"lines", "fault_names"}) {
    auto* label = Find<ElidedLabel>(name);
    ASSERT_TRUE(WaitUntil([&] { return label->isVisible() && label->IsElided(); })) << name;
    EXPECT_GT(label->width(), 60) << name;
    const QPoint middle = label->rect().center();
    QHelpEvent help(QEvent::ToolTip, middle, label->mapToGlobal(middle));
    QApplication::sendEvent(label, &help);
    EXPECT_EQ(ShownText(QToolTip::text()).remove(QChar(0x200B)), label->text()) << name;
    QToolTip::hideText();
  }
  // What is drawn ends in dots, as a label of that text.
  auto* label = Find<ElidedLabel>("lines");
  const QString shown =
      label->fontMetrics().elidedText(lines, Qt::ElideRight, label->contentsRect().width());
  EXPECT_TRUE(shown.endsWith(QChar(0x2026)));
  QLabel like(shown);
  like.resize(label->size());
  EXPECT_EQ(label->grab().toImage().convertToFormat(QImage::Format_RGB32),
            like.grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST_F(WindowTest, WhatHasRoomInTheStatusLineNeedsNoToolTip) {
  window_.SetLines(u"listening"_s);
  auto* label = Find<ElidedLabel>("lines");
  ASSERT_TRUE(WaitUntil([&] { return label->isVisible() && !label->IsElided(); }));
  QToolTip::hideText();  // that of another test, which takes its time
  ASSERT_TRUE(WaitUntil([] { return QToolTip::text().isEmpty(); }));
  const QPoint middle = label->rect().center();
  QHelpEvent help(QEvent::ToolTip, middle, label->mapToGlobal(middle));
  QApplication::sendEvent(label, &help);
  EXPECT_EQ(QToolTip::text(), QString());
}

TEST_F(WindowTest, AToolTipOfItsOwnIsSaidInPlaceOfTheText) {
  window_.SetUnwrittenFiles({u"log"_s, QString(200, u'x')}, {u"why"_s});
  window_.resize(400, 300);
  auto* label = Find<ElidedLabel>("unwritten_files");
  ASSERT_TRUE(WaitUntil([&] { return label->isVisible() && label->IsElided(); }));
  const QPoint middle = label->rect().center();
  QHelpEvent help(QEvent::ToolTip, middle, label->mapToGlobal(middle));
  QApplication::sendEvent(label, &help);
  EXPECT_EQ(ShownText(QToolTip::text()), u"why"_s);
  QToolTip::hideText();
}

TEST_F(WindowTest, IsNotWidenedByItsStatusLine) {
  window_.SetLines(u"pty "_s + u"long/"_s.repeated(100));
  engine_.SetFaults(AllFaults());
  window_.resize(400, 300);
  EXPECT_TRUE(WaitUntil([&] { return Find<QLabel>("fault_names")->isVisible(); }));
  EXPECT_EQ(window_.size(), QSize(400, 300));
  for (const char* name : {"lines", "fault_names"}) {
    const auto* label = Find<QLabel>(name);
    EXPECT_LE(label->mapTo(&window_, QPoint(label->width(), 0)).x(), 400) << name;
    EXPECT_GT(label->width(), 40) << name;
  }
}

TEST_F(WindowTest, WhereverTheTabKeyStopsHasAName) {
  Receive("<ID1A><L01><P007>x \r\n<ID1A><TC>1083001405E\r\n<ID03><TA>1083001605A\r\n");
  window_.activateWindow();
  Find<QTableView>("traffic")->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return Find<QTableView>("traffic")->hasFocus(); }));
  QStringList met;
  do {
    QWidget* focused = QApplication::focusWidget();
    met.append(QAccessible::queryAccessibleInterface(focused)->text(QAccessible::Name));
    EXPECT_FALSE(met.last().isEmpty()) << focused->objectName().toStdString();
    QTest::keyClick(focused, Qt::Key_Tab);
  } while (!Find<QTableView>("traffic")->hasFocus() && met.size() < 20);
  met.sort();
  EXPECT_EQ(met, (QStringList{u"A  \u00B7  Mon 08:30  \u00B7  1 entry"_s,
                              u"C  \u00B7  Mon 08:30  \u00B7  1 entry"_s, u"Panels"_s,
                              u"Stored pages of panel 26"_s, u"Traffic"_s}));
}

TEST_F(WindowTest, TheDialogOfOtherFaultsFitsASmallScreen) {
  const QFont usual = QApplication::font();
  QFont large = usual;
  large.setPointSize(14);
  QApplication::setFont(large);
  int width = 0;
  int height = 0;
  QString name;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    width = dialog->width();
    height = dialog->height();
    const auto* label = dialog->findChild<QLabel*>();
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    name = QAccessible::queryAccessibleInterface(dialog->findChild<QLineEdit*>())
               ->text(QAccessible::Name);
    dialog->reject();
  });
  Find<QAction>("fault_other")->trigger();
  QApplication::setFont(usual);
  EXPECT_GT(width, 0);
  EXPECT_LE(width, 640);
  EXPECT_LE(height, 400);
  EXPECT_TRUE(name.startsWith(u"One of silent, "_s)) << name.toStdString();
}

TEST_F(WindowTest, CopyingWithoutASelectionLeavesTheClipboard) {
  auto* traffic = Find<QTableView>("traffic");
  QApplication::clipboard()->setText(u"mine"_s);
  Receive("<ID1A><?>\r\n");
  window_.activateWindow();
  traffic->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return traffic->hasFocus(); }));
  traffic->clearSelection();
  QTest::keyClick(traffic, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"mine"_s);
}

TEST(ManyPanelsByKeyboard, WhatTheTabKeyReachesIsScrolledTo) {
  QList<PanelDescription> panels;
  for (int id = 1; id <= 40; ++id) panels.append({id, 4, 96, id % 2 == 0});
  PanelEngine engine(panels);
  PanelWindow window(&engine);
  window.resize(910, 512);
  window.show();
  const QSignalSpy refreshed(&window, &PanelWindow::Refreshed);
  engine.Receive("<ID00><L01><P007>x \r\n<ID00><TC>1083001405E\r\n");
  ASSERT_TRUE(WaitUntil([&] { return refreshed.count() > 0; }));
  window.activateWindow();
  auto* traffic = window.findChild<QTableView*>(u"traffic"_s);
  traffic->setFocus();
  ASSERT_TRUE(WaitUntil([&] { return traffic->hasFocus(); }));
  const auto is_whole = [](const QWidget* widget) {
    return widget->visibleRegion().boundingRect() == widget->rect();
  };
  QTest::keyClick(traffic, Qt::Key_Backtab);
  QWidget* last = QApplication::focusWidget();
  EXPECT_EQ(last->objectName(), u"schedule_40_C"_s);
  EXPECT_TRUE(WaitUntil([&] { return is_whole(last); }));
  QTest::keyClick(last, Qt::Key_Tab);
  ASSERT_TRUE(traffic->hasFocus());
  QTest::keyClick(traffic, Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), u"panels"_s);
  for (const char* name : {"pages_1", "schedule_1_C", "pages_2"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const QWidget* focused = QApplication::focusWidget();
    EXPECT_EQ(focused->objectName(), QLatin1String(name));
    EXPECT_TRUE(WaitUntil([&] { return is_whole(focused); })) << name;
  }
}

}  // namespace
}  // namespace VirtualPanel
