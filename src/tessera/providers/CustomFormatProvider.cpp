// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QStringList>

#include <algorithm>

namespace tessera {
namespace {

/// Makes the registry of the process exist as long as the library is loaded.
struct TRegistryLife {
  TRegistryLife() { FormatProviders = &registry; }
  ~TRegistryLife() { FormatProviders = nullptr; }
  TRegistryLife(const TRegistryLife &) = delete;
  TRegistryLife &operator=(const TRegistryLife &) = delete;

  TFormatProviders registry;
};

}  // namespace

// Set before any constructor of the process runs, so that an early provider sees that there is no registry yet.
constinit TFormatProviders *FormatProviders = nullptr;

namespace {
const TRegistryLife registryLife;
}  // namespace

TCustomFormatProvider::TCustomFormatProvider(QObject *parent) : QObject(parent) {
  if (FormatProviders != nullptr) FormatProviders->Add(this);
}

TCustomFormatProvider::~TCustomFormatProvider() {
  if (FormatProviders != nullptr) FormatProviders->Remove(this);
}

TFormatReport TCustomFormatProvider::TrySave(const TMapLayer & /*layer*/) const {
  return {};
}

void TCustomFormatProvider::SetDefault(bool value) {
  m_default = value;
  if (!value || FormatProviders == nullptr) return;
  for (int i = 0; i < FormatProviders->GetCount(); ++i) {
    TCustomFormatProvider *other = FormatProviders->GetProvider(i);
    if (other != this) other->SetDefault(false);
  }
}

int TFormatProviders::Add(TCustomFormatProvider *provider) {
  m_providers.push_back(provider);
  return GetCount() - 1;
}

int TFormatProviders::Remove(const TCustomFormatProvider *provider) {
  const auto found = std::find(m_providers.begin(), m_providers.end(), provider);
  if (found == m_providers.end()) return -1;
  const auto index = int(found - m_providers.begin());
  m_providers.erase(found);
  return index;
}

TCustomFormatProvider *TFormatProviders::GetProvider(int index) const {
  return m_providers[CheckedIndex(index, m_providers.size(), "Format provider")];
}

void TFormatProviders::SetProvider(int index, TCustomFormatProvider *provider) {
  m_providers[CheckedIndex(index, m_providers.size(), "Format provider")] = provider;
}

QString TFormatProviders::GetFilter() const {
  QStringList filters;
  for (const TCustomFormatProvider *provider : m_providers) filters.append(provider->GetFilter());
  return filters.join(u'|');
}

int TFormatProviders::GetFilterIndex() const {
  const auto found = std::find_if(m_providers.begin(), m_providers.end(),
                                  [](const TCustomFormatProvider *provider) { return provider->GetDefault(); });
  return found == m_providers.end() ? 0 : int(found - m_providers.begin());
}

TCustomFormatProvider *TFormatProviders::FindSuitableProvider(const QString &fileName) const {
  const auto found =
      std::find_if(m_providers.begin(), m_providers.end(), [&fileName](const TCustomFormatProvider *provider) {
        return provider->GetEnabled() && provider->CanProcessFile(fileName);
      });
  return found == m_providers.end() ? nullptr : *found;
}

TCustomFormatProvider *TFormatProviders::GetProviderByGUID(const QUuid &guid) const {
  const auto found =
      std::find_if(m_providers.begin(), m_providers.end(),
                   [&guid](const TCustomFormatProvider *provider) { return provider->GetGUID() == guid; });
  return found == m_providers.end() ? nullptr : *found;
}

}  // namespace tessera
