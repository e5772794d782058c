// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>

#include <QDialog>

class QLineEdit;
class QTableWidget;

namespace tessera::apps {

/// Asks for the name and the columns of a new layer.
class NewLayerDialog : public QDialog {
  Q_OBJECT

 public:
  explicit NewLayerDialog(QWidget *parent = nullptr);

  [[nodiscard]] QString GetLayerName() const;
  /// The columns that have a name, in order.
  void AddFieldsTo(TDataFields &fields) const;

 public Q_SLOTS:
  void AddRow();
  void RemoveRow();

 private:
  QWidget *MakeButtons();

  QLineEdit *m_name;
  QTableWidget *m_fields;
};

}  // namespace tessera::apps
