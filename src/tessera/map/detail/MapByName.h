// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

namespace tessera {
class TTessera;
}

namespace tessera::detail {

/// Calls `changed` whenever a widget may have come onto another form: when it, or the window without a parent in which
/// it has stood, is put into a parent. Lives as long as the widget.
class FormWatch : public QObject {
 public:
  FormWatch(QWidget &member, std::function<void()> changed);
  bool eventFilter(QObject *watched, QEvent *event) override;

 private:
  void WatchForm();

  QWidget &m_member;
  QPointer<QWidget> m_form;
  std::function<void()> m_changed;
};

/// The link of a companion to its map as form files have it: by the map's name. It is the map of that name in the
/// nearest surroundings of the companion on the same form. A form makes its widgets in any order, so a name waits for
/// its map: until the map gets the name, or it and the companion come together on one form.
///
/// Lives as long as the companion, whose map `setMap` sets and `getMap` answers.
class MapByName : public QObject {
  Q_OBJECT

 public:
  MapByName(QWidget &companion, std::function<void(TTessera *)> setMap, std::function<TTessera *()> getMap);

  /// The name that waits; otherwise that of the companion's map, which may have been set another way; may be empty.
  [[nodiscard]] QByteArray GetName() const;
  /// Looks for the map anew, whatever the name was before. Until it is there the companion has none.
  void SetName(const QByteArray &name);
  /// The companion got a map another way: nothing waits any more.
  void Forget();

 private:
  friend void AnnounceMap(TTessera &map);
  void Resolve();

  QWidget &m_companion;
  std::function<void(TTessera *)> m_setMap;
  std::function<TTessera *()> m_getMap;
  QByteArray m_waiting;
};

/// Gives a map to the companions on its form that wait for its name.
void AnnounceMap(TTessera &map);
/// From now on the map is announced whenever it gets a name or comes onto a form.
void AnnounceMapAlways(TTessera &map);

}  // namespace tessera::detail
