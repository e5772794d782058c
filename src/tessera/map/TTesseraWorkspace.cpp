// SPDX-License-Identifier: MIT
// Workspaces, opened as whole maps.
#include <tessera/base/THandle.h>
#include <tessera/formats/detail/WorkspaceText.h>
#include <tessera/map/detail/TesseraPrivate.h>
#include <tessera/objects/TMapScopes.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tessera {
namespace {

/// The path of a file or folder as it is on the disk, where letter case may differ; empty when there is none.
QString FoundEntry(const QString &path, QDir::Filter kind) {
  const QFileInfo wanted(path);
  if (kind == QDir::Files ? wanted.isFile() : wanted.isDir()) return path;
  if (wanted.path() == path || wanted.fileName().isEmpty()) return {};
  const QString folder = FoundEntry(wanted.path(), QDir::Dirs);
  if (folder.isEmpty()) return {};
  for (const QString &entry : QDir(folder).entryList(kind)) {
    if (entry.compare(wanted.fileName(), Qt::CaseInsensitive) == 0) return QDir(folder).filePath(entry);
  }
  return {};
}

/// A table's file: at its own path, or in the folder of the workspace, by its whole name or by the last part of it.
QString FileOf(const QString &table, const QDir &folder) {
  const QString path = QString(table).replace(u'\\', u'/') + QStringLiteral(".tab");
  for (const QString &candidate : {path, folder.filePath(path), folder.filePath(QFileInfo(path).fileName())}) {
    QString found = FoundEntry(QDir::cleanPath(candidate), QDir::Files);
    if (!found.isEmpty()) return found;
  }
  return {};
}

QString LayerNameOf(const QString &table) {
  return QString(table).replace(u'\\', u'/').section(u'/', -1);
}

void TakeStyle(TMapLayer &layer, const detail::WorkspaceText &text, int number) {
  if (const auto brush = text.BrushOf(number)) layer.SetDefaultBrush(*brush);
  if (const auto pen = text.PenOf(number)) layer.SetDefaultPen(*pen);
  if (const auto font = text.FontOf(number)) layer.SetDefaultFont(*font);
}

void TakeSettings(TMapLayer &layer, const detail::WorkspaceText &text, int number) {
  const detail::WorkspaceDisplay display = text.DisplayOf(number);
  if (display == detail::WorkspaceDisplay::Off) layer.SetVisible(false);
  if (display == detail::WorkspaceDisplay::Global) TakeStyle(layer, text, number);
  layer.SetAutoLabel(text.IsAutoLabelled(number));
}

}  // namespace

TWorkspaceReport TTessera::LoadWOR(const QString &fileName) {
  TWorkspaceReport report;
  QFile file(fileName);
  report.isRead = file.open(QIODevice::ReadOnly);
  if (!report.isRead) return report;
  const detail::WorkspaceText text(file.readAll());
  text.ListStatements(report);
  const std::vector<detail::WorkspaceTable> tables = text.Tables();
  const auto count = int(tables.size());
  const std::optional<int> editable = text.EditableLayer();
  // The workspace counts from the top, the map from the bottom.
  for (int number = count; number >= 1; --number) {
    const QString &table = tables[std::size_t(number - 1)].name;
    const QString path = FileOf(table, QFileInfo(fileName).dir());
    if (path.isEmpty()) {
      report.missingTables << table;
      continue;
    }
    const THandle<TMapLayer> layer(d->layers->Add(QString(), LayerNameOf(table)));
    if (layer) TakeSettings(*layer.Get(), text, number);
    const bool isWhole = layer && layer->LoadFromFile(path, LayerNameOf(table)) && layer->GetSource().losses.isEmpty();
    if (!isWhole) report.unreadTables << path;
    if (layer && editable == number) layer->SetEditable(true);
  }
  if (const auto center = text.Center()) {
    const TUpdateScope update(*this);
    SetCenterX(center->X);
    SetCenterY(center->Y);
  }
  return report;
}

}  // namespace tessera
