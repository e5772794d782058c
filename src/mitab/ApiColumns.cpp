// SPDX-License-Identifier: MIT
// The entry points about columns and values.
#include "Access.h"
#include "Errors.h"

#include <cpl_conv.h>

#include <algorithm>
#include <limits>

namespace tessera::mitab {
namespace {

constexpr int LongestChar = 254;
constexpr int UsualDecimal = 20;
constexpr double NoNumber = -1e30;

const Column *ColumnAt(const Columns &columns, int field) {
  return field >= 0 && std::size_t(field) < columns.size() ? &columns[std::size_t(field)] : nullptr;
}

const Column *ColumnAt(void *handle, int field) {
  return handle == nullptr ? nullptr : ColumnAt(*TableOf(handle)->GetColumns(), field);
}

int WidthOf(ColumnType type, int width) {
  if (type == ColumnType::Char) return width <= 0 ? LongestChar : std::min(width, LongestChar);
  if (type == ColumnType::Logical) return 1;
  return type == ColumnType::Decimal && width <= 0 ? UsualDecimal : std::max(width, 0);
}

/// The value as it was read, or as it was set.
const char *ValueOf(Feature &feature, int field) {
  const Column *column = feature.columns == nullptr ? nullptr : ColumnAt(*feature.columns, field);
  if (column == nullptr) return "";
  if (feature.row && column->type == ColumnType::Char) return feature.row->GetFieldAsString(field);
  if (feature.row || feature.records) {
    feature.answer = feature.row ? ValueText(*feature.row, field, *column)
                                 : feature.records->TextIn(feature.records->RecordOf(feature.id), field, *column);
    return feature.answer.c_str();
  }
  return std::size_t(field) < feature.values.size() ? feature.values[std::size_t(field)].c_str() : "";
}

}  // namespace

MITAB_API int mitab_c_add_field(void *handle, const char *name, int type, int width, int precision, int indexed,
                                int unique) {
  if (handle == nullptr || name == nullptr || type < 1 || type > LastColumnType) return -1;
  const auto kind = ColumnType(type);
  return Guarded(-1, [&] {
    const bool isAdded =
        TableOf(handle)->Add({name, kind, WidthOf(kind, width), std::max(precision, 0), indexed != 0, unique != 0});
    return isAdded ? int(TableOf(handle)->GetColumns()->size()) - 1 : -1;
  });
}

MITAB_API int mitab_c_get_field_count(void *handle) {
  return handle == nullptr ? 0 : int(TableOf(handle)->GetColumns()->size());
}

MITAB_API int mitab_c_get_field_type(void *handle, int field) {
  const Column *column = ColumnAt(handle, field);
  return column == nullptr ? 0 : int(column->type);
}

MITAB_API const char *mitab_c_get_field_name(void *handle, int field) {
  const Column *column = ColumnAt(handle, field);
  return column == nullptr ? "" : column->name.c_str();
}

MITAB_API int mitab_c_get_field_name_vb(void *handle, int field, char *name, int size) {
  return CopyText(mitab_c_get_field_name(handle, field), name, size);
}

MITAB_API int mitab_c_get_field_width(void *handle, int field) {
  const Column *column = ColumnAt(handle, field);
  return column == nullptr ? 0 : column->width;
}

MITAB_API int mitab_c_get_field_precision(void *handle, int field) {
  const Column *column = ColumnAt(handle, field);
  return column == nullptr ? 0 : column->precision;
}

MITAB_API int mitab_c_is_field_indexed(void *handle, int field) {
  const Column *column = ColumnAt(handle, field);
  return column != nullptr && column->isIndexed ? 1 : 0;
}

MITAB_API int mitab_c_is_field_unique(void *handle, int field) {
  const Column *column = ColumnAt(handle, field);
  return column != nullptr && column->isUnique ? 1 : 0;
}

MITAB_API const char *mitab_c_get_field_as_string(void *feature, int field) {
  return feature == nullptr ? "" : ValueOf(*FeatureOf(feature), field);
}

MITAB_API int mitab_c_get_field_as_string_vb(void *feature, int field, char *value, int size) {
  return CopyText(mitab_c_get_field_as_string(feature, field), value, size);
}

MITAB_API double mitab_c_get_field_as_double(void *feature, int field) {
  if (feature == nullptr) return NoNumber;
  Feature &asked = *FeatureOf(feature);
  if (const Column *column = asked.records ? ColumnAt(*asked.columns, field) : nullptr) {
    return asked.records->NumberIn(asked.records->RecordOf(asked.id), field, *column);
  }
  const bool isRead = asked.row != nullptr && field >= 0 && field < asked.row->GetFieldCount();
  return isRead ? asked.row->GetFieldAsDouble(field) : CPLAtof(ValueOf(asked, field));
}

MITAB_API void mitab_c_set_field(void *feature, int field, const char *value) {
  if (feature == nullptr || field < 0) return;
  auto &values = FeatureOf(feature)->values;
  if (std::size_t(field) < values.size()) values[std::size_t(field)] = TextOf(value);
}

}  // namespace tessera::mitab
