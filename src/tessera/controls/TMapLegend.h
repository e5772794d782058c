// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TMapDecoration.h>
#include <tessera/layers/LayerStyles.h>

#include <QTimer>

#include <unordered_map>

namespace tessera {

/// The layers that a map shows, the top one first, each with its name and samples of how its objects look: see
/// FindStyles. The map is asked again once its changes have been told, so many at once cost one look at it.
class TESSERA_WIDGETS_EXPORT TMapLegend : public TMapDecoration {
  Q_OBJECT
  Q_PROPERTY(int MaxStyles READ GetMaxStyles WRITE SetMaxStyles)

 public:
  /// What is shown of one layer.
  struct TEntry {
    QString name;
    std::vector<TStyleSample> styles;
  };

  explicit TMapLegend(QWidget *parent = nullptr);

  /// How many samples a layer has at the most; 8 at first.
  [[nodiscard]] int GetMaxStyles() const { return m_maxStyles; }
  void SetMaxStyles(int count);
  [[nodiscard]] const std::vector<TEntry> &GetEntries() const { return m_entries; }
  /// Looks at the map at once.
  void Refresh() override;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void PaintContent(QPainter &painter, const QRect &rect) const override;
  void MapChanged() override;
  void MapEvent(TMapDataLinkEvent event, TObject *sender) override;
  void MapRepainted() override;

 private:
  struct Found {
    THandle<TMapLayer> layer;
    int objectCount = 0;
    std::vector<TStyleSample> styles;
  };
  [[nodiscard]] const std::vector<TStyleSample> &StylesOf(TMapLayer &layer);

  int m_maxStyles = 8;
  std::vector<TEntry> m_entries;
  std::unordered_map<const TMapLayer *, Found> m_found;  // since the last change of an object
  QTimer m_refresh;
};

}  // namespace tessera
