// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/MessageSink.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/TRegion.h>

#include <QApplication>
#include <QPaintEvent>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>

inline void PrintTo(const QString &text, std::ostream *stream) {
  *stream << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QRect &rect, std::ostream *stream) {
  *stream << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}
inline void PrintTo(const QRegion &region, std::ostream *stream) {
  for (const QRect &rect : region) PrintTo(rect, stream);
}

namespace tessera::test {

/// Notes which rectangles of a widget are painted.
class PaintLog : public QObject {
 public:
  QRegion region;
  bool eventFilter(QObject * /*watched*/, QEvent *event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent *>(event)->region();
    return false;
  }
};

/// A map that may go before its companions do. Messages are collected.
class ControlFixture : public testing::Test {
 protected:
  ControlFixture() : m_sinkBefore(SetMessageSink([this](const QString &text) { messages << text; })) {}
  ~ControlFixture() override { SetMessageSink(m_sinkBefore); }

  TMapLayer *AddLayer(const QString &name) { return map->GetLayers()->Add(QString(), name); }
  static void Settle() {
    // Twice, because an event may ask for another one.
    QApplication::processEvents();
    QApplication::processEvents();
  }
  /// The names of the map's layers.
  QString LayerNames() const {
    QStringList names;
    for (const auto &layer : map->GetLayers()->Items()) names << layer->GetName();
    return names.join(u' ');
  }

  QStringList messages;
  std::unique_ptr<TTessera> map = std::make_unique<TTessera>();

 private:
  TMessageSink m_sinkBefore;
};

}  // namespace tessera::test
