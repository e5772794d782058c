// SPDX-License-Identifier: MIT
#include <tessera/form/TFormComponent.h>

namespace tessera::form {

TFormComponent::TFormComponent(std::unique_ptr<QObject> component, QWidget *parent)
    : QWidget(parent), m_component(component.release()) {
  QObject *object = m_component;
  object->setParent(this);
  connect(this, &QObject::objectNameChanged, object, [object](const QString &name) { object->setObjectName(name); });
  // Layouts leave out what is hidden.
  setFixedSize(0, 0);
  hide();
}

}  // namespace tessera::form
