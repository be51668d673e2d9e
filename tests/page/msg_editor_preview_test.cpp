// What the page editor shows of the panel, and what it says in words.
#include <algorithm>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "page/msg_editor.h"
#include "page/page_preview.h"
#include "panel_dots/panel_picture.h"

using namespace Qt::StringLiterals;

namespace {

class MsgEditorPreview : public MsgEditor {
 protected:
  PagePreview& Preview() { return *Find<PagePreview>("picPreview"); }
  QString Status() { return Find<QLabel>("lblRowStatus")->text(); }

  QString Said(int row) {
    return PanelDots::RowText(Preview().Picture().rows.value(row), Preview().Picture().clock);
  }

  QAccessibleInterface& Accessible(int row) {
    return *QAccessible::queryAccessibleInterface(Row(row));
  }

  /// Where the ground just below a row has another colour than elsewhere: pixels from the row's
  /// left end, in front of which it has none; -1 where it has none at all.
  int MarkBelow(int row) {
    QWidget* ground = Row(row)->parentWidget();
    const QImage image = ground->grab().toImage();
    const QRect place = Row(row)->geometry();
    const QColor plain = ground->palette().color(QPalette::Window);
    for (int x = 0; x <= place.width() && place.left() + x < image.width(); ++x) {
      if (image.pixelColor(place.left() + x, place.bottom() + 1) != plain) return x;
    }
    return -1;
  }
};

TEST_F(MsgEditorPreview, WhatIsTypedIsSeenInThePanelAtOnce) {
  New(4, 96);
  Keys("Drive");
  EXPECT_EQ(Said(1), u"Drive"_s);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Said(1), u"Driv"_s);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Said(1), u"Drive"_s);
  Key(Qt::Key_Down);
  Press("cmdAddTime");
  EXPECT_EQ(Said(2), Preview().Picture().clock.toString(u"HH:mm"_s));
  SavedAs(Path("kept"));
  Open(WriteMessage("a.msg", "<L01>~A\r\n<L02>other\r\n"));
  EXPECT_EQ(Said(1), u"[A]"_s);
  EXPECT_EQ(Said(2), u"other"_s);
  EXPECT_EQ(Preview().Picture().shape.rows, 2);
}

TEST_F(MsgEditorPreview, F9HidesAndShowsIt) {
  New(4, 96);
  auto* box = Find<QCheckBox>("chkPreview");
  EXPECT_TRUE(Preview().isVisible());
  EXPECT_TRUE(box->isChecked());
  Key(Qt::Key_F9);
  EXPECT_FALSE(Preview().isVisible());
  EXPECT_FALSE(box->isChecked());
  Keys("typed on");
  EXPECT_EQ(ReadOut(Row(1)), u"typed on"_s);
  EXPECT_EQ(Said(1), QString());
  Key(Qt::Key_F9);
  EXPECT_TRUE(Preview().isVisible());
  EXPECT_EQ(Said(1), u"typed on"_s);
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_FALSE(Preview().isVisible());
  EXPECT_TRUE(Row(1)->hasFocus()) << "whoever has clicked there types on";
  EXPECT_EQ(box->toolTip(), u"F9"_s);
}

TEST_F(MsgEditorPreview, InALowWindowItHidesUnlessItIsAskedFor) {
  New(12, 192);
  window_.resize(window_.width(), 512);
  QCoreApplication::processEvents();
  EXPECT_FALSE(Preview().isVisible());
  Key(Qt::Key_F9);
  Key(Qt::Key_F9);
  QCoreApplication::processEvents();
  EXPECT_TRUE(Preview().isVisible());
  EXPECT_EQ(window_.height(), 512);
  window_.resize(window_.width(), 1);
  QCoreApplication::processEvents();
  EXPECT_LT(window_.height(), 400);
  EXPECT_FALSE(Preview().isVisible());
  window_.resize(window_.width(), 760);
  QCoreApplication::processEvents();
  EXPECT_TRUE(Preview().isVisible());
}

