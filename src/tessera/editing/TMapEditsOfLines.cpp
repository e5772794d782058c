// SPDX-License-Identifier: MIT
// Edits of lines as a whole, and of the places of objects among each other.
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/detail/LineJoiner.h>
#include <tessera/editing/detail/ShownBounds.h>
#include <tessera/objects/TPolyline.h>

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

namespace tessera {
namespace {

using Points = std::span<const TMapPoint>;

void AddPart(TParts &parts, Points points) {
  TMapPoints &added = parts.Add().GetPoints();
  added.Reserve(points.size());
  for (const TMapPoint &point : points) added.Add(point);
}

/// The way that brings bounds to their place in others.
TMapPoint WayTo(TMapAlignment alignment, const TBounds &frame, const TBounds &bounds) {
  switch (alignment) {
    case TMapAlignment::Left:
      return {frame.MinX - bounds.MinX, 0};
    case TMapAlignment::Right:
      return {frame.MaxX - bounds.MaxX, 0};
    case TMapAlignment::Top:
      return {0, frame.MaxY - bounds.MaxY};
    case TMapAlignment::Bottom:
      return {0, frame.MinY - bounds.MinY};
    case TMapAlignment::CentersX:
      return {std::midpoint(frame.MinX, frame.MaxX) - std::midpoint(bounds.MinX, bounds.MaxX), 0};
    default:
      return {0, std::midpoint(frame.MinY, frame.MaxY) - std::midpoint(bounds.MinY, bounds.MaxY)};
  }
}

/// Lines that become one.
struct JoinedLines {
  THandle<TCustomMapObject> stays;
  std::vector<THandle<TCustomMapObject>> go;
  std::vector<std::vector<TMapPoint>> parts;
  bool isChanged = false;
};

/// The lines of one layer among objects, each once: of that of the first.
std::vector<TCustomMapObject *> LinesOf(TMapEdits::Objects objects) {
  std::vector<TCustomMapObject *> lines;
  std::unordered_set<const TCustomMapObject *> known;
  for (TCustomMapObject *object : objects) {
    const auto *line = dynamic_cast<TPolyline *>(object);
    if (line == nullptr || !TMapEdits::HasFreeVertices(*line)) continue;
    const bool isOther = !lines.empty() && line->GetObjectLayer() != lines.front()->GetObjectLayer();
    if (!isOther && known.insert(line).second) lines.push_back(object);
  }
  return lines;
}

/// The first line of the group that a line belongs to.
std::size_t GroupOf(const std::vector<std::size_t> &groups, std::size_t line) {
  while (groups[line] != line) line = groups[line];
  return line;
}

/// Which lines become one: for each another one of its group that stands before it, or itself.
std::vector<std::size_t> GroupsOf(const std::vector<detail::LineJoiner::Joined> &all,
                                  const std::vector<std::size_t> &owners, std::size_t count) {
  std::vector<std::size_t> groups(count);
  std::iota(groups.begin(), groups.end(), 0);
  for (const auto &joined : all) {
    for (const std::size_t piece : joined.lines) {
      const std::size_t one = GroupOf(groups, owners[piece]);
      const std::size_t other = GroupOf(groups, owners[joined.lines.front()]);
      groups[std::max(one, other)] = std::min(one, other);
    }
  }
  return groups;
}

std::vector<JoinedLines> PlanJoining(const std::vector<TCustomMapObject *> &lines, double distance) {
  detail::LineJoiner joiner(distance);
  std::vector<std::size_t> owners;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    for (const TPart &part : std::as_const(*lines[line]).GetParts().Items()) {
      joiner.Add(part.GetPoints().Points());
      owners.push_back(line);
    }
  }
  auto all = joiner.Join();
  const std::vector<std::size_t> groups = GroupsOf(all, owners, lines.size());
  std::vector<JoinedLines> plan(lines.size());
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const std::size_t group = GroupOf(groups, line);
    if (group == line) {
      plan[group].stays = THandle<TCustomMapObject>(lines[line]);
    } else {
      plan[group].go.emplace_back(lines[line]);
    }
  }
  for (auto &joined : all) {
    JoinedLines &group = plan[GroupOf(groups, owners[joined.lines.front()])];
    group.parts.push_back(std::move(joined.points));
    group.isChanged = group.isChanged || joined.lines.size() > 1;
  }
  return plan;
}

}  // namespace

