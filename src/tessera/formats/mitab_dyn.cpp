// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MitabEntries.h>
#include <tessera/formats/mitab_dyn.h>

#include <QLibrary>

#include <memory>

namespace tessera {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TESSERA_HAS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TESSERA_HAS_SANITIZER
#endif
#endif

/// The library must find its own functions before those of the same names in another one of the process. The sanitizers
/// end a process that asks for this.
QLibrary::LoadHints Hints() {
#ifdef TESSERA_HAS_SANITIZER
  return QLibrary::ResolveAllSymbolsHint;
#else
  return QLibrary::ResolveAllSymbolsHint | QLibrary::DeepBindHint;
#endif
}

/// The bytes that an argument takes on the stack of the 32-bit standard call.
template <typename Argument>
constexpr int StackBytes = std::is_same_v<Argument, double> ? 8 : 4;

template <typename Result, typename... Arguments>
constexpr int ArgumentBytes(Result(TESSERA_MITAB_CALL * /*type*/)(Arguments...)) {
  return (0 + ... + StackBytes<Arguments>);
}

std::unique_ptr<QLibrary> &Library() {
  static std::unique_ptr<QLibrary> library;
  return library;
}

QFunctionPointer Resolve(QLibrary &library, const detail::MitabEntry &entry) {
#ifdef Q_OS_WIN
  if (QFunctionPointer found = library.resolve(entry.DecoratedName().constData())) return found;
#endif
  return library.resolve(entry.name);
}

}  // namespace

// clang-format off
#define TESSERA_MITAB_ENTRIES(entry) \
  entry(mitab_c_getlibversion) \
  entry(mitab_c_add_field) \
  entry(mitab_c_close) \
  entry(mitab_c_create) \
  entry(mitab_c_create_feature) \
  entry(mitab_c_destroy_feature) \
  entry(mitab_c_getlasterrormsg) \
  entry(mitab_c_getlasterrormsg_vb) \
  entry(mitab_c_getlasterrorno) \
  entry(mitab_c_get_brush_bgcolor) \
  entry(mitab_c_get_brush_fgcolor) \
  entry(mitab_c_get_brush_pattern) \
  entry(mitab_c_get_brush_transparent) \
  entry(mitab_c_get_extended_mif_coordsys) \
  entry(mitab_c_get_feature_count) \
  entry(mitab_c_get_field_as_double) \
  entry(mitab_c_get_field_as_string) \
  entry(mitab_c_get_field_as_string_vb) \
  entry(mitab_c_get_field_count) \
  entry(mitab_c_get_field_name) \
  entry(mitab_c_get_field_name_vb) \
  entry(mitab_c_get_field_precision) \
  entry(mitab_c_get_field_type) \
  entry(mitab_c_get_field_width) \
  entry(mitab_c_get_font) \
  entry(mitab_c_get_font_vb) \
  entry(mitab_c_get_mif_coordsys) \
  entry(mitab_c_get_mif_coordsys_vb) \
  entry(mitab_c_get_parts) \
  entry(mitab_c_get_pen_color) \
  entry(mitab_c_get_pen_pattern) \
  entry(mitab_c_get_pen_width) \
  entry(mitab_c_get_projinfo) \
  entry(mitab_c_get_symbol_color) \
  entry(mitab_c_get_symbol_no) \
  entry(mitab_c_get_symbol_size) \
  entry(mitab_c_get_text) \
  entry(mitab_c_get_text_angle) \
  entry(mitab_c_get_text_bgcolor) \
  entry(mitab_c_get_text_fgcolor) \
  entry(mitab_c_get_text_height) \
  entry(mitab_c_get_text_justification) \
  entry(mitab_c_get_text_linetype) \
  entry(mitab_c_get_text_spacing) \
  entry(mitab_c_get_text_vb) \
  entry(mitab_c_get_text_width) \
  entry(mitab_c_get_type) \
  entry(mitab_c_get_vertex_count) \
  entry(mitab_c_get_vertex_x) \
  entry(mitab_c_get_vertex_y) \
  entry(mitab_c_is_interior_ring) \
  entry(mitab_c_load_coordsys_table) \
  entry(mitab_c_next_feature_id) \
  entry(mitab_c_open) \
  entry(mitab_c_read_feature) \
  entry(mitab_c_set_arc) \
  entry(mitab_c_set_brush) \
  entry(mitab_c_set_field) \
  entry(mitab_c_set_font) \
  entry(mitab_c_set_pen) \
  entry(mitab_c_set_points) \
  entry(mitab_c_set_projinfo) \
  entry(mitab_c_set_symbol) \
  entry(mitab_c_set_text) \
  entry(mitab_c_set_text_display) \
  entry(mitab_c_write_feature) \
  entry(mitab_c_get_collection_region_ref) \
  entry(mitab_c_get_collection_polyline_ref) \
  entry(mitab_c_get_collection_multipoint_ref) \
  entry(mitab_c_set_collection_region) \
  entry(mitab_c_set_collection_polyline) \
  entry(mitab_c_set_collection_multipoint) \
  entry(mitab_c_get_projection_info) \
  entry(mitab_c_set_projection_info) \
  entry(mitab_c_get_datum_info) \
  entry(mitab_c_set_datum_info) \
  entry(mitab_c_get_affine_params) \
  entry(mitab_c_set_affine_params) \
  entry(mitab_c_is_field_indexed) \
  entry(mitab_c_is_field_unique) \
  entry(mitab_c_set_quick_spatial_index_mode)
