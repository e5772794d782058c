// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>

namespace tessera {

TTessera *TTesseraEvents::Sender() {
  return static_cast<TTessera *>(this);
}

void TTesseraEvents::FireAddLayer(TMapLayer &layer) {
  Q_EMIT OnAddLayer(Sender(), &layer);
}
void TTesseraEvents::FireBeforeDelLayer(TMapLayer &layer, bool confirmDelete, bool &allowDelete) {
  Q_EMIT OnBeforeDelLayer(Sender(), &layer, confirmDelete, allowDelete);
}
void TTesseraEvents::FireAfterDelLayer() {
  Q_EMIT OnAfterDelLayer(Sender());
}
void TTesseraEvents::FireAddObject(TCustomMapObject &object) {
  Q_EMIT OnAddObject(Sender(), &object);
}
void TTesseraEvents::FireBeforeRemoveObject(TCustomMapObject &object, bool &canRemove) {
  Q_EMIT OnBeforeRemoveObject(Sender(), &object, canRemove);
}
void TTesseraEvents::FireAfterRemoveObject() {
  Q_EMIT OnAfterRemoveObject(Sender());
}
void TTesseraEvents::FireDeleteObject(TCustomMapObject &object) {
  Q_EMIT OnDeleteObject(&object);
}
void TTesseraEvents::FireAddSelection(TCustomMapObject &object) {
  Q_EMIT OnAddSelection(Sender(), &object);
}
void TTesseraEvents::FireDelSelection(TCustomMapObject &object) {
  Q_EMIT OnDelSelection(Sender(), &object);
}
void TTesseraEvents::FireUpdate() {
  Q_EMIT OnUpdate(Sender());
}

void TTesseraEvents::StartProgress(int min, int max, const QString &caption) {
  Q_EMIT OnStartProgress(Sender(), min, max, caption);
}
void TTesseraEvents::ShowProgress(int position) {
  Q_EMIT OnShowProgress(Sender(), position);
}
void TTesseraEvents::StopProgress() {
  Q_EMIT OnStopProgress(Sender());
}

}  // namespace tessera
