#include "base/code_page.h"

#include <array>
#include <set>

#include <QStringDecoder>

#include <gtest/gtest.h>

#include "base/system_converter.h"
#include "support/text.h"

namespace Brivon1 {
namespace {

constexpr std::array kNumbers = {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

char16_t TextOf(int code_page, int byte) {
  return CodePage(code_page).ToCharacter(static_cast<char>(byte)).unicode();
}

std::optional<int> ByteOf(int code_page, char16_t character) {
  const std::optional<char> byte = CodePage(code_page).ToByte(QChar(character));
  if (!byte) return std::nullopt;
  return static_cast<unsigned char>(*byte);
}

std::optional<QByteArray> BytesOf(int code_page, const char* text) {
  return CodePage(code_page).ToBytes(Text(text));
}

QString Decomposed(const QString& text) { return text.normalized(QString::NormalizationForm_D); }

TEST(CodePage, EveryOneOfThe256ByteValuesSurvivesInEveryCodePage) {
  for (const int number : kNumbers) {
    const CodePage code_page(number);
    EXPECT_EQ(code_page.Number(), number);
    std::set<char16_t> characters;
    for (int value = 0; value < 256; ++value) {
      const char byte = static_cast<char>(value);
      const QString text = code_page.ToText(QByteArrayView(&byte, 1));
      ASSERT_EQ(text.size(), 1) << number << ' ' << value;
      EXPECT_EQ(code_page.ToByte(text.front()), byte) << number << ' ' << value;
      EXPECT_FALSE(text.front().isSurrogate()) << number << ' ' << value;
      EXPECT_NE(text.front(), QChar(QChar::ReplacementCharacter)) << number << ' ' << value;
      characters.insert(text.front().unicode());
    }
    EXPECT_EQ(characters.size(), 256u) << number;
  }
}

TEST(CodePage, TheLowerHalfIsAsciiInEveryCodePage) {
  for (const int number : kNumbers) {
    for (int value = 0; value < 128; ++value) EXPECT_EQ(TextOf(number, value), value) << number;
  }
}

TEST(CodePage, EachCodePageHasItsOwnLetters) {
  EXPECT_EQ(TextOf(874, 0xA1), u'\u0E01');   // Thai ko kai
  EXPECT_EQ(TextOf(1250, 0xB3), u'\u0142');  // l with stroke
  EXPECT_EQ(TextOf(1251, 0xCF), u'\u041F');  // Cyrillic pe
  EXPECT_EQ(TextOf(1252, 0xE4), u'\u00E4');  // a with diaeresis
  EXPECT_EQ(TextOf(1253, 0xE1), u'\u03B1');  // alpha
  EXPECT_EQ(TextOf(1254, 0xFD), u'\u0131');  // dotless i
  EXPECT_EQ(TextOf(1255, 0xE0), u'\u05D0');  // alef
  EXPECT_EQ(TextOf(1256, 0xC7), u'\u0627');  // Arabic alef
  EXPECT_EQ(TextOf(1257, 0xE0), u'\u0105');  // a with ogonek
  EXPECT_EQ(TextOf(1258, 0xF0), u'\u0111');  // d with stroke
}

TEST(CodePage, TheEuroSignHasItsByte) {
  EXPECT_EQ(ByteOf(1252, u'\u20AC'), 0x80);
  EXPECT_EQ(ByteOf(1250, u'\u20AC'), 0x80);
  EXPECT_EQ(ByteOf(1251, u'\u20AC'), 0x88);
}

TEST(CodePage, TheWesternCodePageHasItsDocumentedUpperRows) {
  // 0x80 to 0x9F; the five values that are undefined keep their numbers.
  constexpr std::array<char16_t, 32> kUpper = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  for (int value = 0x80; value < 0xA0; ++value) {
    EXPECT_EQ(TextOf(1252, value), kUpper[static_cast<std::size_t>(value - 0x80)]);
  }
  for (int value = 0xA0; value < 0x100; ++value) EXPECT_EQ(TextOf(1252, value), value);
}

TEST(CodePage, EveryCharacterIsTheOneOfTheCLibrarysConverter) {
  for (const int number : kNumbers) {
    int defined = 0;
    for (int value = 0; value < 256; ++value) {
      const auto expected = SystemTextOf(number, value);
      const QChar character(TextOf(number, value));
      if (expected) {
        ++defined;
        EXPECT_EQ(character.unicode(), *expected) << number << ' ' << value;
      } else if (number == 1253 && value == 0xAA) {
        // The toolkit's converter has this one, and files have been written with it.
        EXPECT_EQ(character, u'\u00AA');
      } else {
        EXPECT_TRUE(character.category() == QChar::Other_PrivateUse ||
                    (character.category() == QChar::Other_Control && character == QChar(value)))
            << number << ' ' << value;
      }
    }
    EXPECT_GE(defined, 225) << number;  // 874 has the fewest
  }
}

TEST(CodePage, EveryCharacterIsTheOneOfTheToolkitsConverter) {
  for (const int number : kNumbers) {
    const QByteArray name = "windows-" + QByteArray::number(number);
    if (!QStringDecoder(name.constData()).isValid()) {
      GTEST_SKIP() << "the toolkit was built without " << name.constData()
                   << ", as it is where it has no ICU";
    }
    for (int value = 0; value < 256; ++value) {
      QStringDecoder decoder(name.constData(), QStringDecoder::Flag::Stateless);
      const char byte = static_cast<char>(value);
      const QString text = decoder(QByteArrayView(&byte, 1));
      ASSERT_EQ(text.size(), 1) << number << ' ' << value;
      const QChar expected =
          text.front() == QChar(QChar::ReplacementCharacter) ? QChar(0xF700 + value) : text.front();
      EXPECT_EQ(QChar(TextOf(number, value)), expected) << number << ' ' << value;
    }
  }
}

TEST(CodePage, AnUndefinedValueIsAControlOrPrivateUseCharacter) {
  EXPECT_EQ(TextOf(1252, 0x81), u'\u0081');
  EXPECT_EQ(TextOf(1251, 0x98), u'\u0098');
  for (const int value : {0xDB, 0xDC, 0xDD, 0xDE, 0xFC, 0xFD, 0xFE, 0xFF}) {
    const char16_t character = TextOf(874, value);
    EXPECT_GE(character, u'\uE000') << value;
    EXPECT_LE(character, u'\uF8FF') << value;
  }
}

TEST(CodePage, WhatTheGreekHebrewAndBalticPagesLeaveUndefinedIsPrivateUseAtItsOwnValue) {
  for (const int value : {0xD2, 0xFF}) EXPECT_EQ(TextOf(1253, value), 0xF700 + value);
  for (const int value : {0xD9, 0xDA, 0xDB, 0xDC, 0xDD, 0xDE, 0xDF, 0xFB, 0xFC, 0xFF}) {
    EXPECT_EQ(TextOf(1255, value), 0xF700 + value);
  }
  for (const int value : {0xA1, 0xA5}) EXPECT_EQ(TextOf(1257, value), 0xF700 + value);
  EXPECT_EQ(ByteOf(1253, u'\uF7D2'), 0xD2);
}

TEST(CodePage, ACharacterWithoutAByteHasNone) {
  EXPECT_EQ(ByteOf(1252, u'\u0142'), std::nullopt);
  EXPECT_EQ(ByteOf(1252, u'\u4E2D'), std::nullopt);
  EXPECT_EQ(ByteOf(1252, u'\u0080'), std::nullopt);
  EXPECT_EQ(ByteOf(1252, char16_t{0xFFFD}), std::nullopt);
  EXPECT_EQ(ByteOf(1252, char16_t{0xD83D}), std::nullopt);
  EXPECT_EQ(ByteOf(1252, char16_t{0xFEFF}), std::nullopt);
  EXPECT_EQ(ByteOf(1250, u'\u00E5'), std::nullopt);
  EXPECT_EQ(ByteOf(1251, u'\u00E4'), std::nullopt);
}

TEST(CodePage, AnyOtherNumberIsTheWesternCodePage) {
  for (const int number : {0, -1, 437, 932, 1249, 1259, 65001}) {
    EXPECT_FALSE(CodePage::IsKnown(number)) << number;
    EXPECT_EQ(CodePage(number).Number(), 1252) << number;
    EXPECT_EQ(TextOf(number, 0x80), u'\u20AC') << number;
  }
  for (const int number : kNumbers) EXPECT_TRUE(CodePage::IsKnown(number)) << number;
}

TEST(CodePage, ATextHasOneCharacterPerByte) {
  const CodePage code_page(1252);
  EXPECT_EQ(code_page.ToText(QByteArrayView("A\x80\0B", 4)), QString::fromUtf16(u"A\u20AC\0B", 4));
  EXPECT_EQ(code_page.ToText(QByteArrayView()), QString());
  EXPECT_EQ(code_page.ToText("\xC3\xA4").size(), 2);
}

TEST(CodePage, AnyBytesComeBackFromTheirTextAlsoALetterAndItsMark) {
  for (const int number : kNumbers) {
    const CodePage code_page(number);
    QByteArray pairs;
    for (int first = 0; first < 256; ++first) {
      for (int second = 0; second < 256; ++second) {
        pairs += static_cast<char>(first);
        pairs += static_cast<char>(second);
      }
    }
    EXPECT_EQ(code_page.ToBytes(code_page.ToText(pairs)), pairs) << number;
  }
}

TEST(CodePage, ADecomposedLetterIsComposed) {
  EXPECT_EQ(BytesOf(1252, "Cafe\u0301!"), "Caf\xE9!");
  EXPECT_EQ(BytesOf(1252, "u\u0308"), "\xFC");
  EXPECT_EQ(BytesOf(1252, "\u212B"), "\xC5");  // the unit of length is the letter
  EXPECT_EQ(BytesOf(1250, "c\u030C"), "\xE8");
  EXPECT_EQ(BytesOf(1251, "и\u0306"), "\xE9");
  EXPECT_EQ(BytesOf(1253, "ι\u0308\u0301"), "\xC0");
  EXPECT_EQ(BytesOf(1254, "I\u0307"), "\xDD");
  EXPECT_EQ(BytesOf(1256, "ا\u0653"), "\xC2");
  EXPECT_EQ(BytesOf(1255, "\uFB2A"), "\xF9\xD1");  // shin and its dot are two
}

TEST(CodePage, EveryLetterHasItsByteAlsoDecomposed) {
  for (const int number : kNumbers) {
    if (number == 1258) continue;  // it has marks of its own, and their bytes come back
    const CodePage code_page(number);
    for (int value = 0; value < 256; ++value) {
      const QByteArray byte(1, static_cast<char>(value));
      EXPECT_EQ(code_page.ToBytes(Decomposed(code_page.ToText(byte))), byte)
          << number << ' ' << value;
    }
  }
}

TEST(CodePage, ALetterThatTheCodePageLacksHasNoBytesInAnyForm) {
  EXPECT_EQ(BytesOf(1252, "e\u030C"), std::nullopt);
  EXPECT_EQ(BytesOf(1252, "ế"), std::nullopt);
  EXPECT_EQ(BytesOf(1252, "e\u0302\u0301"), std::nullopt);
  EXPECT_EQ(BytesOf(1251, "e\u0301"), std::nullopt);
  EXPECT_EQ(BytesOf(1252, "Cafe\u0301 道"), std::nullopt);
  EXPECT_EQ(BytesOf(1252, "\u0301"), std::nullopt);
  EXPECT_EQ(BytesOf(1252, "🙂"), std::nullopt);
}

TEST(CodePage, AVietnameseLetterIsTakenApartIntoWhatTheCodePageHas) {
  EXPECT_EQ(BytesOf(1258, "ế"), "\xEA\xEC");  // ê, acute
  EXPECT_EQ(BytesOf(1258, "e\u0302\u0301"), "\xEA\xEC");
  EXPECT_EQ(BytesOf(1258, "ê\u0301"), "\xEA\xEC");
  EXPECT_EQ(BytesOf(1258, "ậ"), "\xE2\xF2");  // â, dot below
  EXPECT_EQ(BytesOf(1258, "a\u0323\u0302"), "\xE2\xF2");
  EXPECT_EQ(BytesOf(1258, "Ẵ"), "\xC3\xDE");  // Ă, tilde
  EXPECT_EQ(BytesOf(1258, "ờ"), "\xF5\xCC");  // ơ, grave
  EXPECT_EQ(BytesOf(1258, "ự"), "\xFD\xF2");  // ư, dot below
  EXPECT_EQ(BytesOf(1258, "ỷ"), "y\xD2");     // y, hook above
  EXPECT_EQ(BytesOf(1258, "Tiếng Việt"), "Ti\xEA\xECng Vi\xEA\xF2t");
  EXPECT_EQ(BytesOf(1258, "é"), "\xE9");
}

TEST(CodePage, EveryVietnameseLetterCanBeWritten) {
  const CodePage code_page(1258);
  const QString letters = Text(
      "aàáảãạăằắẳẵặâầấẩẫậbcdđeèéẻẽẹêềếểễệghiìíỉĩịklmnoòóỏõọôồốổỗộơờớởỡợpqrstuùúủũụưừứửữựvxyỳýỷỹỵ");
  ASSERT_EQ(letters.size(), 89);
  for (const QString& all : {letters, letters.toUpper()}) {
    for (const QChar letter : all) {
      for (const QString& form : {QString(letter), Decomposed(QString(letter))}) {
        const auto bytes = code_page.ToBytes(form);
        ASSERT_TRUE(bytes) << form.toStdString();
        const QString text = code_page.ToText(*bytes);
        EXPECT_EQ(text.normalized(QString::NormalizationForm_C), QString(letter));
      }
    }
  }
}

TEST(CodePage, MarksInTheSamePlaceAreNotExchanged) {
  // "õ" with a circumflex above is not "ô" with a tilde above.
  EXPECT_EQ(BytesOf(1258, "ô\u0303"), "\xF4\xDE");
  EXPECT_EQ(BytesOf(1258, "o\u0303\u0302"), std::nullopt);
}

TEST(CodePage, ALetterOfVeryManyMarksIsRefusedAtOnce) {
  QString text = Text("q");
  for (int i = 0; i < 200000; ++i) text += i % 2 == 0 ? QChar(0x0301) : QChar(0x0323);
  EXPECT_EQ(CodePage(1252).ToBytes(text), std::nullopt);
}

TEST(CodePage, TheOneThatTheProgramWorksWithCanBeSet) {
  const int before = CodePage::System().Number();
  CodePage::SetSystem(1251);
  EXPECT_EQ(CodePage::System().Number(), 1251);
  CodePage::SetSystem(437);
  EXPECT_EQ(CodePage::System().Number(), before);
  CodePage::SetSystem(before);
}

}  // namespace
}  // namespace Brivon1
