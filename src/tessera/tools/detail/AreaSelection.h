// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TShiftState.h>
#include <tessera/tools/detail/SelectionArea.h>

namespace tessera {

class TTessera;

namespace detail {

/// What a click of the selection tool does: see TSelectionTool.
void SelectByClick(TTessera &map, const TMapPoint &at, TShiftState keys);

enum class AreaRule {
  Meeting,
  Within,
};

/// Selects the objects of the selectable layers shown that meet an area, or lie within it: instead of what is selected,
/// with Shift beside it; with Ctrl deselects them. An area that is a point stands for a click there.
void SelectInArea(TTessera &map, const SelectionArea &area, AreaRule rule, TShiftState keys);

}  // namespace detail
}  // namespace tessera
