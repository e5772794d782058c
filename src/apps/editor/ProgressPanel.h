// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QElapsedTimer>
#include <QProgressBar>

namespace tessera::apps {

/// The progress of loading and saving, for a status bar. It paints itself while the work goes on, without letting any
/// other event in. The map's own painting shows no progress: no widget can be painted while another one is.
class ProgressPanel : public QProgressBar {
  Q_OBJECT

 public:
  explicit ProgressPanel(const TTessera &map, QWidget *parent = nullptr);

 private:
  void Start(TTessera *sender, int min, int max, const QString &caption);
  void Show(TTessera *sender, int position);
  void Stop(TTessera *sender);

  QElapsedTimer m_sinceRepaint;
};

}  // namespace tessera::apps
