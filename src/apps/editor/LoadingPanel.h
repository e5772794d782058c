// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QProgressBar;

namespace tessera::apps {

class LayerFiles;

/// The progress of files that are being opened, with a button that gives them up, for a status bar. Hidden when there
/// are none.
class LoadingPanel : public QWidget {
  Q_OBJECT

 public:
  explicit LoadingPanel(LayerFiles &files, QWidget *parent = nullptr);

 private:
  void Show(const QString &fileName, int percent);

  QProgressBar *m_bar;
};

}  // namespace tessera::apps
