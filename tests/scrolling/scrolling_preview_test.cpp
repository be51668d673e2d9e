// The row of a panel below the text of a scrolling message.
#include "scrolling/scrolling_preview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include "engine/panel_engine.h"
#include "scrolling/frmShiftMsg.h"
#include "support/message_box_reader.h"
#include "support/paint_watcher.h"
#include "support/program_folder.h"
#include "support/shown_window.h"
#include "window/panel_view.h"

using namespace Qt::StringLiterals;

namespace {

class ScrollingPreviewTest : public testing::Test {
 protected:
  ScrollingPreviewTest() {
    folder_.Configure("[Dimension Config]\r\nID007=4x60,Tri,127.0.0.1:80\r\n");
    window_ = std::make_unique<frmShiftMsg>(nullptr, [this] { return now_; });
    window_->show();
    ActivateWindow(window_.get());
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = window_->findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }

  PanelDots::LivePicture* Picture() { return Find<PanelDots::LivePicture>("picPreview"); }
  ScrollingPreview* Preview() { return Find<ScrollingPreview>("panePreview"); }
  QPushButton* Button() { return Find<QPushButton>("butPlay"); }
  void Type(const char* text) {
    QTest::keyClicks(Find<QWidget>("Picture1"), QString::fromLatin1(text));
  }
  void ClickPicture() { QTest::mouseClick(Picture(), Qt::LeftButton); }
  QString Row() { return PanelDots::RowText(Picture()->Picture().rows.value(1), now_); }

