// SPDX-License-Identifier: MIT
#include "EditBench.h"

#include <tessera/layers/TSelection.h>
#include <tessera/objects/TSymbol.h>

#include <algorithm>
#include <random>
#include <unordered_set>

namespace tessera::bench {
namespace {

constexpr double MillisecondsPerSecond = 1000;

double MillisecondsOf(const std::function<void()> &work) {
  return MillisecondsPerSecond * SecondsOf(work);
}

/// A part of the layer, a sixteenth as wide.
BareView MiddleOf(const TMapLayer &layer, QSize size) {
  TBounds all = TBounds::Empty();
  for (int i = 0; i < layer.GetObjectCount(); ++i) all.Widen(layer.GetObjects(i)->GetBounds());
  return {{(all.MinX + all.MaxX) / 2, (all.MinY + all.MaxY) / 2}, (all.MaxX - all.MinX) / size.width() / 16, size};
}

/// Moves a region by one of its vertices.
void MoveVertex(TCustomMapObject &object, double by) {
  TMapPoints &points = object.GetParts().GetFirst().GetPoints();
  TMapPoint vertex = points.GetPoint(0);
  vertex.X += by;
  points.SetPoint(0, vertex);
  object.UpdateBounds();
}

/// One object of every `share`, in an order that has nothing to do with that of the layer.
std::vector<TCustomMapObject *> Choose(const TMapLayer &layer, int share) {
  std::vector<TCustomMapObject *> chosen;
  for (int i = 0; i < layer.GetObjectCount(); i += share) chosen.push_back(layer.GetObjects(i));
  std::shuffle(chosen.begin(), chosen.end(), std::mt19937(1));
  return chosen;
}

void DeleteFrom(TMapLayer &layer, std::span<TCustomMapObject *const> objects) {
  layer.DeleteObjects(objects);
}

/// A list of as many points as the layer, and nothing that knows of it.
std::vector<std::unique_ptr<TSymbol>> MakePlainList(int count) {
  std::vector<std::unique_ptr<TSymbol>> list;
  list.reserve(std::size_t(count));
  for (int i = 0; i < count; ++i) list.push_back(std::make_unique<TSymbol>());
  return list;
}

}  // namespace

void EditBench::MeasureNextPicture(const QString &regionsPath, int runs) {
  TesseraSide regions(regionsPath, m_size);
  regions.Show(MiddleOf(regions.Layer(), m_size));
  auto *symbol = regions.Control().GetLayers()->Add(QString(), QStringLiteral("other"))->NewObject<TSymbol>();
  TesseraSide otherMap(m_size);
  auto *farSymbol = otherMap.Layer().NewObject<TSymbol>();
  TCustomMapObject &own = *regions.Layer().First();
  double at = 0;
  struct Edit {
    QString what;
    std::function<void()> make;
  };
  const Edit edits[] = {{QStringLiteral("a symbol of another layer"), [&] { symbol->MoveTo(++at, 0); }},
                        {QStringLiteral("a symbol of another map"), [&] { farSymbol->MoveTo(++at, 0); }},
                        {QStringLiteral("one of its regions"), [&] { MoveVertex(own, 1e-6); }}};
  regions.Draw();
  const auto unchanged = [&] { return MillisecondsOf([&] { regions.Draw(); }); };
  for (const Edit &edit : edits) {
    const auto edited = [&] {
      edit.make();
      return unchanged();
    };
    m_table.Measure({QStringLiteral("E picture of 1/256 after moving %1").arg(edit.what),
                     QStringLiteral("ms"),
                     edited,
                     unchanged,
                     {}},
                    runs);
  }
}

void EditBench::MeasureDeleting(const QString &pointsPath, int runs) {
  TesseraSide points(pointsPath, m_size);
  for (const int share : {1000, 100}) MeasureDeleting(points.Layer(), share, runs);
}

void EditBench::MeasureDeleting(TMapLayer &layer, int share, int runs) {
  const int count = layer.GetObjectCount();
  std::vector<std::unique_ptr<TSymbol>> plain = MakePlainList(count);
  const auto ours = [&] {
    const std::vector<TCustomMapObject *> chosen = Choose(layer, share);
    const double ms = MillisecondsOf([&] { DeleteFrom(layer, chosen); });
    while (layer.GetObjectCount() < count) layer.NewObject<TSymbol>();
    return ms;
  };
  const auto reference = [&] {
    std::unordered_set<const TSymbol *> chosen;
    for (std::size_t i = 0; i < plain.size(); i += std::size_t(share)) chosen.insert(plain[i].get());
    const double ms = MillisecondsOf(
        [&] { std::erase_if(plain, [&chosen](const auto &each) { return chosen.contains(each.get()); }); });
    while (plain.size() < std::size_t(count)) plain.push_back(std::make_unique<TSymbol>());
    return ms;
  };
  const QString title = QStringLiteral("E deleting %1 of %2 points").arg(count / share).arg(count);
  m_table.Measure({title, QStringLiteral("ms"), ours, reference, {}}, runs);
}

void EditBench::MeasureHiding(const QString &pointsPath, int runs) {
  TesseraSide points(pointsPath, m_size);
  TMapLayer &layer = points.Layer();
  points.Show(MiddleOf(layer, m_size));
  const std::vector<TCustomMapObject *> chosen = Choose(layer, 25);
  TSelection &selection = *points.Control().GetSelection();
  const auto select = [&] {
    for (TCustomMapObject *object : chosen) selection.Add(object, false);
  };
  const auto hide = [&] {
    select();
    const double ms = MillisecondsOf([&] { layer.SetVisible(false); });
    layer.SetVisible(true);
    return ms;
  };
  // As many highlights as are to go, drawn in one go.
  const auto highlight = [&] {
    select();
    const double ms = MillisecondsOf([&] { selection.Paint(); });
    selection.Clear();
    return ms;
  };
  m_table.Measure({QStringLiteral("E hiding a layer with %1 selected points").arg(chosen.size()),
                   QStringLiteral("ms"),
                   hide,
                   highlight,
                   {}},
                  runs);
}

}  // namespace tessera::bench