TCustomMapObject *TMapEdits::SplitLine(TCustomMapObject &line, const TVertexPlace &at) {
  const auto vertices = std::as_const(line).GetParts().GetItems(at.part).GetPoints().Points();
  const std::size_t vertex = CheckedIndex(at.vertex, vertices.size(), "Point");
  TMapLayer *layer = line.GetLayer();
  const bool isInside = vertex > 0 && vertex + 1 < vertices.size();
  if (!isInside || layer == nullptr || !HasFreeVertices(line) || dynamic_cast<TPolyline *>(&line) == nullptr) {
    return nullptr;
  }
  const TEditScope oneStep(m_map, tr("split line"));
  auto other = line.Clone();
  TCustomMapObject front;
  TCustomMapObject back;
  for (int part = 0; part < line.GetParts().GetCount(); ++part) {
    const auto points = std::as_const(line).GetParts().GetItems(part).GetPoints().Points();
    if (part < at.part) AddPart(front.GetParts(), points);
    if (part == at.part) AddPart(front.GetParts(), points.first(vertex + 1));
    if (part == at.part) AddPart(back.GetParts(), points.subspan(vertex));
    if (part > at.part) AddPart(back.GetParts(), points);
  }
  other->SetParts(back.GetParts());
  const THandle<TCustomMapObject> made(other.get());
  std::vector<TTakenObject> placed;
  placed.push_back({layer->IndexOf(&line) + 1, std::move(other)});
  AllSteps steps;
  steps.Try([&] { SetGeometry(line, front.GetParts()); });
  steps.Try([&] { Put(*layer, std::move(placed), QString()); });
  steps.Rethrow();
  return made.Get();
}

int TMapEdits::JoinLines(Objects objects, double distance) {
  const TEditScope oneStep(m_map, tr("join lines"));
  int count = 0;
  AllSteps steps;
  for (const JoinedLines &joined : PlanJoining(LinesOf(objects), distance)) {
    if (!joined.isChanged || !joined.stays) continue;
    TCustomMapObject whole;
    for (const auto &part : joined.parts) AddPart(whole.GetParts(), part);
    std::vector<TCustomMapObject *> gone;
    for (const auto &line : joined.go) {
      if (line) gone.push_back(line.Get());
    }
    steps.Try([&] { SetGeometry(*joined.stays.Get(), whole.GetParts()); });
    steps.Try([&] { DeleteObjects(gone); });
    ++count;
  }
  steps.Rethrow();
  return count;
}

void TMapEdits::ReverseLines(Objects objects) {
  std::vector<TCustomMapObject *> outlines;
  std::copy_if(objects.begin(), objects.end(), std::back_inserter(outlines),
               [](const TCustomMapObject *object) { return HasFreeVertices(*object); });
  if (outlines.empty()) return;
  ChangeObjects(outlines, TObjectAspect::Geometry, tr("reverse lines (%n)", nullptr, int(outlines.size())),
                [](TCustomMapObject &object) {
                  TCustomMapObject reversed;
                  for (const TPart &part : std::as_const(object).GetParts().Items()) {
                    const auto points = part.GetPoints().Points();
                    AddPart(reversed.GetParts(), std::vector(points.rbegin(), points.rend()));
                  }
                  reversed.GetParts().SetBounds(object.GetBounds());
                  object.SetParts(reversed.GetParts());
                });
}

void TMapEdits::AlignObjects(Objects objects, TMapAlignment alignment) {
  TBounds frame = TBounds::Empty();
  for (const TCustomMapObject *object : objects) frame.Widen(detail::ShownBounds(*object));
  std::vector<TCustomMapObject *> moved;
  std::unordered_map<const TCustomMapObject *, TMapPoint> ways;
  for (TCustomMapObject *object : objects) {
    const TBounds bounds = detail::ShownBounds(*object);
    const TMapPoint way = bounds.IsInverted() ? TMapPoint{0, 0} : WayTo(alignment, frame, bounds);
    if ((way.X != 0 || way.Y != 0) && ways.emplace(object, way).second) moved.push_back(object);
  }
  if (moved.empty()) return;
  ChangeObjects(moved, TObjectAspect::Geometry, tr("align objects (%n)", nullptr, int(moved.size())),
                [&ways](TCustomMapObject &object) {
                  const TMapPoint &way = ways.at(&object);
                  object.MoveBy(way.X, way.Y);
                });
}

}  // namespace tessera
