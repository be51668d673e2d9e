// The letters that press buttons.
#include "widgets/letter_choice.h"

#include <string>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The letters of buttons with these captions, "-" for none.
std::string Chosen(const QStringList& captions, const QSet<QChar>& taken = {}) {
  QList<ButtonTexts> buttons;
  for (const QString& caption : captions) buttons.append({caption, {}, {}});
  QString letters;
  for (const QChar letter : ChooseLetters(buttons, taken))
    letters += letter.isNull() ? u'-' : letter;
  return letters.toStdString();
}

TEST(LetterChoice, AButtonTakesTheFirstLetterOfItsCaption) {
  EXPECT_EQ(Chosen({u"New"_s, u"Open"_s, u"exit"_s}), "NOE");
}

TEST(LetterChoice, TheFirstLettersGoBeforeAllOthers) {
  EXPECT_EQ(Chosen({u"Save"_s, u"Save As"_s, u"Add"_s}), "SVA");
}

TEST(LetterChoice, ALetterThatBeginsAWordGoesBeforeOneWithin) {
  EXPECT_EQ(Chosen({u"Save"_s, u"Save The File"_s}), "ST");
}

TEST(LetterChoice, LettersThatAreUsedOtherwiseAreLeftOut) {
  EXPECT_EQ(Chosen({u"Save"_s, u"Send"_s}, {u'S', u'A'}), "VE");
}

TEST(LetterChoice, SignsAreNoLettersAndDigitsAre) {
  EXPECT_EQ(Chosen({u"Add >>"_s, u"...4 rows"_s}), "A4");
}

TEST(LetterChoice, OneGivesItsLetterUpForAButtonThatWouldGetNone) {
  EXPECT_EQ(Chosen({u"Open"_s, u"Keep"_s, u"OK"_s}), "PKO");
  EXPECT_EQ(Chosen({u"AB"_s, u"BC"_s, u"A"_s}), "BCA");
}

TEST(LetterChoice, TheNameStandsInForACaptionWithoutALetter) {
  const QList<ButtonTexts> buttons = {{u"<<"_s, u"Shift right"_s, {}}, {u"Send"_s, {}, {}}};
  EXPECT_EQ(ChooseLetters(buttons, {}), QList<QChar>({u'R', u'S'}));
}

TEST(LetterChoice, WithoutAnyLetterItIsADigit) { EXPECT_EQ(Chosen({u">>"_s, u"<<"_s}), "12"); }

TEST(LetterChoice, ALetterThatTheCaptionMarksGoesBeforeAllOthers) {
  const QList<ButtonTexts> buttons = {{u"Exit"_s, {}, {}}, {u"Send"_s, {}, u'E'}};
  EXPECT_EQ(ChooseLetters(buttons, {}), QList<QChar>({u'X', u'E'}));
}

TEST(LetterChoice, LettersOfOtherScriptsCountToo) {
  EXPECT_EQ(Chosen({u"Выход"_s, u"вниз"_s}), QString(u"ВН"_s).toStdString());
}

}  // namespace
