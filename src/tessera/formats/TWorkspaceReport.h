// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tessera {

/// A statement of a workspace, by the line on which it begins.
struct TWorkspaceStatement {
  int line = 0;   ///< From 1.
  QString words;  ///< Its first line, cut after so many characters that it can be shown.
};

/// What became of a workspace that was opened.
struct TWorkspaceReport {
  bool isRead = false;                        ///< The file could be read at all.
  std::vector<TWorkspaceStatement> honoured;  ///< Taken over, at least in part.
  std::vector<TWorkspaceStatement> skipped;
  QStringList missingTables;  ///< Tables without a file, as the workspace names them.
  QStringList unreadTables;   ///< Files that no provider could read, or only in part.
};

}  // namespace tessera
