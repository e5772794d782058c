// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/THandle.h>
#include <tessera/layers/TMapDataLink.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr char LinkIndex[] = "Data link";

}  // namespace

void TMapDataLinks::Insert(int index, TMapDataLink *link) {
  m_links.insert(m_links.begin() + std::ptrdiff_t(CheckedIndex(index, m_links.size() + 1, LinkIndex)), link);
}

void TMapDataLinks::Remove(const TMapDataLink *link) {
  const auto found = std::find(m_links.begin(), m_links.end(), link);
  if (found != m_links.end()) m_links.erase(found);
}

TMapDataLink *TMapDataLinks::GetMapDataLink(int index) const {
  return m_links[CheckedIndex(index, m_links.size(), LinkIndex)];
}

void TMapDataLinks::SetMapDataLink(int index, TMapDataLink *link) {
  m_links[CheckedIndex(index, m_links.size(), LinkIndex)] = link;
}

void TMapDataLinks::TraceMapEvent(TMapDataLinkEvent event, TObject *sender) {
  if (m_links.empty()) return;
  const std::weak_ptr<TMapDataLinks *const> self = m_self;
  std::vector<THandle<TMapDataLink>> links;
  for (TMapDataLink *link : m_links) links.emplace_back(link);
  const THandle<TObject> subject(sender);
  AllSteps steps;
  for (const auto &link : links) {
    const bool isHere =
        !self.expired() && link && std::find(m_links.begin(), m_links.end(), link.Get()) != m_links.end();
    if (isHere && (subject || sender == nullptr)) steps.Try([&] { link->MapEvent(event, sender, 0); });
  }
  steps.Rethrow();
}

TMapDataLink::~TMapDataLink() {
  SetLinks(nullptr);
}

void TMapDataLink::SetLinks(TMapDataLinks *links) {
  if (TMapDataLinks *present = GetLinks()) present->Remove(this);
  m_links.reset();
  if (links == nullptr) return;
  m_links = links->m_self;
  links->Add(this);
}

TMapDataLinks *TMapDataLink::GetLinks() const {
  const auto links = m_links.lock();
  return links ? *links : nullptr;
}

void TMapDataLink::MapEvent(TMapDataLinkEvent /*event*/, TObject * /*sender*/, int /*info*/) {}

}  // namespace tessera
