// SPDX-License-Identifier: MIT
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/detail/CellValues.h>
#include <tessera/controls/detail/ColumnDialog.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>

namespace tessera::detail {
namespace {

constexpr int MostCharacters = 254;
constexpr int UsualCharacters = 50;

QString NameOf(TDataType type) {
  return type == TDataType::dtString ? TDataBrowser::tr("Text") : TypeNameOf({0, QString(), type, 0});
}

}  // namespace

ColumnDialog::ColumnDialog(QWidget *parent)
    : QDialog(parent), m_name(new QLineEdit(this)), m_type(new QComboBox(this)), m_size(new QSpinBox(this)) {
  setWindowTitle(TDataBrowser::tr("Add Column"));
  for (int i = 0; i <= int(TDataType::dtBoolean); ++i) m_type->addItem(NameOf(TDataType(i)));
  m_size->setRange(1, MostCharacters);
  m_size->setValue(UsualCharacters);
  auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto *form = new QFormLayout(this);
  form->addRow(TDataBrowser::tr("&Name:"), m_name);
  form->addRow(TDataBrowser::tr("&Type:"), m_type);
  form->addRow(TDataBrowser::tr("&Characters:"), m_size);
  form->addRow(buttons);
  connect(m_type, &QComboBox::currentIndexChanged, m_size, [this](int type) { m_size->setEnabled(type == 0); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QString ColumnDialog::GetName() const {
  return m_name->text();
}
TDataType ColumnDialog::GetType() const {
  return TDataType(m_type->currentIndex());
}
int ColumnDialog::GetSize() const {
  return GetType() == TDataType::dtString ? m_size->value() : 0;
}

}  // namespace tessera::detail
