// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/MapFiles.h>

#include <functional>

namespace tessera {
class TCustomFormatProvider;
}

namespace tessera::detail {

// What is told to people of files that were loaded or saved, one line each, with the name of the file.

[[nodiscard]] QString About(const QString &fileName, const QString &words);
[[nodiscard]] QString Words(const TFormatDefect &defect);
[[nodiscard]] QString UnknownFormat();
/// Everything but the error that the report and the messages tell of.
[[nodiscard]] QStringList WarningsOf(const QString &fileName, const TFormatReport &report, const QStringList &messages);

/// The report that `work` answers. Whatever it throws becomes the error of an otherwise empty one.
[[nodiscard]] TFormatReport GuardedReport(const std::function<TFormatReport()> &work);

/// The provider for a file, whose description goes into `loaded`; none, with an error there, when the file cannot even
/// be handed to one.
[[nodiscard]] TCustomFormatProvider *FindProviderFor(const QString &path, TLoadedFile &loaded);

/// Completes `loaded`, which has its report, with error and warnings, and gives the layer the name of its file. False
/// when the layer, or none, is of no use.
[[nodiscard]] bool Judge(TLoadedFile &loaded, TMapLayer *layer, const QStringList &messages);

}  // namespace tessera::detail
