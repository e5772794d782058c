// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/TMapCompanion.h>
#include <tessera/map/detail/MapByName.h>

namespace tessera {

class TMapCompanion::Link : public TMapDataLink {
 public:
  explicit Link(TMapCompanion &companion) : m_companion(companion) {}
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) override {
    GuardedCall([&] { m_companion.MapEvent(event, sender); });
  }

 private:
  TMapCompanion &m_companion;
};

TMapCompanion::TMapCompanion(QWidget *parent)
    : QWidget(parent),
      m_link(std::make_unique<Link>(*this)),
      m_mapByName(new detail::MapByName(
          *this, [this](TTessera *map) { SetMap(map); }, [this] { return GetMap(); })) {}

TMapCompanion::~TMapCompanion() = default;

TTessera *TMapCompanion::GetMap() const {
  return m_link->GetMap();
}

QByteArray TMapCompanion::GetMapName() const {
  return m_mapByName->GetName();
}

void TMapCompanion::SetMapName(const QByteArray &name) {
  m_mapByName->SetName(name);
}

void TMapCompanion::SetMap(TTessera *map) {
  m_mapByName->Forget();
  if (TTessera *present = GetMap()) {
    present->disconnect(this);
    present->GetPainting()->disconnect(this);
  }
  m_link->SetMap(map);
  if (map != nullptr) {
    connect(map, &TTessera::OnScreenRepainted, this, [this] { GuardedCall([this] { MapRepainted(); }); });
    connect(map, &QObject::destroyed, this, [this] { GuardedCall([this] { MapChanged(); }); });
  }
  GuardedCall([this] { MapChanged(); });
}

}  // namespace tessera
