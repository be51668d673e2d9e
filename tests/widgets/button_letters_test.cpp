// The letters of buttons in a window of a test's own, and what their tool tips show.
#include "widgets/button_letters.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "base/tool_tip_text.h"
#include "support/shown_text.h"
#include "widgets/caption_button.h"

using namespace Qt::StringLiterals;

namespace {

class LettersOfButtons : public testing::Test {
 protected:
  template <typename Button = QPushButton>
  Button* Add(const QString& caption) {
    auto* button = new Button(caption, &window_);
    button->show();
    return button;
  }

  void Show() {
    GiveButtonsLetters(&window_);
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  static QString ToolTipOf(QWidget* button) {
    QToolTip::hideText();  // takes its time
    EXPECT_TRUE(QTest::qWaitFor([] { return QToolTip::text().isEmpty(); }));
    QHelpEvent help(QEvent::ToolTip, {1, 1}, button->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(button, &help);
    return QToolTip::text();
  }

  QWidget window_;
};

TEST_F(LettersOfButtons, AToolTipThatComesLaterStandsAboveTheLetter) {
  auto* save = Add(u"Save"_s);
  Show();
  EXPECT_EQ(save->accessibleDescription(), u"Alt+S"_s);
  save->setToolTip(u"Ctrl+S"_s);
  EXPECT_EQ(save->accessibleDescription(), u"Ctrl+S\nAlt+S"_s);
  EXPECT_EQ(ToolTipOf(save), u"Ctrl+S\nAlt+S"_s);
}

TEST_F(LettersOfButtons, AToolTipThatLooksLikeMarkupIsShownLetterByLetter) {
  auto* save = Add(u"Save"_s);
  save->setToolTip(Brivon1::ToolTipText(u"a <b>bold</b> name"_s, Brivon1::LongLines::kWhole));
  Show();
  EXPECT_EQ(save->accessibleDescription(), u"a <b>bold</b> name\nAlt+S"_s);
  EXPECT_EQ(ShownText(ToolTipOf(save)), u"a <b>bold</b> name\nAlt+S"_s);
}

TEST_F(LettersOfButtons, ACutCaptionThatLooksLikeMarkupIsShownLetterByLetter) {
  auto* save = Add<CaptionButton>(u"<b>S</b>"_s + QString(250, u'W'));
  save->setToolTip(Brivon1::ToolTipText(u"<i>Ctrl+S</i>"_s, Brivon1::LongLines::kWhole));
  save->resize(60, 30);
  Show();
  ASSERT_FALSE(save->Fit().complete);
  EXPECT_EQ(ShownText(ToolTipOf(save)), save->text() + u"\n<i>Ctrl+S</i>\n"_s +
                                            save->shortcut().toString(QKeySequence::NativeText));
}

TEST_F(LettersOfButtons, AWindowsKeyThatIsNoLetterTakesNone) {
  auto* open = Add(u"Open"_s);
  const QShortcut key(Qt::ALT | Qt::Key_F5, &window_);
  Show();
  EXPECT_EQ(open->shortcut(), QKeySequence(Qt::ALT | Qt::Key_O));
}

TEST_F(LettersOfButtons, OfMoreButtonsThanThereAreLettersTheLastHaveNone) {
  constexpr int kLettersAndDigits = 36;
  QList<QPushButton*> buttons;
  for (int n = 0; n < kLettersAndDigits; ++n) buttons.append(Add(u">>"_s));
  Show();
  EXPECT_EQ(ToolTipOf(buttons.last()), u"Alt+Z"_s);
  auto* another = Add(u"Zoom"_s);
  QCoreApplication::sendPostedEvents();
  QEvent request(QEvent::LayoutRequest);
  QCoreApplication::sendEvent(&window_, &request);
  EXPECT_EQ(ToolTipOf(another), u"Alt+Z"_s);
  EXPECT_TRUE(buttons.last()->shortcut().isEmpty());
  EXPECT_EQ(ToolTipOf(buttons.last()), QString());
}

}  // namespace
