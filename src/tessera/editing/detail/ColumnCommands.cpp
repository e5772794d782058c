// SPDX-License-Identifier: MIT
#include <tessera/editing/detail/ColumnCommands.h>

namespace tessera::detail {

bool ColumnPresenceCommand::TakeOut() {
  if (!m_layer || !m_column.CanBeTakenOutOf(*m_layer.Get())) return false;
  m_column.TakeOutOf(*m_layer.Get());
  return true;
}

bool ColumnPresenceCommand::PutBack() {
  if (!m_layer || !m_column.CanBePutInto(*m_layer.Get())) return false;
  m_column.PutInto(*m_layer.Get());
  return true;
}

bool ColumnsCommand::Exchange() {
  if (!m_layer || m_layer->GetFieldCount() != m_others.GetCount()) return false;
  const TDataFields wanted = std::exchange(m_others, m_layer->GetFields());
  RedefineColumns(*m_layer.Get(), wanted);
  return true;
}

}  // namespace tessera::detail
