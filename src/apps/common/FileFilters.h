// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace tessera::apps {

/// The filters of format providers, texts and masks with vertical bars between them, as Qt's file dialogs take them:
/// "Maps (*.a; *.b)|*.a; *.b" becomes "Maps (*.a *.b)". A text without masks is left out.
[[nodiscard]] QStringList ToNameFilters(const QString &providerFilter);

/// One filter for all files that the filters of ToNameFilters let through: "All map files (*.a *.b)".
[[nodiscard]] QString ToCommonNameFilter(const QStringList &nameFilters);

/// The ending that a file gets whose name has none, without its dot: that of the filter's first mask.
[[nodiscard]] QString DefaultEnding(const QString &nameFilter);

}  // namespace tessera::apps
