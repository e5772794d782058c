// SPDX-License-Identifier: MIT
#include "GridBench.h"

#include <tessera/controls/TDataBrowser.h>

#include <QAbstractTableModel>
#include <QApplication>

namespace tessera::bench {
namespace {

constexpr double MillisecondsPerSecond = 1000;
constexpr QSize GridSize(600, 400);

double MillisecondsOf(const std::function<void()> &work) {
  return MillisecondsPerSecond * SecondsOf(work);
}

/// Rows whose cells are all alike.
class BareRows : public QAbstractTableModel {
 public:
  BareRows(int rows, int columns) : m_rows(rows), m_columns(columns) {}
  [[nodiscard]] int rowCount(const QModelIndex & /*parent*/) const override { return m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex & /*parent*/) const override { return m_columns; }
  [[nodiscard]] QVariant data(const QModelIndex & /*index*/, int role) const override {
    return role == Qt::DisplayRole ? QVariant(QStringLiteral("value")) : QVariant();
  }

 private:
  int m_rows;
  int m_columns;
};

/// Milliseconds in which a view goes from the first row to the last in a hundred steps, shown at each.
double ScrollMs(QTableView &view) {
  constexpr int Steps = 100;
  const QAbstractItemModel &rows = *view.model();
  return MillisecondsOf([&] {
    for (int i = 1; i <= Steps; ++i) {
      view.scrollTo(rows.index(int(qint64(rows.rowCount() - 1) * i / Steps), 0));
      QApplication::processEvents();
    }
  });
}

}  // namespace

void MeasureGrid(const QString &path, QSize size, BenchTable &table, int runs) {
  constexpr double OpenLimitMs = 100;
  TesseraSide side(path, size);
  TMapLayer &layer = side.Layer();
  BareRows rows(layer.GetObjectCount(), layer.GetFields().GetVisibleFieldCount());
  TDataBrowser browser;
  QTableView bare;
  browser.resize(GridSize);
  bare.resize(GridSize);
  browser.show();
  bare.show();
  const auto open = [&] {
    browser.SetLayer(nullptr);
    QApplication::processEvents();
    return MillisecondsOf([&] {
      browser.SetLayer(&layer);
      QApplication::processEvents();
    });
  };
  const auto openBare = [&] {
    bare.setModel(nullptr);
    QApplication::processEvents();
    return MillisecondsOf([&] {
      bare.setModel(&rows);
      QApplication::processEvents();
    });
  };
  const QString ofRows = QStringLiteral("of %1 objects, or a table of as many bare rows").arg(layer.GetObjectCount());
  table.Measure({QStringLiteral("B opening the grid ") + ofRows, QStringLiteral("ms"), open, openBare, {}, OpenLimitMs},
                runs);
  const auto scroll = [&] { return ScrollMs(*browser.GetView()); };
  const auto scrollBare = [&] { return ScrollMs(bare); };
  table.Measure({QStringLiteral("B 100 steps through the grid ") + ofRows, QStringLiteral("ms"), scroll, scrollBare},
                runs);
}

}  // namespace tessera::bench
