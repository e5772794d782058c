// SPDX-License-Identifier: MIT
// The map as its layers and objects see it.
#include <tessera/map/detail/TesseraPrivate.h>

namespace tessera {

bool TTessera::IsReadyToPaint() const {
  return !d->isBeingDestroyed && width() > 0 && height() > 0;
}

bool TTessera::IsBeingDestroyed() const {
  return d->isBeingDestroyed;
}

detail::ScreenOutliner &TTessera::GetOutliner() {
  const TViewport &viewport = GetViewport();
  if (!d->outliner || !d->outliner->IsFor(viewport, d->flags)) d->outliner.emplace(viewport, d->flags);
  return *d->outliner;
}

void TTessera::RegisterDisplayed(TCustomMapObject &object) {
  d->displayed->Add(object);
}
void TTessera::UnregisterDisplayed(TCustomMapObject &object) {
  d->displayed->Remove(object);
}
bool TTessera::IsSelected(const TCustomMapObject &object) const {
  return d->selection->Holds(&object);
}
void TTessera::SelectAlone(TCustomMapObject &object) {
  d->selection->Add(&object, true);
}

void TTessera::Deselect(TCustomMapObject &object) {
  // An object can be in the selection more than once.
  while (d->selection->Holds(&object)) d->selection->Remove(&object);
}

void TTessera::DeselectLayer(TMapLayer &layer) {
  d->selection->RemoveLayer(&layer);
}

void TTessera::DrawSelectionOf(const TMapLayer &layer) {
  for (TCustomMapObject *object : d->selection->Items()) {
    if (object->GetObjectLayer() == &layer) object->DrawSelection();
  }
}

void TTessera::TraceMapEvent(TMapDataLinkEvent event, TObject *sender) {
  d->dataLinks->TraceMapEvent(event, sender);
}

void TTessera::FireAddLayer(TMapLayer &layer) {
  Q_EMIT OnAddLayer(this, &layer);
}
void TTessera::FireBeforeDelLayer(TMapLayer &layer, bool confirmDelete, bool &allowDelete) {
  Q_EMIT OnBeforeDelLayer(this, &layer, confirmDelete, allowDelete);
}
void TTessera::FireAfterDelLayer() {
  Q_EMIT OnAfterDelLayer(this);
}
void TTessera::FireAddObject(TCustomMapObject &object) {
  Q_EMIT OnAddObject(this, &object);
}
void TTessera::FireDeleteObject(TCustomMapObject &object) {
  Q_EMIT OnDeleteObject(&object);
}
void TTessera::FireAddSelection(TCustomMapObject &object) {
  Q_EMIT OnAddSelection(this, &object);
}
void TTessera::FireDelSelection(TCustomMapObject &object) {
  Q_EMIT OnDelSelection(this, &object);
}
void TTessera::FireUpdate() {
  Q_EMIT OnUpdate(this);
}

void TTessera::StartProgress(int min, int max, const QString &caption) {
  Q_EMIT OnStartProgress(this, min, max, caption);
}
void TTessera::ShowProgress(int position) {
  Q_EMIT OnShowProgress(this, position);
}
void TTessera::StopProgress() {
  Q_EMIT OnStopProgress(this);
}

const TObjectStylePtr &TTessera::GetDefaultStyle(TObjectFont font) const {
  return d->options->GetStyle(font);
}

void TTessera::EndEditingOfOthers(TMapLayer &layer) {
  for (const auto &other : d->layers->Items()) {
    if (other.get() != &layer && other->GetEditable()) other->SetEditable(false);
  }
}

}  // namespace tessera
