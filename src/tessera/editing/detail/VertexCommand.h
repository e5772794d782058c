// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/detail/EditCommand.h>
#include <tessera/objects/TCustomMapObject.h>

#include <optional>

namespace tessera::detail {

/// A vertex that takes another place, comes or goes.
struct VertexStep {
  enum Kind { Set, Insert, Remove };
  Kind kind;
  std::size_t index;
  TMapPoint point{};  // that comes
};

/// A few vertices of one part that are changed, in steps one after the other. Holds them alone, whatever else the part
/// has. Cost of an exchange: linear in the vertices of the object.
class VertexChange {
 public:
  /// To be made by the first exchange. @pre the part is there, and so are the vertices when their turn comes
  VertexChange(const TCustomMapObject &object, int part, std::vector<VertexStep> steps);

  /// Whether the part has as many vertices as it must have.
  [[nodiscard]] bool Fits(const TCustomMapObject &object) const;
  /// Makes the change and keeps the opposite one; the object gets the bounds that it has then.
  void Exchange(TCustomMapObject &object);

 private:
  int m_part;
  std::size_t m_count;
  std::vector<VertexStep> m_steps;
  std::optional<TBounds> m_bounds;  // none before the first exchange
};

class VertexCommand : public ExchangeCommand {
 public:
  VertexCommand(BeforeEdit before, const QString &text, const THandle<TCustomMapObject> &object, VertexChange change)
      : ExchangeCommand(std::move(before), text), m_object(object), m_change(std::move(change)) {}

 private:
  bool Exchange() override;

  THandle<TCustomMapObject> m_object;
  VertexChange m_change;
};

}  // namespace tessera::detail
