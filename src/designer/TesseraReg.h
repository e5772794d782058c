// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>
#include <vector>

namespace tessera::designer {

/// The plugin by which form designers and QUiLoader know Tessera's components. Loading it changes nothing in the
/// process, and neither does what is made in a designer.
class TesseraReg : public QObject, public QDesignerCustomWidgetCollectionInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
  Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

 public:
  explicit TesseraReg(QObject *parent = nullptr);
  ~TesseraReg() override;

  /// In the order of the pages and of each page.
  [[nodiscard]] QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

 private:
  std::vector<std::unique_ptr<QDesignerCustomWidgetInterface>> m_entries;
};

}  // namespace tessera::designer
