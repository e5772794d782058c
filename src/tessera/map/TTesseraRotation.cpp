// SPDX-License-Identifier: MIT
// Rotation of the map: of its data, not of its view.
#include <tessera/editing/detail/EditHistory.h>
#include <tessera/map/detail/TesseraPrivate.h>

namespace tessera {

void TTessera::RotateMap(double x, double y, double angleDeg) {
  const TMapPoint center = d->rotation.GetCenter();
  if (angleDeg == d->rotation.GetAngle() && x == center.X && y == center.Y) return;
  if (UnRotate() && angleDeg == 0) {
    DoUpdate(true);
    return;
  }
  d->rotation = detail::MapRotation(x, y, angleDeg);
  Rotate();
  DoUpdate(true);
}

void TTessera::Rotate() {
  if (d->undoStack) detail::EditHistory::Of(*d->undoStack).DropSteps();
  for (const auto &layer : d->layers->Items()) {
    for (int i = 0; i < layer->GetObjectCount(); ++i) {
      TParts &parts = layer->GetObjects(i)->GetParts();
      for (TPart &part : parts.Items()) {
        part.GetPoints().Transform([this](const TMapPoint &p) { return d->rotation.Rotate(p.X, p.Y); });
      }
    }
  }
}

bool TTessera::UnRotate() {
  // A rotation by no angle counts as one only when its centre lies off both axes, which is intended.
  const TMapPoint center = d->rotation.GetCenter();
  if (d->rotation.GetAngle() == 0 && (center.X == 0 || center.Y == 0)) return false;
  d->rotation.TurnBack();
  Rotate();
  d->rotation.Reset();
  return true;
}

double TTessera::RotateX(double x, double y) const {
  return d->rotation.Rotate(x, y).X;
}
double TTessera::RotateY(double x, double y) const {
  return d->rotation.Rotate(x, y).Y;
}
double TTessera::UnRotateX(double x, double y) const {
  return d->rotation.UnRotate(x, y).X;
}
double TTessera::UnRotateY(double x, double y) const {
  return d->rotation.UnRotate(x, y).Y;
}
bool TTessera::GetisMapRotated() const {
  return d->rotation.GetAngle() != 0;
}
double TTessera::GetRotationAngle() const {
  return d->rotation.GetAngle();
}
TMapPoint TTessera::GetRotationCenter() const {
  return d->rotation.GetCenter();
}

void TTessera::NormalToRotated(double x, double y, double &rx, double &ry) const {
  const TMapPoint point = GetisMapRotated() ? d->rotation.Rotate(x, y) : TMapPoint{x, y};
  rx = point.X;
  ry = point.Y;
}

void TTessera::RotatedToNormal(double x, double y, double &nx, double &ny) const {
  const TMapPoint point = GetisMapRotated() ? d->rotation.UnRotate(x, y) : TMapPoint{x, y};
  nx = point.X;
  ny = point.Y;
}

}  // namespace tessera
