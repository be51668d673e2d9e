// Alt and a letter in every window and language.
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "app/frmMain.h"
#include "command/frmCommand.h"
#include "config/frmConfig.h"
#include "page/frmDimension.h"
#include "page/frmMsgEditor.h"
#include "page/frmPage.h"
#include "page/frmSendMsg.h"
#include "schedule/frmDelay.h"
#include "schedule/frmSchedule.h"
#include "schedule/frmSendSch.h"
#include "scrolling/frmSendShift.h"
#include "scrolling/frmShiftMsg.h"
#include "support/program_folder.h"
#include "support/shown_window.h"
#include "widgets/caption_button.h"

using namespace Qt::StringLiterals;

namespace {

struct NamedWindow {
  const char* name;
  std::function<std::unique_ptr<QWidget>()> create;
};

template <typename Window, typename... Arguments>
NamedWindow Named(const char* name, Arguments... arguments) {
  return {name, [=] { return std::make_unique<Window>(nullptr, arguments...); }};
}

const NamedWindow kWindows[] = {
    {"frmMain", [] { return std::make_unique<frmMain>(); }},
    Named<frmMsgEditor>("frmMsgEditor"),
    Named<frmShiftMsg>("frmShiftMsg"),
    Named<frmSchedule>("frmSchedule"),
    Named<frmConfig>("frmConfig"),
    Named<frmCommand>("frmCommand"),
    Named<frmDelay>("frmDelay"),
    Named<frmPage>("frmPage"),
    Named<frmDimension>("frmDimension"),
    Named<frmSendMsg>("frmSendMsg", QString()),
    Named<frmSendSch>("frmSendSch", QString()),
    Named<frmSendShift>("frmSendShift", QString()),
};

struct Case {
  NamedWindow window;
  const char* language;
};

void PrintTo(const Case& shown, std::ostream* out) {
  *out << shown.window.name << " in " << shown.language;
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const NamedWindow& window : kWindows) {
    for (const char* language : {"english", "deutsch", "espanol"}) {
      cases.push_back({window, language});
    }
  }
  return cases;
}

QList<QAbstractButton*> ButtonsOf(const QWidget& window) {
  QList<QAbstractButton*> buttons;
  for (auto* button : window.findChildren<QAbstractButton*>()) {
    const bool is_one = qobject_cast<QPushButton*>(button) || qobject_cast<QCheckBox*>(button) ||
                        qobject_cast<QRadioButton*>(button);
    if (is_one) buttons.append(button);
  }
  return buttons;
}

/// The letter that a screen reader is told, "Alt+S", behind what else it is told of the button.
QString LetterTold(QAbstractButton* button) {
  return QAccessible::queryAccessibleInterface(button)
      ->text(QAccessible::Description)
      .section(u'\n', -1);
}

void PressAlt(QWidget& window, const QString& keys) {
  QWidget* focus = window.focusWidget() == nullptr ? &window : window.focusWidget();
  QTest::keyClick(focus, static_cast<Qt::Key>(keys.back().unicode()), Qt::AltModifier);
}

class ButtonLetters : public testing::TestWithParam<Case> {
 protected:
  ButtonLetters() {
    QByteArray ini = "[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n";
    if (QByteArrayView(GetParam().language) != "english") {
      QFile sample(u"" BRIVON_SAMPLES
                   "/languages/%1/langSetting.INI"_s.arg(QLatin1String(GetParam().language)));
      EXPECT_TRUE(sample.open(QIODevice::ReadOnly));
      folder_.UseLanguage(sample.readAll());
      ini += "[Language]\r\nLanguage=2\r\n";
    }
    folder_.Configure(ini);
    window_ = GetParam().window.create();
    captions_before_ = Captions();
    window_->show();
    ActivateWindow(window_.get());
  }

  QStringList Captions() const {
    QStringList captions;
    for (const QAbstractButton* button : ButtonsOf(*window_)) captions.append(button->text());
    return captions;
  }

  TemporaryProgramFolder folder_;
  std::unique_ptr<QWidget> window_;
  QStringList captions_before_;
};

TEST_P(ButtonLetters, EveryButtonHasOneOfItsCaptionAndAllDiffer) {
  QStringList told;
  for (QAbstractButton* button : ButtonsOf(*window_)) {
    const QString letter = LetterTold(button);
    ASSERT_EQ(letter.size(), 5) << button->objectName().toStdString();
    EXPECT_TRUE(letter.startsWith("Alt+"_L1)) << letter.toStdString();
    static const QRegularExpression letters(u"[\\p{L}\\p{N}]"_s);
    const bool has_letters = button->text().contains(letters);
    const QString text = has_letters ? button->text() : button->accessibleName();
    EXPECT_TRUE(text.contains(letter.back(), Qt::CaseInsensitive))
        << text.toStdString() << ' ' << letter.toStdString();
    told.append(letter);
  }
  EXPECT_FALSE(told.isEmpty());
  EXPECT_EQ(told.removeDuplicates(), 0) << told.join(u' ').toStdString();
}

TEST_P(ButtonLetters, NoCaptionIsTouched) {
  EXPECT_EQ(Captions(), captions_before_);
  EXPECT_EQ(Captions().join(QString()).count(u'&'), 0);
}

