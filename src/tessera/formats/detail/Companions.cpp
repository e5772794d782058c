// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/Companions.h>

#include <QFileInfo>

namespace tessera::detail {

QString CompanionOf(const QString &fileName, const QString &ending) {
  const qsizetype dot = fileName.lastIndexOf(u'.');
  const QString bare = dot > fileName.lastIndexOf(u'/') ? fileName.first(dot) : fileName;
  QString usual = bare + u'.' + ending;
  if (QFileInfo::exists(usual)) return usual;
  for (unsigned capitals = 1; capitals < 1U << unsigned(ending.size()); ++capitals) {
    QString extension = ending;
    for (qsizetype i = 0; i < ending.size(); ++i) {
      if ((capitals >> unsigned(i) & 1U) != 0) extension[i] = extension[i].toUpper();
    }
    if (QString other = bare + u'.' + extension; QFileInfo::exists(other)) return other;
  }
  return usual;
}

}  // namespace tessera::detail
