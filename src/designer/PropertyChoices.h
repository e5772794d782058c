// SPDX-License-Identifier: MIT
#pragma once

#include <QDesignerFormEditorInterface>
#include <QObject>

class QLineEdit;

namespace tessera::designer {

/// Offers choices in the designer's property editor for properties that are names: the maps of the form for a link to a
/// map, the values of an enumeration for a property of a part (see ComponentSheet). They drop down when the editing of
/// such a property begins and by the arrow in its field; another text may be typed all the same.
class PropertyChoices : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the designer.
  explicit PropertyChoices(QDesignerFormEditorInterface &core);

 private:
  void FocusMoved(QWidget *to);
  /// For the property that is being edited.
  [[nodiscard]] QStringList GetChoices() const;

  QDesignerFormEditorInterface &m_core;
};

}  // namespace tessera::designer
