// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/controls/TObjectProperties.h>
#include <tessera/controls/detail/ObjectPropertiesModel.h>

#include <QColor>
#include <QFont>
#include <QPointer>

#include <algorithm>

namespace tessera::detail {
namespace {

constexpr std::size_t MostCompared = 10000;

std::optional<QVariant> CommonValue(const ObjectRow &row, std::span<TCustomMapObject *const> objects) {
  const QVariant first = row.get(*objects.front());
  if (objects.size() > MostCompared) return std::nullopt;
  const bool isSame =
      std::all_of(objects.begin(), objects.end(), [&](const auto *object) { return row.get(*object) == first; });
  return isSame ? std::optional(first) : std::nullopt;
}

bool AreAlike(const std::vector<ObjectRow> &left, const std::vector<ObjectRow> &right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](const ObjectRow &a, const ObjectRow &b) { return a.name == b.name && a.kind == b.kind; });
}

}  // namespace

void ObjectPropertiesModel::Show(std::span<TCustomMapObject *const> objects, bool canChange) {
  std::vector<ObjectRow> rows = RowsOf(objects, m_locale);
  const bool isReset = !AreAlike(rows, m_rows);
  if (isReset) beginResetModel();
  m_rows = std::move(rows);
  m_canChange = canChange;
  m_objects.clear();
  for (TCustomMapObject *object : objects) m_objects.emplace_back(object);
  Read(objects);
  isReset ? endResetModel() : TellOfValues();
}

void ObjectPropertiesModel::Read(std::span<TCustomMapObject *const> objects) {
  m_values.clear();
  for (const ObjectRow &row : m_rows) {
    m_values.push_back(objects.empty() ? Value(QVariant()) : CommonValue(row, objects));
  }
}

void ObjectPropertiesModel::TellOfValues() {
  if (!m_rows.empty()) Q_EMIT dataChanged(index(0, ValueColumn), index(rowCount() - 1, ValueColumn));
}

std::vector<TCustomMapObject *> ObjectPropertiesModel::ObjectsThere() const {
  std::vector<TCustomMapObject *> there;
  for (const auto &object : m_objects) {
    if (object && object->GetObjectLayer()) there.push_back(object.Get());
  }
  return there;
}

int ObjectPropertiesModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : int(m_rows.size());
}

int ObjectPropertiesModel::columnCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QString ObjectPropertiesModel::TextOf(int row) const {
  const Value &value = m_values[std::size_t(row)];
  if (!value) return TObjectProperties::tr("(different)");
  const ObjectRow &shown = m_rows[std::size_t(row)];
  if (!value->isValid()) return {};
  if (shown.kind == RowKind::Choice) return shown.choices.value(value->toInt());
  if (shown.kind == RowKind::Color) return value->value<QColor>().name();
  return shown.kind == RowKind::Number ? FloatToStr(value->toDouble(), m_locale) : value->toString();
}

QVariant ObjectPropertiesModel::data(const QModelIndex &index, int role) const {
  if (!index.isValid()) return {};
  const ObjectRow &row = m_rows[std::size_t(index.row())];
  if (index.column() == NameColumn) return role == Qt::DisplayRole ? row.name : QVariant();
  const Value &value = m_values[std::size_t(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(index.row());
    case Qt::EditRole:
      if (!value || row.kind == RowKind::Color || row.kind == RowKind::Choice) return value.value_or(QVariant());
      return TextOf(index.row());
    case Qt::DecorationRole:
      return value && row.kind == RowKind::Color ? *value : QVariant();
    case Qt::FontRole: {
      QFont font;
      font.setItalic(true);
      return value ? QVariant() : font;
    }
    case ChoicesRole:
      return row.choices;
    case IsMixedRole:
      return !value;
    case IsColorRole:
      return row.kind == RowKind::Color;
    default:
      return {};
  }
}

QVariant ObjectPropertiesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
  return section == NameColumn ? TObjectProperties::tr("Property") : TObjectProperties::tr("Value");
}

bool ObjectPropertiesModel::setData(const QModelIndex &index, const QVariant &value, int role) {
  if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
  const std::vector<TCustomMapObject *> objects = ObjectsThere();
  // Handlers may show other objects in this model meanwhile.
  const ObjectRow row = m_rows[std::size_t(index.row())];
  QVariant input = value;
  double number = 0;
  if (row.kind == RowKind::Number && TryStrToFloat(value.toString(), number, m_locale)) input = number;
  const QPointer<ObjectPropertiesModel> self(this);
  bool isDone = false;
  GuardedCall([&] {
    const ObjectRow::Change change = objects.empty() ? ObjectRow::Change() : row.changeTo(input, objects);
    isDone = change != nullptr;
    if (!isDone) return;
    TMapEdits(*objects.front()->GetLayer())
        .ChangeObjects(objects, row.aspects, TObjectProperties::tr("change %1").arg(row.name.toLower()), change);
  });
  if (self && isDone) {
    Read(ObjectsThere());
    TellOfValues();
  }
  return isDone;
}

Qt::ItemFlags ObjectPropertiesModel::flags(const QModelIndex &index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  const bool isEditable = index.isValid() && index.column() == ValueColumn && m_canChange &&
                          m_rows[std::size_t(index.row())].changeTo != nullptr;
  return flags.setFlag(Qt::ItemIsEditable, isEditable);
}

}  // namespace tessera::detail
