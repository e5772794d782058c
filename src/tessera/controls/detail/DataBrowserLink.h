// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TDataBrowser.h>

namespace tessera::detail {

/// By which a data browser follows its map.
class DataBrowserLink : public TMapDataLink {
 public:
  explicit DataBrowserLink(TDataBrowser &browser) : m_browser(browser) {}
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) override { m_browser.MapEvent(event, sender); }

 private:
  TDataBrowser &m_browser;
};

}  // namespace tessera::detail
