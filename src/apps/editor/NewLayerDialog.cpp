// SPDX-License-Identifier: MIT
#include <apps/editor/NewLayerDialog.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

namespace tessera::apps {
namespace {

enum Column { NameColumn, TypeColumn, SizeColumn, ColumnCount };

struct TypeRow {
  TDataType type;
  const char *text;
};
constexpr TypeRow Types[] = {
    {TDataType::dtString, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Text")},
    {TDataType::dtInteger, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Whole number")},
    {TDataType::dtSmallInt, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Small whole number")},
    {TDataType::dtFloat, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Number")},
    {TDataType::dtDecimal, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Decimal number")},
    {TDataType::dtDate, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Date")},
    {TDataType::dtTime, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Time")},
    {TDataType::dtDateTime, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Date and time")},
    {TDataType::dtBoolean, QT_TRANSLATE_NOOP("tessera::apps::NewLayerDialog", "Yes or no")},
};
constexpr int LargestSize = 254;
constexpr int UsualSize = 50;

}  // namespace

NewLayerDialog::NewLayerDialog(QWidget *parent)
    : QDialog(parent), m_name(new QLineEdit(tr("New layer"), this)), m_fields(new QTableWidget(0, ColumnCount, this)) {
  setWindowTitle(tr("New layer"));
  m_fields->setHorizontalHeaderLabels({tr("Name"), tr("Type"), tr("Size")});
  m_fields->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  auto *form = new QFormLayout(this);
  form->addRow(tr("&Name:"), m_name);
  form->addRow(tr("&Fields:"), m_fields);
  form->addRow(QString(), MakeButtons());
  auto *answer = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(answer, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(answer, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(answer);
  AddRow();
  m_fields->item(0, NameColumn)->setText(tr("Name"));
  m_name->selectAll();
}

QWidget *NewLayerDialog::MakeButtons() {
  auto *buttons = new QDialogButtonBox(this);
  connect(buttons->addButton(tr("&Add field"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
          &NewLayerDialog::AddRow);
  connect(buttons->addButton(tr("&Remove field"), QDialogButtonBox::ActionRole), &QPushButton::clicked, this,
          &NewLayerDialog::RemoveRow);
  return buttons;
}

void NewLayerDialog::AddRow() {
  const int row = m_fields->rowCount();
  m_fields->insertRow(row);
  m_fields->setItem(row, NameColumn, new QTableWidgetItem);
  auto *type = new QComboBox;
  for (const TypeRow &each : Types) type->addItem(tr(each.text), int(each.type));
  m_fields->setCellWidget(row, TypeColumn, type);
  auto *size = new QSpinBox;
  size->setRange(1, LargestSize);
  size->setValue(UsualSize);
  m_fields->setCellWidget(row, SizeColumn, size);
  connect(type, &QComboBox::currentIndexChanged, size,
          [size](int index) { size->setEnabled(Types[index].type == TDataType::dtString); });
  m_fields->setCurrentCell(row, NameColumn);
}

void NewLayerDialog::RemoveRow() {
  m_fields->removeRow(m_fields->currentRow());
}

QString NewLayerDialog::GetLayerName() const {
  return m_name->text();
}

void NewLayerDialog::AddFieldsTo(TDataFields &fields) const {
  for (int row = 0; row < m_fields->rowCount(); ++row) {
    const QString name = m_fields->item(row, NameColumn)->text().trimmed();
    if (name.isEmpty()) continue;
    const auto *type = static_cast<QComboBox *>(m_fields->cellWidget(row, TypeColumn));
    const auto *size = static_cast<QSpinBox *>(m_fields->cellWidget(row, SizeColumn));
    fields.Add(name, TDataType(type->currentData().toInt()), size->isEnabled() ? size->value() : 0);
  }
}

}  // namespace tessera::apps
