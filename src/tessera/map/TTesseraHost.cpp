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

void TTessera::TraceMapEvent(TMapDataLinkEvent event, TObject *sender) {
  d->dataLinks->TraceMapEvent(event, sender);
}

bool TTessera::IsFollowed() const {
  return d->dataLinks->GetCount() > 0;
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
void TTessera::FireBeforeRemoveObject(TCustomMapObject &object, bool &canRemove) {
  Q_EMIT OnBeforeRemoveObject(this, &object, canRemove);
}
void TTessera::FireAfterRemoveObject() {
  Q_EMIT OnAfterRemoveObject(this);
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

}  // namespace tessera
