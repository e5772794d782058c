// SPDX-License-Identifier: MIT
#include <apps/common/FileFilters.h>

#include <QCoreApplication>
#include <QRegularExpression>

namespace tessera::apps {
namespace {

QString NameFilter(const QString &text, const QStringList &masks) {
  return text + QStringLiteral(" (") + masks.join(u' ') + u')';
}

/// The masks within the brackets at the end of a name filter.
QStringList MasksOf(const QString &nameFilter) {
  const qsizetype open = nameFilter.lastIndexOf(u'(');
  const qsizetype close = nameFilter.lastIndexOf(u')');
  if (open < 0 || close < open) return {};
  return nameFilter.sliced(open + 1, close - open - 1).split(u' ', Qt::SkipEmptyParts);
}

}  // namespace

QStringList ToNameFilters(const QString &providerFilter) {
  static const QRegularExpression betweenMasks(QStringLiteral("[;\\s]+"));
  static const QRegularExpression masksInText(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
  const QStringList pieces = providerFilter.split(u'|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
    const QStringList masks = pieces[i + 1].split(betweenMasks, Qt::SkipEmptyParts);
    if (!masks.isEmpty()) filters.append(NameFilter(QString(pieces[i]).remove(masksInText), masks));
  }
  return filters;
}

QString ToCommonNameFilter(const QStringList &nameFilters) {
  QStringList masks;
  for (const QString &filter : nameFilters) masks.append(MasksOf(filter));
  masks.removeDuplicates();
  return NameFilter(QCoreApplication::translate("tessera::apps::FileFilters", "All map files"), masks);
}

QString DefaultEnding(const QString &nameFilter) {
  return MasksOf(nameFilter).value(0).section(u'.', -1);
}

}  // namespace tessera::apps
