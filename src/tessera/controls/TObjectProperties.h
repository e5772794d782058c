// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TMapCompanion.h>

#include <QTimer>

class QTableView;

namespace tessera {

namespace detail {
class ObjectPropertiesModel;
}

/// The properties of the selected objects of a map as a table of names and values: kind, tools, symbol or text, the
/// geometry as numbers, and the values of the layer's columns. Where some of the selected objects are in the editable
/// layer these are shown, and can be changed; otherwise all of them are shown and nothing can be changed. A value that
/// is not the same for all is shown as "(different)", and a new one goes to all.
///
/// Every change is one step that can be undone, where the map has an undo stack (see TMapEdits). Of several objects
/// those properties are shown that all of them have; a centre or a side that is set is that of each. Setting a side
/// scales an object, whose opposite side stays, and a circle in both directions. That of symbols, texts, sprites and
/// circles on the ground cannot be set: their size is one of pixels, or of metres.
class TESSERA_WIDGETS_EXPORT TObjectProperties : public TMapCompanion {
  Q_OBJECT
  Q_PROPERTY(bool ReadOnly READ GetReadOnly WRITE SetReadOnly)

 public:
  explicit TObjectProperties(QWidget *parent = nullptr);

  /// Whether nothing can be changed, in whatever layer. False at first.
  [[nodiscard]] bool GetReadOnly() const { return m_isReadOnly; }
  void SetReadOnly(bool readOnly);
  /// Names in the first column, values in the second.
  [[nodiscard]] QTableView *GetView() const { return m_view; }
  /// Looks at the selection at once. It does so by itself when the map has told all its changes.
  void Refresh();

 protected:
  /// The locale of the widget is how numbers and dates are shown and typed.
  void changeEvent(QEvent *event) override;
  void MapChanged() override { m_refresh.start(); }
  void MapEvent(TMapDataLinkEvent event, TObject *sender) override;

 private:
  detail::ObjectPropertiesModel *m_model;
  QTableView *m_view;
  QTimer m_refresh;
  bool m_isReadOnly = false;
};

}  // namespace tessera
