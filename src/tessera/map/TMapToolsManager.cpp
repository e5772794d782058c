// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TMapToolsManager.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr char ToolIndex[] = "Map tool";

}  // namespace

TMapToolsManager::~TMapToolsManager() {
  for (TCustomMapTool *tool : m_tools) {
    if (tool->GetMapToolsManager() == this) GuardedCall([tool] { tool->ForgetMap(); });
  }
}

void TMapToolsManager::Enter(std::size_t at, TCustomMapTool *tool) {
  m_tools.insert(m_tools.begin() + std::ptrdiff_t(at), tool);
  // A tool that was entered by hand does not know that it is here.
  connect(tool, &QObject::destroyed, this, [this, tool] { Remove(tool); });
}

void TMapToolsManager::Add(TCustomMapTool *tool) {
  Enter(m_tools.size(), tool);
}

void TMapToolsManager::Remove(const TCustomMapTool *tool) {
  std::erase(m_tools, tool);
}

TCustomMapTool *TMapToolsManager::GetMapTools(int index) const {
  return m_tools[CheckedIndex(index, m_tools.size(), ToolIndex)];
}

void TMapToolsManager::SetMapTools(int index, TCustomMapTool *tool) {
  const std::size_t at = CheckedIndex(index, m_tools.size(), ToolIndex);
  m_tools.erase(m_tools.begin() + index);
  Enter(at, tool);
}

int TMapToolsManager::GetActiveMapToolIndex() const {
  const auto active = std::ranges::find_if(m_tools, &TCustomMapTool::GetActive);
  return active == m_tools.end() ? -1 : int(active - m_tools.begin());
}

TCustomMapTool *TMapToolsManager::GetActiveMapTool() const {
  const int index = GetActiveMapToolIndex();
  return index < 0 ? nullptr : GetMapTools(index);
}

void TMapToolsManager::DeactivateAllBut(const TCustomMapTool &tool) {
  std::vector<QPointer<TCustomMapTool>> others(m_tools.begin(), m_tools.end());
  AllSteps steps;
  for (const auto &other : others) {
    if (other && other != &tool) steps.Try([&] { other->SetActive(false); });
  }
  steps.Rethrow();
}

}  // namespace tessera