// clang-format on

// NOLINTBEGIN(bugprone-macro-parentheses): a name that is defined cannot stand in parentheses
#define DEFINE(name) decltype(name) name = nullptr;
TESSERA_MITAB_ENTRIES(DEFINE)
#undef DEFINE

namespace detail {
namespace {

#define DESCRIBE(name)                                      \
  MitabEntry{#name, ArgumentBytes(decltype(name)(nullptr)), \
             [](QFunctionPointer found) { name = reinterpret_cast<decltype(name)>(found); }},
constexpr MitabEntry Entries[] = {TESSERA_MITAB_ENTRIES(DESCRIBE)};
#undef DESCRIBE
// NOLINTEND(bugprone-macro-parentheses)

}  // namespace

QByteArray MitabEntry::DecoratedName() const {
  return QByteArray("_").append(name).append('@').append(QByteArray::number(argumentBytes));
}

std::span<const MitabEntry> MitabEntries() {
  return Entries;
}

QString UsualMitabPath() {
#ifdef Q_OS_WIN
  return QStringLiteral("mitab.dll");
#else
  return QStringLiteral("libmitab.so");
#endif
}

QFunctionPointer FindMitabEntry(const char *name) {
  return Library() ? Library()->resolve(name) : nullptr;
}

}  // namespace detail

namespace {

/// Loads the library and answers MITAB_LoadErr.
int LoadLibrary(std::span<const detail::MitabEntry> entries) {
  for (const detail::MitabEntry &entry : entries) entry.set(nullptr);
  Library().reset();
  auto library = std::make_unique<QLibrary>(LibPath);
  library->setLoadHints(Hints());
  if (!library->load()) return MITAB_NoLibrary;
  const QFunctionPointer version = Resolve(*library, entries.front());
  if (version == nullptr) return library->unload(), MITAB_NoVersion;
  entries.front().set(version);
  if (mitab_c_getlibversion() != MITAB_Version) {
    entries.front().set(nullptr);
    library->unload();
    return MITAB_WrongVersion;
  }
  for (const detail::MitabEntry &entry : entries.subspan(1)) entry.set(Resolve(*library, entry));
  Library() = std::move(library);
  return 0;
}

}  // namespace

QString LibPath = detail::UsualMitabPath();
int MITAB_LoadErr = MITAB_NoLibrary;

void MITAB_load() {
  MITAB_LoadErr = LoadLibrary(detail::MitabEntries());
}

bool MITAB_LibOK() {
  return MITAB_LoadErr == 0;
}

namespace {

[[maybe_unused]] const bool LoadedAtStart = [] {
  MITAB_load();
  return MITAB_LibOK();
}();

}  // namespace
}  // namespace tessera
