// SPDX-License-Identifier: MIT
#include <apps/editor/RecentFiles.h>

#include <QFileInfo>
#include <QSettings>

namespace tessera::apps {
namespace {

constexpr int MostFiles = 8;

QString Key() {
  return QStringLiteral("recentFiles");
}

}  // namespace

RecentFiles::RecentFiles(const QString &title, QWidget *parent) : QMenu(title, parent) {
  connect(this, &QMenu::aboutToShow, this, &RecentFiles::Fill);
  // A submenu without entries would never be about to show.
  Fill();
}

QStringList RecentFiles::GetFiles() const {
  return QSettings().value(Key()).toStringList();
}

void RecentFiles::Add(const QString &fileName) {
  QStringList files = GetFiles();
  const QString path = QFileInfo(fileName).absoluteFilePath();
  files.removeAll(path);
  files.prepend(path);
  QSettings().setValue(Key(), QStringList(files.mid(0, MostFiles)));
  Fill();
}

void RecentFiles::Fill() {
  clear();
  for (const QString &file : GetFiles()) {
    // An ampersand in a name is no mnemonic.
    addAction(QString(file).replace(u'&', QStringLiteral("&&")), this, [this, file] { Q_EMIT Chosen(file); });
  }
  setEnabled(!isEmpty());
}

}  // namespace tessera::apps
