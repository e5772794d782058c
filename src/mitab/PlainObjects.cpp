// SPDX-License-Identifier: MIT
#include "PlainObjects.h"

#include "Shapes.h"

namespace tessera::mitab {

std::unique_ptr<PlainObjects> PlainObjects::Open(const std::string &tabName, const Header &header,
                                                 std::shared_ptr<const Columns> columns) {
  const auto encoding = EncodingOf(header.charset);
  if (!header.isNative || !encoding) return nullptr;
  std::unique_ptr<PlainObjects> objects(new PlainObjects);
  objects->m_records = Records::Open(tabName, *columns, *encoding);
  if (!objects->m_records) return nullptr;
  objects->m_shapes = MapFile::Open(tabName);
  objects->m_columns = std::move(columns);
  return objects->m_shapes ? std::move(objects) : nullptr;
}

bool PlainObjects::Has(int id) {
  if (id == m_id) return m_found.has_value();
  m_id = id;
  m_found = m_records->RecordOf(id).empty() ? std::nullopt : m_shapes->Find(id);
  return m_found.has_value();
}

std::unique_ptr<Feature> PlainObjects::Read(int id) {
  const auto known = Has(id) ? m_looks.find(m_found->look) : m_looks.end();
  if (known == m_looks.end()) return nullptr;
  auto feature = std::make_unique<Feature>();
  if (!m_shapes->ReadShape(*m_found, *feature)) return nullptr;
  if (feature->kind == Kind::Region) feature->kind = KindOfRings(feature->parts);
  feature->style = known->second;
  feature->columns = m_columns;
  feature->records = m_records;
  feature->id = id;
  return feature;
}

void PlainObjects::Learn(int id, const Feature &feature) {
  if (Has(id)) m_looks.emplace(m_found->look, feature.style);
}

}  // namespace tessera::mitab
