// SPDX-License-Identifier: MIT
#include <apps/editor/ColorButton.h>
#include <apps/editor/OptionsDialog.h>
#include <apps/editor/SymbolPicker.h>
#include <tessera/controls/StyleNames.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

namespace tessera::apps {
namespace {

constexpr int WidestPenPx = 40;
constexpr int LargestSymbolPt = 96;

QSpinBox *MakeNumber(int value, int largest, const QString &unit) {
  auto *box = new QSpinBox;
  box->setRange(1, largest);
  box->setSuffix(unit);
  box->setValue(value);
  return box;
}

/// A choice whose entries stand in the order of an enumeration.
template <typename Enum>
QComboBox *MakeChoice(const QStringList &entries, Enum value) {
  auto *box = new QComboBox;
  box->addItems(entries);
  box->setCurrentIndex(int(value));
  return box;
}

}  // namespace

OptionsDialog::OptionsDialog(TTesseraOptions &options, QWidget *parent)
    : QDialog(parent),
      m_options(options),
      m_textFont(options.GetDefaultTextFont()),
      m_symbolFont(options.GetDefaultSymbolFont()) {
  setWindowTitle(tr("New objects"));
  auto *pages = new QTabWidget(this);
  pages->addTab(MakeLinePage(), tr("&Lines"));
  pages->addTab(MakeAreaPage(), tr("&Areas"));
  pages->addTab(MakeTextPage(), tr("&Texts"));
  pages->addTab(MakeSymbolPage(), tr("&Symbols"));
  auto *answer = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(answer, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(answer, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto *column = new QVBoxLayout(this);
  column->addWidget(pages);
  column->addWidget(answer);
}

QWidget *OptionsDialog::MakeLinePage() {
  const TPen &pen = m_options.GetDefaultPen();
  auto *page = new QWidget;
  auto *form = new QFormLayout(page);
  form->addRow(tr("&Colour:"), m_penColor = new ColorButton(pen.GetColor()));
  form->addRow(tr("&Width:"), m_penWidth = MakeNumber(pen.GetWidth(), WidestPenPx, tr(" px")));
  form->addRow(tr("&Style:"), m_penStyle = MakeChoice(PenStyleNames(), pen.GetStyle()));
  return page;
}

QWidget *OptionsDialog::MakeAreaPage() {
  const TBrush &brush = m_options.GetDefaultBrush();
  auto *page = new QWidget;
  auto *form = new QFormLayout(page);
  form->addRow(tr("&Colour:"), m_brushColor = new ColorButton(brush.GetColor()));
  form->addRow(tr("&Style:"), m_brushStyle = MakeChoice(BrushStyleNames(), brush.GetStyle()));
  m_useBackground = new QCheckBox(tr("&Background"));
  m_useBackground->setChecked(m_options.GetUseBGColor());
  form->addRow(m_useBackground, m_background = new ColorButton(m_options.GetDefaultBGColor()));
  return page;
}

QWidget *OptionsDialog::MakeTextPage() {
  auto *page = new QWidget;
  auto *form = new QFormLayout(page);
  form->addRow(tr("&Font:"), m_textFontButton = new QPushButton);
  form->addRow(tr("&Colour:"), m_textColor = new ColorButton(m_textFont.GetColor()));
  connect(m_textFontButton, &QPushButton::clicked, this, &OptionsDialog::ChooseTextFont);
  ShowTextFont();
  return page;
}

QWidget *OptionsDialog::MakeSymbolPage() {
  auto *page = new QWidget;
  auto *form = new QFormLayout(page);
  form->addRow(m_symbols = new SymbolPicker);
  form->addRow(tr("S&ize:"), m_symbolSize = MakeNumber(m_symbolFont.GetSize(), LargestSymbolPt, tr(" pt")));
  form->addRow(tr("&Colour:"), m_symbolColor = new ColorButton(m_symbolFont.GetColor()));
  connect(m_symbolColor, &ColorButton::ColorChanged, this, &OptionsDialog::ShowSymbols);
  m_symbols->Choose(m_options.GetDefaultSymbolShape());
  ShowSymbols();
  return page;
}

void OptionsDialog::ChooseTextFont() {
  bool isChosen = false;
  const QFont font = QFontDialog::getFont(&isChosen, m_textFont.ToQFont(), this);
  if (!isChosen) return;
  m_textFont = TFont::FromQFont(font, m_textColor->GetColor());
  ShowTextFont();
}

void OptionsDialog::ShowTextFont() {
  m_textFontButton->setText(tr("%1, %2 pt").arg(m_textFont.GetName()).arg(m_textFont.GetSize()));
}

void OptionsDialog::ShowSymbols() {
  m_symbolFont.SetColor(m_symbolColor->GetColor());
  m_symbols->ShowFont(m_symbolFont);
}

void OptionsDialog::accept() {
  TPen pen;
  pen.SetColor(m_penColor->GetColor());
  pen.SetWidth(m_penWidth->value());
  pen.SetStyle(TPenStyle(m_penStyle->currentIndex()));
  m_options.SetDefaultPen(pen);
  TBrush brush;
  brush.SetColor(m_brushColor->GetColor());
  brush.SetStyle(TBrushStyle(m_brushStyle->currentIndex()));
  m_options.SetDefaultBrush(brush);
  m_options.SetUseBGColor(m_useBackground->isChecked());
  m_options.SetDefaultBGColor(m_background->GetColor());
  m_textFont.SetColor(m_textColor->GetColor());
  m_options.SetDefaultTextFont(m_textFont);
  m_symbolFont.SetSize(m_symbolSize->value());
  m_options.SetDefaultSymbolFont(m_symbolFont);
  m_options.SetDefaultSymbolShape(m_symbols->GetShape());
  QDialog::accept();
}

}  // namespace tessera::apps
