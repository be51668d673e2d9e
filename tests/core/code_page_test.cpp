#include "core/code_page.h"

#include <array>
#include <set>

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

constexpr std::array kNames = {"windows-874",  "windows-1250", "windows-1251", "windows-1252",
                               "windows-1253", "windows-1254", "windows-1255", "windows-1256",
                               "windows-1257", "windows-1258"};

char16_t TextOf(const char* code_page, int byte) {
  const char value = static_cast<char>(byte);
  const QString text = CodePage(code_page).ToText(QByteArrayView(&value, 1));
  return text.size() == 1 ? text.front().unicode() : u'\0';
}

std::optional<int> ByteOf(const char* code_page, char16_t character) {
  const std::optional<char> byte = CodePage(code_page).ToByte(QChar(character));
  if (!byte) return std::nullopt;
  return static_cast<unsigned char>(*byte);
}

TEST(CodePage, EveryOneOfThe256ByteValuesSurvivesInEveryCodePage) {
  for (const char* name : kNames) {
    const CodePage code_page(name);
    std::set<char16_t> characters;
    for (int value = 0; value < 256; ++value) {
      const char byte = static_cast<char>(value);
      const QString text = code_page.ToText(QByteArrayView(&byte, 1));
      ASSERT_EQ(text.size(), 1) << name << ' ' << value;
      EXPECT_EQ(code_page.ToByte(text.front()), byte) << name << ' ' << value;
      EXPECT_FALSE(text.front().isSurrogate()) << name << ' ' << value;
      EXPECT_NE(text.front(), QChar(QChar::ReplacementCharacter)) << name << ' ' << value;
      characters.insert(text.front().unicode());
    }
    EXPECT_EQ(characters.size(), 256u) << name;
  }
}

TEST(CodePage, TheLowerHalfIsAsciiInEveryCodePage) {
  for (const char* name : kNames) {
    for (int value = 0; value < 128; ++value) EXPECT_EQ(TextOf(name, value), value) << name;
  }
}

TEST(CodePage, EachCodePageHasItsOwnLetters) {
  EXPECT_EQ(TextOf("windows-874", 0xA1), u'\u0E01');   // Thai ko kai
  EXPECT_EQ(TextOf("windows-1250", 0xB3), u'\u0142');  // l with stroke
  EXPECT_EQ(TextOf("windows-1251", 0xCF), u'\u041F');  // Cyrillic pe
  EXPECT_EQ(TextOf("windows-1252", 0xE4), u'\u00E4');  // a with diaeresis
  EXPECT_EQ(TextOf("windows-1253", 0xE1), u'\u03B1');  // alpha
  EXPECT_EQ(TextOf("windows-1254", 0xFD), u'\u0131');  // dotless i
  EXPECT_EQ(TextOf("windows-1255", 0xE0), u'\u05D0');  // alef
  EXPECT_EQ(TextOf("windows-1256", 0xC7), u'\u0627');  // Arabic alef
  EXPECT_EQ(TextOf("windows-1257", 0xE0), u'\u0105');  // a with ogonek
  EXPECT_EQ(TextOf("windows-1258", 0xF0), u'\u0111');  // d with stroke
}

TEST(CodePage, TheEuroSignHasItsByte) {
  EXPECT_EQ(ByteOf("windows-1252", u'\u20AC'), 0x80);
  EXPECT_EQ(ByteOf("windows-1250", u'\u20AC'), 0x80);
  EXPECT_EQ(ByteOf("windows-1251", u'\u20AC'), 0x88);
}

TEST(CodePage, TheWesternCodePageHasItsDocumentedUpperRows) {
  // 0x80 to 0x9F; the five values that are undefined keep their numbers.
  constexpr std::array<char16_t, 32> kUpper = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  for (int value = 0x80; value < 0xA0; ++value) {
    EXPECT_EQ(TextOf("windows-1252", value), kUpper[static_cast<std::size_t>(value - 0x80)]);
  }
  for (int value = 0xA0; value < 0x100; ++value) EXPECT_EQ(TextOf("windows-1252", value), value);
}

TEST(CodePage, AnUndefinedValueIsAControlOrPrivateUseCharacter) {
  EXPECT_EQ(TextOf("windows-1252", 0x81), u'\u0081');
  EXPECT_EQ(TextOf("windows-1251", 0x98), u'\u0098');
  for (const int value : {0xDB, 0xDC, 0xDD, 0xDE, 0xFC, 0xFD, 0xFE, 0xFF}) {
    const char16_t character = TextOf("windows-874", value);
    EXPECT_GE(character, u'\uE000') << value;
    EXPECT_LE(character, u'\uF8FF') << value;
  }
}

