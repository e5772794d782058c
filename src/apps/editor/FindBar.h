// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QToolBar>

class QLabel;
class QLineEdit;

namespace tessera::apps {

/// Finds the objects of a layer by an expression over their attributes, selects them and brings them into view. Hidden
/// at first.
class FindBar : public QToolBar {
  Q_OBJECT

 public:
  using LayerChoice = std::function<TMapLayer *()>;

  /// Looks in the layer that `layer` answers; may be none.
  FindBar(TTessera &map, LayerChoice layer, QWidget *parent = nullptr);

  /// Shows the bar, ready for typing.
  void Open();
  /// Finds what the text of the bar says. An error is told, and its place marked in the text; a search that takes long
  /// can be given up.
  void Find();
  [[nodiscard]] QLineEdit &GetEdit() const { return *m_expression; }
  /// What the last search came to.
  [[nodiscard]] QString GetAnswer() const;

 private:
  void FindIn(TMapLayer &layer);
  void Select(const std::vector<TCustomMapObject *> &objects);

  TTessera &m_map;
  LayerChoice m_layer;
  QLineEdit *m_expression;
  QLabel *m_answer;
};

}  // namespace tessera::apps
