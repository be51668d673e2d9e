// The room of captions: the window grows, then they wrap, and then all its letters get smaller.
#include "widgets/caption_room.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

#include "widgets/caption_box.h"
#include "widgets/caption_button.h"
#include "widgets/caption_check_box.h"
#include "widgets/fitted_text.h"

using namespace Qt::StringLiterals;

namespace {

const QString kLong = u"Speichern unter Namen"_s;

// A row of buttons above a label.
class Window : public QWidget {
 public:
  explicit Window(const QStringList& buttons) {
    auto* layout = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    layout->addLayout(row);
    for (const QString& caption : buttons) {
      buttons_.append(new CaptionButton(caption));
      row->addWidget(buttons_.last());
    }
    layout->addWidget(&label_);
    GiveCaptionsRoom(this);
  }

  ~Window() override { label_.setParent(nullptr); }

  void ShowIt() {
    show();
    QCoreApplication::processEvents();
  }

  void MakeSmall() {
    resize(1, 1);
    QCoreApplication::processEvents();
  }

  QList<CaptionButton*> buttons_;
  FittedLabel label_;
};

int LineHeight(const QWidget& widget) { return widget.fontMetrics().height(); }

TEST(CaptionRoom, AWindowOpensSoWideThatItsCaptionsStandInOneLine) {
  Window window({kLong, u"OK"_s});
  window.ShowIt();
  const CaptionButton& button = *window.buttons_.first();
  EXPECT_GT(button.width(), button.fontMetrics().horizontalAdvance(kLong));
  EXPECT_LT(button.height(), 2 * LineHeight(button));
}

TEST(CaptionRoom, AWindowThatIsMadeSmallerWrapsItsCaptionsAndCutsNone) {
  Window window({kLong, u"OK"_s});
  window.ShowIt();
  const QSize opened = window.size();
  window.MakeSmall();
  EXPECT_LT(window.width(), opened.width());
  EXPECT_GT(window.height(), opened.height());
  const CaptionButton& button = *window.buttons_.first();
  EXPECT_LT(button.width(), button.fontMetrics().horizontalAdvance(kLong));
  EXPECT_GE(button.height(), 2 * LineHeight(button));
  EXPECT_EQ(button.Fit().scale, 1);
  EXPECT_TRUE(button.Fit().whole);
}

TEST(CaptionRoom, AWindowKeepsItsDesignedSizeWhereItIsLarger) {
  Window window({u"OK"_s});
  window.resize(500, 300);
  window.ShowIt();
  EXPECT_EQ(window.size(), QSize(500, 300));
}

TEST(CaptionRoom, ACaptionThatGetsLongerMakesItsWindowLarger) {
  Window window({u"OK"_s});
  window.label_.setText(u"short"_s);
  window.ShowIt();
  window.MakeSmall();
  const int before = window.height();
  window.label_.setText(kLong.repeated(5));
  QCoreApplication::processEvents();
  EXPECT_GT(window.height(), before);
  EXPECT_TRUE(FitText(window.label_.font(), window.label_.text(), window.label_.size()).complete);
}

TEST(CaptionRoom, WhereTheScreenEndsAllLettersGetSmallerAlike) {
  const QString word(9, u'W');  // it cannot be wrapped
  Window window(QStringList(6, word) + QStringList{u"OK"_s});
  window.label_.setText(u"Label"_s);
  const qreal natural = window.font().pointSizeF();
  window.ShowIt();
  EXPECT_LE(window.width(), window.screen()->availableSize().width());
  EXPECT_EQ(window.height(), window.layout()->totalHeightForWidth(window.width()));
  EXPECT_LT(window.font().pointSizeF(), natural);
  EXPECT_GE(window.font().pointSizeF(), natural * kSmallestScale);
  EXPECT_EQ(window.label_.font().pointSizeF(), window.font().pointSizeF());
  for (const CaptionButton* button : window.buttons_) {
    EXPECT_EQ(button->font().pointSizeF(), window.font().pointSizeF());
    EXPECT_EQ(button->Fit().scale, 1);
    EXPECT_GT(button->width(), button->fontMetrics().horizontalAdvance(button->text()));
  }
}

TEST(CaptionRoom, AWindowThatFitsTheScreenKeepsItsLetters) {
  Window window({kLong, kLong});
  const QFont natural = window.font();
  window.ShowIt();
  EXPECT_EQ(window.font(), natural);
}

TEST(CaptionRoom, AWindowWhoseLettersAreNotWhatIsTooHighKeepsThem) {
  Window window({kLong});
  auto* high = new QWidget;
  high->setMinimumHeight(2 * window.screen()->availableSize().height());
  window.layout()->addWidget(high);
  const QFont natural = window.font();
  window.ShowIt();
  EXPECT_EQ(window.font(), natural);
  window.buttons_.first()->setText(kLong + kLong);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.font(), natural);
}

