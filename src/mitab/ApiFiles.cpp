// SPDX-License-Identifier: MIT
// The entry points about the library, its files and their objects.
#include "Access.h"
#include "Errors.h"

#include <cpl_conv.h>
#include <cpl_string.h>

#include <algorithm>
#include <cstring>

namespace tessera::mitab {
namespace {

constexpr int Version = 1007000;

}  // namespace

int CopyText(const std::string &text, char *buffer, int size) {
  if (buffer == nullptr || size <= 0) return 0;
  const std::size_t length = std::min(text.size(), std::size_t(size) - 1);
  std::memcpy(buffer, text.data(), length);
  buffer[length] = '\0';
  return int(length);
}

MITAB_API int mitab_c_getlibversion() {
  return Version;
}

MITAB_API int mitab_c_getlasterrorno() {
  return CPLGetLastErrorNo();
}

MITAB_API const char *mitab_c_getlasterrormsg() {
  return CPLGetLastErrorMsg();
}

MITAB_API int mitab_c_getlasterrormsg_vb(char *message, int size) {
  return CopyText(CPLGetLastErrorMsg(), message, size);
}

MITAB_API void *mitab_c_open(const char *fileName) {
  if (fileName == nullptr) return nullptr;
  return Guarded<Table *>(nullptr, [&] { return Table::Open(fileName).release(); });
}

MITAB_API void mitab_c_close(void *handle) {
  Guarded(0, [&] {
    const std::unique_ptr<Table> closed(TableOf(handle));
    return 0;
  });
}

MITAB_API void *mitab_c_create(const char *fileName, const char *mifOrTab, const char *coordSys, double north,
                               double south, double east, double west) {
  if (fileName == nullptr) return nullptr;
  const FileKind kind = EQUAL(TextOf(mifOrTab).c_str(), "mif") ? FileKind::Mif : FileKind::Tab;
  return Guarded<Table *>(nullptr, [&] {
    return Table::Create(fileName, kind, TextOf(coordSys), {west, south, east, north}).release();
  });
}

MITAB_API int mitab_c_set_quick_spatial_index_mode(void *handle) {
  return handle != nullptr && TableOf(handle)->SetQuickIndex() ? 0 : -1;
}

/// Beyond the interface: chooses the character set of a new file, before its first object. 0, or -1 for an unknown one.
/// Where this entry point is, names, values and texts go in and out in UTF-8; those of a Neutral file as they stand.
MITAB_API int tessera_mitab_set_charset(void *handle, const char *charset) {
  return handle != nullptr && TableOf(handle)->SetCharset(TextOf(charset)) ? 0 : -1;
}

MITAB_API int mitab_c_get_feature_count(void *handle) {
  return handle == nullptr ? 0 : Guarded(0, [&] { return TableOf(handle)->GetCount(); });
}

MITAB_API int mitab_c_next_feature_id(void *handle, int lastId) {
  if (handle == nullptr) return -1;
  if (const int plain = TableOf(handle)->NextPlainId(lastId); plain > 0) {
    CPLErrorReset();
    return plain;
  }
  const int id = Guarded(-1, [&] { return TableOf(handle)->NextId(lastId); });
  // An error tells the caller that the end is none.
  if (CPLGetLastErrorType() < CE_Failure) CPLErrorReset();
  return id;
}

MITAB_API void *mitab_c_read_feature(void *handle, int id) {
  if (handle == nullptr) return nullptr;
  // Nearly all objects are plain.
  if (auto plain = Unguarded([&] { return TableOf(handle)->ReadPlain(id); })) return plain.release();
  return Guarded<Feature *>(nullptr, [&] { return TableOf(handle)->Read(id).release(); });
}

MITAB_API void mitab_c_destroy_feature(void *feature) {
  const std::unique_ptr<Feature> destroyed(FeatureOf(feature));
}

MITAB_API void *mitab_c_create_feature(void *handle, int kind) {
  if (handle == nullptr || kind < 0 || kind >= KindCount) return nullptr;
  return Guarded<Feature *>(nullptr, [&] { return MakeFeature(Kind(kind), TableOf(handle)->GetColumns()).release(); });
}

MITAB_API int mitab_c_write_feature(void *handle, void *feature) {
  if (handle == nullptr || feature == nullptr) return 0;
  return Guarded(0, [&] { return TableOf(handle)->Write(*FeatureOf(feature)) ? 1 : 0; });
}

MITAB_API const char *mitab_c_get_mif_coordsys(void *handle) {
  if (handle == nullptr || TableOf(handle)->GetCoordSys().empty()) return nullptr;
  return TableOf(handle)->GetCoordSys().c_str();
}

MITAB_API int mitab_c_get_mif_coordsys_vb(void *handle, char *coordSys, int size) {
  const char *text = mitab_c_get_mif_coordsys(handle);
  return text == nullptr ? 0 : CopyText(text, coordSys, size);
}

MITAB_API const char *mitab_c_get_extended_mif_coordsys(void *handle) {
  return mitab_c_get_mif_coordsys(handle);
}

MITAB_API int mitab_c_get_extended_mif_coordsys_vb(void *handle, char *coordSys, int size) {
  return mitab_c_get_mif_coordsys_vb(handle, coordSys, size);
}

MITAB_API int mitab_c_load_coordsys_table(const char *fileName) {
  CPLSetConfigOption("MITAB_BOUNDS_FILE", fileName);
  return 0;
}

}  // namespace tessera::mitab
