// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QLocale>
#include <QString>

#include <cstdint>
#include <variant>

namespace tessera {

/// The attribute column types.
enum class TDataType : std::uint8_t {
  dtString,
  dtFloat,
  dtDecimal,
  dtInteger,
  dtSmallInt,
  dtDateTime,
  dtDate,
  dtTime,
  dtBoolean
};

/// Days since 30 December 1899; the fraction is the time of day.
struct TDateTime {
  double days = 0;
  bool operator==(const TDateTime &) const = default;
};

/// The value of one attribute; std::monostate is "unassigned".
using TDataValue = std::variant<std::monostate, QString, std::int32_t, double, bool, TDateTime>;

// Conversions of a value of any kind. Numbers follow the process's number format where no locale is given.

/// Empty for an unassigned value; "True" and "False"; a date-time in the locale's short format.
[[nodiscard]] TESSERA_CORE_EXPORT QString ValueToText(const TDataValue &value, const QLocale &locale = QLocale());
/// 0 for an unassigned value, 1 for true. @throws EConvertError for a text that is no number.
[[nodiscard]] TESSERA_CORE_EXPORT double ValueToReal(const TDataValue &value);
/// As ValueToReal, rounded to the nearest integer, halves to even. @throws ERangeError beyond 32 bits.
[[nodiscard]] TESSERA_CORE_EXPORT std::int32_t ValueToInteger(const TDataValue &value);

}  // namespace tessera
