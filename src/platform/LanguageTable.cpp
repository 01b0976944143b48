#include "platform/LanguageTable.h"

#include <algorithm>
#include <array>

#include "platform/BestFit.h"

namespace tavrin {
namespace {

struct Language {
  std::uint16_t id;      ///< the language in the lower ten bits, its kind in the upper six
  std::string_view tag;  ///< language, script and country; empty for a row that is no user's language
  std::u16string_view name;
};

/// The languages of Windows with its English names.
constexpr std::array kLanguages = std::to_array<Language>({
    {0x0000, "", u"Language Neutral"},
    {0x0001, "", u"Arabic"},
    {0x0002, "", u"Bulgarian"},
    {0x0003, "", u"Catalan"},
    {0x0004, "", u"Chinese (Simplified)"},
    {0x0005, "", u"Czech"},
    {0x0006, "", u"Danish"},
    {0x0007, "", u"German"},
    {0x0008, "", u"Greek"},
    {0x0009, "", u"English"},
    {0x000A, "", u"Spanish"},
    {0x000B, "", u"Finnish"},
    {0x000C, "", u"French"},
    {0x000D, "", u"Hebrew"},
    {0x000E, "", u"Hungarian"},
    {0x000F, "", u"Icelandic"},
    {0x0010, "", u"Italian"},
    {0x0011, "", u"Japanese"},
    {0x0012, "", u"Korean"},
    {0x0013, "", u"Dutch"},
    {0x0014, "", u"Norwegian Bokm\u00E5l"},
    {0x0015, "", u"Polish"},
    {0x0016, "", u"Portuguese"},
    {0x0017, "", u"Romansh"},
    {0x0018, "", u"Romanian"},
    {0x0019, "", u"Russian"},
    {0x001A, "", u"Croatian"},
    {0x001B, "", u"Slovak"},
    {0x001C, "", u"Albanian"},
    {0x001D, "", u"Swedish"},
    {0x001E, "", u"Thai"},
    {0x001F, "", u"Turkish"},
    {0x0020, "", u"Urdu"},
    {0x0021, "", u"Indonesian"},
    {0x0022, "", u"Ukrainian"},
    {0x0023, "", u"Belarusian"},
    {0x0024, "", u"Slovenian"},
    {0x0025, "", u"Estonian"},
    {0x0026, "", u"Latvian"},
    {0x0027, "", u"Lithuanian"},
    {0x0028, "", u"Tajik (Cyrillic)"},
    {0x0029, "", u"Persian"},
    {0x002A, "", u"Vietnamese"},
    {0x002B, "", u"Armenian"},
    {0x002C, "", u"Azerbaijani (Latin)"},
    {0x002D, "", u"Basque"},
    {0x002E, "", u"Upper Sorbian"},
    {0x002F, "", u"Macedonian"},
    {0x0030, "", u"Sesotho"},
    {0x0031, "", u"Tsonga"},
    {0x0032, "", u"Setswana"},
    {0x0033, "", u"Venda"},
    {0x0034, "", u"Xhosa"},
    {0x0035, "", u"Zulu"},
    {0x0036, "", u"Afrikaans"},
    {0x0037, "", u"Georgian"},
    {0x0038, "", u"Faroese"},
    {0x0039, "", u"Hindi"},
    {0x003A, "", u"Maltese"},
    {0x003B, "", u"Northern Sami"},
    {0x003C, "", u"Irish"},
    {0x003D, "", u"Yiddish"},
    {0x003E, "", u"Malay"},
    {0x003F, "", u"Kazakh"},
    {0x0040, "", u"Kyrgyz"},
    {0x0041, "", u"Swahili"},
    {0x0042, "", u"Turkmen"},
    {0x0043, "", u"Uzbek (Latin)"},
    {0x0044, "", u"Tatar"},
    {0x0045, "", u"Bangla"},
    {0x0046, "", u"Punjabi"},
    {0x0047, "", u"Gujarati"},
    {0x0048, "", u"Odia"},
    {0x0049, "", u"Tamil"},
    {0x004A, "", u"Telugu"},
    {0x004B, "", u"Kannada"},
    {0x004C, "", u"Malayalam"},
    {0x004D, "", u"Assamese"},
    {0x004E, "", u"Marathi"},
    {0x004F, "", u"Sanskrit"},
    {0x0050, "", u"Mongolian"},
    {0x0051, "", u"Tibetan"},
    {0x0052, "", u"Welsh"},
    {0x0053, "", u"Khmer"},
    {0x0054, "", u"Lao"},
    {0x0055, "", u"Burmese"},
    {0x0056, "", u"Galician"},
    {0x0057, "", u"Konkani"},
    {0x0058, "", u"Manipuri"},
    {0x0059, "", u"Sindhi (Arabic)"},
    {0x005A, "", u"Syriac"},
    {0x005B, "", u"Sinhala"},
    {0x005C, "", u"Cherokee (Cherokee)"},
    {0x005D, "", u"Inuktitut (Latin)"},
    {0x005E, "", u"Amharic"},
    {0x005F, "", u"Central Atlas Tamazight (Latin)"},
    {0x0060, "", u"Kashmiri (Arabic)"},
    {0x0061, "", u"Nepali"},
    {0x0062, "", u"Western Frisian"},
    {0x0063, "", u"Pashto"},
    {0x0064, "", u"Filipino"},
    {0x0065, "", u"Divehi"},
    {0x0066, "", u"Edo"},
    {0x0067, "", u"Fulah (Latin)"},
    {0x0068, "", u"Hausa (Latin)"},
    {0x006A, "", u"Yoruba"},
    {0x006B, "", u"Quechua"},
    {0x006C, "", u"Sesotho sa Leboa"},
    {0x006D, "", u"Bashkir"},
    {0x006E, "", u"Luxembourgish"},
    {0x006F, "", u"Greenlandic"},
    {0x0070, "", u"Igbo"},
    {0x0071, "", u"Kanuri (Latin)"},
    {0x0072, "", u"Oromo"},
    {0x0073, "", u"Tigrinya"},
    {0x0074, "", u"Guarani"},
    {0x0075, "", u"Hawaiian"},
    {0x0076, "", u"Latin"},
    {0x0077, "", u"Somali"},
    {0x0078, "", u"Yi"},
    {0x007A, "", u"Mapudungun"},
    {0x007C, "", u"Mohawk"},
    {0x007E, "", u"Breton"},
    {0x007F, "", u"Invariant Language (Invariant Country)"},
    {0x0080, "", u"Uyghur"},
    {0x0081, "", u"Maori"},
    {0x0082, "", u"Occitan"},
    {0x0083, "", u"Corsican"},
    {0x0084, "", u"Alsatian"},
    {0x0085, "", u"Sakha"},
    {0x0086, "", u"K'iche'"},
    {0x0087, "", u"Kinyarwanda"},
    {0x0088, "", u"Wolof"},
    {0x008C, "", u"Dari"},
    {0x0091, "", u"Scottish Gaelic"},
    {0x0092, "", u"Central Kurdish"},
    {0x0400, "", u"Process Default Language"},
    {0x0401, "ar-SA", u"Arabic (Saudi Arabia)"},
    {0x0402, "bg-BG", u"Bulgarian (Bulgaria)"},
    {0x0403, "ca-ES", u"Catalan (Spain)"},
    {0x0404, "zh-TW", u"Chinese (Traditional, Taiwan)"},
    {0x0405, "cs-CZ", u"Czech (Czechia)"},
    {0x0406, "da-DK", u"Danish (Denmark)"},
    {0x0407, "de-DE", u"German (Germany)"},
    {0x0408, "el-GR", u"Greek (Greece)"},
    {0x0409, "en-US", u"English (United States)"},
    {0x040A, "", u"Spanish (Spain)"},
    {0x040B, "fi-FI", u"Finnish (Finland)"},
    {0x040C, "fr-FR", u"French (France)"},
    {0x040D, "he-IL", u"Hebrew (Israel)"},
    {0x040E, "hu-HU", u"Hungarian (Hungary)"},
    {0x040F, "is-IS", u"Icelandic (Iceland)"},
    {0x0410, "it-IT", u"Italian (Italy)"},
    {0x0411, "ja-JP", u"Japanese (Japan)"},
    {0x0412, "ko-KR", u"Korean (Korea)"},
    {0x0413, "nl-NL", u"Dutch (Netherlands)"},
    {0x0414, "nb-NO", u"Norwegian Bokm\u00E5l (Norway)"},
    {0x0415, "pl-PL", u"Polish (Poland)"},
    {0x0416, "pt-BR", u"Portuguese (Brazil)"},
    {0x0417, "rm-CH", u"Romansh (Switzerland)"},
    {0x0418, "ro-RO", u"Romanian (Romania)"},
    {0x0419, "ru-RU", u"Russian (Russia)"},
    {0x041A, "hr-HR", u"Croatian (Croatia)"},
    {0x041B, "sk-SK", u"Slovak (Slovakia)"},
    {0x041C, "sq-AL", u"Albanian (Albania)"},
    {0x041D, "sv-SE", u"Swedish (Sweden)"},
    {0x041E, "th-TH", u"Thai (Thailand)"},
    {0x041F, "tr-TR", u"Turkish (Turkey)"},
    {0x0420, "ur-PK", u"Urdu (Pakistan)"},
    {0x0421, "id-ID", u"Indonesian (Indonesia)"},
    {0x0422, "uk-UA", u"Ukrainian (Ukraine)"},
    {0x0423, "be-BY", u"Belarusian (Belarus)"},
    {0x0424, "sl-SI", u"Slovenian (Slovenia)"},
    {0x0425, "et-EE", u"Estonian (Estonia)"},
    {0x0426, "lv-LV", u"Latvian (Latvia)"},
    {0x0427, "lt-LT", u"Lithuanian (Lithuania)"},
    {0x0428, "tg-Cyrl-TJ", u"Tajik (Cyrillic, Tajikistan)"},
    {0x0429, "fa-IR", u"Persian (Iran)"},
    {0x042A, "vi-VN", u"Vietnamese (Vietnam)"},
    {0x042B, "hy-AM", u"Armenian (Armenia)"},
    {0x042C, "az-Latn-AZ", u"Azerbaijani (Latin, Azerbaijan)"},
    {0x042D, "eu-ES", u"Basque (Spain)"},
    {0x042E, "hsb-DE", u"Upper Sorbian (Germany)"},
    {0x042F, "mk-MK", u"Macedonian (North Macedonia)"},
    {0x0430, "st-ZA", u"Sesotho (South Africa)"},
    {0x0431, "ts-ZA", u"Tsonga (South Africa)"},
    {0x0432, "tn-ZA", u"Setswana (South Africa)"},
    {0x0433, "ve-ZA", u"Venda (South Africa)"},
    {0x0434, "xh-ZA", u"Xhosa (South Africa)"},
    {0x0435, "zu-ZA", u"Zulu (South Africa)"},
    {0x0436, "af-ZA", u"Afrikaans (South Africa)"},
    {0x0437, "ka-GE", u"Georgian (Georgia)"},
    {0x0438, "fo-FO", u"Faroese (Faroe Islands)"},
    {0x0439, "hi-IN", u"Hindi (India)"},
    {0x043A, "mt-MT", u"Maltese (Malta)"},
    {0x043B, "se-NO", u"Northern Sami (Norway)"},
    {0x043D, "yi-001", u"Yiddish (World)"},
    {0x043E, "ms-MY", u"Malay (Malaysia)"},
    {0x043F, "kk-KZ", u"Kazakh (Kazakhstan)"},
    {0x0440, "ky-KG", u"Kyrgyz (Kyrgyzstan)"},
    {0x0441, "sw-KE", u"Swahili (Kenya)"},
    {0x0442, "tk-TM", u"Turkmen (Turkmenistan)"},
    {0x0443, "uz-Latn-UZ", u"Uzbek (Latin, Uzbekistan)"},
    {0x0444, "tt-RU", u"Tatar (Russia)"},
    {0x0445, "bn-IN", u"Bangla (India)"},
    {0x0446, "pa-IN", u"Punjabi (India)"},
    {0x0447, "gu-IN", u"Gujarati (India)"},
    {0x0448, "or-IN", u"Odia (India)"},
    {0x0449, "ta-IN", u"Tamil (India)"},
    {0x044A, "te-IN", u"Telugu (India)"},
    {0x044B, "kn-IN", u"Kannada (India)"},
    {0x044C, "ml-IN", u"Malayalam (India)"},
    {0x044D, "as-IN", u"Assamese (India)"},
    {0x044E, "mr-IN", u"Marathi (India)"},
    {0x044F, "sa-IN", u"Sanskrit (India)"},
    {0x0450, "mn-MN", u"Mongolian (Mongolia)"},
    {0x0451, "bo-CN", u"Tibetan (China)"},
    {0x0452, "cy-GB", u"Welsh (United Kingdom)"},
    {0x0453, "km-KH", u"Khmer (Cambodia)"},
    {0x0454, "lo-LA", u"Lao (Laos)"},
    {0x0455, "my-MM", u"Burmese (Myanmar)"},
    {0x0456, "gl-ES", u"Galician (Spain)"},
    {0x0457, "kok-IN", u"Konkani (India)"},
    {0x0458, "mni-IN", u"Manipuri (India)"},
    {0x0459, "sd-Deva-IN", u"Sindhi (Devanagari, India)"},
    {0x045A, "syr-SY", u"Syriac (Syria)"},
    {0x045B, "si-LK", u"Sinhala (Sri Lanka)"},
    {0x045C, "chr-Cher-US", u"Cherokee (Cherokee, United States)"},
    {0x045D, "iu-Cans-CA", u"Inuktitut (Syllabics, Canada)"},
    {0x045E, "am-ET", u"Amharic (Ethiopia)"},
    {0x0460, "ks-Arab-IN", u"Kashmiri (Arabic)"},
    {0x0461, "ne-NP", u"Nepali (Nepal)"},
    {0x0462, "fy-NL", u"Western Frisian (Netherlands)"},
    {0x0463, "ps-AF", u"Pashto (Afghanistan)"},
    {0x0464, "fil-PH", u"Filipino (Philippines)"},
    {0x0465, "dv-MV", u"Divehi (Maldives)"},
    {0x0466, "bin-NG", u"Edo (Nigeria)"},
    {0x0467, "ff-Latn-NG", u"Fulah (Latin, Nigeria)"},
    {0x0468, "ha-Latn-NG", u"Hausa (Latin, Nigeria)"},
    {0x046A, "yo-NG", u"Yoruba (Nigeria)"},
    {0x046B, "quz-BO", u"Quechua (Bolivia)"},
    {0x046C, "nso-ZA", u"Sesotho sa Leboa (South Africa)"},
    {0x046D, "ba-RU", u"Bashkir (Russia)"},
    {0x046E, "lb-LU", u"Luxembourgish (Luxembourg)"},
    {0x046F, "kl-GL", u"Greenlandic (Greenland)"},
    {0x0470, "ig-NG", u"Igbo (Nigeria)"},
    {0x0471, "kr-Latn-NG", u"Kanuri (Latin, Nigeria)"},
    {0x0472, "om-ET", u"Oromo (Ethiopia)"},
    {0x0473, "ti-ET", u"Tigrinya (Ethiopia)"},
    {0x0474, "gn-PY", u"Guarani (Paraguay)"},
    {0x0475, "haw-US", u"Hawaiian (United States)"},
    {0x0476, "la-VA", u"Latin (Vatican City)"},
    {0x0477, "so-SO", u"Somali (Somalia)"},
    {0x0478, "ii-CN", u"Yi (China)"},
    {0x047A, "arn-CL", u"Mapudungun (Chile)"},
    {0x047C, "moh-CA", u"Mohawk (Canada)"},
    {0x047E, "br-FR", u"Breton (France)"},
    {0x0480, "ug-CN", u"Uyghur (China)"},
    {0x0481, "mi-NZ", u"Maori (New Zealand)"},
    {0x0482, "oc-FR", u"Occitan (France)"},
    {0x0483, "co-FR", u"Corsican (France)"},
    {0x0484, "gsw-FR", u"Alsatian (France)"},
    {0x0485, "sah-RU", u"Sakha (Russia)"},
    {0x0486, "quc-Latn-GT", u"K'iche' (Guatemala)"},
    {0x0487, "rw-RW", u"Kinyarwanda (Rwanda)"},
    {0x0488, "wo-SN", u"Wolof (Senegal)"},
    {0x048C, "prs-AF", u"Dari (Afghanistan)"},
    {0x0491, "gd-GB", u"Scottish Gaelic (United Kingdom)"},
    {0x0492, "ku-Arab-IQ", u"Central Kurdish (Iraq)"},
    {0x0801, "ar-IQ", u"Arabic (Iraq)"},
    {0x0803, "ca-ES-valencia", u"Valencian (Spain)"},
    {0x0804, "zh-CN", u"Chinese (Simplified, China)"},
    {0x0807, "de-CH", u"German (Switzerland)"},
    {0x0809, "en-GB", u"English (United Kingdom)"},
    {0x080A, "es-MX", u"Spanish (Mexico)"},
    {0x080C, "fr-BE", u"French (Belgium)"},
    {0x0810, "it-CH", u"Italian (Switzerland)"},
    {0x0813, "nl-BE", u"Dutch (Belgium)"},
    {0x0814, "nn-NO", u"Norwegian Nynorsk (Norway)"},
    {0x0816, "pt-PT", u"Portuguese (Portugal)"},
    {0x0818, "ro-MD", u"Romanian (Moldova)"},
    {0x0819, "ru-MD", u"Russian (Moldova)"},
    {0x081D, "sv-FI", u"Swedish (Finland)"},
    {0x0820, "ur-IN", u"Urdu (India)"},
    {0x082C, "az-Cyrl-AZ", u"Azerbaijani (Cyrillic, Azerbaijan)"},
    {0x082E, "dsb-DE", u"Lower Sorbian (Germany)"},
    {0x0832, "tn-BW", u"Setswana (Botswana)"},
    {0x083B, "se-SE", u"Northern Sami (Sweden)"},
    {0x083C, "ga-IE", u"Irish (Ireland)"},
    {0x083E, "ms-BN", u"Malay (Brunei)"},
    {0x0843, "uz-Cyrl-UZ", u"Uzbek (Cyrillic, Uzbekistan)"},
    {0x0845, "bn-BD", u"Bangla (Bangladesh)"},
    {0x0846, "pa-Arab-PK", u"Punjabi (Pakistan)"},
    {0x0849, "ta-LK", u"Tamil (Sri Lanka)"},
    {0x0850, "mn-Mong-CN", u"Mongolian (Traditional Mongolian, China)"},
    {0x0859, "sd-Arab-PK", u"Sindhi (Pakistan)"},
    {0x085D, "iu-Latn-CA", u"Inuktitut (Latin, Canada)"},
    {0x085F, "tzm-Latn-DZ", u"Central Atlas Tamazight (Latin, Algeria)"},
    {0x0860, "ks-Deva-IN", u"Kashmiri (Devanagari, India)"},
    {0x0861, "ne-IN", u"Nepali (India)"},
    {0x0867, "ff-Latn-SN", u"Fulah (Latin, Senegal)"},
    {0x086B, "quz-EC", u"Quechua (Ecuador)"},
    {0x0873, "ti-ER", u"Tigrinya (Eritrea)"},
    {0x0C01, "ar-EG", u"Arabic (Egypt)"},
    {0x0C04, "zh-HK", u"Chinese (Traditional, Hong Kong SAR)"},
    {0x0C07, "de-AT", u"German (Austria)"},
    {0x0C09, "en-AU", u"English (Australia)"},
    {0x0C0A, "es-ES", u"Spanish (Spain)"},
    {0x0C0C, "fr-CA", u"French (Canada)"},
    {0x0C3B, "se-FI", u"Northern Sami (Finland)"},
    {0x0C50, "mn-Mong-MN", u"Mongolian (Traditional Mongolian, Mongolia)"},
    {0x0C51, "dz-BT", u"Dzongkha (Bhutan)"},
    {0x0C6B, "quz-PE", u"Quechua (Peru)"},
    {0x1001, "ar-LY", u"Arabic (Libya)"},
    {0x1004, "zh-SG", u"Chinese (Simplified, Singapore)"},
    {0x1007, "de-LU", u"German (Luxembourg)"},
    {0x1009, "en-CA", u"English (Canada)"},
    {0x100A, "es-GT", u"Spanish (Guatemala)"},
    {0x100C, "fr-CH", u"French (Switzerland)"},
    {0x101A, "hr-BA", u"Croatian (Bosnia and Herzegovina)"},
    {0x103B, "smj-NO", u"Lule Sami (Norway)"},
    {0x1401, "ar-DZ", u"Arabic (Algeria)"},
    {0x1404, "zh-MO", u"Chinese (Traditional, Macao SAR)"},
    {0x1407, "de-LI", u"German (Liechtenstein)"},
    {0x1409, "en-NZ", u"English (New Zealand)"},
    {0x140A, "es-CR", u"Spanish (Costa Rica)"},
    {0x140C, "fr-LU", u"French (Luxembourg)"},
    {0x141A, "bs-Latn-BA", u"Bosnian (Latin, Bosnia and Herzegovina)"},
    {0x143B, "smj-SE", u"Lule Sami (Sweden)"},
    {0x1801, "ar-MA", u"Arabic (Morocco)"},
    {0x1809, "en-IE", u"English (Ireland)"},
    {0x180A, "es-PA", u"Spanish (Panama)"},
    {0x180C, "fr-MC", u"French (Monaco)"},
    {0x181A, "sr-Latn-BA", u"Serbian (Latin, Bosnia and Herzegovina)"},
    {0x183B, "sma-NO", u"Southern Sami (Norway)"},
    {0x1C01, "ar-TN", u"Arabic (Tunisia)"},
    {0x1C09, "en-ZA", u"English (South Africa)"},
    {0x1C0A, "es-DO", u"Spanish (Dominican Republic)"},
    {0x1C0C, "fr-029", u"French (Caribbean)"},
    {0x1C1A, "sr-Cyrl-BA", u"Serbian (Cyrillic, Bosnia and Herzegovina)"},
    {0x1C3B, "sma-SE", u"Southern Sami (Sweden)"},
    {0x2001, "ar-OM", u"Arabic (Oman)"},
    {0x2009, "en-JM", u"English (Jamaica)"},
    {0x200A, "es-VE", u"Spanish (Venezuela)"},
    {0x200C, "fr-RE", u"French (R\u00E9union)"},
    {0x201A, "bs-Cyrl-BA", u"Bosnian (Cyrillic, Bosnia and Herzegovina)"},
    {0x203B, "sms-FI", u"Skolt Sami (Finland)"},
    {0x2401, "ar-YE", u"Arabic (Yemen)"},
    {0x2409, "en-029", u"English (Caribbean)"},
    {0x240A, "es-CO", u"Spanish (Colombia)"},
    {0x240C, "fr-CD", u"French (Congo DRC)"},
    {0x241A, "sr-Latn-RS", u"Serbian (Latin, Serbia)"},
    {0x243B, "smn-FI", u"Inari Sami (Finland)"},
    {0x2801, "ar-SY", u"Arabic (Syria)"},
    {0x2809, "en-BZ", u"English (Belize)"},
    {0x280A, "es-PE", u"Spanish (Peru)"},
    {0x280C, "fr-SN", u"French (Senegal)"},
    {0x281A, "sr-Cyrl-RS", u"Serbian (Cyrillic, Serbia)"},
    {0x2C01, "ar-JO", u"Arabic (Jordan)"},
    {0x2C09, "en-TT", u"English (Trinidad and Tobago)"},
    {0x2C0A, "es-AR", u"Spanish (Argentina)"},
    {0x2C0C, "fr-CM", u"French (Cameroon)"},
    {0x2C1A, "sr-Latn-ME", u"Serbian (Latin, Montenegro)"},
    {0x3001, "ar-LB", u"Arabic (Lebanon)"},
    {0x3009, "en-ZW", u"English (Zimbabwe)"},
    {0x300A, "es-EC", u"Spanish (Ecuador)"},
    {0x300C, "fr-CI", u"French (C\u00F4te d'Ivoire)"},
    {0x301A, "sr-Cyrl-ME", u"Serbian (Cyrillic, Montenegro)"},
    {0x3401, "ar-KW", u"Arabic (Kuwait)"},
    {0x3409, "en-PH", u"English (Philippines)"},
    {0x340A, "es-CL", u"Spanish (Chile)"},
    {0x340C, "fr-ML", u"French (Mali)"},
    {0x3801, "ar-AE", u"Arabic (United Arab Emirates)"},
    {0x3809, "en-ID", u"English (Indonesia)"},
    {0x380A, "es-UY", u"Spanish (Uruguay)"},
    {0x380C, "fr-MA", u"French (Morocco)"},
    {0x3C01, "ar-BH", u"Arabic (Bahrain)"},
    {0x3C09, "en-HK", u"English (Hong Kong SAR)"},
    {0x3C0A, "es-PY", u"Spanish (Paraguay)"},
    {0x3C0C, "fr-HT", u"French (Haiti)"},
    {0x4001, "ar-QA", u"Arabic (Qatar)"},
    {0x4009, "en-IN", u"English (India)"},
    {0x400A, "es-BO", u"Spanish (Bolivia)"},
    {0x4409, "en-MY", u"English (Malaysia)"},
    {0x440A, "es-SV", u"Spanish (El Salvador)"},
    {0x4809, "en-SG", u"English (Singapore)"},
    {0x480A, "es-HN", u"Spanish (Honduras)"},
    {0x4C09, "en-AE", u"English (United Arab Emirates)"},
    {0x4C0A, "es-NI", u"Spanish (Nicaragua)"},
    {0x500A, "es-PR", u"Spanish (Puerto Rico)"},
    {0x540A, "es-US", u"Spanish (United States)"},
    {0x580A, "es-419", u"Spanish (Latin America)"},
    {0x5C0A, "es-CU", u"Spanish (Cuba)"},
    {0x641A, "", u"Bosnian (Cyrillic)"},
    {0x681A, "", u"Bosnian (Latin)"},
    {0x6C1A, "", u"Serbian (Cyrillic)"},
    {0x701A, "", u"Serbian (Latin)"},
    {0x703B, "", u"Inari Sami"},
    {0x742C, "", u"Azerbaijani (Cyrillic)"},
    {0x743B, "", u"Skolt Sami"},
    {0x7804, "", u"Chinese (Simplified)"},
    {0x7814, "", u"Norwegian Nynorsk"},
    {0x781A, "", u"Bosnian (Latin)"},
    {0x782C, "", u"Azerbaijani (Latin)"},
    {0x783B, "", u"Southern Sami"},
    {0x7843, "", u"Uzbek (Cyrillic)"},
    {0x7850, "", u"Mongolian"},
    {0x785D, "", u"Inuktitut (Syllabics)"},
    {0x7C04, "", u"Chinese (Traditional)"},
    {0x7C14, "", u"Norwegian Bokm\u00E5l"},
    {0x7C1A, "", u"Serbian (Latin)"},
    {0x7C28, "", u"Tajik (Cyrillic)"},
    {0x7C2E, "", u"Lower Sorbian"},
    {0x7C3B, "", u"Lule Sami"},
    {0x7C43, "", u"Uzbek (Latin)"},
    {0x7C46, "", u"Punjabi (Arabic)"},
    {0x7C50, "", u"Mongolian (Traditional Mongolian)"},
    {0x7C59, "", u"Sindhi (Arabic)"},
    {0x7C5C, "", u"Cherokee (Cherokee)"},
    {0x7C5D, "", u"Inuktitut (Latin)"},
    {0x7C5F, "", u"Central Atlas Tamazight (Latin)"},
    {0x7C67, "", u"Fulah (Latin)"},
    {0x7C68, "", u"Hausa (Latin)"},
    {0x7C86, "", u"K'iche'"},
    {0x7C92, "", u"Central Kurdish"},
});

static_assert(std::is_sorted(kLanguages.begin(), kLanguages.end(),
                             [](const Language& left, const Language& right) { return left.id < right.id; }));

constexpr std::u16string_view kNeutral = kLanguages.front().name;
constexpr int kUsEnglish = 0x0409;

/// Languages whose usual country, and with it their usual script, is not that of their first row.
struct UsualRow {
  std::string_view language;
  std::uint16_t id;
};
constexpr std::array<UsualRow, 7> kUsual{
    {{"bn", 0x0845}, {"es", 0x0C0A}, {"sd", 0x0859}, {"sma", 0x1C3B}, {"smj", 0x143B}, {"sr", 0x281A}, {"zh", 0x0804}}};

struct Synonym {
  std::string_view name;
  std::string_view meaning;
};
/// Names of languages that systems still use besides the present ones.
constexpr std::array<Synonym, 2> kFormerNames{{{"iw", "he"}, {"no", "nb"}}};
/// Scripts as a locale's name and as a tag call them.
constexpr std::array<Synonym, 2> kScripts{{{"cyrillic", "Cyrl"}, {"latin", "Latn"}}};

std::string_view MeaningOf(const std::array<Synonym, 2>& synonyms, std::string_view name, std::string_view otherwise) {
  for (const Synonym& synonym : synonyms) {
    if (synonym.name == name) return synonym.meaning;
  }
  return otherwise;
}

/// A name of POSIX, e.g. "sr_RS.UTF-8@latin", in its pieces.
struct LocaleName {
  explicit LocaleName(std::string_view name) {
    const std::string_view place = name.substr(0, name.find_first_of(".@"));
    const std::size_t end = std::min(place.find_first_of("_-"), place.size());
    language = MeaningOf(kFormerNames, place.substr(0, end), place.substr(0, end));
    country = place.substr(std::min(end + 1, place.size()));
    const std::size_t modifier = name.find('@');
    if (modifier != name.npos) script = MeaningOf(kScripts, name.substr(modifier + 1), {});
  }

