#include "base/system_code_page.h"

#include <map>

#include <gtest/gtest.h>

namespace Brivon1 {
namespace {

int CodePageWith(const std::map<QByteArray, QByteArray>& variables) {
  Environment environment;
  environment.variable = [&variables](const char* name) {
    const auto found = variables.find(name);
    return found == variables.end() ? QByteArray() : found->second;
  };
  return SystemCodePage(environment);
}

TEST(SystemCodePage, TheCodePageFollowsTheLanguageOfTheCharacters) {
  EXPECT_EQ(CodePageWith({{"LC_ALL", "ru_RU.UTF-8"}}), 1251);
  EXPECT_EQ(CodePageWith({{"LC_CTYPE", "ru_RU.UTF-8"}}), 1251);
  EXPECT_EQ(CodePageWith({{"LANG", "ru_RU.UTF-8"}}), 1251);
}

TEST(SystemCodePage, TheFirstVariableThatIsNotEmptyDecides) {
  EXPECT_EQ(CodePageWith({{"LC_ALL", "el_GR"}, {"LC_CTYPE", "ru_RU"}, {"LANG", "pl_PL"}}), 1253);
  EXPECT_EQ(CodePageWith({{"LC_CTYPE", "ru_RU"}, {"LANG", "pl_PL"}}), 1251);
  EXPECT_EQ(CodePageWith({{"LC_ALL", ""}, {"LC_CTYPE", ""}, {"LANG", "pl_PL"}}), 1250);
  EXPECT_EQ(CodePageWith({{"LC_ALL", ""}, {"LC_CTYPE", "th_TH"}, {"LANG", "pl_PL"}}), 874);
  EXPECT_EQ(CodePageWith({{"LC_ALL", "C"}, {"LANG", "ru_RU.UTF-8"}}), 1252);
  EXPECT_EQ(CodePageWith({{"LC_ALL", "no such locale"}, {"LANG", "ru_RU.UTF-8"}}), 1252);
}

TEST(SystemCodePage, TheLanguageOfMessagesDoesNotCount) {
  EXPECT_EQ(CodePageWith({{"LANG", "ru_RU.UTF-8"},
                          {"LC_MESSAGES", "en_US.UTF-8"},
                          {"LANGUAGE", "en_US:en"},
                          {"LC_NUMERIC", "de_DE.UTF-8"}}),
            1251);
  EXPECT_EQ(CodePageWith({{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "ru"}, {"LC_TIME", "ru_RU"}}),
            1252);
}

TEST(SystemCodePage, WithoutAnyVariableItIsWestern) { EXPECT_EQ(CodePageWith({}), 1252); }

TEST(SystemCodePage, OnWindowsItIsTheAnsiCodePage) {
  Environment environment;
  environment.variable = [](const char*) { return QByteArray("pl_PL.UTF-8"); };
  for (const int number : {874, 1250, 1251, 1253, 1258}) {
    environment.ansi_code_page = number;
    EXPECT_EQ(SystemCodePage(environment), number);
  }
  // Two bytes for a character, and UTF-8.
  for (const int number : {932, 936, 65001}) {
    environment.ansi_code_page = number;
    EXPECT_EQ(SystemCodePage(environment), 1252);
  }
}

TEST(SystemCodePage, ALanguageThatNoPageIsMadeForHasThatOfItsScript) {
  EXPECT_EQ(CodePageOfLocale("os_RU"), 1251);
  EXPECT_EQ(CodePageOfLocale("ce_RU"), 1251);
  EXPECT_EQ(CodePageOfLocale("yi_001"), 1255);
  EXPECT_EQ(CodePageOfLocale("ps_AF"), 1256);
  EXPECT_EQ(CodePageOfLocale("ja_JP"), 1252);
}

TEST(SystemCodePage, EachLanguageHasItsCodePage) {
  for (const char* locale :
       {"pl_PL", "cs_CZ", "sk_SK", "hu_HU", "sl_SI", "hr_HR", "ro_RO", "sq_AL", "tk_TM"}) {
    EXPECT_EQ(CodePageOfLocale(locale), 1250) << locale;
  }
  for (const char* locale : {"ru_RU", "uk_UA", "be_BY", "bg_BG", "mk_MK", "kk_KZ", "ky_KG", "mn_MN",
                             "tt_RU", "tg_TJ", "ba_RU", "sah_RU"}) {
    EXPECT_EQ(CodePageOfLocale(locale), 1251) << locale;
  }
  for (const char* locale : {"ar_EG", "fa_IR", "ur_PK", "ug_CN", "ckb_IQ"}) {
    EXPECT_EQ(CodePageOfLocale(locale), 1256) << locale;
  }
  for (const char* locale : {"et_EE", "lv_LV", "lt_LT"}) {
    EXPECT_EQ(CodePageOfLocale(locale), 1257) << locale;
  }
  EXPECT_EQ(CodePageOfLocale("el_GR"), 1253);
  EXPECT_EQ(CodePageOfLocale("tr_TR"), 1254);
  EXPECT_EQ(CodePageOfLocale("he_IL"), 1255);
  EXPECT_EQ(CodePageOfLocale("iw_IL"), 1255);
  EXPECT_EQ(CodePageOfLocale("vi_VN"), 1258);
  EXPECT_EQ(CodePageOfLocale("th_TH"), 874);
}

TEST(SystemCodePage, EveryFormOfALocalesNameIsUnderstood) {
  for (const char* locale :
       {"ru", "ru_RU", "ru_RU.UTF-8", "ru_RU.utf8", "ru_RU.CP1251", "ru_RU.KOI8-R",
        "ru_RU.UTF-8@euro", "ru_RU@euro", "ru.UTF-8", "ru-RU", "ru_UA.UTF-8"}) {
    EXPECT_EQ(CodePageOfLocale(locale), 1251) << locale;
  }
}

TEST(SystemCodePage, AModifierTellsTheScriptWhereALanguageHasTwo) {
  EXPECT_EQ(CodePageOfLocale("sr_RS"), 1251);
  EXPECT_EQ(CodePageOfLocale("sr_RS.UTF-8"), 1251);
  EXPECT_EQ(CodePageOfLocale("sr_RS@latin"), 1250);
  EXPECT_EQ(CodePageOfLocale("sr_RS.UTF-8@latin"), 1250);
  EXPECT_EQ(CodePageOfLocale("sr@latin"), 1250);
  EXPECT_EQ(CodePageOfLocale("sr_ME"), 1250);
  EXPECT_EQ(CodePageOfLocale("bs_BA"), 1250);
  EXPECT_EQ(CodePageOfLocale("bs_BA@cyrillic"), 1251);
  EXPECT_EQ(CodePageOfLocale("uz_UZ"), 1254);
  EXPECT_EQ(CodePageOfLocale("uz_UZ@cyrillic"), 1251);
  EXPECT_EQ(CodePageOfLocale("uz_UZ.UTF-8@cyrillic"), 1251);
  EXPECT_EQ(CodePageOfLocale("az_AZ"), 1254);
  EXPECT_EQ(CodePageOfLocale("az_AZ@cyrillic"), 1251);
  EXPECT_EQ(CodePageOfLocale("sr_Latn_RS"), 1250);
  EXPECT_EQ(CodePageOfLocale("az_Cyrl_AZ"), 1251);
}

TEST(SystemCodePage, ItIsWesternWhereNothingSaysOtherwise) {
  for (const char* locale :
       {"C",     "POSIX",  "C.UTF-8", "C.utf8",      "",      "en_US.UTF-8", "de_DE@euro",
        "fr_FR", "es_MX",  "pt_BR",   "it_IT",       "nl_NL", "sv_SE",       "nb_NO",
        "fi_FI", "is_IS",  "id_ID",   "ja_JP.UTF-8", "zz_ZZ", "UTF-8",       "@",
        ".",     "@latin", "_RU",     "\xD0\xAF"}) {
    EXPECT_EQ(CodePageOfLocale(locale), 1252) << locale;
  }
}

TEST(SystemCodePage, TheEnvironmentIsThatOfTheProcess) {
  const Environment environment = ProcessEnvironment();
  qputenv("BRIVON_TEST_VARIABLE", "value");
  EXPECT_EQ(environment.variable("BRIVON_TEST_VARIABLE"), "value");
  qunsetenv("BRIVON_TEST_VARIABLE");
  EXPECT_TRUE(environment.variable("BRIVON_TEST_VARIABLE").isEmpty());
}

}  // namespace
}  // namespace Brivon1
