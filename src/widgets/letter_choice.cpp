#include "widgets/letter_choice.h"

#include <algorithm>

namespace {

// The letters of `text`, those that begin a word first.
QList<QChar> LettersOf(const QString& text) {
  QList<QChar> initials;
  QList<QChar> others;
  bool is_inside = false;
  for (const QChar character : text) {
    const bool is_letter = character.isLetter() || character.isDigit();
    if (is_letter) (is_inside ? others : initials).append(character.toUpper());
    is_inside = is_letter;
  }
  return initials + others;
}

class Choice {
 public:
  Choice(const QList<ButtonTexts>& buttons, const QSet<QChar>& taken)
      : buttons_(buttons), taken_(taken), chosen_(buttons.size()) {
    for (const ButtonTexts& button : buttons) wishes_.append(LettersOf(button.caption));
  }

  QList<QChar> Make() {
    for (qsizetype i = 0; i < buttons_.size(); ++i) TakeFree(i, {buttons_[i].marked});
    for (qsizetype i = 0; i < buttons_.size(); ++i) TakeFree(i, wishes_[i].mid(0, 1));
    for (qsizetype i = 0; i < buttons_.size(); ++i) {
      if (TakeFree(i, wishes_[i])) continue;
      QSet<QChar> asked;
      if (TakeFromAnother(i, asked)) continue;
      if (TakeFree(i, LettersOf(buttons_[i].name))) continue;
      TakeFree(i, LettersOf(QStringLiteral("1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZ")));
    }
    return chosen_;
  }

 private:
  bool IsFree(QChar letter) const {
    return !letter.isNull() && !taken_.contains(letter) && !chosen_.contains(letter);
  }

  bool TakeFree(qsizetype i, const QList<QChar>& wishes) {
    if (!chosen_[i].isNull()) return true;
    const auto found =
        std::find_if(wishes.begin(), wishes.end(), [this](QChar letter) { return IsFree(letter); });
    if (found != wishes.end()) chosen_[i] = *found;
    return !chosen_[i].isNull();
  }

  // Has a button that holds a letter of this one's caption take another one of its own.
  bool TakeFromAnother(qsizetype i, QSet<QChar>& asked) {
    for (const QChar letter : wishes_[i]) {
      if (taken_.contains(letter) || asked.contains(letter)) continue;
      asked.insert(letter);
      const qsizetype holder = chosen_.indexOf(letter);
      if (holder >= 0) {
        chosen_[holder] = QChar();
        // The one that asks stands where the letter goes, so that it is not free meanwhile.
        chosen_[i] = letter;
        if (!TakeFree(holder, wishes_[holder]) && !TakeFromAnother(holder, asked)) {
          chosen_[i] = QChar();
          chosen_[holder] = letter;
          continue;
        }
      }
      chosen_[i] = letter;
      return true;
    }
    return false;
  }

  const QList<ButtonTexts>& buttons_;
  const QSet<QChar>& taken_;
  QList<QList<QChar>> wishes_;
  QList<QChar> chosen_;
};

}  // namespace

QList<QChar> ChooseLetters(const QList<ButtonTexts>& buttons, const QSet<QChar>& taken) {
  return Choice(buttons, taken).Make();
}
