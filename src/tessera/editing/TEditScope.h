// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TMapHost.h>

#include <QPointer>

namespace tessera {

namespace detail {
class EditHistory;
}

/// Makes one step, with one text, of all edits of a map from here to the end of the block; none when there are none.
/// Scopes nest: the outermost makes the step. Nothing can be undone meanwhile. Without a map or a stack it does
/// nothing.
class TESSERA_CORE_EXPORT TEditScope {
 public:
  TEditScope(const TMapHost *map, const QString &text);
  ~TEditScope();
  TEditScope(const TEditScope &) = delete;
  TEditScope &operator=(const TEditScope &) = delete;

 private:
  QPointer<detail::EditHistory> m_history;
};

}  // namespace tessera