  std::string_view language;
  std::string_view country;
  std::string_view script;  ///< empty when the name tells none
};

bool IsLanguage(const Language& row, std::string_view language) {
  return row.tag.starts_with(language) && row.tag.substr(language.size()).starts_with('-');
}

std::string_view CountryOf(const Language& row) { return row.tag.substr(row.tag.rfind('-') + 1); }

/// What stands between language and country; empty for a language that is written in one way only.
std::string_view ScriptOf(const Language& row) {
  const std::size_t begin = row.tag.find('-');
  const std::size_t end = row.tag.rfind('-');
  return begin == end ? std::string_view{} : row.tag.substr(begin + 1, end - begin - 1);
}

/// The row for a language of which no more is known; null for an unknown one.
const Language* UsualOf(std::string_view language) {
  const auto* usual =
      std::find_if(kUsual.begin(), kUsual.end(), [&](const UsualRow& row) { return row.language == language; });
  const auto* found = std::find_if(kLanguages.begin(), kLanguages.end(), [&](const Language& row) {
    return usual == kUsual.end() ? IsLanguage(row, language) : row.id == usual->id;
  });
  return found == kLanguages.end() ? nullptr : found;
}

/// How well a row of the right language fits: first its country counts, then the script that is asked for; what is not
/// asked for should be as usual.
int FitOf(const Language& row, const LocaleName& name, const Language& usual) {
  int fit = CountryOf(row) == name.country ? 8 : 0;
  if (!name.script.empty() && ScriptOf(row) == name.script) fit += 4;
  if (ScriptOf(row) == ScriptOf(usual)) fit += 2;
  if (CountryOf(row) == CountryOf(usual)) fit += 1;
  return fit;
}

}  // namespace

std::string LanguageName(std::uint16_t id) {
  const auto* row = std::lower_bound(kLanguages.begin(), kLanguages.end(), id,
                                     [](const Language& left, std::uint16_t right) { return left.id < right; });
  return FromUtf16(row != kLanguages.end() && row->id == id ? row->name : kNeutral);
}

int LanguageIdOf(std::string_view localeName) {
  const LocaleName name(localeName);
  const Language* best = name.language.empty() ? nullptr : UsualOf(name.language);
  if (best == nullptr) return kUsEnglish;
  const Language& usual = *best;
  for (const Language& row : kLanguages) {
    if (IsLanguage(row, name.language) && FitOf(row, name, usual) > FitOf(*best, name, usual)) best = &row;
  }
  return best->id;
}

}  // namespace tavrin
