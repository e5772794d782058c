// SPDX-License-Identifier: MIT
#include "Table.h"

#include "Conversion.h"
#include "NativeTypes.h"
#include "Styles.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <typeinfo>

namespace tessera::mitab {
namespace {

constexpr const char *DriverName = "MapInfo File";

GDALDriver *Driver() {
  RegisterOGRTAB();
  return GetGDALDriverManager()->GetDriverByName(DriverName);
}

bool HasExtension(const std::string &fileName, const char *extension) {
  return EQUAL(CPLGetExtension(fileName.c_str()), extension);
}

/// GDAL would open a folder, too.
bool IsTableFile(const std::string &fileName) {
  VSIStatBufL info;
  if (!HasExtension(fileName, "tab") && !HasExtension(fileName, "mif")) return false;
  return VSIStatExL(fileName.c_str(), &info, VSI_STAT_EXISTS_FLAG | VSI_STAT_NATURE_FLAG) == 0 &&
         VSI_ISREG(info.st_mode);
}

bool CanBeMade(const std::string &fileName) {
  VSILFILE *file = VSIFOpenL(fileName.c_str(), "wb");
  return file != nullptr && VSIFCloseL(file) == 0;
}

std::string WithoutWord(std::string coordSys) {
  constexpr const char *Word = "CoordSys ";
  if (STARTS_WITH_CI(coordSys.c_str(), Word)) coordSys.erase(0, std::string_view(Word).size());
  return coordSys;
}

/// The clause without its bounds.
std::string WithoutBounds(const std::string &coordSys) {
  const std::size_t at = CPLString(coordSys).ifind(" Bounds");
  return coordSys.substr(0, at);
}

/// The clause for a reference system; empty without one.
std::string CoordSysOf(const OGRSpatialReference *reference) {
  char *text = nullptr;
  if (reference == nullptr || reference->exportToMICoordSys(&text) != OGRERR_NONE || text == nullptr) return {};
  const std::unique_ptr<char, void (*)(void *)> owner(text, VSIFree);
  return WithoutBounds(text);
}

/// The bounds in a clause such as "NonEarth Units \"m\" Bounds (0, 0) (100, 100)", none given elsewhere.
TableBounds BoundsIn(const std::string &coordSys) {
  const std::size_t at = CPLString(coordSys).ifind("Bounds");
  if (at == std::string::npos) return {};
  const CPLStringList words(CSLTokenizeString2(coordSys.c_str() + at, " \t(),", 0));
  constexpr int Count = 5;
  if (words.size() < Count) return {};
  return {CPLAtof(words[1]), CPLAtof(words[2]), CPLAtof(words[3]), CPLAtof(words[4])};
}

}  // namespace

std::unique_ptr<Table> Table::Open(const std::string &fileName) {
  if (!IsTableFile(fileName) || Driver() == nullptr) return nullptr;
  const char *const drivers[] = {DriverName, nullptr};
  std::unique_ptr<Table> table(new Table(fileName));
  table->m_dataset.reset(GDALDataset::Open(fileName.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers));
  if (!table->m_dataset || table->m_dataset->GetLayerCount() == 0) return nullptr;
  table->m_layer = table->m_dataset->GetLayer(0);
  if (HasExtension(fileName, "mif")) table->m_kind = FileKind::Mif;
  const Header header = ReadHeader(fileName);
  table->m_coordSys = header.coordSys.empty() ? CoordSysOf(table->m_layer->GetSpatialRef()) : header.coordSys;
  table->FillColumns(header.columns);
  // A table made up of others looks the same in its text.
  const OGRLayer &layer = *table->m_layer;
  const bool isOne = std::string_view(typeid(layer).name()).ends_with("TABFile");
  if (isOne) table->m_plain = PlainObjects::Open(fileName, header, table->m_columns);
  return table;
}

std::unique_ptr<Table> Table::Create(const std::string &fileName, FileKind kind, const std::string &coordSys,
                                     const TableBounds &bounds) {
  if (Driver() == nullptr || !CanBeMade(fileName)) return nullptr;
  std::unique_ptr<Table> table(new Table(fileName));
  table->m_isNew = true;
  table->m_kind = kind;
  table->m_coordSys = WithoutWord(coordSys);
  table->m_bounds = bounds.IsGiven() ? bounds : BoundsIn(coordSys);
  return table;
}

Table::~Table() {
  if (IsBeingDefined()) LayOut();
  if (!m_isNew || !m_dataset) return;
  m_dataset.reset();
  static_cast<void>(GiveNativeTypes(m_fileName, m_kind, *m_columns));
}

void Table::FillColumns(const Columns &told) {
  auto columns = std::make_shared<Columns>();
  const OGRFeatureDefn &definition = *m_layer->GetLayerDefn();
  for (int i = 0; i < definition.GetFieldCount(); ++i) {
    Column column = ColumnOf(*definition.GetFieldDefn(i));
    const bool isTold = int(told.size()) == definition.GetFieldCount();
    if (isTold) {
      const Column &native = told[std::size_t(i)];
      const bool isHidden = native.type == ColumnType::SmallInt || native.type == ColumnType::Logical;
      if (isHidden) column.type = native.type;
      column.isIndexed = native.isIndexed;
      column.isUnique = native.isUnique;
    }
    columns->push_back(std::move(column));
  }
  m_columns = std::move(columns);
}

int Table::GetCount() {
  if (m_isNew || m_layer == nullptr) return 0;
  // GDAL counts by reading all of the file, unless it is told not to.
  const GIntBig known = m_layer->GetFeatureCount(FALSE);
  const GIntBig count = known >= 0 ? known : m_layer->GetFeatureCount(TRUE);
  return int(std::clamp<GIntBig>(count, 0, std::numeric_limits<int>::max()));
}

int Table::NextId(int lastId) {
  if (m_isNew || m_layer == nullptr) return -1;
  GoBehind(lastId);
  do {
    m_next.reset(m_layer->GetNextFeature());
    if (!m_next) return -1;
    m_position = IdOf(*m_next);
  } while (m_position <= lastId);
  return m_position;
}

void Table::GoBehind(int id) {
  if (id == m_position && id >= 0) return;
  const bool canJump = m_plain && id > 0;
  if (canJump && Fetch(id)) return;  // GDAL reads on from there
  if (id > m_position && id >= 0) return;
  m_layer->ResetReading();
  m_position = -1;
}

int Table::IdOf(const OGRFeature &row) {
  const GIntBig id = row.GetFID();
  // A seamless table gives numbers that say which of its files a row is from.
  m_isCounted |= id > std::numeric_limits<int>::max();
  return m_isCounted ? std::max(m_position, 0) + 1 : int(id);
}

OGRFeatureUniquePtr Table::Fetch(int id) {
  if (m_next && m_position == id) return std::move(m_next);
  if (m_kind == FileKind::Tab && !m_isCounted) {
    m_position = id;  // GDAL reads on from there
    m_next.reset();
    return OGRFeatureUniquePtr(m_layer->GetFeature(id));
  }
  // GDAL does not find its way back in a text.
  return NextId(id - 1) == id ? std::move(m_next) : nullptr;
}

std::unique_ptr<Feature> Table::Read(int id) {
  if (m_isNew || m_layer == nullptr || id < 0) return nullptr;
  OGRFeatureUniquePtr row = Fetch(id);
  if (!row) return nullptr;
  auto feature = FromOgr(std::move(row), m_columns, m_styles);
  if (m_plain) m_plain->Learn(id, *feature);
  if (feature->kind == Kind::Text && m_kind == FileKind::Mif) StraightenLabel(*feature);
  return feature;
}

int Table::NextPlainId(int lastId) {
  if (!m_plain || lastId == std::numeric_limits<int>::max()) return 0;
  const int next = std::max(lastId, 0) + 1;
  return m_plain->Has(next) ? next : 0;
}

std::unique_ptr<Feature> Table::ReadPlain(int id) {
  return m_plain ? m_plain->Read(id) : nullptr;
}

bool Table::SetCharset(const std::string &charset) {
  if (!IsBeingDefined() || !EncodingOf(charset)) return false;
  m_charset = charset;
  return true;
}

bool Table::SetQuickIndex() {
  if (!IsBeingDefined() || m_kind != FileKind::Tab) return false;
  m_isQuick = true;
  return true;
}

bool Table::Add(Column column) {
  if (!IsBeingDefined()) return false;
  auto columns = std::make_shared<Columns>(*m_columns);
  columns->push_back(std::move(column));
  m_columns = std::move(columns);
  return true;
}

bool Table::LayOut() {
  CPLStringList forFile;
  forFile.SetNameValue("FORMAT", m_kind == FileKind::Mif ? "MIF" : "TAB");
  forFile.SetNameValue("SPATIAL_INDEX_MODE", m_isQuick ? "QUICK" : "OPTIMIZED");
  m_dataset.reset(Driver()->Create(m_fileName.c_str(), 0, 0, 0, GDT_Unknown, forFile.List()));
  if (!m_dataset) return false;
  CPLStringList forTable;
  forTable.SetNameValue("ENCODING", EncodingOf(m_charset).value_or("").c_str());
  if (m_bounds.IsGiven()) {
    forTable.SetNameValue(
        "BOUNDS", CPLSPrintf("%.15g,%.15g,%.15g,%.15g", m_bounds.west, m_bounds.south, m_bounds.east, m_bounds.north));
  }
  OGRSpatialReference reference;
  const bool hasReference = !m_coordSys.empty() && reference.importFromMICoordSys(m_coordSys.c_str()) == OGRERR_NONE;
  m_layer = m_dataset->CreateLayer(CPLGetBasename(m_fileName.c_str()), hasReference ? &reference : nullptr, wkbUnknown,
                                   forTable.List());
  if (m_layer == nullptr) return false;
  return std::all_of(m_columns->begin(), m_columns->end(), [this](const Column &column) {
    return m_layer->CreateField(DefinitionOf(column).get()) == OGRERR_NONE;
  });
}

bool Table::Write(const Feature &feature) {
  if (!m_isNew || (m_layer == nullptr && !LayOut()) || m_layer == nullptr) return false;
  const OGRFeatureUniquePtr row = ToOgr(feature, *m_layer->GetLayerDefn());
  return row != nullptr && m_layer->CreateFeature(row.get()) == OGRERR_NONE;
}

}  // namespace tessera::mitab
