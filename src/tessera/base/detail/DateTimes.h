// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringView>
#include <QTime>

namespace tessera::detail {

/// Date-times as real numbers: whole days since 1899-12-30, and the time of day as the fraction. Before that day the
/// fraction still counts forwards: -1.25 is 06:00 on the day before. Resolution is a millisecond; the calendar is the
/// proleptic Gregorian one. Texts follow a locale, the default QLocale where none is given: its short date format with
/// the year in four digits, and the time of day as hours of 24, minutes and seconds ("09:05:30") in every locale, so
/// that a text always reads back.

struct Moment {
  QDate date;
  QTime time;
};

/// @throws EConvertError when `value` is not a moment between the years 1 and 9999.
[[nodiscard]] TESSERA_CORE_EXPORT Moment MomentOf(double value);
/// The moment as a real number. @pre the date and the time are valid
[[nodiscard]] TESSERA_CORE_EXPORT double DaysOf(const QDate &date);
[[nodiscard]] TESSERA_CORE_EXPORT double DaysOf(const QTime &time);
[[nodiscard]] TESSERA_CORE_EXPORT double DaysOf(const Moment &moment);

/// The short date format of a locale, with a year of four digits: one of two does not tell the century.
[[nodiscard]] TESSERA_CORE_EXPORT QString DateFormat(const QLocale &locale);

/// The date, without the time of day.
/// @throws EConvertError when `value` is not a moment between the years 1 and 9999; so do the two below.
[[nodiscard]] TESSERA_CORE_EXPORT QString DateToStr(double value, const QLocale &locale = QLocale());
/// The time of day, without the date; parts of a second are dropped.
[[nodiscard]] TESSERA_CORE_EXPORT QString TimeToStr(double value);
/// Date, a blank and time; the time is left out at midnight.
[[nodiscard]] TESSERA_CORE_EXPORT QString DateTimeToStr(double value, const QLocale &locale = QLocale());

/// The date that `text` holds, a whole number. Blanks around it are passed over; a year of two digits is not accepted.
/// @throws EConvertError when it holds none.
[[nodiscard]] TESSERA_CORE_EXPORT double StrToDate(QStringView text, const QLocale &locale = QLocale());
/// The time of day that `text` holds, in 0 … 1: hours and minutes, with or without seconds.
/// @throws EConvertError when it holds none.
[[nodiscard]] TESSERA_CORE_EXPORT double StrToTime(QStringView text);

}  // namespace tessera::detail