TEST(CaptionRoom, LettersGetNoSmallerThanCanBeRead) {
  Window window(QStringList(30, QString(9, u'W')));
  const qreal natural = window.font().pointSizeF();
  window.ShowIt();
  EXPECT_LT(window.font().pointSizeF(), natural);
  EXPECT_GE(window.font().pointSizeF(), natural * kSmallestScale);
}

TEST(CaptionRoom, ATitleThatIsCutStandsInTheFramesToolTip) {
  CaptionBox frame(u"Anzeigedauer in Sekunden"_s);
  frame.resize(30, 60);
  frame.show();
  const auto tool_tip = [&frame] {
    QToolTip::hideText();  // takes its time
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
    QHelpEvent help(QEvent::ToolTip, {1, 1}, frame.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&frame, &help);
    return QToolTip::text();
  };
  EXPECT_EQ(tool_tip(), frame.title());
  frame.resize(900, 60);
  EXPECT_EQ(tool_tip(), QString());
}

TEST(CaptionRoom, AFrameIsAsWideAsItsTitleUnlessThatIsVeryLong) {
  CaptionBox frame(u"Anzeigedauer in Sekunden"_s);
  EXPECT_GE(frame.minimumSizeHint().width(), frame.fontMetrics().horizontalAdvance(frame.title()));
  frame.setTitle(QString(255, u'W'));
  EXPECT_LT(frame.minimumSizeHint().width(), 300);
}

TEST(CaptionRoom, AnOptionTakesTheLinesOfItsCaption) {
  CaptionCheckBox box(u"Blinkend"_s);
  const int one_line = box.heightForWidth(box.sizeHint().width());
  EXPECT_EQ(one_line, box.QCheckBox::sizeHint().height());
  box.setText(u"Blinkend "_s.repeated(12));
  EXPECT_LT(box.sizeHint().width(), 300);
  EXPECT_GT(box.sizeHint().height(), 2 * one_line);
}

// What "M" looks like beside a button that has no room for its caption, and alone.
QImage PictureOfM(const QString& beside, const QFont& font, bool is_hidden = false, int y = 0) {
  QWidget row;
  CaptionButton button(u"M"_s, &row);
  button.setGeometry(0, 0, 90, 40);
  button.setFont(font);
  CaptionButton other(beside, &row);
  other.setGeometry(90, y, 90, 40);
  other.setHidden(is_hidden);
  return button.grab().toImage();
}

TEST(CaptionRoom, WhereAButtonCannotGrowTheLettersOfItsWholeRowGetSmaller) {
  const QString tight(8, u'W');
  CaptionButton lone(tight);
  lone.resize(90, 40);
  const qreal scale = lone.Fit().scale;
  ASSERT_LT(scale, 1);
  QFont smaller = lone.font();
  smaller.setPointSizeF(smaller.pointSizeF() * scale);
  EXPECT_NE(PictureOfM(tight, lone.font()), PictureOfM(u"OK"_s, lone.font()));
  EXPECT_EQ(PictureOfM(tight, lone.font()), PictureOfM(u"OK"_s, smaller));
  // One that is hidden or stands in another row does not count.
  EXPECT_EQ(PictureOfM(tight, lone.font(), true), PictureOfM(u"OK"_s, lone.font()));
  EXPECT_EQ(PictureOfM(tight, lone.font(), false, 50), PictureOfM(u"OK"_s, lone.font()));
}

}  // namespace
