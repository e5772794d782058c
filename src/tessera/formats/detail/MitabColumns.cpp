// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/DateTimes.h>
#include <tessera/formats/detail/MitabColumns.h>
#include <tessera/layers/TMapLayer.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tessera::detail {
namespace {

constexpr int LongestChar = 254;
constexpr int LongestName = 31;
constexpr int DecimalWidth = 20;
constexpr int MostDecimals = 15;

/// What a TAB file has for each type of column here, in the order of TDataType.
constexpr int TypesInFile[] = {TABFT_Char,     TABFT_Float, TABFT_Decimal, TABFT_Integer, TABFT_SmallInt,
                               TABFT_DateTime, TABFT_Date,  TABFT_Time,    TABFT_Logical};

TDataType TypeOf(int typeInFile) {
  const auto *found = std::find(std::begin(TypesInFile), std::end(TypesInFile), typeInFile);
  return found == std::end(TypesInFile) ? TDataType::dtString : TDataType(found - std::begin(TypesInFile));
}

int NumberIn(std::string_view digits, std::size_t at, std::size_t count) {
  int number = 0;
  if (digits.size() >= at + count) std::from_chars(digits.data() + at, digits.data() + at + count, number);
  return number;
}

QDate DateIn(std::string_view digits) {
  return {NumberIn(digits, 0, 4), NumberIn(digits, 4, 2), NumberIn(digits, 6, 2)};
}

QTime TimeIn(std::string_view digits) {
  const int milliseconds = NumberIn(digits, 4, 5);
  return {NumberIn(digits, 0, 2), NumberIn(digits, 2, 2), milliseconds / 1000, milliseconds % 1000};
}

TDataValue DateValue(std::string_view digits) {
  const QDate date = DateIn(digits);
  return date.isValid() ? TDataValue(DaysOf(date)) : TDataValue();
}

TDataValue TimeValue(std::string_view digits) {
  const QTime time = TimeIn(digits);
  return digits.empty() || !time.isValid() ? TDataValue() : TDataValue(DaysOf(time));
}

TDataValue DateTimeValue(std::string_view digits) {
  constexpr std::size_t DateDigits = 8;
  if (digits.size() < DateDigits) return {};
  const Moment moment{DateIn(digits), TimeIn(digits.substr(DateDigits))};
  return moment.date.isValid() && moment.time.isValid() ? TDataValue(TDateTime{DaysOf(moment)}) : TDataValue();
}

QByteArray DateText(const QDate &date) {
  return date.toString(QStringLiteral("yyyyMMdd")).toLatin1();
}

QByteArray TimeText(const QTime &time) {
  return time.toString(QStringLiteral("HHmmsszzz")).toLatin1();
}

QByteArray NumberText(double value) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr - digits};
}

/// Decimals of the shortest text of a number.
int DecimalsOf(double value) {
  char digits[400];
  const std::string_view text(
      digits, std::size_t(std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr - digits));
  const std::size_t point = text.find('.');
  return point == std::string_view::npos ? 0 : int(std::min<std::size_t>(text.size() - point - 1, MostDecimals));
}

/// The number that a value is; none when it is none.
std::optional<double> NumberOf(const TDataValue &value) {
  try {
    const double number = ValueToReal(value);
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
  } catch (const EConvertError &) {
    return std::nullopt;
  }
}

/// Decimals that the values of a column need.
int DecimalsNeeded(const TMapLayer &layer, int column) {
  int decimals = 0;
  for (int i = 0; i < layer.GetObjectCount() && decimals < MostDecimals; ++i) {
    const TDataFields &fields = std::as_const(*layer.GetObjects(i)).GetFields();
    if (column >= fields.GetCount()) continue;
    if (const auto number = NumberOf(fields.GetFields(column).GetValue()))
      decimals = std::max(decimals, DecimalsOf(*number));
  }
  return decimals;
}

}  // namespace

MitabColumnReader::MitabColumnReader(mitab_handle file, MitabText &text) : m_text(text) {
  for (int i = 0; i < mitab_c_get_field_count(file); ++i) {
    const TDataType type = TypeOf(mitab_c_get_field_type(file, i));
    const bool hasSize = type == TDataType::dtString || type == TDataType::dtDecimal;
    m_columns.push_back(
        {text.Decode(mitab_c_get_field_name(file, i)), type, hasSize ? mitab_c_get_field_width(file, i) : 0});
  }
}

void MitabColumnReader::PutColumns(TDataFields &fields) const {
  fields.Clear();
  for (const Column &column : m_columns) fields.Insert(fields.GetCount(), column.name, column.type, column.size);
}

std::string_view MitabColumnReader::ReadValues(mitab_feature feature) {
  m_record.Clear();
  for (std::size_t i = 0; i < m_columns.size(); ++i) ReadValue(feature, int(i), m_columns[i].type);
  return m_record.Bytes();
}

void MitabColumnReader::ReadValue(mitab_feature feature, int index, TDataType type) {
  const auto digits = [&] { return std::string_view(mitab_c_get_field_as_string(feature, index)); };
  switch (type) {
    case TDataType::dtString:
      return m_record.AppendText(m_text.DecodeUtf8(mitab_c_get_field_as_string(feature, index)));
    case TDataType::dtFloat:
    case TDataType::dtDecimal:
      return m_record.Append(mitab_c_get_field_as_double(feature, index));
    case TDataType::dtInteger:
    case TDataType::dtSmallInt:
      return m_record.Append(std::int32_t(mitab_c_get_field_as_double(feature, index)));
    case TDataType::dtDateTime:
      return m_record.Append(DateTimeValue(digits()));
    case TDataType::dtDate:
      return m_record.Append(DateValue(digits()));
    case TDataType::dtTime:
      return m_record.Append(TimeValue(digits()));
    case TDataType::dtBoolean:
      return m_record.Append(digits() == "T");
  }
}

