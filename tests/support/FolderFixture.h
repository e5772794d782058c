// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessera::test {

/// A folder of its own for the files of a test.
class FolderFixture : public testing::Test {
 protected:
  [[nodiscard]] QString PathOf(const QString &name) const { return m_folder.filePath(name); }
  void WriteFile(const QString &name, const QByteArray &bytes) const {
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] QByteArray ReadFile(const QString &name) const {
    QFile file(PathOf(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
  }
  [[nodiscard]] QStringList Files() const {
    return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
  }

 private:
  QTemporaryDir m_folder;
};

}  // namespace tessera::test
