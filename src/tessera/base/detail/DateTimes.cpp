// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/DateTimes.h>
#include <tessera/base/detail/Numbers.h>

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QTime>

#include <cmath>

namespace tessera::detail {
namespace {

constexpr int MillisecondsPerDay = 24 * 60 * 60 * 1000;
/// A message quotes this much of a bad text.
constexpr qsizetype QuotedLength = 60;

QDate DayZero() {
  return {1899, 12, 30};
}

QString TextOf(const QDate &date, const QLocale &locale) {
  return locale.toString(date, DateFormat(locale));
}

QString TextOf(const QTime &time) {
  return time.toString(QStringLiteral("HH:mm:ss"));
}

[[noreturn]] void ThrowConvertError(const QString &format, const QString &text) {
  throw EConvertError(format.arg(text.left(QuotedLength)));
}

}  // namespace

Moment MomentOf(double value) {
  static const auto firstDay = double(DayZero().daysTo(QDate(1, 1, 1)));
  static const auto lastDay = double(DayZero().daysTo(QDate(9999, 12, 31)));
  double days = std::trunc(value);
  double milliseconds = std::round(std::fabs(value - days) * MillisecondsPerDay);
  if (milliseconds == MillisecondsPerDay) {
    days += 1;
    milliseconds = 0;
  }
  if (!(days >= firstDay && days <= lastDay)) {
    throw EConvertError(QStringLiteral("%1 is not a date and time").arg(FloatToStr(value)));
  }
  return {DayZero().addDays(qint64(days)), QTime::fromMSecsSinceStartOfDay(int(milliseconds))};
}

double DaysOf(const QDate &date) {
  return double(DayZero().daysTo(date));
}

double DaysOf(const QTime &time) {
  return double(time.msecsSinceStartOfDay()) / MillisecondsPerDay;
}

double DaysOf(const Moment &moment) {
  const double days = DaysOf(moment.date);
  return days < 0 ? days - DaysOf(moment.time) : days + DaysOf(moment.time);
}

QString DateFormat(const QLocale &locale) {
  QString format = locale.dateFormat(QLocale::ShortFormat);
  if (!format.contains(QLatin1String("yyyy"))) format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
  return format;
}

QString DateToStr(double value, const QLocale &locale) {
  return TextOf(MomentOf(value).date, locale);
}

QString TimeToStr(double value) {
  return TextOf(MomentOf(value).time);
}

QString DateTimeToStr(double value, const QLocale &locale) {
  const Moment moment = MomentOf(value);
  const bool isMidnight = moment.time.msecsSinceStartOfDay() == 0;
  const QString date = TextOf(moment.date, locale);
  return isMidnight ? date : date + u' ' + TextOf(moment.time);
}

double StrToDate(QStringView text, const QLocale &locale) {
  const QString trimmed = text.trimmed().toString();
  const QDate date = locale.toDate(trimmed, DateFormat(locale));
  if (!date.isValid()) ThrowConvertError(QStringLiteral("'%1' is not a valid date"), trimmed);
  return DaysOf(date);
}

double StrToTime(QStringView text) {
  const QString trimmed = text.trimmed().toString();
  QTime time = QTime::fromString(trimmed, QStringLiteral("H:m:s"));
  if (!time.isValid()) time = QTime::fromString(trimmed, QStringLiteral("H:m"));
  if (!time.isValid()) ThrowConvertError(QStringLiteral("'%1' is not a valid time"), trimmed);
  return DaysOf(time);
}

}  // namespace tessera::detail
