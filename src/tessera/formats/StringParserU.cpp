// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/base/detail/DateTimes.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/formats/StringParserU.h>

#include <cmath>

namespace tessera {
namespace {

/// An amount of money is a 64-bit number of ten-thousandths.
constexpr long double CurrencyUnits = 10'000.0L;
constexpr long double LargestCurrencyUnits = 9223372036854775807.0L;

double RoundedToCurrency(double value) {
  const long double units = std::nearbyint(static_cast<long double>(value) * CurrencyUnits);
  if (!(std::fabs(units) <= LargestCurrencyUnits)) {
    throw EConvertError(QStringLiteral("%1 is not a valid currency value").arg(detail::FloatToStr(value)));
  }
  return double(units / CurrencyUnits);
}

}  // namespace

int TParserItem::GetAsInteger() const {
  return detail::StrToInt(m_raw);
}
void TParserItem::SetAsInteger(int value) {
  m_raw = QString::number(value);
}

double TParserItem::GetAsFloat() const {
  return detail::StrToFloat(m_raw);
}
void TParserItem::SetAsFloat(double value) {
  m_raw = detail::FloatToStr(value);
}

double TParserItem::GetAsCurrency() const {
  return RoundedToCurrency(detail::StrToFloat(m_raw));
}
void TParserItem::SetAsCurrency(double value) {
  m_raw = detail::FloatToStr(RoundedToCurrency(value));
}

double TParserItem::GetAsDate() const {
  return detail::StrToDate(m_raw);
}
void TParserItem::SetAsDate(double value) {
  m_raw = detail::DateToStr(value);
}

double TParserItem::GetAsTime() const {
  return detail::StrToTime(m_raw);
}
void TParserItem::SetAsTime(double value) {
  m_raw = detail::TimeToStr(value);
}

bool TParserItem::GetAsBoolean() const {
  return detail::StrToInt(m_raw) == 1;
}
void TParserItem::SetAsBoolean(bool value) {
  m_raw = value ? QStringLiteral("1") : QStringLiteral("0");
}

TParserItem &TStringParser::Add() {
  return m_items.emplace_back();
}

TParserItem *TStringParser::GetItems(int index) {
  if (index >= GetCount()) {
    ShowMessage(QStringLiteral("Error reading object properties from string!"));
    return nullptr;
  }
  return &m_items[CheckedIndex(index, m_items.size(), "Value")];
}

void TStringParser::SetItems(int index, const TParserItem &item) {
  m_items[CheckedIndex(index, m_items.size(), "Value")] = item;
}

void TStringParser::FromString(QStringView line) {
  Clear();
  qsizetype start = 0;
  if (!m_delimiter.isEmpty()) {
    qsizetype end = line.indexOf(m_delimiter);
    while (end >= 0) {
      Add().SetRawData(line.sliced(start, end - start).toString());
      start = end + m_delimiter.size();
      end = line.indexOf(m_delimiter, start);
    }
  }
  Add().SetRawData(line.sliced(start).toString());
}

QString TStringParser::ToString() const {
  QString line;
  for (const TParserItem &item : m_items) {
    line += item.GetAsString();
    line += m_delimiter;
  }
  line.chop(1);
  return line;
}

}  // namespace tessera