MitabColumnWriter::Column MitabColumnWriter::ColumnFor(int index) const {
  const TDataFieldView field = m_layer.GetFields().GetFields(index);
  const int type = TypesInFile[std::size_t(field.GetDataType())];
  if (type == TABFT_Char) return {type, field.GetSize() <= 0 ? LongestChar : std::min(field.GetSize(), LongestChar), 0};
  if (type == TABFT_Decimal) {
    const bool isUsable = field.GetSize() > 0 && field.GetSize() <= DecimalWidth;
    return {type, isUsable ? field.GetSize() : DecimalWidth, DecimalsNeeded(m_layer, index)};
  }
  return {type, 0, 0};
}

QByteArray MitabColumnWriter::NameFor(const QString &name, int index) {
  QString usable = name;
  for (QChar &c : usable) {
    if (c.unicode() < 128 && !c.isLetterOrNumber()) c = u'_';
  }
  while (m_text.Encode(usable).size() > LongestName) usable.chop(1);
  if (usable.isEmpty()) usable = QStringLiteral("Column%1").arg(index + 1);
  QByteArray bytes = m_text.Encode(usable);
  for (int i = 1; m_names.end() != std::find(m_names.begin(), m_names.end(), bytes); ++i) {
    const QString number = QStringLiteral("_%1").arg(i);
    bytes = m_text.Encode(usable.left(LongestName - number.size()) + number);
  }
  if (m_text.Encode(name) != bytes) ++m_changedNames;
  m_names.push_back(bytes);
  return bytes;
}

void MitabColumnWriter::WriteColumns(mitab_handle file) {
  const TDataFields &fields = m_layer.GetFields();
  for (int i = 0; i < fields.GetCount(); ++i) {
    const Column column = ColumnFor(i);
    const QByteArray name = NameFor(fields.GetFields(i).GetName(), i);
    if (mitab_c_add_field(file, name.constData(), column.type, column.width, column.precision, 0, 0) != i) {
      throw EInOutError(TFormatReport::tr("the column \"%1\" cannot be written").arg(fields.GetFields(i).GetName()));
    }
    if (mitab_c_get_field_type(file, i) != column.type) ++m_changedTypes;
    m_columns.push_back(column);
  }
  // A table has one column at least.
  if (fields.GetCount() == 0 && mitab_c_add_field(file, "ID", TABFT_Integer, 0, 0, 0, 0) != 0) {
    throw EInOutError(TFormatReport::tr("no column can be written"));
  }
}

QByteArray MitabColumnWriter::TextOf(const Column &column, const TDataFieldView &field, const TDataValue &value) {
  if (column.type == TABFT_Char) {
    QByteArray bytes = m_text.Encode(field.TextOf(value));
    if (field.TextOf(value).size() > column.width) ++m_cutTexts;
    if (m_isMif && bytes.contains('\n')) ++m_brokenLines;
    return bytes;
  }
  const bool isDate = column.type == TABFT_Date || column.type == TABFT_Time || column.type == TABFT_DateTime;
  if (std::holds_alternative<std::monostate>(value)) {
    if (!isDate) ++m_unassigned;
    return {};
  }
  const auto number = NumberOf(value);
  if (!number) throw EConvertError(TFormatReport::tr("that is no number"));
  switch (column.type) {
    case TABFT_Integer:
    case TABFT_SmallInt:
      return QByteArray::number(ValueToInteger(value));
    case TABFT_Date:
      return DateText(MomentOf(*number).date);
    case TABFT_Time:
      return TimeText(MomentOf(*number).time);
    case TABFT_DateTime:
      return DateText(MomentOf(*number).date) + TimeText(MomentOf(*number).time);
    case TABFT_Logical:
      return *number != 0 ? "T" : "F";
    default:
      return NumberText(*number);
  }
}

void MitabColumnWriter::WriteValues(const TDataFields &values, mitab_feature feature) {
  ValueRecordReader record(values.GetRecord());
  const int count = std::min(int(m_columns.size()), values.GetCount());
  for (int i = 0; i < count; ++i) {
    const TDataValue value = record.Next();
    QByteArray text;
    try {
      text = TextOf(m_columns[std::size_t(i)], values.GetFields(i), value);
    } catch (const std::exception &) {
      ++m_brokenValues;
    }
    mitab_c_set_field(feature, i, text.constData());
  }
}

void MitabColumnWriter::ReportLosses(TFormatReport &report) const {
  report.Lose(TFormatReport::tr("names of columns that the format does not allow, changed: %1"), m_changedNames);
  report.Lose(TFormatReport::tr("types of columns that cannot be written, changed: %1"), m_changedTypes);
  report.Lose(TFormatReport::tr("values that do not fit the type of their column, left out: %1"), m_brokenValues);
  report.Lose(TFormatReport::tr("texts longer than their column, cut: %1"), m_cutTexts);
  report.Lose(TFormatReport::tr("line ends in values, written as \\n: %1"), m_brokenLines);
  report.Lose(TFormatReport::tr("numbers without a value, which become 0: %1"), m_unassigned);
}

}  // namespace tessera::detail
