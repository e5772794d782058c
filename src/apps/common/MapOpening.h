// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/MapFiles.h>
#include <tessera/map/TTessera.h>

namespace tessera::apps {

/// Whether the name is that of a workspace.
[[nodiscard]] bool IsWorkspaceName(const QString &fileName);

/// Loads a map file into a new layer on top, or a workspace (.wor) into its layers, one answer each, from the bottom
/// up. What the workspace lacks is told with the first of them; when nothing came of it, the only answer has no layer.
[[nodiscard]] std::vector<TLoadedFile> OpenMapFile(TTessera &map, const QString &fileName);

/// The filter of file dialogs for workspaces.
[[nodiscard]] QString WorkspaceNameFilter();

}  // namespace tessera::apps
