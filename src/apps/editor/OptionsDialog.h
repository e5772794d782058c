// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTesseraOptions.h>

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QPushButton;
class QSpinBox;

namespace tessera::apps {

class ColorButton;
class SymbolPicker;

/// Shows what new objects of a map start with, and changes it when the person accepts.
class OptionsDialog : public QDialog {
  Q_OBJECT

 public:
  explicit OptionsDialog(TTesseraOptions &options, QWidget *parent = nullptr);

  void accept() override;

 private:
  QWidget *MakeLinePage();
  QWidget *MakeAreaPage();
  QWidget *MakeTextPage();
  QWidget *MakeSymbolPage();
  void ChooseTextFont();
  void ShowTextFont();
  void ShowSymbols();

  TTesseraOptions &m_options;
  TFont m_textFont;
  TFont m_symbolFont;

  ColorButton *m_penColor = nullptr;
  QSpinBox *m_penWidth = nullptr;
  QComboBox *m_penStyle = nullptr;
  ColorButton *m_brushColor = nullptr;
  QComboBox *m_brushStyle = nullptr;
  QCheckBox *m_useBackground = nullptr;
  ColorButton *m_background = nullptr;
  QPushButton *m_textFontButton = nullptr;
  ColorButton *m_textColor = nullptr;
  SymbolPicker *m_symbols = nullptr;
  QSpinBox *m_symbolSize = nullptr;
  ColorButton *m_symbolColor = nullptr;
};

}  // namespace tessera::apps
