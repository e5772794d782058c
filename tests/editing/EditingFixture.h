// SPDX-License-Identifier: MIT
#pragma once

#include "../support/FakeMapHost.h"
#include "../support/FolderFixture.h"

#include <tessera/base/MessageSink.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/TMapEdits.h>

#include <QUndoStack>

namespace tessera::test {

using Objects = std::vector<TCustomMapObject *>;

/// A map with an undo stack and one layer. Messages are collected instead of shown.
class TEditingFixture : public FolderFixture {
 protected:
  TEditingFixture()
      : m_sinkBefore(SetMessageSink([this](const QString &text) { messages.push_back(text.toStdString()); })) {
    host.layers = &layers;
    host.undoStack = &stack;
    layers.SetMap(&host);
    layer = layers.Insert(QString(), 0);
    host.Name(layer, "layer");
  }
  ~TEditingFixture() override { SetMessageSink(m_sinkBefore); }

  [[nodiscard]] static Objects OrderOf(const TMapLayer &of) {
    Objects order;
    for (int i = 0; i < of.GetObjectCount(); ++i) order.push_back(of.GetObjects(i));
    return order;
  }
  [[nodiscard]] Objects Order() const { return OrderOf(*layer); }
  [[nodiscard]] Objects Selected() const {
    const auto items = host.selection.Items();
    return {items.begin(), items.end()};
  }
  [[nodiscard]] TMapEdits Edits() { return TMapEdits(&host); }

  TFakeMapHost host;
  QUndoStack stack;
  TMapLayers layers;
  TMapLayer *layer = nullptr;
  std::vector<std::string> messages;

 private:
  TMessageSink m_sinkBefore;
};

}  // namespace tessera::test
