// Which letter presses which button together with Alt.
#pragma once

#include <QChar>
#include <QList>
#include <QSet>
#include <QString>

struct ButtonTexts {
  QString caption;  ///< As it is shown, without a mark.
  QString name;     ///< What a screen reader calls it, for a caption that has no letter.
  QChar marked;     ///< The letter that the caption marks with "&"; null: none.
};

/// A letter or digit for each of `buttons`, in capitals, all different and none of `taken`. A
/// letter is one of the button's caption: the marked one, else the first one, else one that begins
/// a word, else any, the buttons in front choosing first; one gives its letter up only for a button
/// that would get none otherwise. Where the caption has none to give, it is one of the name, then
/// any. Null for a button that is left without one, which takes more than 36 of them.
QList<QChar> ChooseLetters(const QList<ButtonTexts>& buttons, const QSet<QChar>& taken);
