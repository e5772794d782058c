// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/form/TFormTools.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapByName.h>

namespace tessera::form {

TFormTool::TFormTool(std::unique_ptr<TCustomMapTool> tool, QWidget *parent)
    : TFormComponent(std::move(tool), parent),
      m_mapByName(new detail::MapByName(
          *this,
          [this](TTessera *map) {
            if (GetTool()) GetTool()->SetTessera(map);
          },
          [this] { return GetTool() ? GetTool()->GetTessera() : nullptr; })) {
  connect(GetTool(), &TCustomMapTool::OnComplete, this, &TFormTool::OnComplete);
  connect(GetTool(), &TCustomMapTool::OnCancel, this, &TFormTool::OnCancel);
  connect(GetTool(), &TCustomMapTool::OnToolStateChanged, this, &TFormTool::OnToolStateChanged);
}

bool TFormTool::GetActive() const {
  return GetTool() && GetTool()->GetActive();
}

void TFormTool::SetActive(bool isActive) {
  if (GetTool()) GuardedCall([&] { GetTool()->SetActive(isActive); });
}

QString TFormTool::GetDisplayName() const {
  return GetTool() ? GetTool()->GetDisplayName() : QString();
}

void TFormTool::SetDisplayName(const QString &name) {
  if (GetTool()) GetTool()->SetDisplayName(name);
}

TCustomMapTool::TCursor TFormTool::GetCursor() const {
  return GetTool() ? GetTool()->GetCursor() : TCustomMapTool::crDefault;
}

void TFormTool::SetCursor(TCustomMapTool::TCursor cursor) {
  if (GetTool()) GetTool()->SetCursor(cursor);
}

QByteArray TFormTool::GetMapName() const {
  return m_mapByName->GetName();
}

void TFormTool::SetMapName(const QByteArray &name) {
  m_mapByName->SetName(name);
}

TIdentifyTool::TIdentifyTool(QWidget *parent) : TFormToolOf(parent) {
  connect(Get(), &tessera::TIdentifyTool::OnIdentify, this, &TIdentifyTool::OnIdentify);
}

TMeasureTool::TMeasureTool(QWidget *parent) : TFormToolOf(parent) {
  connect(Get(), &tessera::TMeasureTool::OnMeasure, this, &TMeasureTool::OnMeasure);
}

}  // namespace tessera::form
