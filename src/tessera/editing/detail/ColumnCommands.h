// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/detail/EditCommand.h>
#include <tessera/editing/detail/LayerColumns.h>

namespace tessera::detail {

/// A column that came or went.
class ColumnPresenceCommand : public EditCommand {
 public:
  enum class Step { Added, Removed };
  ColumnPresenceCommand(BeforeEdit before, const QString &text, TMapLayer &layer, LayerColumn column, Step step)
      : EditCommand(std::move(before), text), m_layer(&layer), m_column(std::move(column)), m_step(step) {}

 private:
  bool TakeBack() override { return m_step == Step::Added ? TakeOut() : PutBack(); }
  bool DoAgain() override { return m_step == Step::Added ? PutBack() : TakeOut(); }
  bool TakeOut();
  bool PutBack();

  THandle<TMapLayer> m_layer;
  LayerColumn m_column;
  Step m_step;
};

/// Other definitions of a layer's columns.
class ColumnsCommand : public ExchangeCommand {
 public:
  ColumnsCommand(BeforeEdit before, const QString &text, TMapLayer &layer, const TDataFields &others)
      : ExchangeCommand(std::move(before), text), m_layer(&layer), m_others(others) {}

 private:
  bool Exchange() override;

  THandle<TMapLayer> m_layer;
  TDataFields m_others;
};

}  // namespace tessera::detail
