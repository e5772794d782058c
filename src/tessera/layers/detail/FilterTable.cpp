// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Numbers.h>
#include <tessera/layers/detail/FilterTable.h>

#include <QDateTime>
#include <QSet>

#include <cmath>
#include <sqlite3.h>

namespace tessera::detail {
namespace {

struct Table : sqlite3_vtab {
  explicit Table(TMapLayer &ofLayer) : sqlite3_vtab{}, layer(&ofLayer) {}
  THandle<TMapLayer> layer;
};

struct Cursor : sqlite3_vtab_cursor {
  Cursor() : sqlite3_vtab_cursor{} {}
  int row = 0;

  /// None behind the last row; nor when the layer is gone, or has become shorter meanwhile.
  [[nodiscard]] const TCustomMapObject *GetObject() const {
    const TMapLayer *layer = static_cast<const Table *>(pVtab)->layer.Get();
    return layer && row < layer->GetObjectCount() ? layer->GetObjects(row) : nullptr;
  }
};

/// No exception may pass through SQLite.
template <typename Body>
int Guarded(Body &&body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc &) {
    return SQLITE_NOMEM;
  } catch (...) {
    return SQLITE_ERROR;
  }
}

const char *AffinityOf(TDataType type) {
  switch (type) {
    case TDataType::dtFloat:
    case TDataType::dtDecimal:
      return "REAL";
    case TDataType::dtInteger:
    case TDataType::dtSmallInt:
    case TDataType::dtBoolean:
      return "INTEGER";
    default:
      return "TEXT";
  }
}

/// The table as SQLite is told of it. Of columns with one name the last has it.
QByteArray DeclarationOf(const TDataFields &columns) {
  QByteArrayList parts;
  QSet<QByteArray> names;
  for (int i = columns.GetCount() - 1; i >= 0; --i) {
    const TDataFieldView column = columns.GetFields(i);
    QByteArray name = column.GetName().toUtf8();
    // SQLite tells ASCII letters alone apart by case, as this does.
    while (name.isEmpty() || names.contains(name.toLower())) name += '#' + QByteArray::number(i);
    names.insert(name.toLower());
    parts.prepend('"' + name.replace('"', "\"\"") + "\" " + AffinityOf(column.GetDataType()));
  }
  if (parts.isEmpty()) parts << "\"#\"";
  return "CREATE TABLE layer(" + parts.join(',') + ')';
}

void GiveText(sqlite3_context *context, const QString &text) {
  const QByteArray bytes = text.toUtf8();
  sqlite3_result_text64(context, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool IsTime(TDataType type) {
  return type == TDataType::dtDate || type == TDataType::dtTime || type == TDataType::dtDateTime;
}

QString TimeText(TDataType type, double days) {
  constexpr double MsPerDay = 86400000;
  constexpr double MostDays = 3e6;  // some thousand years, which SQLite's own functions end with
  if (!(std::abs(days) < MostDays)) return {};
  const QDateTime start(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
  const QDateTime time = start.addMSecs(std::llround(days * MsPerDay));
  if (type == TDataType::dtDate) return time.date().toString(Qt::ISODate);
  if (type == TDataType::dtTime) return time.time().toString(Qt::ISODate);
  return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

void GiveNumber(sqlite3_context *context, const TDataValue &value) {
  if (const auto *text = std::get_if<QString>(&value)) {
    double number = 0;
    return TryStrToFloat(*text, number) ? sqlite3_result_double(context, number) : GiveText(context, *text);
  }
  if (const auto *number = std::get_if<double>(&value)) return sqlite3_result_double(context, *number);
  if (const auto *time = std::get_if<TDateTime>(&value)) return sqlite3_result_double(context, time->days);
  sqlite3_result_int(context, ValueToInteger(value));
}

void Give(sqlite3_context *context, const TDataFieldView &field) {
  const TDataValue value = field.GetValue();
  const TDataType type = field.GetDataType();
  if (std::holds_alternative<std::monostate>(value)) return sqlite3_result_null(context);
  if (IsTime(type) && !std::holds_alternative<QString>(value)) {
    const auto *time = std::get_if<TDateTime>(&value);
    return GiveText(context, TimeText(type, time ? time->days : ValueToReal(value)));
  }
  if (type == TDataType::dtString || IsTime(type)) return GiveText(context, ValueToText(value));
  GiveNumber(context, value);
}

int Connect(sqlite3 *database, void *layer, int /*count*/, const char *const * /*arguments*/, sqlite3_vtab **table,
            char ** /*error*/) {
  return Guarded([&] {
    auto &source = *static_cast<TMapLayer *>(layer);
    const int answer = sqlite3_declare_vtab(database, DeclarationOf(source.GetFields()).constData());
    if (answer == SQLITE_OK) *table = std::make_unique<Table>(source).release();
    return answer;
  });
}

int Disconnect(sqlite3_vtab *table) {
  const std::unique_ptr<Table> owned(static_cast<Table *>(table));
  return SQLITE_OK;
}

int BestIndex(sqlite3_vtab *table, sqlite3_index_info *plan) {
  const TMapLayer *layer = static_cast<Table *>(table)->layer.Get();
  plan->estimatedRows = layer ? layer->GetObjectCount() : 0;
  plan->estimatedCost = double(plan->estimatedRows);
  return SQLITE_OK;
}

int Open(sqlite3_vtab * /*table*/, sqlite3_vtab_cursor **cursor) {
  return Guarded([&] {
    *cursor = std::make_unique<Cursor>().release();
    return SQLITE_OK;
  });
}

int Close(sqlite3_vtab_cursor *cursor) {
  const std::unique_ptr<Cursor> owned(static_cast<Cursor *>(cursor));
  return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor *cursor, int /*plan*/, const char * /*planText*/, int /*count*/,
           sqlite3_value ** /*values*/) {
  static_cast<Cursor *>(cursor)->row = 0;
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor *cursor) {
  ++static_cast<Cursor *>(cursor)->row;
  return SQLITE_OK;
}

int Eof(sqlite3_vtab_cursor *cursor) {
  return static_cast<Cursor *>(cursor)->GetObject() == nullptr ? 1 : 0;
}

int Column(sqlite3_vtab_cursor *cursor, sqlite3_context *context, int column) {
  return Guarded([&] {
    const TCustomMapObject *object = static_cast<Cursor *>(cursor)->GetObject();
    // An object may have columns of its own; what is not given is NULL.
    if (object && column < object->GetFields().GetCount()) Give(context, object->GetFields().GetFields(column));
    return SQLITE_OK;
  });
}

int Rowid(sqlite3_vtab_cursor *cursor, sqlite3_int64 *id) {
  *id = static_cast<Cursor *>(cursor)->row;
  return SQLITE_OK;
}

sqlite3_module MakeModule() {
  sqlite3_module module{};
  module.xCreate = Connect;
  module.xConnect = Connect;
  module.xBestIndex = BestIndex;
  module.xDisconnect = Disconnect;
  module.xDestroy = Disconnect;
  module.xOpen = Open;
  module.xClose = Close;
  module.xFilter = Filter;
  module.xNext = Next;
  module.xEof = Eof;
  module.xColumn = Column;
  module.xRowid = Rowid;
  return module;
}

}  // namespace

int AddFilterTable(sqlite3 &database, TMapLayer &layer) {
  static const sqlite3_module module = MakeModule();
  const int answer = sqlite3_create_module(&database, "objects", &module, &layer);
  if (answer != SQLITE_OK) return answer;
  const QByteArray make = QByteArray("CREATE VIRTUAL TABLE ") + FilterTableName + " USING objects";
  return sqlite3_exec(&database, make.constData(), nullptr, nullptr, nullptr);
}

}  // namespace tessera::detail
