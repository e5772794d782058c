// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QLocale>
#include <QString>
#include <QStringView>

#include <cstddef>

namespace tessera::detail {

/// Conversions between numbers and text. The locale gives the decimal separator; without one it is the default QLocale,
/// the number format of the process. Groups of thousands are neither written nor accepted, and digits are always 0
/// to 9.

/// The decimal separator of a locale. A locale whose separator is not ASCII counts as one with a point, because files
/// of bytes could not hold it.
[[nodiscard]] TESSERA_CORE_EXPORT char DecimalSeparator(const QLocale &locale = QLocale());

/// The number that `text` holds, correctly rounded: sign, digits with or without separator, exponent; blanks around it
/// are passed over. No nan, infinity or hexadecimal form.
/// @throws EConvertError when it is none, or is beyond what a double holds.
[[nodiscard]] TESSERA_CORE_EXPORT double StrToFloat(QStringView text, const QLocale &locale = QLocale());
/// As StrToFloat; leaves `value` alone and answers false instead of throwing.
[[nodiscard]] TESSERA_CORE_EXPORT bool TryStrToFloat(QStringView text, double &value,
                                                     const QLocale &locale = QLocale());

/// The 32-bit integer that `text` holds in decimal digits with or without a sign. Blanks are passed over in front, but
/// not behind. @throws EConvertError when it is none.
[[nodiscard]] TESSERA_CORE_EXPORT int StrToInt(QStringView text);
/// As StrToInt; leaves `value` alone and answers false instead of throwing.
[[nodiscard]] TESSERA_CORE_EXPORT bool TryStrToInt(QStringView text, int &value);

/// The shortest form with up to 15 significant digits. From 1E15 upwards and below 0.0001 it has an exponent:
/// 1E15, 2.5E-7. Zero has no sign; NAN, INF and -INF stand for what is no number.
[[nodiscard]] TESSERA_CORE_EXPORT QString FloatToStr(double value, const QLocale &locale = QLocale());

// The byte level, for readers and writers of files with millions of numbers. `separator` is the decimal separator.

/// Reads the number that starts at `first` (no blanks before it, a leading plus is allowed) and returns one past its
/// last byte. Correctly rounded for every input. Answers nullptr, and leaves `value` alone, when there is no number, or
/// it is too large for a double, or too small to differ from zero though it is not zero. Time is linear in its length.
[[nodiscard]] TESSERA_CORE_EXPORT const char *ReadFloat(const char *first, const char *last, char separator,
                                                        double &value);

/// Reads the 32-bit integer that starts at `first` in the same way.
[[nodiscard]] TESSERA_CORE_EXPORT const char *ReadInt(const char *first, const char *last, int &value);

/// Bytes that WriteFixed6 may need.
inline constexpr std::size_t Fixed6Size = 320;

/// Writes `value` with six decimals, as C's "%.6f" does to the last character: exact ties go to the even digit, and a
/// minus stays before a zero; nan and inf are written as words, which ReadFloat does not take. Returns one past the
/// last byte written; nothing terminates the text. @pre `out` has room for Fixed6Size bytes.
TESSERA_CORE_EXPORT char *WriteFixed6(char *out, double value, char separator);

}  // namespace tessera::detail
