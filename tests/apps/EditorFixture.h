// SPDX-License-Identifier: MIT
#pragma once

#include "MapFiles.h"

#include <apps/common/ProgramSetup.h>
#include <apps/editor/EditorTools.h>
#include <apps/editor/LayerFiles.h>
#include <apps/editor/MessageBar.h>
#include <apps/editor/StatusPanel.h>
#include <apps/editor/TEditorWindow.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessera::apps {

/// The editor's window on the screen, with settings of its own and a folder for files.
class EditorFixture : public testing::Test {
 protected:
  EditorFixture() {
    window.show();
    QApplication::processEvents();
  }
  /// Opens files and lets the window settle.
  void Open(const QStringList &files) {
    window.GetFiles().Open(files);
    WaitForFiles();
    QApplication::processEvents();
  }
  void WaitForFiles() {
    while (window.GetFiles().IsOpening()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  [[nodiscard]] static QByteArray BytesOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  [[nodiscard]] QString PathOf(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }

 private:
  /// Before the window, which reads its settings.
  struct Settings {
    explicit Settings(const QString &path) {
      QCoreApplication::setOrganizationName(QStringLiteral("tessera-tests"));
      QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, path);
      QSettings().clear();
    }
  };

 protected:
  const QTemporaryDir folder;
  const Settings settings{folder.path()};
  const TStandardProviders providers;
  TEditorWindow window;
  TTessera &map = window.GetMap();
  MessageBar &messages = window.GetMessageBar();
};

}  // namespace tessera::apps
