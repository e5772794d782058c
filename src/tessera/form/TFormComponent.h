// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QPointer>
#include <QWidget>

#include <memory>

namespace tessera::form {

/// Base of what a form has in the place of a component that is no widget, since form files know only widgets. In a
/// program it is never seen and takes no room; the component is its child and has its name, so that
/// `form->findChild<TPanTool *>("panTool")` finds it. A derived class publishes what the component publishes, under the
/// same names.
class TESSERA_WIDGETS_EXPORT TFormComponent : public QWidget {
  Q_OBJECT

 public:
  [[nodiscard]] QSize sizeHint() const override { return {0, 0}; }

 protected:
  /// Becomes the owner of `component`.
  TFormComponent(std::unique_ptr<QObject> component, QWidget *parent);
  /// None when it was deleted.
  [[nodiscard]] QObject *GetComponent() const { return m_component; }

 private:
  QPointer<QObject> m_component;
};

}  // namespace tessera::form
