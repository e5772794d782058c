// SPDX-License-Identifier: MIT
#pragma once

namespace tessera::detail {

/// A character set as MapInfo's files name it, and the encoding that it is; that of Neutral, which has none, is empty.
struct MapInfoCharset {
  const char *name;
  const char *encoding;
};

inline constexpr MapInfoCharset MapInfoCharsets[] = {
    {"Neutral", ""},
    {"WindowsLatin1", "CP1252"},
    {"WindowsLatin2", "CP1250"},
    {"WindowsCyrillic", "CP1251"},
    {"WindowsGreek", "CP1253"},
    {"WindowsTurkish", "CP1254"},
    {"WindowsHebrew", "CP1255"},
    {"WindowsArabic", "CP1256"},
    {"WindowsBalticRim", "CP1257"},
    {"WindowsVietnamese", "CP1258"},
    {"WindowsThai", "CP874"},
    {"WindowsJapanese", "CP932"},
    {"WindowsSimpChinese", "CP936"},
    {"WindowsTradChinese", "CP950"},
    {"WindowsKorean", "CP949"},
    {"ISO8859_1", "ISO-8859-1"},
    {"ISO8859_2", "ISO-8859-2"},
    {"ISO8859_3", "ISO-8859-3"},
    {"ISO8859_4", "ISO-8859-4"},
    {"ISO8859_5", "ISO-8859-5"},
    {"ISO8859_6", "ISO-8859-6"},
    {"ISO8859_7", "ISO-8859-7"},
    {"ISO8859_8", "ISO-8859-8"},
    {"ISO8859_9", "ISO-8859-9"},
    {"CodePage437", "CP437"},
    {"CodePage850", "CP850"},
    {"CodePage852", "CP852"},
    {"CodePage855", "CP855"},
    {"CodePage857", "CP857"},
    {"CodePage860", "CP860"},
    {"CodePage861", "CP861"},
    {"CodePage863", "CP863"},
    {"CodePage864", "CP864"},
    {"CodePage865", "CP865"},
    {"CodePage869", "CP869"},
};

}  // namespace tessera::detail
