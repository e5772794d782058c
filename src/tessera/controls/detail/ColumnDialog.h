// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataValue.h>

#include <QDialog>

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace tessera::detail {

/// Asks for name, type and, of a text, size of a new column.
class ColumnDialog : public QDialog {
 public:
  explicit ColumnDialog(QWidget *parent);

  [[nodiscard]] QString GetName() const;
  [[nodiscard]] TDataType GetType() const;
  /// In characters; 0 for all but texts.
  [[nodiscard]] int GetSize() const;

 private:
  QLineEdit *m_name;
  QComboBox *m_type;
  QSpinBox *m_size;
};

}  // namespace tessera::detail
