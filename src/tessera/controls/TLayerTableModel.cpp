// SPDX-License-Identifier: MIT
// What views read and write.
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/CellValues.h>
#include <tessera/controls/detail/LayerTableLink.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/map/ObjectWords.h>

#include <QScopeGuard>

#include <algorithm>

namespace tessera {

TLayerTableModel::TLayerTableModel(QObject *parent)
    : QAbstractTableModel(parent), m_link(std::make_unique<detail::LayerTableLink>(*this)) {}

TLayerTableModel::~TLayerTableModel() = default;

void TLayerTableModel::SetReadOnly(bool readOnly) {
  m_isReadOnly = readOnly;
}

void TLayerTableModel::SetLocale(const QLocale &locale) {
  if (m_locale == locale) return;
  m_locale = locale;
  TellOfAllValues();
}

TCustomMapObject *TLayerTableModel::ObjectAt(int row) const {
  const TMapLayer *layer = GetLayer();
  if (layer == nullptr || row < 0 || row >= int(m_rows.size())) return nullptr;
  TCustomMapObject *object = m_rows[std::size_t(row)];
  // Those that are gone have been taken out of the rows already, unless somebody interferes.
  if (m_isApplying && !m_isRefreshDue) return object;
  return row < layer->GetObjectCount() && layer->GetObjects(row) == object ? object : nullptr;
}

int TLayerTableModel::RowOf(const TCustomMapObject *object) const {
  const TMapLayer *layer = GetLayer();
  const int row = layer ? layer->IndexOf(object) : -1;
  return row >= 0 && ObjectAt(row) == object ? row : -1;
}

int TLayerTableModel::ColumnOf(int field) const {
  const auto found =
      std::find_if(m_columns.begin(), m_columns.end(), [field](const auto &column) { return column.field == field; });
  return found == m_columns.end() ? -1 : int(found - m_columns.begin());
}

int TLayerTableModel::ColumnNamed(const QString &name) const {
  const auto found =
      std::find_if(m_columns.begin(), m_columns.end(), [&name](const auto &column) { return column.name == name; });
  return found == m_columns.end() ? -1 : int(found - m_columns.begin());
}

int TLayerTableModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : int(m_rows.size());
}

int TLayerTableModel::columnCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant TLayerTableModel::data(const QModelIndex &index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const detail::CellColumn &column = m_columns[std::size_t(index.column())];
  if (role == TypeRole) return int(column.type);
  if (role == SizeRole) return column.size;
  if (role == Qt::TextAlignmentRole && detail::IsNumber(column.type)) {
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  }
  const TCustomMapObject *object = ObjectAt(index.row());
  if (object == nullptr || column.field >= object->GetFields().GetCount()) return {};
  return ValueData(object->GetFields().GetFields(column.field), column, role);
}

QVariant TLayerTableModel::ValueData(const TDataFieldView &field, const detail::CellColumn &column, int role) const {
  const bool isCheckBox = column.type == TDataType::dtBoolean;
  switch (role) {
    case Qt::DisplayRole:
      return isCheckBox ? QVariant() : ShownText(field, m_locale);
    case Qt::EditRole:
      return detail::CellToVariant(field.GetValue(), column.type);
    case Qt::CheckStateRole: {
      if (!isCheckBox) return {};
      const TDataValue value = field.GetValue();
      if (std::holds_alternative<std::monostate>(value)) return Qt::PartiallyChecked;
      return detail::CellToVariant(value, column.type).toBool() ? Qt::Checked : Qt::Unchecked;
    }
    case TextRole:
    case Qt::AccessibleTextRole:
      return ShownText(field, m_locale);
    case SortRole:
      return detail::CellToSortKey(field.GetValue(), column.type);
    case NeutralRole:
      return detail::CellToNeutralText(field.GetValue(), column.type);
    default:
      return {};
  }
}

QVariant TLayerTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool isColumn = orientation == Qt::Horizontal && section >= 0 && section < int(m_columns.size());
  if (!isColumn) return QAbstractTableModel::headerData(section, orientation, role);
  const detail::CellColumn &column = m_columns[std::size_t(section)];
  switch (role) {
    case Qt::DisplayRole:
      return QString(column.name + u'\n' + detail::TypeNameOf(column));
    case Qt::EditRole:
    case TextRole:
      return column.name;
    case TypeRole:
      return int(column.type);
    case SizeRole:
      return column.size;
    default:
      return QAbstractTableModel::headerData(section, orientation, role);
  }
}

