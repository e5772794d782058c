// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

namespace tessera {

namespace detail {
class MapByName;
}

/// Base of widgets that follow a map. Map and companion may be destroyed in any order.
class TESSERA_WIDGETS_EXPORT TMapCompanion : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QByteArray Map READ GetMapName WRITE SetMapName)

 public:
  ~TMapCompanion() override;

  /// The map that is followed; none before there is one and after it is gone.
  [[nodiscard]] TTessera *GetMap() const;
  void SetMap(TTessera *map);
  /// The map by its name on the same form, which may come later.
  [[nodiscard]] QByteArray GetMapName() const;
  void SetMapName(const QByteArray &name);

 protected:
  explicit TMapCompanion(QWidget *parent);

  /// Another map is followed from now on, or none any more. What this throws ends in the message sink; so for the next
  /// two.
  virtual void MapChanged() {}
  /// The map tells of a change of its layers, objects or selection.
  virtual void MapEvent(TMapDataLinkEvent /*event*/, TObject * /*sender*/) {}
  /// The map has painted itself anew: its view may have changed, and so may layers of which no link is told.
  virtual void MapRepainted() {}

 private:
  class Link;
  std::unique_ptr<Link> m_link;
  detail::MapByName *m_mapByName;
};

}  // namespace tessera