TEST_F(MsgEditorPreview, ThePageIsShownAsOnAPanelOfOneColour) {
  New(2, 96);
  Find<QComboBox>("ComboColor")->setCurrentIndex(1);
  Keys("x ");
  EXPECT_EQ(Preview().Picture().rows[1].size(), 2);
  EXPECT_EQ(Preview().Picture().rows[1].first().colour, 'B');
  Key(Qt::Key_F9, Qt::ShiftModifier);
  EXPECT_TRUE(Find<QCheckBox>("chkOneColor")->isChecked());
  EXPECT_FALSE(Preview().Picture().shape.tri_colour);
  EXPECT_EQ(Preview().Picture().rows[1].size(), 1) << "the blank at the end is not sent";
  EXPECT_EQ(Preview().Picture().rows[1].first().colour, 'A');
  QTest::mouseClick(Find<QCheckBox>("chkOneColor"), Qt::LeftButton);
  EXPECT_TRUE(Preview().Picture().shape.tri_colour);
}

TEST_F(MsgEditorPreview, ItBlinksInStepWithTheRows) {
  New(2, 80);
  Find<QCheckBox>("chkBlink")->click();
  Keys("MMM");
  auto* timer = window_.findChild<QTimer*>(u"Timer2"_s);
  ASSERT_NE(timer, nullptr);
  const auto is_dark = [](const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (pixel.red() > 200 && pixel.green() < 100) return false;
      }
    }
    return true;
  };
  for (int tick = 0; tick < 4; ++tick) {
    ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    EXPECT_EQ(is_dark(Preview().grab().toImage()), is_dark(Picture(1))) << tick;
  }
}

TEST_F(MsgEditorPreview, AWidePageMovesThePanelWithItsRows) {
  New(2, 3000);
  auto* bar = Find<QScrollBar>("scrollRows");
  EXPECT_EQ(Preview().Corner().x(), 0);
  bar->setValue(bar->maximum());
  const double right = PanelDots::kRowDots + 3000 * Preview().Pitch() + Preview().Corner().x();
  EXPECT_NEAR(right, Preview().width(), 8 * Preview().Pitch());
  bar->setValue(0);
  EXPECT_EQ(Preview().Corner().x(), 0);
  Keys(QString(400, u'x'));
  EXPECT_LT(Preview().Corner().x(), 0);
  Key(Qt::Key_Home);
  EXPECT_EQ(Preview().Corner().x(), 0);
}

TEST_F(MsgEditorPreview, AMarkBelowARowStandsWhereThePanelsDotsEnd) {
  New(2, 96);
  EXPECT_EQ(MarkBelow(1), 16 * 12);
  Find<QComboBox>("ComboSize")->setCurrentIndex(1);
  EXPECT_EQ(MarkBelow(1), -1) << "nineteen compressed characters fit";
  Find<QComboBox>("ComboSize")->setCurrentIndex(0);
  const QImage before = Picture(1);
  EXPECT_EQ(MarkBelow(2), 16 * 12);
  EXPECT_EQ(Picture(1), before);
  Keys("~A~A");
  EXPECT_EQ(MarkBelow(1), (4 + 14) * 12);
  // It moves with the rows.
  Press("Command3");
  EXPECT_EQ(MarkBelow(2), 16 * 12);
}

TEST_F(MsgEditorPreview, TheStatusSaysWhereTheCursorStandsAndHowTheCharacterLooks) {
  EXPECT_EQ(Status(), QString());
  New(4, 96);
  EXPECT_EQ(Status(), u"Row 1, place 1 of 19, 0 of 96 dots, Red, Normal"_s);
  Find<QComboBox>("ComboColor")->setCurrentIndex(1);
  Find<QComboBox>("ComboSize")->setCurrentIndex(2);
  Find<QCheckBox>("chkBlink")->click();
  EXPECT_EQ(Status(), u"Row 1, place 1 of 19, 0 of 96 dots, Green, Normal Bold, Blinking"_s);
  Key(Qt::Key_Down);
  Keys("abcdef");
  EXPECT_EQ(Status(), u"Row 2, place 7 of 19, 36 of 96 dots, Green, Normal Bold, Blinking"_s);
  Find<QComboBox>("ComboColor")->setCurrentIndex(0);
  EXPECT_EQ(Status(), u"Row 2, place 7 of 19, 36 of 96 dots, Red, Normal Bold, Blinking"_s);
  Key(Qt::Key_Left);
  EXPECT_EQ(Status(), u"Row 2, place 6 of 19, 36 of 96 dots, Green, Normal Bold, Blinking"_s);
  EXPECT_EQ(Accessible(2).text(QAccessible::Help), Status());
  QTest::mouseClick(Row(1), Qt::LeftButton);
  EXPECT_EQ(Status(), u"Row 1, place 1 of 19, 0 of 96 dots, Red, Normal Bold, Blinking"_s);
}

