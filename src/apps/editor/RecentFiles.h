// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace tessera::apps {

/// A menu of the files that were opened or saved last, the latest first, kept from one run to the next.
class RecentFiles : public QMenu {
  Q_OBJECT

 public:
  explicit RecentFiles(const QString &title, QWidget *parent = nullptr);

  void Add(const QString &fileName);
  [[nodiscard]] QStringList GetFiles() const;

 Q_SIGNALS:
  void Chosen(const QString &fileName);

 private:
  void Fill();
};

}  // namespace tessera::apps
