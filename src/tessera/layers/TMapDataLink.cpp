// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapDataLink.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr char LinkIndex[] = "Data link";

}  // namespace

TMapDataLinks::~TMapDataLinks() {
  // A link that was only entered into this list may follow another map.
  for (TMapDataLink *link : m_links) {
    if (link->m_links == this) link->m_links = nullptr;
  }
}

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

void TMapDataLinks::TraceMapEvent(TMapDataLinkEvent event, TObject *sender) const {
  for (TMapDataLink *link : m_links) link->MapEvent(event, sender, 0);
}

TMapDataLink::~TMapDataLink() {
  SetLinks(nullptr);
}

void TMapDataLink::SetLinks(TMapDataLinks *links) {
  if (m_links) m_links->Remove(this);
  m_links = links;
  if (m_links) m_links->Add(this);
}

void TMapDataLink::MapEvent(TMapDataLinkEvent /*event*/, TObject * /*sender*/, int /*info*/) {}

}  // namespace tessera
