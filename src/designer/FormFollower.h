// SPDX-License-Identifier: MIT
#pragma once

#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QHash>
#include <QPointer>

namespace tessera {
class TTessera;
}

namespace tessera::designer {

/// The maps that stand on a form in a designer, by their names.
[[nodiscard]] QStringList GetMapNames(QDesignerFormWindowInterface &form);

/// Follows a form in the making, with which it lives. A component that comes onto it and has no map there is linked to
/// the map if there is just one; so are all when such a map comes. A map that is renamed keeps its companions. A form
/// that is opened stays as it was saved.
class FormFollower : public QObject {
  Q_OBJECT

 public:
  /// Follows all forms of a designer and teaches its property editor what these components need. Only the first call
  /// for a designer does anything.
  static void Install(QDesignerFormEditorInterface &core);

 private:
  explicit FormFollower(QDesignerFormWindowInterface &form);
  void Managed(QWidget *widget);
  void Rename(const QString &before, const QString &after);
  void LinkNew();
  void LinkTo(const QString &map, QWidget &companion);

  QDesignerFormWindowInterface &m_form;
  QList<QPointer<QWidget>> m_new;
  QHash<const QObject *, QString> m_names;  ///< of the maps
};

}  // namespace tessera::designer