TEST(CodePage, ACharacterWithoutAByteHasNone) {
  EXPECT_EQ(ByteOf("windows-1252", u'\u0142'), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1252", u'\u4E2D'), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1252", u'\u0080'), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1252", char16_t{0xFFFD}), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1252", char16_t{0xD83D}), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1252", char16_t{0xFEFF}), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1250", u'\u00E5'), std::nullopt);
  EXPECT_EQ(ByteOf("windows-1251", u'\u00E4'), std::nullopt);
}

TEST(CodePage, AnUnknownNameIsTheWesternCodePage) {
  EXPECT_EQ(TextOf("no such code page", 0x80), u'\u20AC');
  EXPECT_EQ(TextOf("", 0x80), u'\u20AC');
}

TEST(CodePage, ATextHasOneCharacterPerByte) {
  const CodePage code_page("windows-1252");
  EXPECT_EQ(code_page.ToText(QByteArrayView("A\x80\0B", 4)), QString::fromUtf16(u"A\u20AC\0B", 4));
  EXPECT_EQ(code_page.ToText(QByteArrayView()), QString());
  EXPECT_EQ(code_page.ToText("\xC3\xA4").size(), 2);
}

TEST(CodePage, TheCodePageFollowsTheLanguage) {
  const auto name = [](const char* locale) {
    return QByteArray(CodePage::NameFor(QLocale(QString::fromLatin1(locale))));
  };
  EXPECT_EQ(name("pl_PL"), "windows-1250");
  EXPECT_EQ(name("cs_CZ"), "windows-1250");
  EXPECT_EQ(name("hu_HU"), "windows-1250");
  EXPECT_EQ(name("ro_RO"), "windows-1250");
  EXPECT_EQ(name("sq_AL"), "windows-1250");
  EXPECT_EQ(name("tk_TM"), "windows-1250");
  EXPECT_EQ(name("ru_RU"), "windows-1251");
  EXPECT_EQ(name("uk_UA"), "windows-1251");
  EXPECT_EQ(name("bg_BG"), "windows-1251");
  EXPECT_EQ(name("kk_KZ"), "windows-1251");
  EXPECT_EQ(name("tg_TJ"), "windows-1251");
  EXPECT_EQ(name("el_GR"), "windows-1253");
  EXPECT_EQ(name("tr_TR"), "windows-1254");
  EXPECT_EQ(name("he_IL"), "windows-1255");
  EXPECT_EQ(name("ar_EG"), "windows-1256");
  EXPECT_EQ(name("fa_IR"), "windows-1256");
  EXPECT_EQ(name("ug_CN"), "windows-1256");
  EXPECT_EQ(name("lt_LT"), "windows-1257");
  EXPECT_EQ(name("et_EE"), "windows-1257");
  EXPECT_EQ(name("vi_VN"), "windows-1258");
  EXPECT_EQ(name("th_TH"), "windows-874");
}

TEST(CodePage, TheCodePageFollowsTheScriptWhereALanguageHasTwo) {
  const auto name = [](const char* locale) {
    return QByteArray(CodePage::NameFor(QLocale(QString::fromLatin1(locale))));
  };
  EXPECT_EQ(name("sr_Cyrl_RS"), "windows-1251");
  EXPECT_EQ(name("sr_Latn_RS"), "windows-1250");
  EXPECT_EQ(name("bs_Latn_BA"), "windows-1250");
  EXPECT_EQ(name("bs_Cyrl_BA"), "windows-1251");
  EXPECT_EQ(name("az_Latn_AZ"), "windows-1254");
  EXPECT_EQ(name("az_Cyrl_AZ"), "windows-1251");
  EXPECT_EQ(name("uz_Latn_UZ"), "windows-1254");
  EXPECT_EQ(name("uz_Cyrl_UZ"), "windows-1251");
}

TEST(CodePage, TheCodePageIsWesternWhereNothingSaysOtherwise) {
  for (const char* locale : {"C", "en_US", "de_DE", "fr_FR", "es_MX", "pt_BR", "it_IT", "nl_NL",
                             "sv_SE", "nb_NO", "fi_FI", "is_IS", "id_ID", "ja_JP", "zz_ZZ"}) {
    EXPECT_EQ(QByteArray(CodePage::NameFor(QLocale(QString::fromLatin1(locale)))), "windows-1252")
        << locale;
  }
}

}  // namespace
}  // namespace Brivon1
