// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/DateTimes.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/data/TDataValue.h>

#include <cmath>
#include <limits>

namespace tessera {
namespace {

struct TextOf {
  const QLocale &locale;

  QString operator()(std::monostate) const { return {}; }
  QString operator()(const QString &text) const { return text; }
  QString operator()(std::int32_t number) const { return QString::number(number); }
  QString operator()(double number) const { return detail::FloatToStr(number, locale); }
  QString operator()(bool flag) const { return flag ? QStringLiteral("True") : QStringLiteral("False"); }
  QString operator()(TDateTime moment) const { return detail::DateTimeToStr(moment.days, locale); }
};

struct RealOf {
  double operator()(std::monostate) const { return 0; }
  double operator()(const QString &text) const { return detail::StrToFloat(text); }
  double operator()(std::int32_t number) const { return number; }
  double operator()(double number) const { return number; }
  double operator()(bool flag) const { return flag ? 1 : 0; }
  double operator()(TDateTime moment) const { return moment.days; }
};

}  // namespace

QString ValueToText(const TDataValue &value, const QLocale &locale) {
  return std::visit(TextOf{locale}, value);
}

double ValueToReal(const TDataValue &value) {
  return std::visit(RealOf{}, value);
}

std::int32_t ValueToInteger(const TDataValue &value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double rounded = std::rint(ValueToReal(value));
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) {
    throw ERangeError(QStringLiteral("'%1' is out of the range of an integer").arg(ValueToText(value)));
  }
  return std::int32_t(rounded);
}

}  // namespace tessera
