// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TCustomMapTool.h>

#include <vector>

namespace tessera {

/// The tools of a map, in the order in which they came to it. Owns none of them; one that is destroyed is no longer
/// listed.
class TESSERA_WIDGETS_EXPORT TMapToolsManager : public QObject {
 public:
  using QObject::QObject;
  /// The tools are on no map any more; what they had begun on it is given up.
  ~TMapToolsManager() override;

  /// Appends a tool. It is TCustomMapTool::SetTessera that puts a tool on the map, and calls this.
  void Add(TCustomMapTool *tool);
  /// Takes a tool off the list; nothing when it is not there.
  void Remove(const TCustomMapTool *tool);
  [[nodiscard]] int GetCount() const { return int(m_tools.size()); }
  /// @throws ERangeError outside the count.
  [[nodiscard]] TCustomMapTool *GetMapTools(int index) const;
  /// Puts a tool into the place of another, which is no longer listed. @throws ERangeError outside the count.
  void SetMapTools(int index, TCustomMapTool *tool);
  /// The first active tool; -1 without one.
  [[nodiscard]] int GetActiveMapToolIndex() const;
  [[nodiscard]] TCustomMapTool *GetActiveMapTool() const;
  /// Makes every other tool inactive, each with its events, whatever handlers throw.
  void DeactivateAllBut(const TCustomMapTool &tool);

 private:
  void Enter(std::size_t at, TCustomMapTool *tool);

  std::vector<TCustomMapTool *> m_tools;
};

}  // namespace tessera
