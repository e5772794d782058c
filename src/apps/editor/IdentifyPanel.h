// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TIdentifyTool.h>

#include <QTreeWidget>

namespace tessera::apps {

/// What there was at the last click of the identifying tool: layer and kind of each object, with its attributes.
class IdentifyPanel : public QTreeWidget {
  Q_OBJECT

 public:
  explicit IdentifyPanel(QWidget *parent = nullptr);

  void Show(const TIdentifyTool::Objects &objects);

 private:
  void Add(const TCustomMapObject &object);
};

}  // namespace tessera::apps
