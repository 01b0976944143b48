#include "platform/LanguageTable.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

TEST(LanguageTable, NamesLanguageAndCountry) {
  EXPECT_EQ(LanguageName(0x0407), "German (Germany)");
  EXPECT_EQ(LanguageName(0x0C07), "German (Austria)");
  EXPECT_EQ(LanguageName(0x0409), "English (United States)");
  EXPECT_EQ(LanguageName(0x0415), "Polish (Poland)");
  EXPECT_EQ(LanguageName(0x0804), "Chinese (Simplified, China)");
  EXPECT_EQ(LanguageName(0x0414), "Norwegian Bokm\xE5l (Norway)");
}

TEST(LanguageTable, NamesALanguageWithoutCountry) {
  EXPECT_EQ(LanguageName(0x0007), "German");
  EXPECT_EQ(LanguageName(0x7C04), "Chinese (Traditional)");
}

TEST(LanguageTable, AnUnknownNumberIsNeutral) {
  for (const int id : {0x0000, 0x0600, 0x04FF, 0xFFFF, 0x7C93}) {
    EXPECT_EQ(LanguageName(static_cast<std::uint16_t>(id)), "Language Neutral") << id;
  }
}

struct LocaleRow {
  std::string_view name;
  int id;
};

class LocaleNames : public testing::TestWithParam<LocaleRow> {};

TEST_P(LocaleNames, GiveTheNumberOfTheirLanguage) { EXPECT_EQ(LanguageIdOf(GetParam().name), GetParam().id); }

INSTANTIATE_TEST_SUITE_P(All, LocaleNames,
                         testing::Values(LocaleRow{"de_DE.UTF-8", 0x407}, LocaleRow{"de_AT@euro", 0xC07},
                                         LocaleRow{"de", 0x407}, LocaleRow{"de_US", 0x407},
                                         LocaleRow{"en_GB.UTF-8", 0x809}, LocaleRow{"es_ES", 0xC0A},
                                         LocaleRow{"es_MX", 0x80A}, LocaleRow{"fr-CA", 0xC0C},
                                         LocaleRow{"nb_NO", 0x414}, LocaleRow{"no_NO", 0x414},
                                         LocaleRow{"nn_NO", 0x814}, LocaleRow{"zh_CN.GB18030", 0x804},
                                         LocaleRow{"zh_TW", 0x404}, LocaleRow{"sr_RS", 0x281A},
                                         LocaleRow{"pt_PT", 0x816}, LocaleRow{"C", 0x409}, LocaleRow{"C.UTF-8", 0x409},
                                         LocaleRow{"POSIX", 0x409}, LocaleRow{"", 0x409}, LocaleRow{"xx_DE", 0x409},
                                         LocaleRow{"d", 0x409}, LocaleRow{"_DE", 0x409}, LocaleRow{".UTF-8", 0x409}));

INSTANTIATE_TEST_SUITE_P(WithoutCountry, LocaleNames,
                         testing::Values(LocaleRow{"ar", 0x401}, LocaleRow{"az", 0x42C}, LocaleRow{"bn", 0x845},
                                         LocaleRow{"bs", 0x141A}, LocaleRow{"ca", 0x403}, LocaleRow{"en", 0x409},
                                         LocaleRow{"es", 0xC0A}, LocaleRow{"fr", 0x40C}, LocaleRow{"hr", 0x41A},
                                         LocaleRow{"it", 0x410}, LocaleRow{"ko", 0x412}, LocaleRow{"nl", 0x413},
                                         LocaleRow{"pl", 0x415}, LocaleRow{"pt", 0x416}, LocaleRow{"ru", 0x419},
                                         LocaleRow{"sd", 0x859}, LocaleRow{"sma", 0x1C3B}, LocaleRow{"smj", 0x143B},
                                         LocaleRow{"sr", 0x281A}, LocaleRow{"sv", 0x41D}, LocaleRow{"zh", 0x804},
                                         LocaleRow{"es.UTF-8", 0xC0A}, LocaleRow{"es_XX", 0xC0A},
                                         LocaleRow{"zh_XX", 0x804}, LocaleRow{"sr_XX", 0x281A}));

INSTANTIATE_TEST_SUITE_P(InAScript, LocaleNames,
                         testing::Values(LocaleRow{"sr_RS.UTF-8", 0x281A}, LocaleRow{"sr_RS@latin", 0x241A},
                                         LocaleRow{"sr_RS.UTF-8@latin", 0x241A}, LocaleRow{"sr_RS@cyrillic", 0x281A},
                                         LocaleRow{"sr_BA", 0x1C1A}, LocaleRow{"sr_BA@latin", 0x181A},
                                         LocaleRow{"sr_ME", 0x301A}, LocaleRow{"sr_ME@latin", 0x2C1A},
                                         LocaleRow{"sr@latin", 0x241A}, LocaleRow{"sr_XX@latin", 0x241A},
                                         LocaleRow{"uz_UZ", 0x443}, LocaleRow{"uz_UZ@cyrillic", 0x843},
                                         LocaleRow{"az_AZ", 0x42C}, LocaleRow{"az_AZ@cyrillic", 0x82C},
                                         LocaleRow{"bs_BA", 0x141A}, LocaleRow{"bs@cyrillic", 0x201A},
                                         LocaleRow{"de_DE@latin", 0x407}, LocaleRow{"de_AT@cyrillic", 0xC07},
                                         LocaleRow{"sr_RS@", 0x281A}, LocaleRow{"sr_RS@x", 0x281A}));

INSTANTIATE_TEST_SUITE_P(OfFormerDays, LocaleNames,
                         testing::Values(LocaleRow{"iw", 0x40D}, LocaleRow{"iw_IL", 0x40D}, LocaleRow{"he_IL", 0x40D},
                                         LocaleRow{"no", 0x414}));

}  // namespace
}  // namespace tavrin
