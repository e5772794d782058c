// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/SelectionChange.h>
#include <tessera/map/TTessera.h>

#include <QPointer>

namespace tessera {
namespace {

/// With more changes than this the map is painted once, and not with each.
constexpr std::size_t FewChanges = 100;

}  // namespace

void ChangeSelection(TTessera &map, const TObjectHandles &gone, const TObjectHandles &come) {
  const QPointer<TTessera> shown = &map;
  const auto isOnMap = [&](const auto &object) { return shown && object && object->GetMap() == shown; };
  const bool isOnePicture = come.size() + gone.size() > FewChanges && !map.GetInUpdate();
  if (isOnePicture) map.BeginUpdate();
  AllSteps steps;
  for (const auto &object : gone) {
    if (isOnMap(object)) steps.Try([&] { shown->GetSelection()->Remove(object.Get()); });
  }
  for (const auto &object : come) {
    if (isOnMap(object)) steps.Try([&] { shown->GetSelection()->Add(object.Get(), false); });
  }
  if (isOnePicture && shown) steps.Try([&] { shown->EndUpdate(true); });
  steps.Rethrow();
}

}  // namespace tessera
