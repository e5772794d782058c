// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/ObjectState.h>

#include <utility>

namespace tessera::detail {

bool IsSeen(const TCustomMapObject &object, TObjectAspects aspects) {
  using enum TObjectAspect;
  const TObjectLayer *layer = object.GetObjectLayer();
  return (aspects & (Geometry | Style)) || (layer && layer->GetAutoLabel());
}

void TellOfGeometry(TCustomMapObject &object) {
  if (object.GetObjectLayer()) object.GetObjectLayer()->NoteChange(object, mdlObjectGeometryChanged);
}

ObjectState::ObjectState(TCustomMapObject &object, TObjectAspects aspects) : m_object(&object), m_aspects(aspects) {
  using enum TObjectAspect;
  if (aspects & (Geometry | Style)) m_traits = object.GetTraits();
  // Tools, box and vertices of such kinds depend on each other.
  if (m_traits) aspects |= Geometry | Style;
  if (aspects & Style) m_style = object.GetStyle();
  if (aspects & Values) m_values = object.GetFields();
  if ((aspects & Geometry) == 0) return;
  m_geometry = std::make_unique<TCustomMapObject>();
  m_geometry->GetParts().Assign(object.GetParts());
}

ObjectState::ObjectState(TCustomMapObject &object, TParts &parts)
    : m_object(&object), m_aspects(TObjectAspect::Geometry), m_geometry(std::make_unique<TCustomMapObject>()) {
  object.SetParts(parts);
  m_geometry->SetParts(parts);
}

void ObjectState::ExchangeStyle() {
  const TObjectStylePtr present = std::as_const(*m_object.Get()).GetStyle();
  const TObjectStylePtr wanted = std::exchange(*m_style, present);
  if (wanted.constData() != present.constData()) m_object->SetStyle(wanted);
}

void ObjectState::ExchangeValues() {
  TDataFields &fields = m_object->GetFields();
  // Values without their columns, which a program may have changed behind the back of this.
  if (fields.GetCount() != m_values->GetCount()) return;
  const TDataFields present = fields;
  const TDataFields wanted = std::exchange(*m_values, present);
  fields.SetRecord(wanted.GetRecord().Bytes());
}

bool ObjectState::Exchange() {
  if (!m_object) return false;
  auto traits = m_traits ? m_object->GetTraits() : nullptr;
  if (m_geometry) m_object->SetParts(m_geometry->GetParts());
  AllSteps steps;
  if (m_style) steps.Try([this] { ExchangeStyle(); });
  // After the style, for a text fits its box to its font.
  if (m_object && traits) m_object->SetTraits(*m_traits);
  if (traits) m_traits = std::move(traits);
  if (m_object && m_values) steps.Try([this] { ExchangeValues(); });
  if (m_object) steps.Try([this] { TellOfGeometry(); });
  steps.Rethrow();
  return true;
}

void ObjectState::TellOfGeometry() {
  if (m_geometry) detail::TellOfGeometry(*m_object.Get());
}

}  // namespace tessera::detail