TEST_P(ButtonLetters, ItPressesItsButtonAndNoOtherAndGivesItTheFocus) {
  QStringList pressed;
  const QList<QAbstractButton*> buttons = ButtonsOf(*window_);
  for (QAbstractButton* button : buttons) {
    // What the button does otherwise is not wanted here.
    button->disconnect(SIGNAL(clicked(bool)));
    button->disconnect(SIGNAL(toggled(bool)));
    QObject::connect(button, &QAbstractButton::clicked,
                     [&pressed, button] { pressed.append(button->objectName()); });
    button->setEnabled(true);
  }
  int tried = 0;
  for (QAbstractButton* button : buttons) {
    if (!button->isVisible()) continue;
    ++tried;
    PressAlt(*window_, LetterTold(button));
    EXPECT_EQ(pressed, QStringList{button->objectName()}) << button->text().toStdString();
    pressed.clear();
    if (button->focusPolicy() & Qt::ClickFocus) {
      EXPECT_TRUE(button->hasFocus()) << button->objectName().toStdString();
    }
  }
  EXPECT_GE(tried, 1);
}

TEST_P(ButtonLetters, ItDoesNothingWhereTheButtonIsDisabledOrHidden) {
  QStringList pressed;
  QWidget* const focus = window_->focusWidget();
  for (QAbstractButton* button : ButtonsOf(*window_)) {
    QObject::connect(button, &QAbstractButton::clicked,
                     [&pressed, button] { pressed.append(button->objectName()); });
    const QString letter = LetterTold(button);
    button->setEnabled(false);
    PressAlt(*window_, letter);
    button->setEnabled(true);
    button->hide();
    PressAlt(*window_, letter);
  }
  EXPECT_EQ(pressed, QStringList()) << (focus == nullptr ? "" : focus->objectName().toStdString());
}

TEST_P(ButtonLetters, TheToolTipShowsIt) {
  for (QAbstractButton* button : ButtonsOf(*window_)) {
    if (!button->isVisible()) continue;
    QHelpEvent help(QEvent::ToolTip, button->rect().center(),
                    button->mapToGlobal(button->rect().center()));
    QApplication::sendEvent(button, &help);
    const QStringList lines = QToolTip::text().split(u'\n');
    EXPECT_EQ(lines.back().toStdString(), LetterTold(button).toStdString());
    EXPECT_TRUE(lines.join(u'\n').contains(button->toolTip()));
    const auto* told = QAccessible::queryAccessibleInterface(button);
    EXPECT_TRUE(told->text(QAccessible::Description).contains(button->toolTip()));
    QToolTip::hideText();
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, ButtonLetters, testing::ValuesIn(Cases()), [](const auto& test) {
  return std::string(test.param.window.name) + "_" + test.param.language;
});

class LettersInRows : public testing::Test {
 protected:
  LettersInRows() { folder_.Configure("[Dimension Config]\r\nID001=4x96,Tri,192.168.10.1:80\r\n"); }

  TemporaryProgramFolder folder_;
};

TEST_F(LettersInRows, AltAndALetterTypesNothing) {
  ShownWindow<frmShiftMsg> editor(nullptr);
  ActivateWindow(&editor.window);
  auto* row = editor.Find<QWidget>("Picture1");
  row->setFocus();
  QTest::keyClicks(row, u"abc"_s);
  const auto position = [&] { return editor.Find<QLabel>("lblPosition")->text(); };
  const QString before = position();
  EXPECT_TRUE(before.contains(u'3'));
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    // What Alt presses is not wanted here.
    for (QAbstractButton* button : ButtonsOf(editor.window)) button->disconnect();
    row->setFocus();
    QTest::keyClick(row, letter, Qt::AltModifier);
    EXPECT_EQ(position(), before) << letter;
  }
}

TEST_F(LettersInRows, AKeyThatIsHeldPressesOnce) {
  ShownWindow<frmShiftMsg> editor(nullptr);
  ActivateWindow(&editor.window);
  auto* blinking = editor.Find<QCheckBox>("chkBlink");
  int pressed = 0;
  QObject::connect(blinking, &QCheckBox::clicked, [&] { ++pressed; });
  const Qt::Key key = static_cast<Qt::Key>(LetterTold(blinking).back().unicode());
  for (const bool repeats : {false, true, true}) {
    QTest::simulateEvent(editor.window.focusWidget(), true, key, Qt::AltModifier,
                         QString(QChar(key)).toLower(), repeats);
  }
  EXPECT_EQ(pressed, 1);
}

TEST_F(LettersInRows, ACaptionThatChangesGetsItsLetterAnew) {
  ShownWindow<frmPage> dialog(nullptr);
  auto* button = dialog.Find<QPushButton>("butOk");
  EXPECT_EQ(LetterTold(button), u"Alt+O"_s);
  button->setText(u"A longer caption than before"_s);
  QApplication::processEvents();
  EXPECT_EQ(LetterTold(button), u"Alt+A"_s);
}

TEST_F(LettersInRows, AWindowsOwnKeysAreLeftOut) {
  frmPage dialog(nullptr);
  const QShortcut own(Qt::ALT | Qt::Key_O, &dialog);
  dialog.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
  EXPECT_EQ(LetterTold(dialog.findChild<QPushButton*>(u"butOk"_s)), u"Alt+K"_s);
}

TEST_F(LettersInRows, ACutCaptionStandsAboveItInTheToolTip) {
  frmPage dialog(nullptr);
  dialog.show();
  auto* button = dialog.findChild<CaptionButton*>(u"butOk"_s);
  button->setText(u"Donaudampfschifffahrtsgesellschaft "_s.repeated(8));
  QApplication::processEvents();
  button->resize(60, 20);
  ASSERT_FALSE(button->Fit().complete);
  QHelpEvent help(QEvent::ToolTip, QPoint(3, 3), button->mapToGlobal(QPoint(3, 3)));
  QApplication::sendEvent(button, &help);
  EXPECT_EQ(QToolTip::text(), button->text() + u"\nAlt+D"_s);
  QToolTip::hideText();
}

}  // namespace
