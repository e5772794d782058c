// SPDX-License-Identifier: MIT
#include <tessera/layers/TLayerFilter.h>
#include <tessera/layers/detail/FilterTable.h>

#include <QCoreApplication>

#include <algorithm>
#include <exception>
#include <new>
#include <sqlite3.h>

namespace tessera {
namespace {

/// The expression has lines of its own, so that a comment in it ends there.
constexpr char Head[] = "SELECT rowid FROM layer WHERE (\n";
constexpr char Tail[] = "\n)";

/// Bytes that a text in an expression may come to.
constexpr int LongestText = 1 << 20;

int Authorize(void * /*own*/, int action, const char *first, const char *second, const char * /*database*/,
              const char * /*trigger*/) {
  switch (action) {
    case SQLITE_SELECT:
      return SQLITE_OK;
    case SQLITE_READ:
      return sqlite3_stricmp(first, detail::FilterTableName) == 0 ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_FUNCTION:
      return sqlite3_stricmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

/// What is asked whether to go on, and what that has thrown.
struct Watch {
  const std::function<bool()> &isCancelled;
  bool wasCancelled = false;
  std::exception_ptr thrown;

  static int Ask(void *watch) noexcept {
    auto &self = *static_cast<Watch *>(watch);
    try {
      self.wasCancelled = self.isCancelled();
    } catch (...) {
      self.thrown = std::current_exception();
    }
    return self.wasCancelled || self.thrown ? 1 : 0;
  }
};

}  // namespace

class TLayerFilter::Database {
 public:
  explicit Database(TMapLayer &layer) {
    const int answer = sqlite3_open_v2(":memory:", &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr);
    if (answer != SQLITE_OK || detail::AddFilterTable(*m_database, layer) != SQLITE_OK) {
      const bool isOutOfMemory = m_database == nullptr;
      Close();
      if (isOutOfMemory) throw std::bad_alloc();
      return;
    }
    sqlite3_limit(m_database, SQLITE_LIMIT_LENGTH, LongestText);
    sqlite3_limit(m_database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_db_config(m_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_set_authorizer(m_database, Authorize, nullptr);
  }
  ~Database() { Close(); }
  Database(const Database &) = delete;
  Database &operator=(const Database &) = delete;

  /// False when the columns cannot be made a table: there are too many.
  [[nodiscard]] bool IsOpen() const { return m_database != nullptr; }
  [[nodiscard]] bool Prepare(const QByteArray &expression) {
    const QByteArray text = Head + expression + Tail;
    const char *end = nullptr;
    const bool isGood = !expression.contains('\0') && sqlite3_prepare_v2(m_database, text.constData(), int(text.size()),
                                                                         &m_statement, &end) == SQLITE_OK;
    m_isOneStatement = isGood && end == text.constEnd();
    return m_isOneStatement;
  }
  [[nodiscard]] QString GetError() const {
    return m_statement && !m_isOneStatement
               ? QCoreApplication::translate("tessera::TLayerFilter", "more than an expression")
               : QString::fromUtf8(sqlite3_errmsg(m_database));
  }
  /// In bytes of the expression; negative where that is not known.
  [[nodiscard]] int GetErrorPlace() const { return sqlite3_error_offset(m_database) - int(sizeof Head - 1); }

  /// The ids in some order; false on an error.
  bool Run(std::vector<int> &ids, Watch &watch) {
    constexpr int StepsBetweenAsking = 2000;
    if (watch.isCancelled) sqlite3_progress_handler(m_database, StepsBetweenAsking, Watch::Ask, &watch);
    int answer = sqlite3_step(m_statement);
    for (; answer == SQLITE_ROW; answer = sqlite3_step(m_statement)) {
      ids.push_back(sqlite3_column_int(m_statement, 0));
    }
    sqlite3_progress_handler(m_database, 0, nullptr, nullptr);
    return answer == SQLITE_DONE;
  }
  void Reset() { sqlite3_reset(m_statement); }

 private:
  void Close() {
    sqlite3_finalize(m_statement);
    sqlite3_close(m_database);
    m_database = nullptr;
  }

  sqlite3 *m_database = nullptr;
  sqlite3_stmt *m_statement = nullptr;
  bool m_isOneStatement = false;
};

TLayerFilter::TLayerFilter(TMapLayer &layer, const QString &expression)
    : m_layer(&layer), m_database(std::make_unique<Database>(layer)) {
  if (!m_database->IsOpen()) {
    NoteError(QCoreApplication::translate("tessera::TLayerFilter", "the layer has too many columns"), -1);
    return;
  }
  const QByteArray bytes = expression.toUtf8();
  m_isCompiled = m_database->Prepare(bytes);
  if (m_isCompiled) return;
  const int place = m_database->GetErrorPlace();
  const bool isKnown = place >= 0 && place <= bytes.size();
  NoteError(m_database->GetError(), isKnown ? int(QString::fromUtf8(bytes.left(place)).size()) : -1);
}

TLayerFilter::~TLayerFilter() = default;

void TLayerFilter::NoteError(const QString &words, int place) {
  m_error = words;
  m_errorPlace = place;
}

std::optional<std::vector<int>> TLayerFilter::Find(const std::function<bool()> &isCancelled) {
  if (!m_isCompiled || !m_layer) return std::nullopt;
  std::vector<int> ids;
  Watch watch{isCancelled, false, {}};
  const bool isDone = m_database->Run(ids, watch);
  const QString error = isDone || watch.wasCancelled ? QString() : m_database->GetError();
  m_database->Reset();
  if (watch.thrown) std::rethrow_exception(watch.thrown);
  NoteError(error, -1);
  if (!isDone || !m_layer) return std::nullopt;
  // An expression may hold a query of its own that answers anything.
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  std::erase_if(ids, [count = m_layer->GetObjectCount()](int id) { return id < 0 || id >= count; });
  return ids;
}

}  // namespace tessera
