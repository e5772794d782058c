// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/DateTimes.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/data/TDataFields.h>

#include <algorithm>

namespace tessera {

namespace detail {

struct DataColumn {
  QString name;
  TDataValue defaultValue;
  int size = 0;
  TDataType type = TDataType::dtString;
  bool isPrimaryKey = false;
  bool isVisible = true;

  void SetType(TDataType newType) {
    constexpr int DefaultTextSize = 255;
    type = newType;
    if (type == TDataType::dtString && size == 0) size = DefaultTextSize;
  }
};

class DataColumns : public QSharedData {
 public:
  std::vector<DataColumn> columns;

  /// These definitions as they come out of a field by field copy, in which text columns without a size get one; the
  /// same object for all who ask, so that the objects of a layer share it.
  static QSharedDataPointer<DataColumns> Copied(const QSharedDataPointer<DataColumns> &source) {
    const auto needsSize = [](const DataColumn &c) { return c.type == TDataType::dtString && c.size == 0; };
    if (std::none_of(source->columns.begin(), source->columns.end(), needsSize)) return source;
    if (!source->m_copied) {
      QSharedDataPointer<DataColumns> copied(new DataColumns);
      copied->columns = source->columns;
      for (DataColumn &column : copied->columns) column.SetType(column.type);
      source->m_copied = copied;
    }
    return source->m_copied;
  }

  DataColumns() = default;
  DataColumns(const DataColumns &other) : QSharedData(other), columns(other.columns) {}
  DataColumns &operator=(const DataColumns &) = delete;
  ~DataColumns() = default;

  /// To be called before the definitions change.
  void ForgetCopied() { m_copied = {}; }

 private:
  mutable QSharedDataPointer<DataColumns> m_copied;
};

}  // namespace detail

using detail::DataColumn;
using detail::DataColumns;

namespace {

/// What fields without columns share.
const QSharedDataPointer<DataColumns> &NoColumns() {
  static const QSharedDataPointer<DataColumns> none(new DataColumns);
  return none;
}

constexpr char FieldIndex[] = "Field";

}  // namespace

const DataColumn &TDataFieldView::Column() const {
  return m_fields->Column(m_index);
}
bool TDataFieldView::GetIsPrimaryKey() const {
  return Column().isPrimaryKey;
}
int TDataFieldView::GetSize() const {
  return Column().size;
}
const QString &TDataFieldView::GetName() const {
  return Column().name;
}
TDataType TDataFieldView::GetDataType() const {
  return Column().type;
}
const TDataValue &TDataFieldView::GetDefaultValue() const {
  return Column().defaultValue;
}
TDataValue TDataFieldView::GetValue() const {
  return m_fields->m_values.Get(m_index);
}
bool TDataFieldView::GetVisible() const {
  return Column().isVisible;
}

QString TDataFieldView::GetDataTypeName() const {
  switch (GetDataType()) {
    case TDataType::dtString:
      return QStringLiteral("Char(%1)").arg(GetSize());
    case TDataType::dtFloat:
      return QStringLiteral("Float");
    case TDataType::dtDecimal:
      return QStringLiteral("Decimal");
    case TDataType::dtInteger:
      return QStringLiteral("Integer");
    case TDataType::dtSmallInt:
      return QStringLiteral("SmallInt");
    case TDataType::dtDateTime:
      return QStringLiteral("DateTime");
    case TDataType::dtDate:
      return QStringLiteral("Date");
    case TDataType::dtTime:
      return QStringLiteral("Time");
    case TDataType::dtBoolean:
      break;
  }
  return {};
}

bool TDataFieldView::IsShownAsStored() const {
  const TDataType type = GetDataType();
  return type != TDataType::dtDateTime && type != TDataType::dtDate && type != TDataType::dtTime;
}

QString TDataFieldView::TextOf(const TDataValue &value, const QLocale &locale) const {
  if (std::holds_alternative<std::monostate>(value)) return {};
  switch (GetDataType()) {
    case TDataType::dtDateTime:
      return detail::DateTimeToStr(ValueToReal(value), locale);
    case TDataType::dtDate:
      return detail::DateToStr(ValueToReal(value), locale);
    case TDataType::dtTime:
      return detail::TimeToStr(ValueToReal(value));
    default:
      return ValueToText(value, locale);
  }
}

double TDataFieldView::GetAsFloat() const {
  return detail::StrToFloat(ValueToText(GetValue()));
}
double TDataFieldView::GetAsDecimal() const {
  return ValueToReal(GetValue());
}
std::int32_t TDataFieldView::GetAsInteger() const {
  return ValueToInteger(GetValue());
}
double TDataFieldView::GetAsDateTime() const {
  return ValueToReal(GetValue());
}
double TDataFieldView::GetAsDate() const {
  return ValueToReal(GetValue());
}
double TDataFieldView::GetAsTime() const {
  return ValueToReal(GetValue());
}

template <typename Change>
void TDataFields::ChangeColumn(int index, Change change) {
  CheckedField(index);
  m_columns->ForgetCopied();
  change(m_columns->columns[std::size_t(index)]);
  TellOwner();
}

void TDataField::SetIsPrimaryKey(bool isPrimaryKey) {
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &column) { column.isPrimaryKey = isPrimaryKey; });
}
void TDataField::SetSize(int size) {
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &column) { column.size = size; });
}
void TDataField::SetName(const QString &name) {
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &column) { column.name = name; });
}
void TDataField::SetDataType(TDataType type) {
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &column) { column.SetType(type); });
}
void TDataField::SetDefaultValue(const TDataValue &value) {
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &column) { column.defaultValue = value; });
}
void TDataField::SetValue(const TDataValue &value) {
  m_fields->SetValue(GetIndex(), value);
}
void TDataField::SetVisible(bool isVisible) {
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &column) { column.isVisible = isVisible; });
}

