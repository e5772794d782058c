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

QUndoStack *TTessera::GetUndoStack() const {
  return d->undoStack;
}
void TTessera::SetUndoStack(QUndoStack *stack) {
  d->undoStack = stack;
}

const TObjectStylePtr &TTessera::GetDefaultStyle(TObjectFont font) const {
  return d->options->GetStyle(font);
}

}  // namespace tessera