Qt::ItemFlags TLayerTableModel::flags(const QModelIndex &index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (!index.isValid() || m_isReadOnly) return flags;
  const bool isCheckBox = m_columns[std::size_t(index.column())].type == TDataType::dtBoolean;
  return flags | (isCheckBox ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool TLayerTableModel::Refuse(const QString &message) {
  Q_EMIT OnRefused(message);
  return false;
}

bool TLayerTableModel::setData(const QModelIndex &index, const QVariant &value, int role) {
  if (m_isReadOnly || !checkIndex(index, CheckIndexOption::IndexIsValid)) return false;
  const detail::CellColumn &column = m_columns[std::size_t(index.column())];
  const bool isTick = role == Qt::CheckStateRole && column.type == TDataType::dtBoolean;
  if (!isTick && role != Qt::EditRole) return false;
  const detail::ParsedCell parsed =
      detail::ParseCell(column, isTick ? QVariant(value.toInt() == Qt::Checked) : value, m_locale);
  if (!parsed.refusal.isEmpty()) return Refuse(column.name + QStringLiteral(": ") + parsed.refusal);
  return SetValue(index, parsed.value);
}

bool TLayerTableModel::SetValue(const QModelIndex &index, const TDataValue &value) {
  TCustomMapObject *object = ObjectAt(index.row());
  const int field = m_columns[std::size_t(index.column())].field;
  if (object == nullptr || field >= object->GetFields().GetCount()) {
    return Refuse(tr("The object does not have this column."));
  }
  const QPointer<TLayerTableModel> self(this);
  const QPersistentModelIndex changed(index);
  const TMapLayer *layer = GetLayer();
  {
    const auto done = qScopeGuard([self] {
      if (self) self->m_isChanging = false;
    });
    m_isChanging = true;
    GuardedCall([&] { TMapEdits(*layer).SetValue(*object, field, value); });
  }
  if (self && changed.isValid()) Q_EMIT dataChanged(changed, changed);
  return true;
}

QString TLayerTableModel::WhyNoName(const QString &name, int ownField) const {
  if (m_isReadOnly || GetLayer() == nullptr) return tr("The columns cannot be changed.");
  if (name.trimmed().isEmpty()) return tr("A column needs a name.");
  const TDataFields &fields = std::as_const(*GetLayer()).GetFields();
  const std::optional<TDataFieldView> found = fields.FieldByName(name);
  const bool isTaken = found && found->GetIndex() != ownField;
  return isTaken ? tr("There is a column “%1” already.").arg(name) : QString();
}

template <typename Change>
bool TLayerTableModel::ChangeColumns(Change change) {
  const QPointer<TLayerTableModel> self(this);
  m_isChanging = true;
  GuardedCall([&] { change(*GetLayer()); });
  if (!self) return true;
  m_isChanging = false;
  Refresh();
  TellOfAllValues();
  return true;
}

bool TLayerTableModel::AddColumn(const QString &name, TDataType type, int size) {
  const QString refusal = WhyNoName(name, -1);
  if (!refusal.isEmpty()) return Refuse(refusal);
  return ChangeColumns([&](TMapLayer &layer) { TMapEdits(layer).AddColumn(layer, name.trimmed(), type, size); });
}

bool TLayerTableModel::RemoveColumn(int column) {
  if (m_isReadOnly || GetLayer() == nullptr || column < 0 || column >= columnCount()) return false;
  const int field = m_columns[std::size_t(column)].field;
  return ChangeColumns([&](TMapLayer &layer) { TMapEdits(layer).RemoveColumn(layer, field); });
}

bool TLayerTableModel::RenameColumn(int column, const QString &name) {
  if (column < 0 || column >= columnCount()) return false;
  const int field = m_columns[std::size_t(column)].field;
  const QString refusal = WhyNoName(name, field);
  if (!refusal.isEmpty()) return Refuse(refusal);
  return ChangeColumns([&](TMapLayer &layer) { TMapEdits(layer).RenameColumn(layer, field, name.trimmed()); });
}

}  // namespace tessera
