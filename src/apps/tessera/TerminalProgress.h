// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QElapsedTimer>

namespace tessera::apps {

/// Draws the progress of a map as a bar on standard error, if that is a terminal. Short work shows nothing, and nothing
/// of the bar is left on the line in the end.
class TerminalProgress : public QObject {
  Q_OBJECT

 public:
  explicit TerminalProgress(TTessera &map);

 private:
  void Start(TTessera *sender, int min, int max, const QString &caption);
  void Show(TTessera *sender, int position);
  void Stop(TTessera *sender);

  int m_min = 0;
  int m_max = 0;
  int m_shownPercent = -1;  // -1 while there is nothing on the line
  QString m_caption;
  QElapsedTimer m_sinceStart;
};

}  // namespace tessera::apps
