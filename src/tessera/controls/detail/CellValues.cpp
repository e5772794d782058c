// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/DateTimes.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/CellValues.h>

#include <QDateTime>

#include <cmath>
#include <limits>

namespace tessera::detail {
namespace {

double TextToDate(const QString &text, const QLocale &locale) {
  const QDate iso = QDate::fromString(text, Qt::ISODate);
  return iso.isValid() ? DaysOf(iso) : StrToDate(text, locale);
}

double TextToDateTime(const QString &text, const QLocale &locale) {
  const QString neat = text.trimmed();
  const qsizetype timeAt = std::max(neat.lastIndexOf(u' '), neat.lastIndexOf(u'T'));
  if (timeAt < 0 || !neat.mid(timeAt).contains(u':')) return TextToDate(neat, locale);
  const double time = StrToTime(QStringView(neat).mid(timeAt + 1));
  return DaysOf({MomentOf(TextToDate(neat.left(timeAt), locale)).date, MomentOf(time).time});
}

ParsedCell Refused(const QString &why, const QString &input) {
  return {{}, why.arg(input)};
}

ParsedCell ParseText(const CellColumn &column, const QString &text) {
  if (column.size > 0 && text.size() > column.size) {
    return {{},
            TLayerTableModel::tr("“%1” is longer than the %2 characters of the column.").arg(text).arg(column.size)};
  }
  return {text, {}};
}

ParsedCell ParseInteger(const CellColumn &column, const QString &text, const QLocale &locale) {
  double number = 0;
  if (!TryStrToFloat(text, number, locale) || number != std::trunc(number)) {
    return Refused(TLayerTableModel::tr("“%1” is not a whole number."), text);
  }
  const IntegerRange range = RangeOf(column.type);
  if (number >= range.low && number <= range.high) return {std::int32_t(number), {}};
  return {{}, TLayerTableModel::tr("%1 does not lie between %2 and %3.").arg(text).arg(range.low).arg(range.high)};
}

ParsedCell ParseReal(const QString &text, const QLocale &locale) {
  double number = 0;
  if (!TryStrToFloat(text, number, locale)) return Refused(TLayerTableModel::tr("“%1” is not a number."), text);
  return {number, {}};
}

ParsedCell ParseBoolean(const QString &text) {
  static const QStringList yes = {QStringLiteral("true"), QStringLiteral("t"), QStringLiteral("yes"),
                                  QStringLiteral("y"), QStringLiteral("1")};
  static const QStringList no = {QStringLiteral("false"), QStringLiteral("f"), QStringLiteral("no"),
                                 QStringLiteral("n"), QStringLiteral("0")};
  if (yes.contains(text, Qt::CaseInsensitive)) return {true, {}};
  if (no.contains(text, Qt::CaseInsensitive)) return {false, {}};
  return Refused(TLayerTableModel::tr("“%1” is neither True nor False."), text);
}

ParsedCell ParseMoment(TDataType type, const QString &text, const QLocale &locale) {
  try {
    if (type == TDataType::dtDate) return {TextToDate(text, locale), {}};
    if (type == TDataType::dtTime) return {StrToTime(text), {}};
    return {TDateTime{TextToDateTime(text, locale)}, {}};
  } catch (const EConvertError &) {
    if (type == TDataType::dtDate) return Refused(TLayerTableModel::tr("“%1” is not a date."), text);
    if (type == TDataType::dtTime) return Refused(TLayerTableModel::tr("“%1” is not a time of day."), text);
    return Refused(TLayerTableModel::tr("“%1” is not a date and time."), text);
  }
}

ParsedCell ParseAnyText(const CellColumn &column, const QString &text, const QLocale &locale) {
  if (column.type == TDataType::dtString) return ParseText(column, text);
  const QString neat = text.trimmed();
  if (neat.isEmpty()) return {};
  if (IsInteger(column.type)) return ParseInteger(column, neat, locale);
  if (IsNumber(column.type)) return ParseReal(neat, locale);
  if (column.type == TDataType::dtBoolean) return ParseBoolean(neat);
  return ParseMoment(column.type, neat, locale);
}

}  // namespace

bool IsInteger(TDataType type) {
  return type == TDataType::dtInteger || type == TDataType::dtSmallInt;
}

IntegerRange RangeOf(TDataType type) {
  using Small = std::numeric_limits<std::int16_t>;
  using Whole = std::numeric_limits<std::int32_t>;
  if (type == TDataType::dtSmallInt) return {Small::min(), Small::max()};
  return {Whole::min(), Whole::max()};
}

bool IsNumber(TDataType type) {
  return IsInteger(type) || type == TDataType::dtFloat || type == TDataType::dtDecimal;
}

QVariant CellToVariant(const TDataValue &value, TDataType type) {
  if (std::holds_alternative<std::monostate>(value)) return {};
  try {
    if (IsInteger(type)) return ValueToInteger(value);
    switch (type) {
      case TDataType::dtFloat:
      case TDataType::dtDecimal:
        return ValueToReal(value);
      case TDataType::dtDateTime:
        return QDateTime(MomentOf(ValueToReal(value)).date, MomentOf(ValueToReal(value)).time);
      case TDataType::dtDate:
        return MomentOf(ValueToReal(value)).date;
      case TDataType::dtTime:
        return MomentOf(ValueToReal(value)).time;
      case TDataType::dtBoolean:
        if (std::holds_alternative<bool>(value)) return std::get<bool>(value);
        break;
      default:
        break;
    }
  } catch (const std::exception &) {
    // It does not fit: setters of fields take anything.
  }
  return ValueToText(value);
}

QVariant CellToSortKey(const TDataValue &value, TDataType type) {
  if (std::holds_alternative<std::monostate>(value)) return {};
  if (type == TDataType::dtString) return ValueToText(value);
  try {
    return ValueToReal(value);
  } catch (const EConvertError &) {
    return {};
  }
}

QString CellToNeutralText(const TDataValue &value, TDataType type) {
  const QVariant cell = CellToVariant(value, type);
  switch (cell.typeId()) {
    case QMetaType::Double:
      return QLocale::c().toString(cell.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QMetaType::QDate:
      return cell.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
      return cell.toTime().toString(Qt::ISODate);
    case QMetaType::QDateTime:
      return cell.toDateTime().toString(Qt::ISODate);
    case QMetaType::Bool:
      return ValueToText(value);
    default:
      return cell.toString();
  }
}

ParsedCell ParseCell(const CellColumn &column, const QVariant &input, const QLocale &locale) {
  if (!input.isValid()) return {};
  if (column.type == TDataType::dtDate && input.typeId() == QMetaType::QDate) return {DaysOf(input.toDate()), {}};
  if (column.type == TDataType::dtTime && input.typeId() == QMetaType::QTime) return {DaysOf(input.toTime()), {}};
  if (column.type == TDataType::dtDateTime && input.typeId() == QMetaType::QDateTime) {
    const QDateTime moment = input.toDateTime();
    return {TDateTime{DaysOf({moment.date(), moment.time()})}, {}};
  }
  if (input.typeId() == QMetaType::Double) return ParseAnyText(column, FloatToStr(input.toDouble(), locale), locale);
  return ParseAnyText(column, input.toString(), locale);
}

QString TypeNameOf(const CellColumn &column) {
  if (column.type == TDataType::dtBoolean) return QStringLiteral("Boolean");
  TDataFields fields;
  return fields.Add(column.name, column.type, column.size).GetDataTypeName();
}

}  // namespace tessera::detail