TEST_F(MsgEditorPreview, WhatWillNotBeSeenIsSaidAlsoToAScreenReader) {
  New(2, 96);
  Keys("abcdefghijklmnop");
  EXPECT_EQ(Status(), u"Row 1, place 17 of 19, 96 of 96 dots, Red, Normal"_s);
  const AccessibleEvents events;
  Keys("q");
  EXPECT_EQ(Status(),
            u"Row 1, place 18 of 19, 102 of 96 dots, the last character will not be seen, "
            "Red, Normal"_s);
  EXPECT_EQ(Accessible(1).text(QAccessible::Description), u"the last character will not be seen"_s);
  Keys("rs");
  EXPECT_EQ(Accessible(1).text(QAccessible::Description),
            u"the last 3 characters will not be seen"_s);
  Key(Qt::Key_Home);
  Find<QComboBox>("ComboSize")->setCurrentIndex(1);
  EXPECT_TRUE(Status().startsWith(u"Row 1, place 1 of 19, 114 of 96 dots"_s));
  Key(Qt::Key_End);
  for (int n = 0; n < 3; ++n) Key(Qt::Key_Backspace);
  EXPECT_EQ(Accessible(1).text(QAccessible::Description), QString());
}

TEST_F(MsgEditorPreview, ARefusedKeyIsSaidWithItsReasonUntilTheNextOne) {
  New(2, 80);
  Keys("abcdefghijklmnop");
  AccessibleEvents events;
  Keys("q");
  EXPECT_EQ(Status(), u"The row is full."_s);
  EXPECT_EQ(Accessible(1).text(QAccessible::Description), u"The row is full."_s);
  EXPECT_EQ(events.TakeAll(), "Row 1: description");
  Key(Qt::Key_Left);
  EXPECT_TRUE(Status().startsWith(u"Row 1, place 16 of 16"_s));
  Press("cmdAddDate");
  EXPECT_EQ(Status(), u"The row is full: 11 characters were left out."_s);
  Key(Qt::Key_Down);
  EXPECT_TRUE(Status().startsWith(u"Row 2, "_s));
  QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, u"\u65e5"_s);
  QCoreApplication::sendEvent(Row(2), &key);
  EXPECT_EQ(Status(), u"The panels have no character \u65e5."_s);
}

TEST_F(MsgEditorPreview, TheNamesAreThoseOfTheListsInTheChosenLanguage) {
  folder_.UseLanguage(
      "[frmMsgEditor]\r\nfrmMsgEditor.ComboColor.List(1)=Gr\xFCn\r\n"
      "frmMsgEditor.ComboSize.List(0)=Breit\r\n[Texts]\r\ntxtRowPlace=Zeile %1, Stelle %2 von "
      "%3\r\n"
      "txtDots=%1 von %2 Punkten\r\nfrmMsgEditor.chkPreview=Vorschau\r\n");
  frmMsgEditor window;
  window.show();
  window.findChild<QComboBox*>(u"ComboColor"_s)->setCurrentIndex(1);
  const FileChooser chooser(WriteMessage("a.msg", "<L01>\r\n<L02>\r\n"));
  window.findChild<QPushButton*>(u"butOpen"_s)->click();
  EXPECT_EQ(window.findChild<QLabel*>(u"lblRowStatus"_s)->text(),
            u"Zeile 1, Stelle 1 von 16, 0 von 80 Punkten, Gr\u00fcn, Breit"_s);
  EXPECT_EQ(window.findChild<QCheckBox*>(u"chkPreview"_s)->text(), u"Vorschau"_s);
}

}  // namespace
