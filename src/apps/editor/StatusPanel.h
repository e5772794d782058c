// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>

#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <optional>

class QLabel;

namespace tessera::apps {

class MeasureLabel;

/// What a status bar shows of a map: what the last load came to, the progress of loading, the editable layer, how many
/// objects are selected, how long and large that or what is drawn is, the map point under the cursor, and the zoom.
class StatusPanel : public QWidget {
  Q_OBJECT

 public:
  explicit StatusPanel(TTessera &map, QWidget *parent = nullptr);

  /// Shows one line; what does not fit can be read as a tool tip.
  void SetSummary(const QString &text);

  [[nodiscard]] QString GetSummary() const;
  [[nodiscard]] QString GetCoordinates() const;
  [[nodiscard]] QString GetZoom() const;
  [[nodiscard]] QString GetEditing() const;
  [[nodiscard]] QString GetSelection() const;
  [[nodiscard]] MeasureLabel &GetMeasureLabel() const { return *m_sizes; }

 protected:
  void changeEvent(QEvent *event) override;

 private:
  void ShowLayersAndSelection(const TTessera &map);
  void ShowCoordinates(const TTessera &map);
  void ShowZoom(const TTessera &map);
  /// A number in the format of the window, without groups of thousands.
  [[nodiscard]] QString NumberText(double number, int decimals) const;

  TTessera &m_map;
  QLabel *m_summary;
  QLabel *m_editing;
  QLabel *m_selection;
  MeasureLabel *m_sizes;
  QLabel *m_coordinates;
  QLabel *m_zoom;
  std::optional<QPoint> m_cursor;  // where it was last seen on the map
  QTimer m_refresh;
  MapFollower m_follower;
};

}  // namespace tessera::apps
