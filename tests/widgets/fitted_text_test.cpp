// Captions in a given space: wrapped first, then smaller, cut only at the last.
#include "widgets/fitted_text.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "widgets/caption_button.h"
#include "widgets/caption_check_box.h"
#include "widgets/elided_label.h"

namespace {

QString Text(const char* text) { return QString::fromUtf8(text); }

TEST(FittedTextTest, AShortTextKeepsItsSize) {
  const TextFit fit = FitText(QFont(), Text("Message"), QSizeF(200, 100));
  EXPECT_EQ(fit.scale, 1);
  EXPECT_TRUE(fit.whole);
  EXPECT_TRUE(fit.complete);
}

TEST(FittedTextTest, ALongTextIsWrappedBeforeItIsMadeSmaller) {
  const QFont font;
  const QFontMetricsF metrics(font);
  const qreal word = metrics.horizontalAdvance(Text("Message"));
  const TextFit fit =
      FitText(font, Text("Message Message Message"), QSizeF(word * 1.5, metrics.lineSpacing() * 4));
  EXPECT_EQ(fit.scale, 1);
  EXPECT_TRUE(fit.whole);
}

TEST(FittedTextTest, AWordTooLongForTheLineIsMadeSmallerBeforeItIsBroken) {
  const QFont font;
  const QFontMetricsF metrics(font);
  const qreal word = metrics.horizontalAdvance(Text("Konfiguration"));
  const TextFit fit =
      FitText(font, Text("Konfiguration"), QSizeF(word * 0.8, metrics.lineSpacing() * 4));
  EXPECT_LT(fit.scale, 1);
  EXPECT_GE(fit.scale, kSmallestScale);
  EXPECT_TRUE(fit.whole);
  EXPECT_TRUE(fit.complete);
}

TEST(FittedTextTest, AWordFarTooLongIsBrokenAndThereIsAllOfIt) {
  const QFont font;
  const QFontMetricsF metrics(font);
  const QString word(40, u'W');
  const TextFit fit =
      FitText(font, word, QSizeF(metrics.horizontalAdvance(word) / 4, metrics.lineSpacing() * 8));
  EXPECT_FALSE(fit.whole);
  EXPECT_TRUE(fit.complete);
}

TEST(FittedTextTest, ATextWithoutRoomIsCutAndSaysSo) {
  EXPECT_FALSE(FitText(QFont(), QString(255, u'W'), QSizeF(40, 20)).complete);
  EXPECT_FALSE(FitText(QFont(), Text("Message"), QSizeF(0, 0)).complete);
}

TEST(FittedTextTest, AFontInPixelsIsMadeSmallerToo) {
  QFont font;
  font.setPixelSize(20);
  const qreal word = QFontMetricsF(font).horizontalAdvance(Text("Konfiguration"));
  EXPECT_LT(FitText(font, Text("Konfiguration"), QSizeF(word * 0.8, 100)).scale, 1);
}

// What two buttons that differ in one thing look like.
QImage Picture(const char* caption, LauncherSymbol symbol) {
  CaptionButton button(Text(caption));
  button.SetSymbol(symbol);
  button.resize(119, 116);
  return button.grab().toImage();
}

TEST(CaptionButtonTest, TheSymbolIsDrawnBesidesACaptionThatLeavesRoom) {
  EXPECT_NE(Picture("Message", LauncherSymbol::kNone), Picture("Message", LauncherSymbol::kExit));
  EXPECT_NE(Picture("Message", LauncherSymbol::kMessage),
            Picture("Message", LauncherSymbol::kExit));
}

TEST(CaptionButtonTest, ACaptionThatNeedsTheRoomIsDrawnWithoutTheSymbol) {
  const char* caption = "One of the longest captions that a button of the row was ever given here";
  EXPECT_EQ(Picture(caption, LauncherSymbol::kMessage), Picture(caption, LauncherSymbol::kExit));
}

TEST(CaptionButtonTest, ACaptionThatIsNoLargerWithoutTheSymbolIsDrawnWithIt) {
  const char* caption = "Programmkonfiguration";
  CaptionButton button(Text(caption));
  button.resize(119, 116);
  ASSERT_LT(button.Fit().scale, 0.85);
  EXPECT_NE(Picture(caption, LauncherSymbol::kMessage), Picture(caption, LauncherSymbol::kExit));
}

TEST(CaptionButtonTest, TheMarkOfAShortcutIsNotShown) {
  EXPECT_EQ(Picture("Fish && chips", LauncherSymbol::kExit).size(), QSize(119, 116));
  EXPECT_NE(Picture("&Message", LauncherSymbol::kExit), Picture("Message", LauncherSymbol::kExit));
  EXPECT_EQ(Picture("Message&", LauncherSymbol::kExit),
            Picture("Message&&", LauncherSymbol::kExit));
}

TEST(CaptionButtonTest, OnlyTheFirstMarkIsTheShortcutAndUnderlined) {
  EXPECT_EQ(Picture("R&&D &Me&ssage", LauncherSymbol::kExit),
            Picture("R&&D &Message", LauncherSymbol::kExit));
  EXPECT_NE(Picture("R&&D &Message", LauncherSymbol::kExit),
            Picture("R&&D Message", LauncherSymbol::kExit));
}

// What the tool tip of `widget` says when the pointer rests on it.
QString ToolTipOf(QWidget& widget) {
  QToolTip::hideText();
  EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
  QHelpEvent rest(QEvent::ToolTip, {1, 1}, widget.mapToGlobal(QPoint(1, 1)));
  QCoreApplication::sendEvent(&widget, &rest);
  return QToolTip::text();
}

TEST(CaptionButtonTest, TheToolTipOfACutCaptionShowsItWhole) {
  CaptionButton button(QString(255, u'W'));
  button.setToolTip(Text("Exit"));
  button.resize(60, 30);
  button.show();
  EXPECT_EQ(ToolTipOf(button), QString(255, u'W') + Text("\nExit"));
  button.setText(Text("OK"));
  button.resize(119, 116);
  EXPECT_EQ(ToolTipOf(button), Text("Exit"));
}

TEST(CaptionButtonTest, TheMarkOfAShortcutTakesNoRoom) {
  const int width = QFontMetrics(QFont()).horizontalAdvance(Text("Fish")) + 17;
  for (const char* caption : {"Fish", "&Fish", "F&i&s&h"}) {
    CaptionButton button(Text(caption));
    button.resize(width, 30);
    EXPECT_EQ(button.Fit().scale, 1) << caption;
  }
  CaptionButton literal(Text("&&&Fish"));  // "&Fish" with a line below the F
  literal.resize(width, 30);
  EXPECT_LT(literal.Fit().scale, 1);
}

TEST(CaptionButtonTest, TheToolTipOfACutCaptionShowsItAsItIsDrawn) {
  CaptionButton button(Text("&R&&D ") + QString(250, u'W'));
  button.resize(60, 30);
  button.show();
  EXPECT_EQ(ToolTipOf(button), Text("R&D ") + QString(250, u'W'));
}

TEST(CaptionCheckBoxTest, AMarkAtTheEndIsDrawnAndHasItsRoom) {
  EXPECT_EQ(CaptionCheckBox(Text("Blink&")).sizeHint(),
            CaptionCheckBox(Text("Blink&&")).sizeHint());
  EXPECT_EQ(CaptionRadioButton(Text("Blink&")).sizeHint(),
            CaptionRadioButton(Text("Blink&&")).sizeHint());
}

TEST(FittedLabelTest, TheMarkOfItsBuddysShortcutTakesNoRoom) {
  const QFontMetrics metrics{QFont()};
  const QSize room(metrics.horizontalAdvance(Text("WWWWWW")) * 7 / 10, metrics.height());
  QLineEdit box;
  FittedLabel label(Text("&W&W&W&W&W&W"));
  label.resize(room);
  label.show();
  EXPECT_EQ(ToolTipOf(label), Text("&W&W&W&W&W&W"));  // drawn letter by letter, and cut
  label.setBuddy(&box);
  EXPECT_EQ(ToolTipOf(label), QString());
  label.setText(Text("&") + QString(255, u'W'));
  EXPECT_EQ(ToolTipOf(label), QString(255, u'W'));
}

TEST(FittedLabelTest, TheToolTipOfACutTextShowsItWhole) {
  FittedLabel label(QString(255, u'W'));
  label.resize(60, 30);
  label.show();
  EXPECT_EQ(ToolTipOf(label), QString(255, u'W'));
}

TEST(ElidedLabelTest, NothingInAFileNameIsTakenForMarkup) {
  ElidedLabel label;
  label.setText(Text("/home/<b>bold</b>/page.msg"));
  label.resize(300, 20);
  label.show();
  const QString tip = ToolTipOf(label);
  EXPECT_TRUE(tip.contains(Text("/home/&lt;b&gt;bold&lt;/b&gt;/page.msg"))) << tip.toStdString();
}

}  // namespace
