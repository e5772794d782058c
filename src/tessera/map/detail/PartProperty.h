// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace tessera::detail {

/// Form files set a property of a part of a component by a dotted name on the component, as in "Options.UseBGColor",
/// which makes it a dynamic property of the component: this hands it on to the part, where it is from then on.
/// Nothing for a name without such a part, or one whose part has no such property.
void SetPropertyOfPart(QObject &component, const QByteArray &name);

}  // namespace tessera::detail
