// SPDX-License-Identifier: MIT
#include <tessera/map/detail/PartProperty.h>

#include <QMetaObject>
#include <QVariant>

namespace tessera::detail {

void SetPropertyOfPart(QObject &component, const QByteArray &name) {
  const QVariant value = component.property(name.constData());
  const qsizetype dot = name.indexOf('.');
  if (!value.isValid() || dot < 0) return;
  auto *part = component.property(name.left(dot).constData()).value<QObject *>();
  const QByteArray ofPart = name.mid(dot + 1);
  if (part == nullptr || part->metaObject()->indexOfProperty(ofPart.constData()) < 0) return;
  part->setProperty(ofPart.constData(), value);
  component.setProperty(name.constData(), {});
}

}  // namespace tessera::detail
