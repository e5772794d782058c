// SPDX-License-Identifier: MIT
#include "Columns.h"

#include <cpl_conv.h>
#include <cpl_string.h>

#include <charconv>
#include <cmath>
#include <cstdint>

namespace tessera::mitab {
namespace {

constexpr int DateWidth = 10;
constexpr int TimeWidth = 9;
constexpr int DateTimeWidth = 19;

struct Moment {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0;
  float second = 0;
};

std::string Digits(int value, int width) {
  return CPLSPrintf("%0*d", width, value);
}

std::string DateText(const Moment &moment) {
  return Digits(moment.year, 4) + Digits(moment.month, 2) + Digits(moment.day, 2);
}

std::string TimeText(const Moment &moment) {
  const int milliseconds = int(std::lround(double(moment.second) * 1000));
  return Digits(moment.hour, 2) + Digits(moment.minute, 2) + Digits(milliseconds, 5);
}

std::string MomentText(const OGRFeature &row, int field, ColumnType type) {
  Moment moment;
  int zone = 0;
  const bool isSet = row.IsFieldSetAndNotNull(field) != 0 &&
                     row.GetFieldAsDateTime(field, &moment.year, &moment.month, &moment.day, &moment.hour,
                                            &moment.minute, &moment.second, &zone) != 0;
  if (!isSet) return {};
  const bool isEmptyDate = type != ColumnType::Time && moment.year == 0 && moment.month == 0;
  if (isEmptyDate) return {};
  return (type == ColumnType::Time ? "" : DateText(moment)) + (type == ColumnType::Date ? "" : TimeText(moment));
}

/// The digits alone; none when anything but digits and what separates them is there.
bool OnlyDigits(std::string_view text, std::string &digits) {
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      digits += c;
    } else if (c != '/' && c != ':' && c != '.' && c != ' ') {
      return false;
    }
  }
  return true;
}

int NumberAt(const std::string &digits, std::size_t at, std::size_t count) {
  int number = 0;
  std::from_chars(digits.data() + at, digits.data() + at + count, number);
  return number;
}

bool ReadDate(const std::string &digits, Moment &moment) {
  constexpr int DaysOfMonths[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  moment.year = NumberAt(digits, 0, 4);
  moment.month = NumberAt(digits, 4, 2);
  moment.day = NumberAt(digits, 6, 2);
  if (moment.month < 1 || moment.month > 12 || moment.day < 1) return false;
  return moment.day <= DaysOfMonths[moment.month - 1];
}

/// Times may stand without milliseconds.
bool ReadTime(std::string digits, Moment &moment) {
  digits.resize(9, '0');
  moment.hour = NumberAt(digits, 0, 2);
  moment.minute = NumberAt(digits, 2, 2);
  moment.second = float(NumberAt(digits, 4, 5) / 1000.0);
  return moment.hour < 24 && moment.minute < 60 && moment.second < 60;
}

bool SetMoment(OGRFeature &row, int field, ColumnType type, std::string_view text) {
  constexpr std::size_t DateDigits = 8;
  constexpr std::size_t LeastTimeDigits = 6;
  if (text.empty()) return true;
  std::string digits;
  if (!OnlyDigits(text, digits)) return false;
  Moment moment;
  if (type != ColumnType::Time) {
    if (digits.size() < DateDigits || (type == ColumnType::Date && digits.size() > DateDigits)) return false;
    if (!ReadDate(digits, moment)) return false;
    digits.erase(0, DateDigits);
  }
  if (type != ColumnType::Date && (digits.size() < LeastTimeDigits || !ReadTime(digits, moment))) return false;
  row.SetField(field, moment.year, moment.month, moment.day, moment.hour, moment.minute, moment.second, 0);
  return true;
}

std::int64_t ReadInteger(std::string_view text) {
  std::int64_t value = 0;
  while (!text.empty() && (text.front() == ' ' || text.front() == '+')) text.remove_prefix(1);
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

}  // namespace

Column ColumnOf(const OGRFieldDefn &definition) {
  Column column{
      .name = definition.GetNameRef(), .width = definition.GetWidth(), .precision = definition.GetPrecision()};
  switch (definition.GetType()) {
    case OFTInteger:
      column.type = ColumnType::Integer;
      break;
    case OFTReal:
      column.type = column.width > 0 ? ColumnType::Decimal : ColumnType::Float;
      break;
    case OFTDate:
      column.type = ColumnType::Date;
      column.width = DateWidth;
      break;
    case OFTTime:
      column.type = ColumnType::Time;
      column.width = TimeWidth;
      break;
    case OFTDateTime:
      column.type = ColumnType::DateTime;
      column.width = DateTimeWidth;
      break;
    default:
      column.type = ColumnType::Char;
  }
  return column;
}

std::unique_ptr<OGRFieldDefn> DefinitionOf(const Column &column) {
  const auto make = [&column](OGRFieldType type, int width, int precision) {
    auto definition = std::make_unique<OGRFieldDefn>(column.name.c_str(), type);
    definition->SetWidth(width);
    definition->SetPrecision(precision);
    return definition;
  };
  switch (column.type) {
    case ColumnType::Integer:
    case ColumnType::SmallInt:
      return make(OFTInteger, 0, 0);
    case ColumnType::Decimal:
      return make(OFTReal, column.width, column.precision);
    case ColumnType::Float:
      return make(OFTReal, 0, 0);
    case ColumnType::Date:
      return make(OFTDate, 0, 0);
    case ColumnType::Time:
      return make(OFTTime, 0, 0);
    case ColumnType::DateTime:
      return make(OFTDateTime, 0, 0);
    default:
      return make(OFTString, column.width, 0);
  }
}

std::string NumberText(double value, const Column &column) {
  if (column.type == ColumnType::Float) return CPLSPrintf("%.15g", value);
  return CPLSPrintf("%*.*f", column.width, column.precision, value);
}

std::string ValueText(const OGRFeature &row, int field, const Column &column) {
  switch (column.type) {
    case ColumnType::Integer:
    case ColumnType::SmallInt:
      return std::to_string(row.GetFieldAsInteger(field));
    case ColumnType::Decimal:
    case ColumnType::Float:
      return NumberText(row.GetFieldAsDouble(field), column);
    case ColumnType::Date:
    case ColumnType::Time:
    case ColumnType::DateTime:
      return MomentText(row, field, column.type);
    case ColumnType::Logical:
      return row.GetFieldAsString(field)[0] == 'T' ? "T" : "F";
    default:
      return row.GetFieldAsString(field);
  }
}

bool SetValue(OGRFeature &row, int field, const Column &column, std::string_view text) {
  switch (column.type) {
    case ColumnType::Integer:
      row.SetField(field, int(std::int32_t(ReadInteger(text))));
      return true;
    case ColumnType::SmallInt:
      row.SetField(field, int(std::int16_t(ReadInteger(text))));
      return true;
    case ColumnType::Decimal:
    case ColumnType::Float:
      row.SetField(field, CPLAtof(std::string(text).c_str()));
      return true;
    case ColumnType::Date:
    case ColumnType::Time:
    case ColumnType::DateTime:
      return SetMoment(row, field, column.type, text);
    case ColumnType::Logical:
      row.SetField(field,
                   !text.empty() && std::string_view("TtYy1").find(text[0]) != std::string_view::npos ? "T" : "F");
      return true;
    default:
      row.SetField(field, std::string(text).c_str());
      return true;
  }
}

}  // namespace tessera::mitab
