// SPDX-License-Identifier: MIT
#include <icons/ThemedIcon.h>

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include <utility>

/// The icons come with a static library, whose resources nobody else asks for. Not in a namespace, as the macro wants.
static void LoadIcons() {
  Q_INIT_RESOURCE(tessera_icons);
}

namespace tessera {
namespace {

class ThemedIconEngine : public QIconEngine {
 public:
  explicit ThemedIconEngine(QByteArray drawing) : m_drawing(std::move(drawing)) {}

  void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const QColor color = QGuiApplication::palette().color(
        mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active, QPalette::WindowText);
    QSvgRenderer(QByteArray(m_drawing).replace("#000000", color.name().toLatin1())).render(painter, rect);
  }
  QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  /// Any size will do, but the form designer takes an icon without sizes for none.
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override { return {{16, 16}, {24, 24}}; }
  [[nodiscard]] QIconEngine *clone() const override { return new ThemedIconEngine(m_drawing); }

 private:
  QByteArray m_drawing;
};

}  // namespace

QIcon ThemedIcon(const QString &name) {
  LoadIcons();
  QFile file(QStringLiteral(":/tessera/icons/%1.svg").arg(name));
  return QIcon(new ThemedIconEngine(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()));
}

}  // namespace tessera
