// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TFont.h>

#include <QListWidget>

namespace tessera::apps {

/// The characters of a symbol font as a grid of pictures, one of which is chosen.
class SymbolPicker : public QListWidget {
  Q_OBJECT

 public:
  explicit SymbolPicker(QWidget *parent = nullptr);

  /// Shows the characters in a font; the same one stays chosen.
  void ShowFont(const TFont &font);
  void Choose(int shape);
  /// The character's code.
  [[nodiscard]] int GetShape() const;
};

}  // namespace tessera::apps
