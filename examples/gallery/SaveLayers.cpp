// SPDX-License-Identifier: MIT
#include "SaveLayers.h"

#include <tessera/base/Exceptions.h>

#include <QDir>

#include <algorithm>
#include <array>

namespace tessera::gallery {
namespace {

/// Circles and sprites have no shape in a MIF file. Headings would have, but a reader that looks for the keywords of
/// the format, as Tessera's own does, takes a text with "TRegion" in it for the start of a region.
constexpr std::array NotSaved{u"Circles", u"Sprites", u"Headings"};

QString FileNameOf(const TMapLayer &layer) {
  return layer.GetName().toLower().replace(u' ', u'_') + QStringLiteral(".mif");
}

}  // namespace

void SaveLayers(TTessera &map, const QString &folder) {
  const QDir directory(folder);
  if (!directory.mkpath(QStringLiteral("."))) {
    throw EInOutError(folder + QStringLiteral(": the folder cannot be made"));
  }
  for (const auto &layer : map.GetLayers()->Items()) {
    const bool isSaved = std::none_of(NotSaved.begin(), NotSaved.end(),
                                      [&](const char16_t *name) { return layer->GetName() == QStringView(name); });
    // The answer is false by rule, whatever provider of MIF files is asked; failures are thrown.
    if (isSaved) layer->SaveToFile(directory.filePath(FileNameOf(*layer)));
  }
}

}  // namespace tessera::gallery
