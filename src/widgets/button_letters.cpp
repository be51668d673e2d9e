#include "widgets/button_letters.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStringList>
#include <QWidget>

#include "base/tool_tip_text.h"
#include "widgets/caption_button.h"
#include "widgets/fitted_text.h"
#include "widgets/letter_choice.h"
#include "widgets/plain_tool_tip.h"

using namespace Qt::StringLiterals;

namespace {

// The letter that a key sequence presses with Alt; null for one that is something else.
QChar LetterOf(const QKeySequence& keys) {
  if (keys.count() != 1 || keys[0].keyboardModifiers() != Qt::AltModifier) return {};
  const int key = keys[0].key();
  return key <= 0xFFFF ? QChar(static_cast<char16_t>(key)) : QChar();
}

class ButtonLetters : public QObject {
 public:
  explicit ButtonLetters(QWidget* window) : QObject(window), window_(window) {
    window->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    if (object == window_) {
      LookAtWindow(*event);
      return false;
    }
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (button == nullptr) return false;
    if (event->type() == QEvent::Shortcut) return Press(*button);
    if (event->type() == QEvent::ToolTip) {
      return ShowToolTip(*static_cast<QHelpEvent*>(event), button);
    }
    if (event->type() == QEvent::ToolTipChange) Describe(*button);
    return false;
  }

 private:
  void LookAtWindow(const QEvent& event) {
    if (event.type() == QEvent::Show || event.type() == QEvent::LayoutRequest) {
      const QList<QAbstractButton*> buttons = Buttons();
      if (event.type() == QEvent::Show || TextsOf(buttons) != texts_) GiveLetters(buttons);
    } else if (event.type() == QEvent::ShortcutOverride) {
      is_held_ = static_cast<const QKeyEvent&>(event).isAutoRepeat();
    }
  }

  QList<QAbstractButton*> Buttons() const {
    QList<QAbstractButton*> buttons;
    for (auto* button : window_->findChildren<QAbstractButton*>()) {
      const bool is_one = qobject_cast<QPushButton*>(button) || qobject_cast<QCheckBox*>(button) ||
                          qobject_cast<QRadioButton*>(button);
      if (is_one && button->window() == window_) buttons.append(button);
    }
    return buttons;
  }

  // The letters of menus, lists, frames and keys, which are not the buttons'.
  QSet<QChar> OtherLetters() const {
    QSet<QChar> letters;
    for (const auto* shortcut : window_->findChildren<QShortcut*>()) {
      for (const QKeySequence& keys : shortcut->keys()) letters.insert(LetterOf(keys));
    }
    for (const auto* action : window_->findChildren<QAction*>()) {
      for (const QKeySequence& keys : action->shortcuts()) letters.insert(LetterOf(keys));
      letters.insert(LetterOf(QKeySequence::mnemonic(action->text())));
    }
    for (const auto* label : window_->findChildren<QLabel*>()) {
      if (label->buddy()) letters.insert(LetterOf(QKeySequence::mnemonic(label->text())));
    }
    for (const auto* box : window_->findChildren<QGroupBox*>()) {
      letters.insert(LetterOf(QKeySequence::mnemonic(box->title())));
    }
    letters.remove(QChar());
    return letters;
  }

  static QStringList TextsOf(const QList<QAbstractButton*>& buttons) {
    QStringList texts;
    for (const QAbstractButton* button : buttons) texts.append(button->text());
    return texts;
  }

  void GiveLetters(const QList<QAbstractButton*>& buttons) {
    texts_ = TextsOf(buttons);
    QList<ButtonTexts> texts;
    for (const QAbstractButton* button : buttons) {
      texts.append({WithoutShortcutMark(button->text()), button->accessibleName(),
                    LetterOf(QKeySequence::mnemonic(button->text()))});
    }
    const QList<QChar> letters = ChooseLetters(texts, OtherLetters());
    // One that another button is about to get must not stand at two for a moment.
    for (qsizetype i = 0; i < buttons.size(); ++i) {
      if (LetterOf(buttons[i]->shortcut()) != letters[i]) buttons[i]->setShortcut({});
    }
    for (qsizetype i = 0; i < buttons.size(); ++i) {
      if (letters[i].isNull() || LetterOf(buttons[i]->shortcut()) == letters[i]) continue;
      buttons[i]->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(letters[i].unicode())));
      buttons[i]->installEventFilter(this);
      Describe(*buttons[i]);
    }
  }

  // As a click does it: at once, and with the focus. A key that is held too long presses once. The
  // control that loses the focus may refuse what it holds, and lets the button go then.
  bool Press(QAbstractButton& button) const {
    if (is_held_) return true;
    button.setDown(true);
    if (button.focusPolicy() & Qt::ClickFocus) button.setFocus(Qt::ShortcutFocusReason);
    if (button.isDown()) button.click();
    return true;
  }

  // A screen reader is told what the tool tip shows.
  static void Describe(QAbstractButton& button) {
    const QString text = Brivon1::ShownByToolTip(button.toolTip());
    button.setAccessibleDescription(text.isEmpty() ? LetterText(button)
                                                   : text + u'\n' + LetterText(button));
  }

  static QString LetterText(const QAbstractButton& button) {
    return button.shortcut().toString(QKeySequence::NativeText);
  }

  static bool ShowToolTip(const QHelpEvent& event, QAbstractButton* button) {
    const QString letter = LetterText(*button);
    if (letter.isEmpty()) return false;
    const auto* caption = qobject_cast<const CaptionButton*>(button);
    const QString tip =
        caption == nullptr ? Brivon1::ShownByToolTip(button->toolTip()) : caption->WholeToolTip();
    ShowPlainToolTip(event, tip.isEmpty() ? letter : tip + u'\n' + letter, button);
    return true;
  }

  QWidget* window_;
  QStringList texts_;     // as they were when the letters were given
  bool is_held_ = false;  // the key that was pressed last
};

}  // namespace

void GiveButtonsLetters(QWidget* window) { new ButtonLetters(window); }