  static QImage Drawn(QWidget* widget) {
    QImage image(widget->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    widget->render(&image, {}, {}, QWidget::RenderFlags());
    return image;
  }

  TemporaryProgramFolder folder_;
  QDateTime now_{QDate(2026, 11, 21), QTime(10, 30, 0)};
  std::unique_ptr<frmShiftMsg> window_;
};

TEST_F(ScrollingPreviewTest, TheTextRestsWhileItIsTyped) {
  Type("Hello");
  EXPECT_EQ(Row(), u"Hello"_s);
  EXPECT_TRUE(Picture()->Picture().scrolling_texts.isEmpty());
  EXPECT_FALSE(Find<QTimer>("scroll_timer_")->isActive());
  EXPECT_EQ(Picture()->accessibleDescription(), u"Hello"_s);
  EXPECT_EQ(Picture()->accessibleName(), u"Preview on a panel"_s);
}

TEST_F(ScrollingPreviewTest, AClickLetsItRunAndTypingLetsItRest) {
  Type("Hello");
  ClickPicture();
  EXPECT_TRUE(Preview()->IsRunning());
  EXPECT_EQ(Button()->text(), u"Stop"_s);
  EXPECT_TRUE(Find<QTimer>("scroll_timer_")->isActive());
  Type("!");
  EXPECT_FALSE(Preview()->IsRunning());
  EXPECT_EQ(Button()->text(), u"Play"_s);
  EXPECT_EQ(Row(), u"Hello!"_s);
  QTest::mouseClick(Button(), Qt::LeftButton);
  EXPECT_TRUE(Preview()->IsRunning());
  ClickPicture();
  EXPECT_FALSE(Preview()->IsRunning());
  QTest::mouseClick(Picture(), Qt::RightButton);
  EXPECT_FALSE(Preview()->IsRunning());
}

TEST_F(ScrollingPreviewTest, ATextThatRunsRunsOnWhenTheWindowComesBack) {
  Type("Hello");
  ClickPicture();
  window_->hide();
  window_->show();
  EXPECT_TRUE(Preview()->IsRunning());
  EXPECT_FALSE(Picture()->Picture().scrolling_texts.isEmpty());
  EXPECT_EQ(Button()->text(), u"Stop"_s);
}

TEST_F(ScrollingPreviewTest, AtRestItBeginsWhereTheRowAboveDoes) {
  Type(QByteArray(50, 'a').constData());
  Type("012345678901234567890123456789");  // as many as the row above shows
  EXPECT_TRUE(Row().startsWith(u"0123456789"_s)) << Row().toStdString();
  QTest::keyClick(Find<QWidget>("Picture1"), Qt::Key_Home);
  EXPECT_TRUE(Row().startsWith(u"aaaaaaaaaa"_s)) << Row().toStdString();
}

TEST_F(ScrollingPreviewTest, WhatIsTypedLikeCodesTakesNothingOfWhatStandsBehindIt) {
  Type("<CB><CC><CB><CC><CB><CC><CB>x");
  EXPECT_EQ(Row(), u"x"_s);
}

TEST_F(ScrollingPreviewTest, ATextAtRestIsDrawnAgainOnlyWhereItChanges) {
  Type("<SA>Hello");
  QCoreApplication::processEvents();
  const PaintWatcher picture(Picture());
  QTest::keyClick(Find<QWidget>("Picture1"), Qt::Key_Left);
  QTest::keyClick(Find<QWidget>("Picture1"), Qt::Key_A, Qt::ControlModifier);
  QCoreApplication::processEvents();
  EXPECT_TRUE(picture.Painted().isEmpty());
  EXPECT_FALSE(Find<QTimer>("blink_timer_")->isActive());
  EXPECT_FALSE(Find<QTimer>("clock_timer_")->isActive());
  QTest::keyClick(Find<QWidget>("Picture1"), Qt::Key_Delete);
  QCoreApplication::processEvents();
  EXPECT_FALSE(picture.Painted().isEmpty());
}

TEST_F(ScrollingPreviewTest, AWheelOverTheWidthLeavesIt) {
  auto* columns = Find<QSpinBox>("spinColumns");
  QWheelEvent turn(QPointF(5, 5), columns->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), {}, {},
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(columns, &turn);
  EXPECT_EQ(columns->value(), 60);
}

TEST_F(ScrollingPreviewTest, NothingOfItIsAnEdit) {
  ClickPicture();
  Find<QSpinBox>("spinColumns")->setValue(200);
  QTest::mouseClick(Button(), Qt::LeftButton);
  EXPECT_FALSE(window_->IsModified());
}

TEST_F(ScrollingPreviewTest, ThePanelIsAsWideAsTheFirstOneThatIsConfiguredUntilItIsChosen) {
  EXPECT_EQ(Find<QSpinBox>("spinColumns")->value(), 60);
  EXPECT_EQ(Picture()->Picture().shape.columns, 60);
  Find<QSpinBox>("spinColumns")->setValue(192);
  EXPECT_EQ(Picture()->Picture().shape.columns, 192);
  EXPECT_EQ(Picture()->Picture().shape.rows, 1);
  ClickPicture();
  Find<QSpinBox>("spinColumns")->setValue(96);
  EXPECT_TRUE(Preview()->IsRunning());
  EXPECT_EQ(Picture()->Picture().shape.columns, 96);
}

TEST_F(ScrollingPreviewTest, OfALongTextNoMoreIsTakenThanThePanelShowsUntilItRuns) {
  const QString path =
      folder_.Write(u"long.srl"_s, "*** Brivon Shift Message File ***\r\n<SB><CA>" +
                                       QByteArray(100'000, 'x') + "\r\n");
  const FileChooser chooser(path);
  QTest::mouseClick(Find<QPushButton>("butOpen"), Qt::LeftButton);
  ASSERT_EQ(chooser.Count(), 1);
  EXPECT_EQ(Picture()->Picture().rows.value(1).size(), 60 / 5 + 1);
  EXPECT_TRUE(PanelDots::IsCut(Picture()->Picture(), 1));
  ClickPicture();
  EXPECT_EQ(Picture()->Picture().scrolling_texts.value(1).cells.size(), 100'000);
}

TEST_F(ScrollingPreviewTest, ItRunsAsOnAVirtualPanelThatWasSentIt) {
  Type("Caution: ");
  Find<QComboBox>("ComboColor")->setCurrentIndex(15);
  Q_EMIT Find<QComboBox>("ComboColor")->activated(15);
  Find<QCheckBox>("chkBlink")->click();
  Type("ice");
  Find<QSpinBox>("spinColumns")->setValue(96);
  VirtualPanel::PanelEngine engine({{7, 1, 96, true}}, [this] { return now_; });
  VirtualPanel::PanelView panel(&engine, 7);
  ClickPicture();
  engine.Receive("<ID07><L1><SA><CA>Caution: <SE><CP>ice\r\n");
  panel.Refresh(now_);
  panel.resize(Picture()->size());
  for (int ms = 0; ms < 8000; ms += 70) {
    ASSERT_EQ(Drawn(Picture()), Drawn(&panel)) << ms;
    now_ = now_.addMSecs(70);
  }
}

}  // namespace