void TDataField::AssignTo(TDataField dest) const {
  dest.Assign(*this);
}

void TDataField::Assign(const TDataFieldView &source) {
  const TDataValue value = source.GetValue();
  DataColumn column = source.m_fields->Column(source.GetIndex());
  column.SetType(column.type);
  m_fields->ChangeColumn(GetIndex(), [&](DataColumn &own) { own = column; });
  SetValue(value);
}

TDataFields::TDataFields(TFieldsOwner *owner) : m_columns(NoColumns()), m_owner(owner) {}
TDataFields::TDataFields(const TDataFields &other) : m_columns(other.m_columns), m_values(other.m_values) {}
TDataFields::~TDataFields() = default;

TDataFields &TDataFields::operator=(const TDataFields &other) {
  if (this == &other) return *this;
  m_columns = other.m_columns;
  m_values = other.m_values;
  TellOwner();
  return *this;
}

void TDataFields::TellOwner() {
  if (m_owner) m_owner->FieldsChanged();
}

void TDataFields::SetRecord(std::string_view packed) {
  m_values.Assign(packed);
  TellOwner();
}

void TDataFields::SetValue(int index, const TDataValue &value) {
  m_values.Set(index, value);
  TellOwner();
}

int TDataFields::GetCount() const {
  return int(m_columns->columns.size());
}

int TDataFields::CheckedField(int index) const {
  return int(CheckedIndex(index, m_columns->columns.size(), FieldIndex));
}

const DataColumn &TDataFields::Column(int index) const {
  return m_columns->columns[std::size_t(CheckedField(index))];
}

TDataField TDataFields::Add(const QString &name, TDataType type, int size) {
  m_columns->ForgetCopied();
  m_columns->columns.push_back({.name = name, .defaultValue = {}, .size = size});
  m_columns->columns.back().SetType(type);
  TellOwner();
  return {*this, GetCount() - 1};
}

TDataField TDataFields::Insert(int index, const QString &name, TDataType type, int size) {
  if (index != GetCount()) CheckedField(index);
  m_columns->ForgetCopied();
  m_columns->columns.insert(m_columns->columns.begin() + index,
                            {.name = name, .defaultValue = {}, .size = size, .type = type});
  if (!m_values.Bytes().empty()) m_values.Insert(index, {});
  TellOwner();
  return {*this, index};
}

void TDataFields::Delete(int index) {
  CheckedField(index);
  m_columns->ForgetCopied();
  m_columns->columns.erase(m_columns->columns.begin() + index);
  m_values.Remove(index);
  TellOwner();
}

void TDataFields::Clear() {
  m_columns = NoColumns();
  m_values.Clear();
  TellOwner();
}

void TDataFields::Assign(const TDataFields &source) {
  m_columns = DataColumns::Copied(source.m_columns);
  m_values = source.m_values;
  TellOwner();
}

TDataField TDataFields::GetFields(int index) {
  return {*this, CheckedField(index)};
}
TDataFieldView TDataFields::GetFields(int index) const {
  return {*this, CheckedField(index)};
}

int TDataFields::IndexOf(const QString &name) const {
  const auto &columns = m_columns->columns;
  const auto hasName = [&](const DataColumn &column) {
    return QString::localeAwareCompare(column.name.toCaseFolded(), name.toCaseFolded()) == 0;
  };
  const auto last = std::find_if(columns.rbegin(), columns.rend(), hasName);
  return int(columns.rend() - last) - 1;
}

std::optional<TDataField> TDataFields::FieldByName(const QString &name) {
  const int index = IndexOf(name);
  return index < 0 ? std::nullopt : std::optional(TDataField(*this, index));
}

std::optional<TDataFieldView> TDataFields::FieldByName(const QString &name) const {
  const int index = IndexOf(name);
  return index < 0 ? std::nullopt : std::optional(TDataFieldView(*this, index));
}

int TDataFields::GetVisibleFieldCount() const {
  const auto &columns = m_columns->columns;
  return int(std::count_if(columns.begin(), columns.end(), [](const DataColumn &column) { return column.isVisible; }));
}

int TDataFields::DisplayedIndex(int index) const {
  int seen = -1;
  for (int i = 0; i < GetCount(); ++i) {
    if (Column(i).isVisible && ++seen == index) return i;
  }
  return int(CheckedIndex(index, std::size_t(GetVisibleFieldCount()), "Displayed field"));
}

TDataField TDataFields::GetDisplayed(int index) {
  return {*this, DisplayedIndex(index)};
}
TDataFieldView TDataFields::GetDisplayed(int index) const {
  return {*this, DisplayedIndex(index)};
}

}  // namespace tessera
