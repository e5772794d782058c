// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/SymbolFont.h>

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <QMutex>

#include <array>
#include <atomic>
#include <memory>

/// The resource of a shared library registers itself when the library is loaded; in a static build only this call
/// does it. The macro must stand outside of any namespace.
static void InitSymbolResource() {
  Q_INIT_RESOURCE(symbols);
}

namespace tessera::detail {
namespace {

constexpr int EmptyShape = 31;
constexpr int FirstSign = 32;
constexpr int SignCount = 36;
/// The font's codes are this plus the shape.
constexpr int FirstCode = 0xF000;

/// Which fonts there are. Asked once per family, and again when the application's fonts have changed.
class SymbolFamilies {
 public:
  /// Changes whenever earlier answers may be wrong.
  [[nodiscard]] unsigned Generation() const { return m_generation.load(std::memory_order_acquire); }

  [[nodiscard]] bool IsInstalled(const QString &family) {
    const QMutexLocker lock(&m_mutex);
    if (const auto known = m_installed.constFind(family); known != m_installed.cend()) return *known;
    const bool installed = QFontDatabase::hasFamily(family);
    m_installed.insert(family, installed);
    return installed;
  }

  /// Loads the library's font; once for an application object, since its fonts go with it.
  void EnsureLoaded() {
    const QMutexLocker lock(&m_mutex);
    if (m_application == qGuiApp) return;
    m_application = qGuiApp;
    InitSymbolResource();
    QFile file(QStringLiteral(":/tessera/symbols/TesseraSymbols.ttf"));
    if (file.open(QIODevice::ReadOnly)) QFontDatabase::addApplicationFontFromData(file.readAll());
    QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, qGuiApp, [this] { Forget(m_application); });
    QObject::connect(qGuiApp, &QObject::destroyed, [this] { Forget(nullptr); });
  }

 private:
  /// Forgets all answers; `application` is the one that has the library's font.
  void Forget(const QGuiApplication *application) {
    const QMutexLocker lock(&m_mutex);
    m_application = application;
    m_installed.clear();
    m_generation.fetch_add(1, std::memory_order_release);
  }

  QMutex m_mutex;
  QHash<QString, bool> m_installed;
  const QGuiApplication *m_application = nullptr;
  std::atomic<unsigned> m_generation = 1;
};

SymbolFamilies &Families() {
  // Never destroyed: an application object may outlive every other static one, and tells it of its end.
  static auto &families = *std::make_unique<SymbolFamilies>().release();
  return families;
}

/// The private use character of our own font for a shape.
QChar OwnCharacter(int shape) {
  if (shape <= EmptyShape) return QChar(FirstCode + EmptyShape);
  return QChar(FirstCode + FirstSign + (shape - FirstSign) % SignCount);
}

/// The character whose code is the shape.
QString PlainText(int shape) {
  return {QChar(static_cast<char16_t>(shape))};
}

/// @pre there is an application with fonts.
SymbolGlyph Resolve(const TFont &font, int shape) {
  Families().EnsureLoaded();
  if (font.GetName() != SymbolFontFamily && Families().IsInstalled(font.GetName())) return {font, PlainText(shape)};
  SymbolGlyph glyph = {font, QString(OwnCharacter(shape))};
  glyph.font.SetName(SymbolFontFamily.toString());
  return glyph;
}

/// An answer kept, with its question.
struct KeptGlyph {
  TFont font;
  int shape = 0;
  unsigned generation = 0;
  SymbolGlyph glyph;

  /// Names mostly share their characters, so that they need not be compared.
  [[nodiscard]] bool Answers(const TFont &otherFont, int otherShape, unsigned now) const {
    const QString &name = font.GetName();
    const QString &otherName = otherFont.GetName();
    return shape == otherShape && generation == now && font.GetColor() == otherFont.GetColor() &&
           font.GetSize() == otherFont.GetSize() && font.GetStyle() == otherFont.GetStyle() &&
           name.size() == otherName.size() && (name.constData() == otherName.constData() || name == otherName);
  }
};

/// As many as a map's legend has entries; each has one place, so that a question is compared with one answer only.
constexpr std::size_t KeptCount = 64;

std::size_t PlaceOf(const TFont &font, int shape) {
  const auto key = static_cast<std::size_t>(shape) * 31 + font.GetColor() * std::size_t{2654435761U} +
                   static_cast<std::size_t>(font.GetSize()) * 7;
  return (key ^ key >> 16U) % KeptCount;
}

}  // namespace

const SymbolGlyph &ResolveSymbol(const TFont &font, int shape) {
  thread_local std::array<KeptGlyph, KeptCount> kept;
  KeptGlyph &entry = kept[PlaceOf(font, shape)];
  const unsigned generation = Families().Generation();
  if (entry.Answers(font, shape, generation)) return entry.glyph;
  const bool hasFonts = qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr;
  entry.glyph = hasFonts ? Resolve(font, shape) : SymbolGlyph{font, PlainText(shape)};
  entry.font = font;
  entry.shape = shape;
  // An answer without an application is not kept: generation 0 never comes.
  entry.generation = hasFonts ? generation : 0;
  return entry.glyph;
}

}  // namespace tessera::detail
