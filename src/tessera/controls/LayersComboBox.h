// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QComboBox>

namespace tessera {

namespace detail {
class MapByName;
}
class TLayersComboBox;

/// By which a combo box of layers follows its map: layers that are added and deleted get and lose their item; layers
/// that move leave the order of the items as it is, which is intended.
class TESSERA_WIDGETS_EXPORT TLayersComboBoxDataLink : public TMapDataLink {
 public:
  [[nodiscard]] TLayersComboBox *GetLayersComboBox() const { return m_comboBox; }
  void SetLayersComboBox(TLayersComboBox *comboBox) { m_comboBox = comboBox; }
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int info) override;

 private:
  TLayersComboBox *m_comboBox = nullptr;
};

/// A drop-down list from which a layer of a map is picked. Its items change only when the map tells of layers that were
/// added or deleted after it was attached: layers that are there already, inserted or renamed are not told of. The map
/// and the combo box may be destroyed in any order.
class TESSERA_WIDGETS_EXPORT TLayersComboBox : public QComboBox {
  Q_OBJECT
  Q_PROPERTY(QByteArray Map READ GetMapName WRITE SetMapName)

 public:
  explicit TLayersComboBox(QWidget *parent = nullptr);
  ~TLayersComboBox() override;

  /// The map that was set last; none before that and after it is gone.
  [[nodiscard]] TTessera *GetMap() const { return m_dataLink->GetMap(); }
  /// Follows another map. None is ignored.
  void SetMap(TTessera *map);
  /// The map by its name on the same form, which may come later.
  [[nodiscard]] QByteArray GetMapName() const;
  void SetMapName(const QByteArray &name);
  /// The layer that stands in the map where the selected item stands here, whatever the item says; none when there is
  /// no such item or layer.
  [[nodiscard]] TMapLayer *GetCurrentLayer() const;
  /// The layer for which an item was added; none when it is gone, or outside the items.
  [[nodiscard]] TMapLayer *GetItemLayer(int index) const;
  [[nodiscard]] TLayersComboBoxDataLink *GetDataLink() const { return m_dataLink.get(); }

 private:
  friend class TLayersComboBoxDataLink;
  void AddLayer(TMapLayer &layer);
  void DeleteLayer(const TObject *layer);

  std::unique_ptr<TLayersComboBoxDataLink> m_dataLink;
  detail::MapByName *m_mapByName;
};

}  // namespace tessera
